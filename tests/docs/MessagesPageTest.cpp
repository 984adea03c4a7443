// docs/messages.md lists the messages that stand in the library's sources, and its examples bring them about.

#include "Page.h"

#include <kormak/ActivityGenerationData.h>
#include <kormak/AutomaticWorkflow.h>
#include <kormak/GenericReceiver.h>
#include <kormak/Job.h>
#include <kormak/JobHeader.h>
#include <kormak/Parameter.h>
#include <objectbase/AntennaData.h>
#include <objectbase/Area.h>
#include <objectbase/TesselException.h>

#include <QTemporaryDir>
#include <QtTest>
#include <QXmlStreamReader>

#include <functional>
#include <memory>

using namespace KORMAK;
using namespace TESSEL;

namespace {

const QString WordsOfReader = "the words of Qt's XML reader";
const QString NoExample = "none";

/// The name that objects of a source file bear in messages.
QString objectNameIn(const QString &path)
{
    static const QMap<QString, QString> others = {
        {"ActivityGenerationData", "ActivityGeneration"},
        {"ITesselObject", "%1"},
        {"ParameterXml", "Parameter"},
    };
    const QString file = QFileInfo(path).completeBaseName();
    return others.value(file, file);
}

/// The message of one call, \a function, with the text literals among its arguments.
QString messageOf(const QString &function, const QString &object, const QString &arguments)
{
    static const QRegularExpression literal("u\"([^\"]*)\"");
    const QString text = literal.match(arguments).captured(1);
    if (function == "throwUnknownTag")
        return "Unknown Tag '%1' in '%2'.";
    if (arguments.contains("errorString()"))
        return WordsOfReader;
    if (text.isEmpty())
        return "not understood: " + function + '(' + arguments;
    if (function == "throwPleaseSet")
        return object + ": Please set " + text;
    if (function == "throwInvalid" || function == "storeValid")
        return object + ": Invalid " + text + " '%2'";
    return function == "throwMessage" ? object + ": " + text : text;
}

QSet<QString> messagesInSources()
{
    QSet<QString> messages;
    static const QRegularExpression call(
        "\\b(throwPleaseSet|throwInvalid|throwMessage|throwUnknownTag|storeValid|throw [\\w:]+)\\(([^;]*);");
    for (const char *folder : {"objectbase", "kormak"}) {
        const QStringList paths = Page::filesIn(folder, {"*.cpp", "*.h"});
        for (const QString &path : paths) {
            if (path == "objectbase/Messages_p.h") // the functions that are looked for
                continue;
            auto found = call.globalMatch(Page::contentOf(path));
            while (found.hasNext()) {
                const auto match = found.next();
                messages += messageOf(match.captured(1), objectNameIn(path), match.captured(2));
            }
        }
    }
    return messages;
}

struct Row {
    QString message;
    QString example;
    QString outcome; ///< the message that the example brings about
};

/// The rows of the page whose first cell is a message.
QList<Row> rowsOfPage()
{
    QList<Row> rows;
    const auto sections = Page::sectionsOf("docs/messages.md");
    for (const auto &section : sections) {
        for (const QStringList &cells : section.rows) {
            const QString message = Page::codeIn(cells[0]).value(0, cells[0]);
            const QStringList example = Page::codeIn(cells.value(3));
            rows += {message, example.value(0, cells.value(3)), example.value(1, message)};
        }
    }
    return rows;
}

std::unique_ptr<ITesselObject> objectNamed(const QString &name)
{
    std::unique_ptr<ITesselObject> objects[] = {
        std::make_unique<Job>(),
        std::make_unique<JobHeader>(),
        std::make_unique<AntennaData>(),
        std::make_unique<Area>(),
        std::make_unique<AutomaticWorkflow>(),
        std::make_unique<ActivityGenerationData>(),
        std::make_unique<Parameter>(),
        std::make_unique<GenericReceiver>(),
    };
    for (auto &object : objects) {
        if (object->GetObjectName() == name)
            return std::move(object);
    }
    return nullptr;
}

void readAndCheck(const QString &document)
{
    QXmlStreamReader reader(document);
    reader.readNextStartElement();
    const auto object = objectNamed(reader.name().toString());
    if (object && object->SetXmlString(document, true))
        object->Check();
}

/// The calls among the examples.
QMap<QString, std::function<void()>> calls()
{
    using Activity = ActivityGenerationData;
    return {
        {"SetAuthor(\"\\x01\")",
         [] {
             JobHeader header;
             header.SetJobType(JobType::SignalTracking);
             header.SetCreation(QDateTime(QDate(2026, 3, 14), QTime(6, 30), Qt::UTC));
             header.SetAuthor(QString(QChar(1)));
             (void)header.GetXmlString();
         }},
        {"SetJobType(22)", [] { JobHeader().SetJobType(static_cast<JobType::JobTypeValue>(22)); }},
        {"SetAntennaData()", [] { Job().SetAntennaData(AntennaData()); }},
        {"SetWorkflowMode(2)",
         [] { AutomaticWorkflow().SetWorkflowMode(static_cast<AutomaticWorkflow::WorkflowMode>(2)); }},
        {"SetClassificationResults(-1)",
         [] { AutomaticWorkflow().SetClassificationResults(static_cast<unsigned int>(-1)); }},
        {"SetActivtyGenerationMode(3)",
         [] { Activity().SetActivtyGenerationMode(static_cast<Activity::ActivityGenerationMode>(3)); }},
        {"SetEnergyActivityGenerationChannel(2)",
         [] {
             Activity().SetEnergyActivityGenerationChannel(
                 static_cast<Activity::EnergyActivityGenerationChannel>(2));
         }},
        {"SetDDemActiveCriteria(4)",
         [] { Activity().SetDDemActiveCriteria(static_cast<Activity::DDemActiveCriteria>(4)); }},
        {"SetDbWriteClass(-1)",
         [] { Activity().SetDbWriteClass(static_cast<Activity::ActivityGenerationDataBaseWriteMode>(-1)); }},
        {"NameToControlType(\"Dial\")", [] { (void)Parameter().NameToControlType("Dial"); }},
        {"ControlTypeToName(4)",
         [] { (void)Parameter().ControlTypeToName(static_cast<Parameter::ControlType>(4)); }},
        {"GetParameter(\"Gain\")", [] { (void)GenericReceiver().GetParameter("Gain"); }},
        {"Load(\"missing.xml\")",
         [] {
             QString text;
             GenericReceiver().Load("missing.xml", text);
         }},
        {"ImportXML(\"job.xml\")", [] { GenericReceiver().ImportXML("job.xml"); }},
    };
}

QString errorOfReader(const QString &document)
{
    QXmlStreamReader reader(document);
    while (!reader.atEnd())
        reader.readNext();
    return reader.errorString();
}

} // namespace

class MessagesPageTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void messagesAreThoseOfTheSources();
    void everyCallIsAnExample();
    void example_data();
    void example();

private:
    QTemporaryDir folder; // where the files that examples name are, and are not
};

void MessagesPageTest::initTestCase()
{
    QVERIFY(folder.isValid());
    QVERIFY(QDir::setCurrent(folder.path()));
    QFile job("job.xml");
    QVERIFY(job.open(QIODevice::WriteOnly));
    QVERIFY(job.write("<Job/>") > 0);
}

void MessagesPageTest::messagesAreThoseOfTheSources()
{
    QStringList onPage;
    const auto rows = rowsOfPage();
    for (const Row &row : rows)
        onPage += row.message;
    onPage.sort();
    QStringList inSources = messagesInSources().values();
    inSources.sort();
    QVERIFY(inSources.size() > 30);
    QCOMPARE(onPage.join('\n'), inSources.join('\n'));
}

void MessagesPageTest::everyCallIsAnExample()
{
    QStringList onPage;
    const auto rows = rowsOfPage();
    for (const Row &row : rows) {
        if (!row.example.startsWith('<') && row.example != NoExample)
            onPage += row.example;
    }
    onPage.sort();
    QCOMPARE(onPage, QStringList(calls().keys()));
}

void MessagesPageTest::example_data()
{
    QTest::addColumn<QString>("message");
    QTest::addColumn<QString>("example");
    QTest::addColumn<QString>("outcome");

    const auto rows = rowsOfPage();
    for (const Row &row : rows) {
        if (row.example != NoExample)
            QTest::newRow(qPrintable(row.message)) << row.message << row.example << row.outcome;
    }
}

void MessagesPageTest::example()
{
    QFETCH(QString, message);
    QFETCH(QString, example);
    QFETCH(QString, outcome);

    if (message == WordsOfReader) {
        outcome = errorOfReader(example);
    } else {
        QString pattern = QRegularExpression::escape(message);
        pattern.replace(QRegularExpression("\\\\%[12]"), ".+");
        QVERIFY(QRegularExpression(QRegularExpression::anchoredPattern(pattern)).match(outcome).hasMatch());
    }

    const auto call = calls().value(example, [&example] { readAndCheck(example); });
    QString thrown;
    try {
        call();
    } catch (const TesselException &exception) {
        thrown = exception.GetErrorMessage();
    }
    QCOMPARE(thrown, outcome);
}

QTEST_GUILESS_MAIN(MessagesPageTest)

#include "MessagesPageTest.moc"
