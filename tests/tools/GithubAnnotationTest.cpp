#include "tools/GithubAnnotation.h"

#include <tests/support/ToolSupport.h>

using namespace KORMAK;
using namespace ToolSupport;

class GithubAnnotationTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void annotation_data();
    void annotation();
    void check();
};

void GithubAnnotationTest::annotation_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<QString>("message");
    QTest::addColumn<QString>("line");

    QTest::newRow("plain") << "jobs/a.xml"
                           << "unknown"
                           << "::error file=jobs/a.xml,line=3,col=5,title=bad-value::Job/Nam: unknown";
    QTest::newRow("from here") << "./a.xml"
                               << "unknown"
                               << "::error file=a.xml,line=3,col=5,title=bad-value::Job/Nam: unknown";
    QTest::newRow("special characters in the name")
        << "a,b:c%d\re\nf.xml"
        << "x"
        << "::error file=a%2Cb%3Ac%25d%0De%0Af.xml,line=3,col=5,title=bad-value::Job/Nam: x";
    QTest::newRow("special characters in the message")
        << "a.xml"
        << "50 %, a::b\n::warning::c"
        << "::error file=a.xml,line=3,col=5,title=bad-value::Job/Nam: 50 %25, a::b\\n::warning::c";
}

void GithubAnnotationTest::annotation()
{
    QFETCH(QString, path);
    QFETCH(QString, message);
    QFETCH(QString, line);

    const Inspection::FindingData finding{0, message, "Job/Nam", FindingId::BadValue,
                                          Finding::Severity::Error};
    QCOMPARE(QString(githubAnnotation(path, finding, Inspection::TextPosition{3, 5})), line + '\n');
}

void GithubAnnotationTest::check()
{
    const Folder folder;
    folder.write("bad.xml", jobWithoutAuthor().replace("<Name>", "<Name a=''>"));
    folder.write("good.xml", completeJob());
    const Run run = folder.run({"check", "--format", "github", "bad.xml", "good.xml", "none.xml"});
    QCOMPARE(run.err, QString());
    QCOMPARE(
        run.out,
        QString("::error file=bad.xml,line=3,col=5,title=missing-element::Job/JobHeader/Author: missing\n"
                "::warning file=bad.xml,line=10,col=9,title=unknown-attribute::Job/AntennaData/Name/@a: "
                "unknown attribute, which is passed over\n"
                "::error file=none.xml,title=unreadable::cannot be read: No such file or directory\n"
                "3 files: 1 good, 1 at fault, 1 unreadable\n"));
    QCOMPARE(run.status, 2);
    QCOMPARE(folder.run({"check", "--format", "github", "--quiet", "good.xml", "."}).out.count("::"), 4);
    QCOMPARE(folder.run({"check", "--format", "github", "good.xml"}).out, QString());
}

QTEST_GUILESS_MAIN(GithubAnnotationTest)
#include "GithubAnnotationTest.moc"
