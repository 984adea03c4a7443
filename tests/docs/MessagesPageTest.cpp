// docs/messages.md lists the messages that stand in the library's sources, and its examples bring them about.

#include "Page.h"

#include <objectbase/DocumentTable_p.h>
#include <objectbase/Messages_p.h>
#include <tests/support/DocumentKinds.h>

#include <QTemporaryDir>
#include <QtTest>

#include <functional>

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

/// The message of one call of \a function, with the text literals among its arguments.
QString messageOf(const QString &function, const QString &object, const QString &arguments)
{
    static const QRegularExpression literal("u\"([^\"]*)\"");
    const QString field = literal.match(arguments).captured(1);
    const QMap<QString, QString> ofFields{
        {"pleaseSet", Messages::pleaseSet(object, field)},
        {"invalid", Messages::invalid(object, field, "%2")},
        {"storeValid", Messages::invalid(object, field, "%2")},
    };
    if (ofFields.contains(function))
        return field.isEmpty() ? QString() : ofFields[function];
    const QMap<QString, QString> others{
        {"unknownTag", Messages::unknownTag("%2", u"%1")},
        {"unknownParameter", Messages::unknownParameter("%2", "%1")},
        {"antennaDataRefused", Messages::antennaDataRefused("%2", "%1")},
        {"cannotOpen", Messages::cannotOpen("%1")},
        {"corrupted", Messages::corrupted(object)},
        {"notRepresentable", Messages::notRepresentable(object)},
    };
    return others.value(function, "not understood: " + function);
}

/// What the tables ask for and refuse.
void addMessagesOf(QSet<QString> &messages, const ObjectTable &table)
{
    const QString name = table.name.toString();
    for (const auto &rows : {table.attributes, table.elements}) {
        for (const Row &row : rows) {
            if (row.part && row.part->enter)
                addMessagesOf(messages, row.part->table());
            else if (!row.requiredAs.isNull())
                messages += Messages::pleaseSet(name, row.requiredAs);
        }
    }
}

QSet<QString> messagesInSources()
{
    QSet<QString> messages;
    TestSupport::forEachKind([&messages](auto kind) {
        addMessagesOf(messages, DocumentTables::of<typename decltype(kind)::Document>());
    });
    static const QRegularExpression call(
        "\\b(?:fail\\(Messages::(\\w+)|(storeValid)|throw [\\w:]+)\\(([^;]*);");
    static const QRegularExpression ofReader("\\bfail\\(reader\\.errorString\\(\\)\\);");
    for (const char *folder : {"objectbase", "kormak"}) {
        const QStringList paths = Page::pathsIn(folder, {"*.cpp", "*.h"});
        for (const QString &path : paths) {
            if (path == "objectbase/Messages_p.h") // the functions that are looked for
                continue;
            const QString content = Page::contentOf(path);
            auto found = call.globalMatch(content);
            while (found.hasNext()) {
                const auto match = found.next();
                const QString function = match.captured(1) + match.captured(2);
                if (match.captured(0).startsWith("throw FieldError")) // not to callers of this library
                    continue;
                const QString message = messageOf(function, objectNameIn(path), match.captured(3));
                if (!message.isEmpty())
                    messages += message;
            }
            if (ofReader.match(content).hasMatch())
                messages += WordsOfReader;
        }
    }
    return messages;
}

struct PageRow {
    QString message;
    QString example;
    QString outcome; ///< the message that the example brings about
};

/// The rows of the page whose first cell is a message.
QList<PageRow> rowsOfPage()
{
    QList<PageRow> rows;
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

void readAndCheck(const QString &document)
{
    const QString root = TestSupport::rootOf(document);
    if (!TestSupport::kinds().contains(root))
        return;
    const auto object = TestSupport::newObject(root);
    if (object->SetXmlString(document, true))
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
    for (const PageRow &row : rows)
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
    for (const PageRow &row : rows) {
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
    for (const PageRow &row : rows) {
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
        outcome = TestSupport::errorOfReader(example);
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
