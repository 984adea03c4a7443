// A property that does not hold must be noticed: the tool with one fault each.
#include <fuzz/Properties.h>
#include <fuzz/ToolProperties.h>
#include <tools/Command.h>

#include <QtTest>

using Fuzz::ToolRun;

/// Changes what the tool made of a call.
using Fault = std::function<void(const QStringList &arguments, ToolRun &run)>;
Q_DECLARE_METATYPE(Fault)

class ToolPropertiesTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void runsTheTool();
    void faultsAreNoticed_data();
    void faultsAreNoticed();
};

void ToolPropertiesTest::runsTheTool()
{
    const ToolRun good = Fuzz::runTool({"list", "ResourceType"});
    QCOMPARE(good.status, int(Good));
    QVERIFY(good.output.contains("Antenna\n"));
    QCOMPARE(good.complaints, QByteArray());

    const ToolRun unreadable = Fuzz::runTool({"show", "no such file"});
    QCOMPARE(unreadable.status, int(Failed));
    QCOMPARE(unreadable.output, QByteArray());
    QVERIFY(unreadable.complaints.startsWith("no such file: "));

    const ToolRun wrong = Fuzz::runTool({"show"});
    QCOMPARE(wrong.status, int(Failed));
    QVERIFY(wrong.complaints.contains("FILE"));

    QCOMPARE(Fuzz::callOfNew("Job\nA=1\n-B=2"), QStringList({"new", "--set=A=1", "--set=-B=2", "--", "Job"}));
}

void ToolPropertiesTest::faultsAreNoticed_data()
{
    QTest::addColumn<QByteArray>("document"); // empty: "new" is called
    QTest::addColumn<Fault>("fault");
    QTest::addColumn<QString>("violation"); // empty: none

    // Nothing in it is worth a warning.
    const QByteArray document = TestSupport::wholeJob().replace("perhaps", "true").toUtf8();
    const QByteArray incomplete = "<Job Version=\"1.0\"/>";
    const QByteArray malformed = document.chopped(1);
    const auto row = [](const char *name, const QByteArray &input, const Fault &fault,
                        const char *violation) {
        QTest::newRow(name) << input << fault << QString(violation);
    };
    const auto no = [](const QStringList &, ToolRun &) {};
    // Changes the outcome of a command: of its calls with an option, or of those without any.
    const auto of = [](const char *command, const char *option, auto change) -> Fault {
        return [=](const QStringList &arguments, ToolRun &run) {
            if (arguments.constFirst() == command && arguments.contains(option))
                change(run);
        };
    };
    const auto plain = [](const char *command, auto change) -> Fault {
        return [=](const QStringList &arguments, ToolRun &run) {
            if (arguments.constFirst() == command && !arguments.at(1).startsWith("--"))
                change(run);
        };
    };

    for (const QByteArray &input : {document, incomplete, malformed, QByteArray("\xFF"), QByteArray("<a/>")})
        row("no fault, " + input.toPercentEncoding(), input, no, "");
    row("no fault, new", {}, no, "");

    row("check accepts anything", malformed, plain("check", [](ToolRun &run) { run.status = Good; }),
        "'check' accepts what the library accepts");
    row("check accepts nothing", document, plain("check", [](ToolRun &run) { run.status = Faulty; }),
        "'check' accepts what the library accepts");
    row("check explains nothing", malformed, plain("check", [](ToolRun &run) { run.complaints.clear(); }),
        "a failure is explained");
    row("check steers the terminal", document,
        plain("check", [](ToolRun &run) { run.output += "\x1B[2J\n"; }), "nothing that steers a terminal");
    row("check with broken JSON", malformed,
        of("check", "json", [](ToolRun &run) { run.output.replace('}', ' '); }), "JSON is an object");
    row("check with lines that are not ended", malformed,
        of("check", "json", [](ToolRun &run) { run.output.chop(1); }), "lines of JSON are ended");
    row("check sums up otherwise", malformed,
        of("check", "json", [](ToolRun &run) { run.output.replace("\"faulty\"", "\"good\""); }),
        "the file is summed up");
    row("check with warnings only", malformed,
        of("check", "json", [](ToolRun &run) { run.output.replace("\"error\"", "\"warning\""); }),
        "an error is what the library refuses");
    row("check tells less as text", malformed,
        plain("check", [](ToolRun &run) { run.complaints.replace('\n', ' ').append('\n').append('\n'); }),
        "text tells as much as JSON");
    row("table has anything", malformed, plain("table", [](ToolRun &run) { run.status = Good; }),
        "'table' has what the library accepts");
    row("table steers the terminal", document,
        plain("table", [](ToolRun &run) { run.output += "\x1B[2J\n"; }), "nothing that steers a terminal");
    row("table calls it complete", document,
        of("table", "json",
           [](ToolRun &run) { run.output.replace("\"complete\": true", "\"complete\": false"); }),
        "'table' has a row for a document");
    row("table has less in JSON", document, of("table", "json", [](ToolRun &run) { run.output.clear(); }),
        "JSON makes no difference to 'table'");
    row("table with lines of CSV that are not ended", document,
        of("table", "csv", [](ToolRun &run) { run.output.chop(1); }), "lines of CSV are ended");
    row("show reads anything", malformed, plain("show", [](ToolRun &run) { run.status = Good; }),
        "'show' shows what the library reads");
    row("show calls it complete", incomplete,
        of("show", "json",
           [](ToolRun &run) { run.output.replace("\"complete\": false", "\"complete\": true"); }),
        "'show' tells whether the document is complete");
    row("show does not tell what it stopped at", malformed,
        plain("show", [](ToolRun &run) { run.complaints.clear(); }), "'show' tells what it stopped at");
    row("show tells less in JSON", malformed, of("show", "json", [](ToolRun &run) { run.output.clear(); }),
        "JSON makes no difference");
    row("show calls it complete that it stopped at", malformed,
        of("show", "json",
           [](ToolRun &run) { run.output.replace("\"complete\": false", "\"complete\": true"); }),
        "'show' tells why a document is refused");
    row("report accepts anything", malformed, plain("report", [](ToolRun &run) { run.status = Good; }),
        "'report' accepts what the library accepts");
    row("report writes a part of a page", document, plain("report", [](ToolRun &run) { run.output.chop(9); }),
        "a page is whole");
    row("report writes what a document says as it stands", document,
        plain("report", [](ToolRun &run) { run.output.replace("&lt;Author", "<Author"); }),
        "a page has no other elements");
    row("report lets a text out of its attribute", document,
        plain("report", [](ToolRun &run) { run.output.replace(" scope=\"", " scope=\"\""); }),
        "a page has no other elements");
    row("report explains what it shows", malformed,
        plain("report", [](ToolRun &run) { run.complaints = "x\n"; }), "a document at fault has a page, too");
    row(
        "format loses a comment", QByteArray(document).replace("<Author>", "<!-- --><Author>"),
        [](const QStringList &arguments, ToolRun &run) {
            if (arguments.constFirst() == "format")
                run = Fuzz::runTool({"format", "--drop-comments", arguments.constLast()});
        },
        "a comment is not lost without a word");
    row("format loses an instruction with the comments",
        QByteArray(document).replace("<Author>", "<?a?><Author>"),
        of("format", "--drop-comments",
           [written = Fuzz::sampleOf<KORMAK::Job>().GetXmlString().toUtf8()](ToolRun &run) {
               run = {Good, written, {}};
           }),
        "only comments may be dropped");
    row("format loses an element", document,
        plain("format", [](ToolRun &run) { run.output.replace("<Description>first</Description>", ""); }),
        "without comments to lose, nothing else is lost");
    row(
        "format changes a text", document,
        [](const QStringList &arguments, ToolRun &run) {
            if (arguments.constFirst() == "format")
                run.output.replace("<Author>Mara Lind<", "<Author>Nils<");
        },
        "nothing that was said is changed");
    row("format writes what is not complete", document,
        of("format", "--drop-comments", [](ToolRun &run) { run.output = "<Job Version=\"1.0\"/>"; }),
        "without comments to lose, nothing else is lost");
    row(
        "format grows", document,
        [count = 0](const QStringList &arguments, ToolRun &run) mutable {
            if (arguments.constFirst() == "format" && ++count > 2)
                run.output += '\n';
        },
        "what was formatted stays as it is");
    row("format takes what is not complete", incomplete,
        of("format", "--drop-comments", [](ToolRun &run) { run.status = Good; }),
        "what is formatted is complete");
    row("diff sees a difference", document, plain("diff", [](ToolRun &run) { run.status = Faulty; }),
        "the status tells whether a field differs");
    row("diff compares anything", malformed, plain("diff", [](ToolRun &run) { run.status = Good; }),
        "only what is read is compared");
    row("diff tells more as text", document, plain("diff", [](ToolRun &run) { run.output += "a: b -> c\n"; }),
        "text tells as much as JSON");
    row(
        "new makes what is not complete", {},
        [](const QStringList &arguments, ToolRun &run) {
            if (arguments.constFirst() == "new")
                run.output = "<ActivityGeneration/>";
        },
        "what is made is complete");
    row(
        "new explains nothing", {},
        [](const QStringList &arguments, ToolRun &run) {
            if (arguments.constFirst() == "new")
                run = {Failed, {}, {}};
        },
        "a failure is explained");
}

void ToolPropertiesTest::faultsAreNoticed()
{
    QFETCH(QByteArray, document);
    QFETCH(Fault, fault);
    QFETCH(QString, violation);

    const Fuzz::Tool tool = [&fault](const QStringList &arguments) {
        ToolRun run = Fuzz::runTool(arguments);
        fault(arguments, run);
        return run;
    };
    QString actual;
    try {
        if (document.isEmpty())
            Fuzz::checkToolOnAssignments(tool, "ActivityGeneration\nMode=AGED");
        else
            Fuzz::checkToolOnDocument(tool, document);
    } catch (const std::exception &exception) {
        actual = exception.what();
    }
    QVERIFY2(violation.isEmpty() ? actual.isEmpty() : actual.contains(violation), qPrintable(actual));
}

QTEST_GUILESS_MAIN(ToolPropertiesTest)
#include "ToolPropertiesTest.moc"
