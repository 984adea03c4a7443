#include <tests/support/ToolSupport.h>

using namespace ToolSupport;

class ReportCommandTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void oneFile();
    void toFile();
    void standardInput();
    void faulty();
    void folder();
    void namesOfPages();
    void documentsStay();
    void sorted_data();
    void sorted();
    void unreadable();
    void notWritable();
    void wrongCalls_data();
    void wrongCalls();
};

void ReportCommandTest::oneFile()
{
    const Folder folder;
    folder.write("job.xml", completeJob());
    const Run run = folder.run({"report", "job.xml"});
    QCOMPARE(run.status, 0);
    QCOMPARE(run.err, QString());
    QVERIFY(run.out.startsWith("<!DOCTYPE html>"));
    QVERIFY(run.out.contains("job.xml"));
    QVERIFY(run.out.contains("Mara Lind"));
    QVERIFY(run.out.contains("<ol class=\"source\">"));
}

void ReportCommandTest::toFile()
{
    const Folder folder;
    folder.write("job.xml", completeJob());
    const Run run = folder.run({"report", "-o", "page.html", "job.xml"});
    QCOMPARE(run.status, 0);
    QCOMPARE(run.out + run.err, QString());
    QCOMPARE(folder.names(), (QStringList{"job.xml", "page.html"}));
    QVERIFY(folder.read("page.html").contains("Mara Lind"));
}

void ReportCommandTest::standardInput()
{
    const Folder folder;
    const Run run = folder.run({"report", "-"}, completeJob());
    QCOMPARE(run.status, 0);
    QVERIFY(run.out.contains("Mara Lind"));
    const Run toFolder = folder.run({"report", "-o", "pages/", "-"}, completeJob());
    QCOMPARE(toFolder.status, 0);
    QVERIFY(folder.read("pages/standard-input.html").contains("Mara Lind"));
}

void ReportCommandTest::faulty()
{
    const Folder folder;
    folder.write("job.xml", "<Job>");
    const Run run = folder.run({"report", "job.xml"});
    QCOMPARE(run.status, 1);
    QCOMPARE(run.err, QString());
    QVERIFY(run.out.contains("Premature end of document."));
}

void ReportCommandTest::folder()
{
    const Folder folder;
    QDir(folder.path(".")).mkpath("in/below");
    folder.write("in/job.xml", completeJob());
    folder.write("in/other.txt", "x");
    folder.write("in/below/faulty.xml", "<Job/>");
    const Run flat = folder.run({"report", "-o", "new/pages", "in"});
    QCOMPARE(flat.err, QString());
    QCOMPARE(flat.out, QString("new/pages/index.html\n"));
    QCOMPARE(flat.status, 0);
    QCOMPARE(QDir(folder.path("new/pages")).entryList(QDir::Files), (QStringList{"index.html", "job.html"}));
    QVERIFY(folder.read("new/pages/index.html").contains("<a href=\"job.html\">job.xml</a>"));

    const Run recursive = folder.run({"report", "-r", "-o", "new/pages", "in"});
    QCOMPARE(recursive.status, 1);
    QCOMPARE(QDir(folder.path("new/pages")).entryList(QDir::Files),
             (QStringList{"faulty.html", "index.html", "job.html"}));
    QVERIFY(folder.read("new/pages/index.html").contains("2 documents, 1 refused."));
}

/// None takes the place of another, or of the index.
void ReportCommandTest::namesOfPages()
{
    const Folder folder;
    QDir(folder.path(".")).mkpath("a");
    for (const char *const name : {"index.xml", "x.xml", "a/X.xml", "a/a b%.xml", "a/index.xml"})
        folder.write(name, completeJob());
    const Run run = folder.run({"report", "-r", "-o", "pages", ".", "x.xml"});
    QCOMPARE(run.status, 0);
    QCOMPARE(QDir(folder.path("pages")).entryList(QDir::Files, QDir::Name | QDir::IgnoreCase),
             (QStringList{"a b%.html", "index-2.html", "index-3.html", "index.html", "x-2.html", "x-3.html",
                          "X.html"}));
    QVERIFY(folder.read("pages/index.html").contains("<a href=\"a%20b%25.html\">"));
}

/// No page takes the place of a document, whatever that is called.
void ReportCommandTest::documentsStay()
{
    const Folder folder;
    QDir(folder.path(".")).mkpath("below");
    for (const char *const name : {"a.HTML", "a.xml", "page.html", "index.html"})
        folder.write(name, completeJob());
    const Run one = folder.run({"report", "-o", "./page.html", "page.html"});
    QCOMPARE(one.status, 2);
    QCOMPARE(one.err.section('\n', 0, 0),
             QString("kormak report: the page would take the place of the document"));
    QVERIFY(QFile::link("page.html", folder.path("link.html")));
    QCOMPARE(folder.run({"report", "-o", "link.html", "page.html"}).status, 2);

    const QStringList all{"report", "-o", ".", "a.HTML", "a.xml", "below/../page.html"};
    const Run withIndex = folder.run(all + QStringList{"index.html"});
    QCOMPARE(
        withIndex.err,
        QString("./index.html: error: is one of the documents, and the list of all would take its place\n"));
    QCOMPARE(withIndex.status, 2);
    QCOMPARE(folder.names(),
             (QStringList{"a.HTML", "a.xml", "below", "index.html", "link.html", "page.html"}));

    QVERIFY(QFile::remove(folder.path("index.html")));
    QCOMPARE(folder.run(all).status, 0);
    for (const char *const name : {"a.HTML", "a.xml", "page.html"})
        QCOMPARE(folder.read(name), QString(completeJob()));
    QCOMPARE(folder.names(),
             (QStringList{"a-2.html", "a-3.html", "a.HTML", "a.xml", "below", "index.html", "link.html",
                          "page-2.html", "page.html"}));
}

void ReportCommandTest::sorted_data()
{
    QTest::addColumn<QStringList>("options");
    QTest::addColumn<bool>("isFaultyFirst");

    QTest::newRow("by name unless told otherwise") << QStringList{} << false;
    QTest::newRow("name") << QStringList{"--sort", "name"} << false;
    QTest::newRow("state") << QStringList{"--sort", "state"} << true;
    QTest::newRow("findings") << QStringList{"--sort=findings"} << true;
}

void ReportCommandTest::sorted()
{
    QFETCH(QStringList, options);
    const Folder folder;
    folder.write("a.xml", completeJob());
    folder.write("b.xml", "<Job/>");
    const Run run =
        folder.run(QStringList{"report", "-o", "pages"} + options + QStringList{"a.xml", "b.xml"});
    QCOMPARE(run.status, 1);
    const QString index = folder.read("pages/index.html");
    QTEST(index.indexOf("b.html") < index.indexOf("a.html"), "isFaultyFirst");
}

/// The others have their pages.
void ReportCommandTest::unreadable()
{
    const Folder folder;
    folder.write("job.xml", completeJob());
    const Run run = folder.run({"report", "-o", "pages", "job.xml", "none.xml"});
    QCOMPARE(run.status, 2);
    QCOMPARE(run.err, QString("none.xml: error: cannot be read: No such file or directory\n"));
    QCOMPARE(QDir(folder.path("pages")).entryList(QDir::Files), (QStringList{"index.html", "job.html"}));
    QVERIFY(folder.read("pages/index.html").contains("none.xml<small>cannot be read"));

    const Run one = folder.run({"report", "-o", "page.html", "none.xml"});
    QCOMPARE(one.status, 2);
    QVERIFY(!folder.names().contains("page.html"));
}

void ReportCommandTest::notWritable()
{
    const Folder folder;
    folder.write("job.xml", completeJob());
    const Run run = folder.run({"report", "-o", "job.xml/", "job.xml"});
    QCOMPARE(run.status, 2);
    QCOMPARE(run.err,
             QString("job.xml/: error: cannot be written: there is no such folder, and none can be made\n"));
    QCOMPARE(folder.read("job.xml").toUtf8(), completeJob());
}

void ReportCommandTest::wrongCalls_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QString>("complaint");

    QTest::newRow("no folder") << QStringList{"a.xml", "b.xml"}
                               << "kormak report: several documents need a folder to write to: -o OUT\n";
    QTest::newRow("no folder for a folder")
        << QStringList{"."} << "kormak report: several documents need a folder to write to: -o OUT\n";
    QTest::newRow("-o twice") << QStringList{"-o", "a", "-o", "b", "a.xml"}
                              << "kormak report: -o can be given only once\n";
    QTest::newRow("standard input twice")
        << QStringList{"-o", "a", "-", "-"} << "kormak report: standard input can be read only once\n";
    QTest::newRow("order of one page")
        << QStringList{"--sort", "name", "a.xml"} << "kormak report: --sort is for the index of a folder\n";
    QTest::newRow("order twice") << QStringList{"-o",     "a",    "--sort", "name",
                                                "--sort", "kind", "a.xml",  "b.xml"}
                                 << "kormak report: --sort can be given only once\n";
    QTest::newRow("unknown order") << QStringList{"-o", "a", "--sort", "size", "a.xml", "b.xml"}
                                   << "kormak report: Unknown order 'size'. Allowed: name, kind, state, "
                                      "findings, author, time, resource\n";
}

void ReportCommandTest::wrongCalls()
{
    QFETCH(QStringList, arguments);
    const Folder folder;
    const Run run = folder.run(QStringList{"report"} + arguments);
    QTEST(run.err, "complaint");
    QCOMPARE(run.status, 2);
    QCOMPARE(folder.names(), QStringList{});
}

QTEST_GUILESS_MAIN(ReportCommandTest)
#include "ReportCommandTest.moc"
