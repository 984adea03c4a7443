#include <inspection/Report.h>
#include <inspection/ReportIndex.h>
#include <kormak/ActivityGenerationData.h>
#include <kormak/AutomaticWorkflow.h>
#include <kormak/GenericReceiver.h>
#include <kormak/Job.h>
#include <tests/support/Files.h>

#include <QRegularExpression>
#include <QtTest>

using namespace KORMAK;
using Order = ReportIndex::Order;

Q_DECLARE_METATYPE(KORMAK::ReportIndex::Order)

namespace {

QByteArray fileText(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

QString pageOf(const QByteArray &text)
{
    return QString::fromUtf8(Report(Document(text), "file.xml", text).GetHtml());
}

/// The texts of a page that people see, one blank between them.
QString seenOn(QString page)
{
    page = page.mid(page.indexOf("<body>"));
    page.remove(QRegularExpression("<[^>]*>"));
    return page.replace("&lt;", "<")
        .replace("&gt;", ">")
        .replace("&quot;", "\"")
        .replace("&amp;", "&")
        .replace(QChar(0xA0), ' ');
}

QByteArray receiverWith(const QByteArray &parameters)
{
    return "<GenericReceiver Version='1.0'>" + parameters + "</GenericReceiver>";
}

QByteArray parameter(const QByteArray &name, const QByteArray &representation, const QByteArray &rest)
{
    return "<Parameter Version='1.0' UniqueName='" + name + "'><RepresentationName>" + representation
        + "</RepresentationName><ValueType>ValueNumericInt</ValueType>" + rest + "</Parameter>";
}

QByteArray frequency(const QByteArray &least, const QByteArray &most, const QByteArray &standard)
{
    return receiverWith("<Parameter Version='1.0' UniqueName='F'><RepresentationName>a.f</RepresentationName>"
                        "<ValueType>ValueFrequency</ValueType><DisplaySuffix>Hz</DisplaySuffix>"
                        "<ParameterType>Double</ParameterType><Double><Minimum>"
                        + least + "</Minimum><Maximum>" + most + "</Maximum><Default>" + standard
                        + "</Default></Double></Parameter>");
}

ReportIndex::Entry entry(const QString &name, const QString &kind, bool isAccepted, bool isComplete,
                         int errors, int warnings, const QString &author, const QDateTime &creation,
                         const QString &resource)
{
    return {name, {}, kind, kind, isAccepted, isComplete, errors, warnings, author, creation, resource};
}

} // namespace

class ReportTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void examples_data();
    void examples();
    void seen_data();
    void seen();
    void shapes_data();
    void shapes();
    void linesOfSource_data();
    void linesOfSource();
    void findingsOfNamelessParameters_data();
    void findingsOfNamelessParameters();
    void oddFrequencies();
    void everythingHasItsHeading();
    void findingsAreLinked();
    void findingsWithoutPlaces();
    void everyFindingIsListed();
    void hostileTexts_data();
    void hostileTexts();
    void unreadableBytes();
    void noDocument();
    void entries();
    void order_data();
    void order();
    void indexPage();
};

void ReportTest::examples_data()
{
    QTest::addColumn<QString>("path");

    for (const char *const folder : {"jobs", "settings", "receivers", "faulty"}) {
        const QDir dir(QString(EXAMPLES_DIR "/") + folder);
        for (const QString &name : dir.entryList({"*.xml"}))
            QTest::newRow(qPrintable(name)) << dir.filePath(name);
    }
}

/// Each has a page that says what it is, all its findings, and its source.
void ReportTest::examples()
{
    QFETCH(QString, path);
    const QByteArray text = fileText(path);
    const Document document(text);
    const Report report(document, "file.xml", text);
    const QString page = QString::fromUtf8(report.GetHtml());
    QVERIFY(!report.GetTitle().isEmpty());
    QVERIFY(page.startsWith("<!DOCTYPE html>"));
    QVERIFY(page.endsWith("</body></html>\n"));
    QVERIFY(page.contains("<h1>" + report.GetTitle().toHtmlEscaped() + "</h1>"));
    QCOMPARE(page.count("<li id=\"finding-"), document.GetFindings().size());
    QCOMPARE(page.contains("refused</li>"), !document.IsAccepted());
    QCOMPARE(page.contains(">complete</li>"), document.IsComplete());
    for (const Finding &finding : document.GetFindings()) {
        QVERIFY(text.isEmpty()
                || page.contains(QString("<li id=\"L%1\" class=\"hit\">").arg(finding.GetLine())));
        QVERIFY(seenOn(page).contains(finding.GetMessage()));
    }
    if (!text.isEmpty())
        QVERIFY(page.contains("<ol class=\"source\">"));
    QCOMPARE(page.count("<section"), page.count("</section>"));
    QCOMPARE(page.count("<svg"), page.count("</svg>"));
    QVERIFY(!page.contains("=\"nan") && !page.contains(">nan<"));
}

void ReportTest::seen_data()
{
    QTest::addColumn<QByteArray>("document");
    QTest::addColumn<QStringList>("texts");

    QTest::newRow("job") << fileText(EXAMPLES_DIR "/jobs/surveillance-mc-hf.xml")
                         << QStringList{"Who M. Keller",
                                        "When 15 March 2026, 22:00 UTC Sunday",
                                        "What Surveillance MC HF",
                                        "On which resource Antenna Log-periodic North",
                                        "Log-periodic North 1.5 MHz to 30 MHz",
                                        "It looks north: 0° from north.",
                                        "Minimum frequency1500000 Hz (1.5 MHz)",
                                        "VLFLFMFHFVHFUHFSHF",
                                        "<Author>M. Keller</Author>"};
    QTest::newRow("job without anything") << QByteArray("<Job/>")
                                          << QStringList{"Job without a type", "Who not set", "When not set",
                                                         "Job, not complete: JobHeader: Please set Author"};
    QTest::newRow("job on another resource")
        << QByteArray("<Job><ResourceType>Decoder</ResourceType><AntennaData><Name>East</Name>"
                      "<MinimumFrequency>1</MinimumFrequency><MaximumFrequency>2</MaximumFrequency></"
                      "AntennaData></Job>")
        << QStringList{"The job is not on the antenna resource: its antenna does not count.",
                       "East 1 Hz to 2 Hz", "Antenna data (never written: not the antenna resource)"};
    QTest::newRow("workflow") << fileText(EXAMPLES_DIR "/settings/automatic-workflow-mode-as-element.xml")
                              << QStringList{"Signals that are found are taken up one after the other",
                                             "will happen", "The bit streams of HF signals are"};
    QTest::newRow("workflow by hand")
        << QByteArray("<AutomaticWorkflow Version='1.0'><Mode>ManualMode</Mode></AutomaticWorkflow>")
        << QStringList{"Signals that are found are taken up by hand: nothing happens by itself."};
    QTest::newRow("workflow with an area")
        << fileText(EXAMPLES_DIR "/settings/automatic-workflow-with-area.xml")
        << QStringList{
               "The mode is not set. In automatic mode, this would hold:",
               "8 classifiers work on each signal for 25, in the unit of the system that carries out the "
               "workflow; 3 results are kept.",
               "the shortest first",
               "Area: German Bight",
               "53.55° N to 55.0625° N",
               "255.0625°",
               "Only the area German Bight counts."};
    QTest::newRow("one of each") << QByteArray(
        "<AutomaticWorkflow Version='1.0'><Mode>AutomaticMode</Mode><Classifiers>1</Classifiers>"
        "<ClassificationResult>1</ClassificationResult></AutomaticWorkflow>")
                                 << QStringList{"1 classifier works on each signal for 40,",
                                                "1 result is kept.", "No area limits it.",
                                                "in an order that is not set"};
    QTest::newRow("activity generation")
        << fileText(EXAMPLES_DIR "/settings/activity-generation.xml")
        << QStringList{"Activities are generated in the mode AGED; generation starts by itself.",
                       "Energy is looked for in the channel DDem.",
                       "A demodulated signal counts as active by this: Demodulator and Decoder Locked.",
                       "Activities are not cut at locations.",
                       "A session is closed after 30; attachments are restarted then.",
                       "Results of the classifierOn Energy Detection",
                       "Level: maximum break 1.5",
                       "The axis is logarithmic.",
                       "Final score 5"};
    QTest::newRow("Morse") << QByteArray(
        "<ActivityGeneration Version='2.2'><DDemActiveCriteria>Morse Quality Over "
        "Threshold</DDemActiveCriteria></ActivityGeneration>")
                           << QStringList{"The mode is not set; generation does not start by itself.",
                                          "by this: Morse Quality Over Threshold, 80."};
    QTest::newRow("receiver") << fileText(EXAMPLES_DIR "/receivers/hf-receiver.xml")
                              << QStringList{"61 parameters in 12 groups.",
                                             "Frequency 10 kHz to 30 MHz, default 10 MHz",
                                             "BalanceAudioBalance · audio.balance · Integer0 %-100 to 100 %",
                                             QString::fromUtf8("Reference 1 MHz to 100 MHz, default 10 MHz"),
                                             "Off 0Voice 1Telegraphy 2",
                                             "Milliseconds since 1970-01-01T00:00:00Z"};
    QTest::newRow("direction finder")
        << fileText(EXAMPLES_DIR "/receivers/vuhf-direction-finder.xml")
        << QStringList{"ParameterType: missing", QString::fromUtf8("df.north · Float0°-180 to 180°"),
                       "Azimuth disabled"};
    QTest::newRow("multiplier")
        << receiverWith(parameter("A", "a",
                                  "<DisplaySuffix>kHz</DisplaySuffix><Multiplier>1000</Multiplier>"
                                  "<ParameterType>Long</ParameterType><Long><Minimum>500</Minimum>"
                                  "<Maximum>20000000</Maximum><Default>1500</Default></Long>"))
        << QStringList{QString::fromUtf8("Along1.5 kHz0.5 to 20\u202f000 kHz").replace("Along", "a · Long"),
                       "Other parameters", "1 parameter in 1 group."};
    QTest::newRow("multiplier of nothing")
        << receiverWith(parameter("A", "a.b",
                                  "<Multiplier>0</Multiplier><ParameterType>Long</ParameterType><Long>"
                                  "<Minimum>0</Minimum><Maximum>9</Maximum><Default>3</Default></Long>"))
        << QStringList{"a.b · Long30 to 9"};
    QTest::newRow("no limits") << receiverWith(parameter("A", "a.b",
                                                         "<ParameterType>Double</ParameterType><Double>"
                                                         "<Default>3</Default></Double>"))
                               << QStringList{"a.b · Double3Source"};
    QTest::newRow("disabled") << receiverWith(
        parameter("A", "a.b",
                  "<Enable>false</Enable><ParameterType>String</ParameterType><String>"
                  "<Default>x y</Default></String>"))
                              << QStringList{"A disableda.b · Stringx y"};
    QTest::newRow("parameter") << parameter(
        "Gain", "a.b",
        "<DisplayName>The gain</DisplayName><ParameterType>Integer</ParameterType>"
        "<Integer><Minimum>0</Minimum><Maximum>9</Maximum><Default>3</Default></Integer>")
                               << QStringList{"The gain", "Gain · a.b · Integer30 to 9", "Unique nameGain"};
}

void ReportTest::seen()
{
    QFETCH(QByteArray, document);
    QFETCH(QStringList, texts);
    const QString seen = seenOn(pageOf(document));
    for (const QString &text : texts)
        QVERIFY2(seen.contains(text), qPrintable(text + "\nis not in\n" + seen));
}

void ReportTest::shapes_data()
{
    QTest::addColumn<QByteArray>("document");
    QTest::addColumn<QString>("shape");
    QTest::addColumn<int>("count");

    const QByteArray job = fileText(EXAMPLES_DIR "/jobs/surveillance-mc-hf.xml");
    QTest::newRow("axis of a job") << job << "class=\"range\"" << 1;
    QTest::newRow("rose of a job") << job << "class=\"needle\"" << 1;
    QTest::newRow("no rose") << QByteArray(job).replace("<Azimuth>0</Azimuth>", "") << "class=\"needle\""
                             << 0;
    QTest::newRow("no range") << QByteArray(job).replace("<MinimumFrequency>1500000</MinimumFrequency>", "")
                              << "class=\"range\"" << 0;
    QTest::newRow("an empty range") << QByteArray(job).replace("30000000", "30") << "class=\"range\"" << 0;
    QTest::newRow("a range beyond the axis")
        << QByteArray(job).replace("1500000", "0").replace("30000000", "1e12") << "class=\"beyond\"" << 2;
    const QByteArray above = QByteArray(job).replace("1500000", "4e10").replace("30000000", "9e10");
    QTest::newRow("a range above the axis") << above << "class=\"beyond alone\"" << 1;
    QTest::newRow("none of it on the axis") << above << "class=\"range\"" << 0;
    QTest::newRow("a range below the axis")
        << QByteArray(job).replace("1500000", "1").replace("30000000", "20") << "class=\"beyond alone\"" << 1;
    const QByteArray noLimits = frequency("nan", "nan", "inf");
    QTest::newRow("limits that are no numbers") << noLimits << "class=\"range\"" << 0;
    QTest::newRow("map") << fileText(EXAMPLES_DIR "/settings/automatic-workflow-with-area.xml")
                         << "<path class=\"area\"" << 1;
    QTest::newRow("bars") << fileText(EXAMPLES_DIR "/settings/activity-generation.xml") << "class=\"range\""
                          << 12;
    QTest::newRow("frequencies of a receiver")
        << fileText(EXAMPLES_DIR "/receivers/hf-receiver.xml") << "class=\"range\"" << 8;
    QTest::newRow("limits of a receiver")
        << fileText(EXAMPLES_DIR "/receivers/hf-receiver.xml") << "class=\"bar\"" << 40;
}

void ReportTest::shapes()
{
    QFETCH(QByteArray, document);
    QFETCH(QString, shape);
    const QString page = pageOf(document);
    QTEST(int(page.mid(page.indexOf("<body>")).count(shape)), "count");
}

/// Where they are is told by their lines, whatever ends them.
void ReportTest::linesOfSource_data()
{
    QTest::addColumn<QByteArray>("ends");

    QTest::newRow("LF") << QByteArray("\n\n\n");
    QTest::newRow("CR LF") << QByteArray("\r\n\r\n\r\n");
    QTest::newRow("CR") << QByteArray("\r\r\r");
    QTest::newRow("mixed") << QByteArray("\r\r\n\n");
}

void ReportTest::linesOfSource()
{
    QFETCH(QByteArray, ends);
    const QByteArray text = "<Job Version='1.0'>" + ends + "<Oddity/></Job>";
    const QString page = pageOf(text);
    QVERIFY(page.contains("<a href=\"#L4\">line 4, column 1</a>"));
    QVERIFY2(page.contains("<li id=\"L4\" class=\"hit\">&lt;Oddity/&gt;"), qPrintable(page.right(900)));
    QCOMPARE(page.mid(page.indexOf("<ol class=\"source")).count("<li"), 4);
}

/// Also beside a parameter that has no name, whether it says so or not.
void ReportTest::findingsOfNamelessParameters_data()
{
    QTest::addColumn<QByteArray>("document");

    const QByteArray rest = "><ValueType>Odd</ValueType></Parameter>";
    QTest::newRow("empty") << receiverWith("<Parameter Version='1.0' UniqueName=''" + rest);
    QTest::newRow("missing") << receiverWith("<Parameter Version='1.0'" + rest);
    QTest::newRow("alone, empty") << QByteArray("<Parameter Version='1.0' UniqueName=''" + rest);
    QTest::newRow("alone, missing") << QByteArray("<Parameter Version='1.0'" + rest);
}

void ReportTest::findingsOfNamelessParameters()
{
    QFETCH(QByteArray, document);
    const QString page = pageOf(document);
    QVERIFY(page.count("<li id=\"finding-") >= 4);
    QCOMPARE(page.count("class=\"note "), page.count("<li id=\"finding-"));
    QVERIFY(page.contains("Parameter without a name"));
    QVERIFY(page.contains("<code>ValueType</code>: &quot;Odd&quot;")
            || page.contains(": &quot;Odd&quot; is not"));
}

/// A frequency that is no number, or beyond all, is not one that is not limited.
void ReportTest::oddFrequencies()
{
    const QString page = pageOf(frequency("nan", "nan", "inf"));
    QVERIFY2(page.contains("not set to not set, default inf"), qPrintable(seenOn(page)));
    QVERIFY(pageOf(frequency("-inf", "1e6", "1e5")).contains("no limit to 1\u00A0MHz, default 100\u00A0kHz"));
}

/// What the headings of a page tell a screen reader: nothing stands under Findings that is none.
void ReportTest::everythingHasItsHeading()
{
    for (const char *const name : {"jobs/surveillance-mc-hf.xml", "receivers/hf-receiver.xml"}) {
        const QString page = pageOf(
            fileText(QString(EXAMPLES_DIR "/") + name).replace(" Version=\"1.0\"", " Version=\"odd\""));
        const auto findings = page.indexOf("<section id=\"findings\"");
        QVERIFY(findings > 0);
        const QString next = "</section><section><h2>In short</h2>";
        QCOMPARE(page.mid(page.indexOf("</section>", findings), next.size()), next);
    }
}

/// From the list to the place and back, and to the line of the source.
void ReportTest::findingsAreLinked()
{
    const QString page =
        pageOf("<Job Version='1.0'>\n<JobHeader>\n<JobType>Nothing</JobType></JobHeader>\n</Job>");
    const QString type = page.mid(page.indexOf("<th scope=\"row\">Job type</th>"), 600);
    const auto note =
        QRegularExpression("<p class=\"note error\" id=\"(note-\\d)\"><a href=\"#(finding-\\d)\">Error</a>: "
                           "&quot;Nothing&quot; is not a known name")
            .match(type);
    QVERIFY2(note.hasMatch(), qPrintable(type));
    const QString item = page.mid(page.indexOf("<li id=\"" + note.captured(2) + "\""), 2000);
    QVERIFY2(item.contains("<a href=\"#" + note.captured(1) + "\"><code>Job/JobHeader/JobType</code></a>"),
             qPrintable(item));
    QVERIFY(item.contains("<a href=\"#L3\">line 3, column 1</a>"));
    QVERIFY(page.contains("<li id=\"L3\" class=\"hit\">&lt;JobType&gt;"));
}

/// Of an object that a program has made there is no source to link to.
void ReportTest::findingsWithoutPlaces()
{
    const QString page = QString::fromUtf8(Report(Document(Job())).GetHtml());
    QVERIFY(page.contains("<li id=\"finding-1\""));
    QVERIFY(!page.contains("href=\"#L"));
    QVERIFY(!page.contains("<ol class=\"source"));
}

/// Beside what it is about, too, where that is a field or in one: exactly once.
void ReportTest::everyFindingIsListed()
{
    const QByteArray text = receiverWith(parameter("A", "a.b", "<ParameterType>Boolean</ParameterType>")
                                         + parameter("B]/@x", "a.b", "<ParameterType>Oddity</ParameterType>")
                                         + "<Parameter><Enable>yes</Enable></Parameter>");
    const Document document(text);
    const QString page = pageOf(text);
    QVERIFY(document.GetFindings().size() >= 4);
    QCOMPARE(page.count("<li id=\"finding-"), document.GetFindings().size());
    QVERIFY(page.count(" id=\"note-") >= document.GetFindings().size() - 1);
}

void ReportTest::hostileTexts_data()
{
    QTest::addColumn<QByteArray>("text");

    QTest::newRow("script") << QByteArray("</title></style></script><script>alert(1)</script>");
    QTest::newRow("attribute") << QByteArray("\" onmouseover=\"alert(1)\" x='");
    QTest::newRow("image") << QByteArray("'\"><img src=x onerror=alert(1)>");
    QTest::newRow("comment") << QByteArray("--><!--<![CDATA[");
    QTest::newRow("entity") << QByteArray("&lt;b&gt;&#60;b&#62;");
    QTest::newRow("place holders") << QByteArray("%1 %2 %99 %n");
}

/// Wherever a text of a document comes to stand, it is that text.
void ReportTest::hostileTexts()
{
    QFETCH(QByteArray, text);
    const QString hostile = QString::fromUtf8(text);
    QVector<Document> documents;
    Job job;
    job.GetJobHeader().SetAuthor(hostile);
    job.GetJobHeader().SetDescription(hostile);
    job.GetAntennaData().SetName(hostile);
    job.GetAntennaData().SetMinimumFrequency(1e6);
    job.GetAntennaData().SetMaximumFrequency(1e7);
    documents += Document(job);
    AutomaticWorkflow workflow;
    workflow.GetArea().SetName(hostile);
    workflow.GetArea().AddCoordinate({1, 2});
    documents += Document(workflow);
    Parameter parameter;
    parameter.SetParameterType(ParameterType::Enum);
    parameter.SetUniqueParameterName(hostile);
    parameter.SetRepresenationName(hostile + "." + hostile);
    parameter.SetDisplayName(hostile);
    parameter.SetDisplaySuffix(hostile);
    parameter.SetToolTip(hostile);
    parameter.GetEnumHandler().GetEnumList().append({1, hostile, hostile, 2, "true"});
    documents += Document(parameter);
    GenericReceiver receiver;
    receiver.GetParameterList().insert(hostile, parameter);
    documents += Document(receiver);
    documents += Document("<" + text);
    ReportIndex index;
    for (const Document &document : documents) {
        const QString page = QString::fromUtf8(Report(document, hostile, text).GetHtml());
        const QString body = page.mid(page.indexOf("<body>"));
        QVERIFY(seenOn(page).contains(hostile));
        QCOMPARE(page.count("<script"), 0);
        QCOMPARE(page.count("<img"), 0);
        QCOMPARE(page.count("<style"), 1);
        QCOMPARE(body.count("<!"), 0);
        QVERIFY(!QString(body)
                     .remove(QRegularExpression("\"[^\"]*\""))
                     .contains(QRegularExpression("<[^>]*\\son\\w+=")));
        index.Add(ReportIndex::EntryOf(document, hostile, "a.html"));
    }
    const QString page = QString::fromUtf8(index.GetHtml());
    QVERIFY(seenOn(page).contains(hostile));
    QCOMPARE(page.count("<script"), 0);
}

void ReportTest::unreadableBytes()
{
    const QByteArray text = "\xEF\xBB\xBF<Job>\r\n<a>\xff" + QByteArray(1, '\0') + "\x1b</a>\r\n";
    const QString page = pageOf(text);
    QVERIFY(page.contains("&lt;Job&gt;<li"));
    QVERIFY2(page.contains(QString("&lt;a&gt;") + QChar(0xFFFD) + "\\u0000\\u001b&lt;/a&gt;"),
             qPrintable(page));
}

void ReportTest::noDocument()
{
    QCOMPARE(Report().GetTitle(), QString());
    QVERIFY(Report().GetHtml().contains("</html>"));
    const Report unread(Document::ReadFile("/no/such/file.xml"));
    QCOMPARE(unread.GetTitle(), QString("Document of an unknown kind that cannot be read"));
    QVERIFY(unread.GetHtml().contains("cannot be read: "));
}

void ReportTest::entries()
{
    const auto entry = ReportIndex::EntryOf(Document(fileText(EXAMPLES_DIR "/jobs/surveillance-mc-hf.xml")),
                                            "a.xml", "a.html");
    QCOMPARE(entry.name, QString("a.xml"));
    QCOMPARE(entry.link, QString("a.html"));
    QCOMPARE(entry.kind, QString("Job"));
    QCOMPARE(entry.title, QString("Surveillance MC HF"));
    QVERIFY(entry.isAccepted && entry.isComplete);
    QCOMPARE(entry.errors + entry.warnings, 0);
    QCOMPARE(entry.author, QString("M. Keller"));
    QCOMPARE(entry.creation, QDateTime(QDate(2026, 3, 15), QTime(22, 0), Qt::UTC));
    QCOMPARE(entry.resource, QString("Antenna"));

    const auto faulty = ReportIndex::EntryOf(Document("<AutomaticWorkflow Mode='ManualMode'/>"), "b.xml", {});
    QCOMPARE(faulty.kind, QString("AutomaticWorkflow"));
    QVERIFY(!faulty.isAccepted && !faulty.isComplete);
    QVERIFY(faulty.errors > 0 && faulty.warnings > 0);
    QCOMPARE(faulty.author, QString());
    QVERIFY(!faulty.creation.isValid());
}

void ReportTest::order_data()
{
    QTest::addColumn<Order>("order");
    QTest::addColumn<QString>("names");

    QTest::newRow("name") << Order::Name << "abcd";
    QTest::newRow("kind") << Order::Kind << "dabc";
    QTest::newRow("state") << Order::State << "bcad";
    QTest::newRow("findings") << Order::Findings << "cbad";
    QTest::newRow("author") << Order::Author << "dacb";
    QTest::newRow("time") << Order::Time << "acbd";
    QTest::newRow("resource") << Order::Resource << "acbd";
}

void ReportTest::order()
{
    QFETCH(Order, order);
    const QDateTime early(QDate(2026, 1, 1), QTime(0, 0), Qt::UTC);
    ReportIndex index;
    index.Add(entry("d", "AutomaticWorkflow", true, true, 0, 0, "A", {}, {}));
    index.Add(entry("c", "Job", true, false, 2, 0, "C", early, "Antenna"));
    index.Add(entry("b", "Job", false, false, 1, 9, {}, {}, {}));
    index.Add(entry("a", "Job", true, true, 0, 1, "B", early.addDays(1), "Antenna"));
    index.Sort(order);
    QString names;
    for (const ReportIndex::Entry &one : index.GetEntries())
        names += one.name;
    QTEST(names, "names");
}

void ReportTest::indexPage()
{
    ReportIndex index;
    index.Add(ReportIndex::EntryOf(Document(fileText(EXAMPLES_DIR "/jobs/surveillance-mc-hf.xml")),
                                   "x/y/a.xml", "a%20b.html"));
    index.Add(ReportIndex::EntryOf(Document("<Job>"), "x/z/b.xml", {}));
    const QString page = QString::fromUtf8(index.GetHtml());
    QVERIFY(page.contains("2 documents, 1 refused."));
    QVERIFY(page.contains("<caption>x/</caption>"));
    QVERIFY(page.contains("<a href=\"a%20b.html\">y/a.xml</a>"));
    QVERIFY(page.contains("<th scope=\"row\">z/b.xml<small>"));
    QVERIFY(page.contains("<td>M. Keller</td><td>2026-03-15 22:00 UTC</td><td>Antenna</td>"));
    QVERIFY(QString::fromUtf8(ReportIndex().GetHtml()).contains("0 documents, 0 refused."));
}

QTEST_GUILESS_MAIN(ReportTest)
#include "ReportTest.moc"
