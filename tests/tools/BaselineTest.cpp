#include <tests/support/ToolSupport.h>

#include <QRegularExpression>

using namespace ToolSupport;

class BaselineTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void onlyWhatIsNewCounts();
    void asManyAsThereWere();
    void text();
    void namesAreRelativeToIt();
    void severitiesAndStrictness();
    void formats();
    void whatCannotBeRead();
    void faultyBaselines_data();
    void faultyBaselines();
    void wrongCalls();
};

namespace {

QByteArray dubiousJob()
{
    return jobWith("<Name>", "<Name b=''>");
}

} // namespace

void BaselineTest::onlyWhatIsNewCounts()
{
    const Folder folder;
    folder.write("bad.xml", jobWithoutAuthor());
    folder.write("dubious.xml", dubiousJob());
    folder.write("good.xml", completeJob());
    const QStringList files{"bad.xml", "dubious.xml", "good.xml"};
    const Run made = folder.run(QStringList{"check", "--write-baseline", "known.json"} + files);
    QCOMPARE(made.err, QString());
    QCOMPARE(made.out,
             QString("bad.xml: at fault, as the baseline has it\n"
                     "dubious.xml: Job, complete\n"
                     "good.xml: Job, complete\n"
                     "3 files: 1 good, 2 with nothing new (findings that are known: 2)\n"));
    QCOMPARE(made.status, 0);

    const QStringList check = QStringList{"check", "--baseline", "known.json"} + files;
    const Run known = folder.run(check);
    QCOMPARE(known.err, QString());
    QCOMPARE(known.out, made.out);
    QCOMPARE(known.status, 0);

    folder.write("good.xml", jobWithoutAuthor());
    folder.write("bad.xml", jobWithoutAuthor().replace("<Name>", "<Nam/><Name>"));
    const Run changed = folder.run(check);
    QVERIFY(changed.err.startsWith("bad.xml:10:9: error: Job/AntennaData/Nam: unknown element"));
    QVERIFY(changed.err.contains("good.xml:3:5: error: Job/JobHeader/Author: missing"));
    QVERIFY(!changed.err.contains("bad.xml:3:5"));
    QCOMPARE(changed.out,
             QString("dubious.xml: Job, complete\n"
                     "3 files: 1 with nothing new, 2 at fault (findings that are known: 2)\n"));
    QCOMPARE(changed.status, 1);

    // What is left of a known fault is a new warning.
    folder.write("good.xml", completeJob());
    folder.write("bad.xml", jobWithoutAuthor().replace("<Name>", "<Name c=''>"));
    QCOMPARE(folder.run(check).status, 0);
    QCOMPARE(folder.run(check + QStringList("--strict")).status, 1);
}

void BaselineTest::asManyAsThereWere()
{
    const Folder folder;
    folder.write("a.xml", jobWith("<Name>", "<Foo/><Name>"));
    QCOMPARE(folder.run({"check", "--write-baseline", "known.json", "a.xml"}).status, 0);
    const QStringList check{"check", "--baseline", "known.json", "a.xml"};
    folder.write("a.xml", jobWith("<Name>", "\n\n<Foo/><Name>"));
    QCOMPARE(folder.run(check).status, 0);
    folder.write("a.xml", jobWith("<Name>", "<Foo/><Foo/><Name>"));
    const Run run = folder.run(check);
    QCOMPARE(run.err.count("unknown element"), 1);
    QCOMPARE(run.status, 1);
}

/// In an order that does not depend on that of the files.
void BaselineTest::text()
{
    const Folder folder;
    folder.write("a \"1\".xml", jobWithoutAuthor().replace("<Name>", "<Foo/><Foo/><Name>"));
    folder.write("b.xml", dubiousJob());
    QCOMPARE(folder.run({"check", "--write-baseline", "known.json", "b.xml", "a \"1\".xml"}).status, 0);
    const QString expected =
        R"({"version": 1, "findings": [)"
        "\n"
        R"({"file": "a \"1\".xml", "id": "missing-element", "path": "Job/JobHeader/Author", "count": 1},)"
        "\n"
        R"({"file": "a \"1\".xml", "id": "unknown-element", "path": "Job/AntennaData/Foo", "count": 2},)"
        "\n"
        R"({"file": "b.xml", "id": "unknown-attribute", "path": "Job/AntennaData/Name/@b", "count": 1})"
        "\n]}\n";
    QCOMPARE(folder.read("known.json"), expected);
    QCOMPARE(folder.run({"check", "--baseline", "known.json", "b.xml", "a \"1\".xml"}).status, 0);
    // One without anything is read, too.
    folder.write("b.xml", completeJob());
    QCOMPARE(folder.run({"check", "--write-baseline", "none.json", "b.xml"}).status, 0);
    QCOMPARE(folder.run({"check", "--baseline", "none.json", "b.xml"}).status, 0);
}

void BaselineTest::namesAreRelativeToIt()
{
    const Folder folder;
    QVERIFY(QDir(folder.path(".")).mkpath("jobs/north"));
    folder.write("jobs/north/a.xml", jobWithoutAuthor());
    QCOMPARE(folder.run({"check", "-r", "--write-baseline", "jobs/known.json", "jobs"}).status, 0);
    QVERIFY(folder.read("jobs/known.json").contains("\"file\": \"north/a.xml\""));
    for (const QString &path : {QString("./jobs/../jobs/north/a.xml"), folder.path("jobs/north/a.xml")})
        QCOMPARE(folder.run({"check", "--baseline", folder.path("jobs/known.json"), path}).status, 0);
    QCOMPARE(runTool(folder.path("jobs/north"), {"check", "--baseline", "../known.json", "a.xml"}).status, 0);
    // Another file with the same fault is new.
    folder.write("jobs/a.xml", jobWithoutAuthor());
    QCOMPARE(folder.run({"check", "--baseline", "jobs/known.json", "jobs/a.xml"}).status, 1);
}

void BaselineTest::severitiesAndStrictness()
{
    const Folder folder;
    folder.write("a.xml", dubiousJob());
    folder.write("b.xml", jobOnDecoder());
    const QStringList strict{"check", "--strict", "a.xml", "b.xml"};
    QCOMPARE(folder.run(strict).status, 1);
    QCOMPARE(folder.run(strict + QStringList{"--write-baseline", "known.json"}).status, 0);
    QCOMPARE(folder.run(strict + QStringList{"--baseline", "known.json"}).status, 0);
    const QStringList asError{"--severity", "unknown-attribute=error", "--baseline", "known.json"};
    QCOMPARE(folder.run(strict + asError).status, 0);
    QCOMPARE(
        folder.run({"check", "--severity", "unknown-attribute=off", "--write-baseline", "less.json", "a.xml"})
            .status,
        0);
    QVERIFY(!folder.read("less.json").contains("unknown-attribute"));
}

void BaselineTest::formats()
{
    const Folder folder;
    folder.write("a.xml", jobWithoutAuthor());
    folder.write("b.xml", dubiousJob());
    QCOMPARE(folder.run({"check", "--write-baseline", "known.json", "a.xml"}).status, 0);
    const QStringList check{"check", "--baseline", "known.json", "a.xml", "b.xml", "--format"};
    const QList<QJsonObject> lines = jsonLines(folder.run(check + QStringList("json")).out);
    QCOMPARE(lines.size(), 4);
    QCOMPARE(lines[0]["status"].toString(), QString("faulty"));
    QCOMPARE(lines[0]["findings"].toInt(-1), 0);
    QCOMPARE(lines[3]["known"].toInt(), 1);
    QCOMPARE(lines[3]["knownFindings"].toInt(), 1);
    QCOMPARE(lines[3]["faulty"].toInt(-1), 0);
    QCOMPARE(folder.run(check + QStringList("sarif")).out.count("\"ruleId\""), 1);
    QCOMPARE(folder.run(check + QStringList("github")).out.count("::error"), 0);
    QCOMPARE(folder.run(check + QStringList{"text", "-q"}).out,
             QString("2 files: 1 with warnings, 1 with nothing new (findings that are known: 1)\n"));
}

/// It is never known.
void BaselineTest::whatCannotBeRead()
{
    const Folder folder;
    const Run made = folder.run({"check", "--write-baseline", "known.json", "none.xml"});
    QCOMPARE(made.err, QString("none.xml: error: cannot be read: No such file or directory\n"));
    QCOMPARE(made.status, 2);
    QCOMPARE(folder.read("known.json"), QString("{\"version\": 1, \"findings\": [\n]}\n"));
    folder.write("a.xml", jobWithoutAuthor());
    const Run mixed = folder.run({"check", "--write-baseline", "-", "a.xml"});
    QCOMPARE(mixed.out, QString());
    QVERIFY(mixed.err.contains("--write-baseline needs a file: standard output tells of the documents"));
    QCOMPARE(mixed.status, 2);
    const Run unwritten = folder.run({"check", "--write-baseline", "no folder/known.json", "a.xml"});
    QVERIFY2(unwritten.err.startsWith("no folder/known.json: error: cannot be written: "),
             qPrintable(unwritten.err));
    QCOMPARE(unwritten.status, 2);
}

void BaselineTest::faultyBaselines_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QString>("reason");

    const QByteArray begin = "{\"version\": 1, \"findings\": [";
    const QString none = "is none that --write-baseline of this version writes";
    const QString incomplete = "has a finding without file, id, path or count";
    QTest::newRow("not JSON") << QByteArray("{") << "is not JSON: unterminated object";
    QTest::newRow("another version") << QByteArray("{\"version\": 2, \"findings\": []}") << none;
    QTest::newRow("no findings") << QByteArray("{\"version\": 1}") << none;
    QTest::newRow("no object") << QByteArray("[]") << none;
    QTest::newRow("without a file") << begin + R"({"id": "a", "path": "b", "count": 1}]})" << incomplete;
    QTest::newRow("without an id") << begin + R"({"file": "a", "path": "b", "count": 1}]})" << incomplete;
    QTest::newRow("without a path") << begin + R"({"file": "a", "id": "b", "count": 1}]})" << incomplete;
    QTest::newRow("without a count") << begin + R"({"file": "a", "id": "b", "path": ""}]})" << incomplete;
    QTest::newRow("nothing") << begin + "1]}" << incomplete;
}

void BaselineTest::faultyBaselines()
{
    QFETCH(QByteArray, text);
    QFETCH(QString, reason);

    const Folder folder;
    folder.write("a.xml", completeJob());
    folder.write("known.json", text);
    const Run run = folder.run({"check", "--baseline", "known.json", "a.xml"});
    QCOMPARE(run.out, QString());
    QCOMPARE(run.err, "kormak check: the baseline 'known.json' " + reason + '\n');
    QCOMPARE(run.status, 2);
}

void BaselineTest::wrongCalls()
{
    const Folder folder;
    folder.write("a.xml", completeJob());
    QCOMPARE(folder.run({"check", "--baseline", "none.json", "a.xml"}).err,
             QString("kormak check: the baseline 'none.json' cannot be read: No such file or directory\n"));
    const Run both = folder.run({"check", "--baseline", "a", "--write-baseline", "b", "a.xml"});
    QCOMPARE(
        both.err,
        QString("kormak check: only one of --baseline and --write-baseline can be given, and only once\n"));
    QCOMPARE(both.status, 2);
    QCOMPARE(folder.names(), QStringList("a.xml"));
}

QTEST_GUILESS_MAIN(BaselineTest)
#include "BaselineTest.moc"
