#include <tests/support/ToolSupport.h>

#include <QJsonArray>
#include <QStandardPaths>

using namespace ToolSupport;

namespace {

/// What a page must show: a selector with a text, or with how many there are.
using Wanted = QVector<QPair<QString, QJsonValue>>;

const QByteArray Hostile =
    "&lt;script&gt;document.title='x'&lt;/script&gt;&lt;img src='http://127.0.0.1/' onerror='x()'&gt;";

QByteArray hostileReceiver()
{
    return "<GenericReceiver Version='1.0'><Parameter UniqueName=\"" + Hostile + "\"><RepresentationName>"
        + Hostile + "." + Hostile + "</RepresentationName><DisplayName>" + Hostile + "</DisplayName><ToolTip>"
        + Hostile + "</ToolTip><ValueType>ValueSelection</ValueType><DisplaySuffix>" + Hostile
        + "</DisplaySuffix><ParameterType>Enum</ParameterType><Enum><EnumValue Key='1' Name=\"" + Hostile
        + "\" Identifier=\"" + Hostile + "\"/></Enum></Parameter></GenericReceiver>";
}

/// Names without a place to break a line.
QByteArray longNames()
{
    const QByteArray name = QByteArray("VeryLongNameWithoutABlank").repeated(12);
    return "<GenericReceiver Version='1.0'><Parameter UniqueName='" + name + "'><RepresentationName>" + name
        + "." + name
        + "</RepresentationName><ValueType>ValueFrequency</ValueType><DisplaySuffix>Hz</"
          "DisplaySuffix><ParameterType>Double"
          "</ParameterType><Double><Minimum>0</Minimum><Maximum>123456789012345</"
          "Maximum><Default>12345678901.123456"
          "</Default></Double></Parameter></GenericReceiver>";
}

QByteArray workflowWith(const QVector<QPair<double, double>> &coordinates)
{
    QByteArray text = "<AutomaticWorkflow "
                      "Version='1.0'><Mode>AutomaticMode</Mode><SearchStrategy>LowestIdFirst</SearchStrategy>"
                      "<Area Version='1.0'><Name>An area</Name>";
    for (const auto &[latitude, longitude] : coordinates) {
        text += "<Coordinate><Latitude>" + QByteArray::number(latitude) + "</Latitude><Longitude>"
            + QByteArray::number(longitude) + "</Longitude></Coordinate>";
    }
    return text + "</Area></AutomaticWorkflow>";
}

QString pythonProgram()
{
    return QStandardPaths::findExecutable("python3");
}

bool hasBrowser()
{
    for (const char *const name : {"chromium", "chromium-browser", "google-chrome"}) {
        if (!QStandardPaths::findExecutable(name).isEmpty())
            return true;
    }
    return false;
}

/// What the browser finds wrong with the pages in \a folder.
QString faultsOf(const Folder &folder)
{
    QProcess process;
    process.start(pythonProgram(), {SOURCE_DIR "/tests/tools/browser.py", folder.path(".")});
    const Run run = ended(process);
    return run.out + run.err;
}

} // namespace

class ReportPagesTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void pages();
    void faultsAreNoticed_data();
    void faultsAreNoticed();
    void valid_data();
    void valid();

private:
    static void report(const Folder &folder, const QString &name, const QByteArray &document,
                       const Wanted &wanted);
};

void ReportPagesTest::initTestCase()
{
    if (pythonProgram().isEmpty() || !hasBrowser())
        QSKIP("Python 3 or Chromium is not there (Debian: python3, chromium)",
              ""); // clang asks for a second argument
}

void ReportPagesTest::report(const Folder &folder, const QString &name, const QByteArray &document,
                             const Wanted &wanted)
{
    folder.write(name + ".xml", document);
    const Run run = folder.run({"report", "-o", name + ".html", name + ".xml"});
    QVERIFY2(run.status >= 0 && run.status <= 1, qPrintable(run.err));
    QJsonArray list;
    for (const auto &[selector, what] : wanted)
        list.append(QJsonArray{selector, what});
    folder.write(name + ".json", QJsonDocument(list).toJson());
}

/// Nothing is asked for or run, everything is seen, nothing is too wide or cut off, in light and dark
/// colours.
void ReportPagesTest::pages()
{
    const Folder folder;
    const auto example = [](const QString &path) {
        QFile file(EXAMPLES_DIR "/" + path);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    };
    report(folder, "job", example("jobs/surveillance-mc-hf.xml"),
           {{"h1", "Surveillance MC HF"},
            {".tiles li", "M. Keller"},
            {".tiles li", "15 March 2026, 22:00 UTC"},
            {".bar-name", "1.5\u00A0MHz to 30\u00A0MHz"},
            {".bands text", 7},
            {".track .range", 1},
            {".rose .needle", 1},
            {".fields th", "Polarization"},
            {".source li", 17}});
    report(folder, "job-of-other-scripts", example("jobs/production-mc-vuhf.xml"),
           {{"h1", "Production MC VUHF"}});
    report(folder, "workflow", example("settings/automatic-workflow-with-area.xml"),
           {{"figure.map figcaption", "53.55°\u00A0N to 55.0625°\u00A0N"},
            {".chart.map .area", 1},
            {".chart.map .coast", 1},
            {".chart.map .corner", 3},
            {".chart.map text", "100 km"},
            {".note.error", "missing"},
            {".findings li", 2}});
    report(folder, "north-pole", workflowWith({{70, -150}, {72, -30}, {68, 60}, {75, 150}}),
           {{".chart.map text", "North Pole"}, {"figcaption", "round the pole"}});
    report(folder, "across-180", workflowWith({{-15, 176}, {-15, -178}, {-20, -178}, {-20, 176}}),
           {{".chart.map text", "180°"}, {".chart.map .here", 1}});
    report(folder, "point", workflowWith({{48.2, 16.4}}), {{"figcaption", "48.2°\u00A0N, 16.4°\u00A0E"}});
    report(folder, "band",
           workflowWith(
               {{10, -180}, {10, -60}, {10, 60}, {10, 180}, {-10, 180}, {-10, 60}, {-10, -60}, {-10, -180}}),
           {{".chart.map text", "on the equator"},
            {".chart.map text", "120°\u00A0W"},
            {".chart.map .corner-number", 8},
            {".chart.map .here", 0},
            {"figcaption", "all longitudes"}});
    report(folder, "all-but-the-pacific",
           workflowWith({{85, -100}, {85, 0}, {85, 100}, {-85, 100}, {-85, 0}, {-85, -100}}),
           {{".chart.map text", "on the equator"}, {".chart.map .corner", 6}});
    report(folder, "pole-to-pole", workflowWith({{90, -180}, {90, 180}, {-90, 180}, {-90, -180}}),
           {{".chart.map .corner-number", 2}});
    report(folder, "half-of-the-earth", workflowWith({{0, -90}, {60, 0}, {0, 90}, {-60, 0}}),
           {{".chart.map .corner-number", 4}, {".chart.map text", "North Pole"}});
    report(folder, "labels-in-a-corner", workflowWith({{60, -180}, {50, 160}}),
           {{".chart.map text", "60°\u00A0N"}});
    report(
        folder, "site", workflowWith({{48.1, 11.5}, {48.102, 11.5}, {48.102, 11.502}, {48.1, 11.502}}),
        {{".chart.map text", "100 m"}, {".chart.map .area", 1}, {"figcaption", "149\u00A0m by 222\u00A0m"}});
    report(folder, "nowhere", workflowWith({{95, 16.4}}), {{".missing", "There is no map of the area"}});
    report(folder, "generation", example("settings/activity-generation.xml"),
           {{"figcaption", "logarithmic"}, {".track .range", 12}, {"td", "On Energy Detection"}});
    report(folder, "durations",
           "<ActivityGeneration "
           "Version='2.2'><Mode>AGED</Mode><LevelMinBurstDuration>1e-6</LevelMinBurstDuration>"
           "<LevelMaxBreakDuration>1e9</LevelMaxBreakDuration><DDemMinBurstDuration>-1</DDemMinBurstDuration>"
           "</ActivityGeneration>",
           {{".ticks text", "-5e+08"}});
    report(
        folder, "great-durations",
        "<ActivityGeneration Version='2.2'><Mode>AGED</Mode><LevelMinBurstDuration>1</LevelMinBurstDuration>"
        "<LevelMaxBreakDuration>3e38</LevelMaxBreakDuration></ActivityGeneration>",
        {{"figcaption", "logarithmic"}});
    report(folder, "receiver", example("receivers/hf-receiver.xml"),
           {{".lead", "61 parameters in 12 groups"},
            {"nav a", "scan"},
            {".parameters tbody tr", 61},
            {".track .range", 8},
            {".bar .at", 40},
            {".entries strong", "Hann"}});
    report(folder, "direction-finder", example("receivers/vuhf-direction-finder.xml"),
           {{".note.warning", 8}});
    report(
        folder, "parameter",
        "<Parameter Version='1.0' UniqueName='Gain'><RepresentationName>a.b</RepresentationName></Parameter>",
        {{"h1", "Gain"}});
    report(folder, "hostile", hostileReceiver(),
           {{"tbody th", "<script>document.title='x'</script><img src="}});
    report(folder, "long-names", longNames(), {{"tbody th", "VeryLongNameWithoutABlankVeryLong"}});
    report(folder, "refused", example("faulty/unknown-tag-in-job.xml"),
           {{".findings .error", "unknown element"}});
    report(folder, "broken", example("faulty/not-utf-8.xml"),
           {{".findings a", "line 5, column 20"}, {"#L5.hit", 1}});
    report(folder, "empty", QByteArray(), {{".findings li", 1}});
    const Run run = folder.run({"report", "-r", "-o", "list", EXAMPLES_DIR});
    QCOMPARE(run.status, 1);
    folder.write("list.html", folder.read("list/index.html").toUtf8());
    folder.write("list.json",
                 R"([["th a", "settings/activity-generation.xml"], ["tbody tr", 60], ["td", "M. Keller"]])");
    const QByteArray longAuthor(200, 'A');
    QVERIFY(QDir(folder.path(".")).mkpath("others"));
    folder.write("others/job.xml", example("jobs/surveillance-mc-hf.xml").replace("M. Keller", longAuthor));
    QCOMPARE(folder.run({"report", "-o", "other-list", "others"}).status, 0);
    folder.write("other-list.html", folder.read("other-list/index.html").toUtf8());
    folder.write("other-list.json", R"([["td", "AAAAAAAA"], ["th", "Document"]])");
    const QString faults = faultsOf(folder);
    QVERIFY2(faults == "26 pages\n", qPrintable(faults));
}

void ReportPagesTest::faultsAreNoticed_data()
{
    QTest::addColumn<QByteArray>("body");
    QTest::addColumn<QString>("fault");

    QTest::newRow("request") << QByteArray("<div style='background:url(none.png)'>x</div>")
                             << "asks for file:";
    QTest::newRow("script") << QByteArray("<script>console.log(1)</script>") << "runs a script";
    QTest::newRow("attribute") << QByteArray("<p onclick='1'>x</p>") << "has an attribute onclick";
    QTest::newRow("width") << QByteArray("<div style='width:2000px'>x</div>") << "px wider than the window";
    QTest::newRow("contrast") << QByteArray("<p style='color:#999;background:#fff'>faint</p>")
                              << "has a contrast of 2.85 at \"faint\"";
    QTest::newRow("dead link") << QByteArray("<a href='#nowhere' style='color:#000;background:#fff'>x</a>")
                               << "has a dead link #nowhere";
    QTest::newRow("caption") << QByteArray("<table><tr><th>x</th></tr></table>")
                             << "has a table without a caption";
    QTest::newRow("heading") << QByteArray("<h3>x</h3>") << "has a heading of level 3 behind one of level 1";
    QTest::newRow("id") << QByteArray("<p id='a'>x</p><p id='a'>x</p>") << "has an id twice";
    QTest::newRow("label") << QByteArray("<svg></svg>") << "has a drawing without a label";
    QTest::newRow("overlap") << QByteArray(
        "<svg aria-label='x'><text x='9' y='20'>one</text><text x='12' y='20'>two</text></svg>")
                             << "writes \"one\" over \"two\"";
    QTest::newRow("cut off") << QByteArray("<svg aria-label='x'><text x='-9' y='20'>one</text></svg>")
                             << "cuts off \"one\"";
    QTest::newRow("paper") << QByteArray("<style>@page { size: A3 }</style>") << "is not printed on A4";
    QTest::newRow("missing") << QByteArray("<p hidden>wanted</p>") << "does not show p with 'wanted'";
}

void ReportPagesTest::faultsAreNoticed()
{
    QFETCH(QByteArray, body);
    QFETCH(QString, fault);
    const Folder folder;
    folder.write("page.html",
                 "<!DOCTYPE html><html lang='en'><head><meta charset='utf-8'><title>x</title>"
                 "<link rel='icon' href='data:,'></head><body style='margin:0'><h1>x</h1>"
                     + body + "</body></html>");
    if (fault.contains("wanted"))
        folder.write("page.json", R"([["p", "wanted"]])");
    const QString faults = faultsOf(folder);
    QVERIFY2(faults.contains(fault), qPrintable(faults));
    QVERIFY(faults.endsWith("1 pages\n"));
}

void ReportPagesTest::valid_data()
{
    QTest::addColumn<QString>("path");

    for (const char *const path : {"jobs/surveillance-mc-hf.xml", "settings/automatic-workflow-with-area.xml",
                                   "settings/activity-generation.xml", "receivers/vuhf-direction-finder.xml",
                                   "faulty/tag-in-wrong-case.xml", "faulty/truncated.xml"})
        QTest::newRow(path) << QString(path);
}

/// Tidy has nothing to say but that drawings in drawings have attributes.
void ReportPagesTest::valid()
{
    QFETCH(QString, path);
    const QString program = QStandardPaths::findExecutable("tidy");
    if (program.isEmpty())
        QSKIP("HTML Tidy is not there (Debian: tidy)", ""); // clang asks for a second argument
    const Folder folder;
    const Run made = folder.run({"report", "-o", "page.html", EXAMPLES_DIR "/" + path});
    QVERIFY(made.status <= 1);
    QProcess process;
    process.start(program, {"-q", "-e", "-utf8", folder.path("page.html")});
    QString complaints;
    for (const QString &line : ended(process).err.split('\n')) {
        if (!line.contains("<svg> proprietary attribute"))
            complaints += line;
    }
    QCOMPARE(complaints, QString());
}

QTEST_GUILESS_MAIN(ReportPagesTest)
#include "ReportPagesTest.moc"
