// The schemas, held against what the library writes, the examples and the vocabularies.
#include <objectbase/ResourceType.h>
#include <tests/support/RandomDocuments.h>
#include <tests/support/SchemaSupport.h>

#include <QtTest>

#include <functional>

using namespace KORMAK;
using namespace TESSEL;
using namespace SchemaSupport;
using TestSupport::RandomDocuments;

using FromName = std::function<int(const QString &)>;
using IsValid = std::function<bool(int)>;
Q_DECLARE_METATYPE(FromName)
Q_DECLARE_METATYPE(IsValid)

class SchemasTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();

    void everyKindHasASchema();
    void writtenDocuments_data();
    void writtenDocuments();
    void examples_data();
    void examples();
    void faultyExamples_data();
    void faultyExamples();
    void everyFaultyExampleIsJudged();
    void vocabularies_data();
    void vocabularies();
};

namespace {

/// The names of an enumeration in a schema, in order.
QStringList enumerationIn(const QString &schema, const QString &type)
{
    QFile file(schemaPath(schema));
    if (!file.open(QIODevice::ReadOnly))
        return {};
    QXmlStreamReader reader(&file);
    QStringList names;
    bool isInside = false;
    while (!reader.atEnd()) {
        reader.readNext();
        if (reader.name() == QStringLiteral("simpleType"))
            isInside = reader.isStartElement() && reader.attributes().value("name") == type;
        else if (isInside && reader.isStartElement() && reader.name() == QStringLiteral("enumeration"))
            names << reader.attributes().value("value").toString();
    }
    return names;
}

/// Faults that show in the form of a document, against those that only show when it is checked.
struct FaultyExample {
    const char *file;
    bool isFaultOfForm;
};

constexpr FaultyExample FaultyExamples[] = {
    {"another-root-element.xml", true},
    {"attribute-without-quotes.xml", true},
    {"control-character.xml", true},
    {"element-inside-author.xml", true},
    {"empty.xml", true},
    {"impossible-creation.xml", true},
    {"job-type-in-lower-case.xml", true},
    {"malformed-creation.xml", true},
    {"maximum-below-minimum-frequency.xml", false},
    {"mismatched-end-tag.xml", true},
    {"missing-antenna-data.xml", false},
    {"missing-antenna-name.xml", false},
    {"missing-author.xml", false},
    {"missing-creation.xml", false},
    {"missing-header.xml", false},
    {"missing-job-type.xml", false},
    {"missing-maximum-frequency.xml", false},
    {"missing-minimum-frequency.xml", false},
    {"missing-resource-type.xml", false},
    {"negative-minimum-frequency.xml", false},
    {"not-utf-8.xml", true},
    {"only-a-declaration.xml", true},
    {"plain-text.xml", true},
    {"search-mc-hf-with-connectable-resource.xml", true},
    {"search-mc-hf.xml", false},
    {"second-root-element.xml", true},
    {"tag-in-wrong-case.xml", true},
    {"trailing-rubbish.xml", true},
    {"truncated.xml", true},
    {"unescaped-ampersand.xml", true},
    {"unknown-job-type.xml", true},
    {"unknown-resource-type.xml", true},
    {"unknown-tag-in-antenna-data.xml", true},
    {"unknown-tag-in-header.xml", true},
    {"unknown-tag-in-job.xml", true},
};

} // namespace

void SchemasTest::initTestCase()
{
    QVERIFY2(obstacle().isEmpty(), obstacle());
}

void SchemasTest::everyKindHasASchema()
{
    QStringList expected;
    for (const QString &kind : kinds()) {
        QCOMPARE(newObject(kind)->GetObjectName(), kind);
        expected << kind + ".xsd";
    }
    QCOMPARE(QDir(SCHEMAS_DIR).entryList({"*.xsd"}, QDir::Files, QDir::Name), expected);
}

void SchemasTest::writtenDocuments_data()
{
    QTest::addColumn<QString>("kind");

    for (const QString &kind : kinds())
        QTest::newRow(qPrintable(kind)) << kind;
}

void SchemasTest::writtenDocuments()
{
    QFETCH(QString, kind);
    constexpr quint32 Seed = 20260314;
    constexpr int Count = 300;
    qInfo("seed %u", Seed);

    RandomDocuments random(Seed);
    QList<QByteArray> documents;
    for (int i = 0; i < Count; ++i) {
        documents << random.document(kind, i).toUtf8();
        QVERIFY(documents.last().contains('<' + kind.toUtf8() + ' ')); // not the declaration alone
    }
    const QStringList faults = complaints(kind, documents);
    for (int i = 0; i < Count; ++i)
        QVERIFY2(faults[i].isEmpty(), qPrintable(faults[i] + '\n' + documents[i]));
}

void SchemasTest::examples_data()
{
    QTest::addColumn<QString>("kind");
    QTest::addColumn<QStringList>("paths");

    QMap<QString, QStringList> paths;
    for (const QString folder : {"jobs", "settings", "receivers"}) {
        for (const QString &path : TestSupport::pathsIn(EXAMPLES_DIR "/" + folder, {"*.xml"})) {
            const QString root = TestSupport::rootOf(TestSupport::textOf(path));
            QVERIFY2(!root.isNull(), qPrintable(path));
            paths[root] << path;
        }
    }
    for (auto kind = paths.begin(); kind != paths.end(); ++kind)
        QTest::newRow(qPrintable(kind.key())) << kind.key() << kind.value();
}

void SchemasTest::examples()
{
    QFETCH(QString, kind);
    QFETCH(QStringList, paths);

    QList<QByteArray> documents;
    for (const QString &path : paths)
        documents << TestSupport::bytesOf(path);
    const QStringList faults = complaints(kind, documents);
    for (int i = 0; i < paths.size(); ++i)
        QVERIFY2(faults[i].isEmpty(), qPrintable(paths[i] + '\n' + faults[i]));
}

void SchemasTest::faultyExamples_data()
{
    QTest::addColumn<bool>("isFaultOfForm");
    QTest::addColumn<QString>("complaint");

    QList<QByteArray> documents;
    for (const FaultyExample &example : FaultyExamples)
        documents << TestSupport::bytesOf(EXAMPLES_DIR "/faulty/" + QString(example.file));
    const QStringList faults = complaints("Job", documents);
    int row = 0;
    for (const FaultyExample &example : FaultyExamples)
        QTest::newRow(example.file) << example.isFaultOfForm << faults[row++];
}

void SchemasTest::faultyExamples()
{
    QFETCH(bool, isFaultOfForm);
    QFETCH(QString, complaint);

    QVERIFY2(complaint.isEmpty() != isFaultOfForm, qPrintable(complaint));
}

void SchemasTest::everyFaultyExampleIsJudged()
{
    QStringList judged;
    for (const FaultyExample &example : FaultyExamples)
        judged << example.file;
    QCOMPARE(judged, TestSupport::namesIn(EXAMPLES_DIR "/faulty", {"*.xml"}));
}

void SchemasTest::vocabularies_data()
{
    QTest::addColumn<QString>("schema");
    QTest::addColumn<QString>("type");
    QTest::addColumn<FromName>("fromName");
    QTest::addColumn<IsValid>("isValid");

    const auto add = [](const char *schema, const char *type, const FromName &fromName,
                        const IsValid &isValid) {
        QTest::newRow(type) << QString(schema) << QString(type) << fromName << isValid;
    };
    const auto data = std::make_shared<ActivityGenerationData>();
    const auto parameter = std::make_shared<Parameter>();
    using Workflow = AutomaticWorkflow;
    using Data = ActivityGenerationData;

    add("types/JobHeader.xsd", "JobTypeName", JobType::NameToJobType,
        [](int value) { return JobType::IsValidJobType(JobType::JobTypeValue(value)); });
    add("Job.xsd", "ResourceTypeName", ResourceType::NameToResourceType,
        [](int value) { return ResourceType::IsValidResourceType(ResourceType::ResourceTypeValue(value)); });
    add("types/AntennaData.xsd", "PolarizationName", AntennaData::NameToPolarization,
        [](int value) { return AntennaData::IsValidPolarization(AntennaData::Polarization(value)); });
    add("AutomaticWorkflow.xsd", "WorkflowModeName", Workflow::NameToWorkflowMode,
        [](int value) { return Workflow().IsValidWorkflowMode(Workflow::WorkflowMode(value)); });
    add("AutomaticWorkflow.xsd", "SearchStrategyName", Workflow::NameToSearchStrategy,
        [](int value) { return Workflow().IsValidSearchStrategy(Workflow::SearchStrategy(value)); });
    add(
        "ActivityGeneration.xsd", "ActivityGenerationModeName",
        [data](const QString &name) { return data->NameToActivityGenerationMode(name); },
        [data](int value) {
            return data->IsValidActivityGenerationMode(Data::ActivityGenerationMode(value));
        });
    add(
        "ActivityGeneration.xsd", "EnergyChannelName",
        [data](const QString &name) { return data->NameToEnergyActivityGenerationChannel(name); },
        [data](int value) {
            return data->IsValidEnergyActivityGenerationChannel(Data::EnergyActivityGenerationChannel(value));
        });
    add(
        "ActivityGeneration.xsd", "DDemActiveCriteriaName",
        [data](const QString &name) { return data->NameToDDemActiveCriteria(name); },
        [data](int value) { return data->IsValidDDemActiveCriteria(Data::DDemActiveCriteria(value)); });
    add(
        "ActivityGeneration.xsd", "DataBaseWriteModeName",
        [data](const QString &name) { return data->NameToActivityGenerationDataBaseWriteMode(name); },
        [data](int value) {
            return data->IsValidActivityGenerationDataBaseWriteMode(
                Data::ActivityGenerationDataBaseWriteMode(value));
        });
    add(
        "types/Parameter.xsd", "ParameterTypeName",
        [](const QString &name) { return static_cast<int>(NameToParameterType(name)); },
        [](int value) { return !ParameterTypeToName(ParameterType(value)).isEmpty(); });
    const auto isGivenName = [](const std::function<void()> &call) {
        return TestSupport::messageOf(call).isNull();
    };
    add(
        "types/Parameter.xsd", "ValueTypeName",
        [parameter](const QString &name) { return parameter->NameToValueType(name); },
        [=](int value) {
            return isGivenName([&] { (void)parameter->ValueTypeToName(Parameter::ValueType(value)); });
        });
    add(
        "types/Parameter.xsd", "ControlTypeName",
        [parameter](const QString &name) { return parameter->NameToControlType(name); },
        [=](int value) {
            return isGivenName([&] { (void)parameter->ControlTypeToName(Parameter::ControlType(value)); });
        });
}

void SchemasTest::vocabularies()
{
    QFETCH(QString, schema);
    QFETCH(QString, type);
    QFETCH(FromName, fromName);
    QFETCH(IsValid, isValid);

    // The schema lists the names in order of value. So each value up to the last has one, and one only.
    const QStringList names = enumerationIn(schema, type);
    QVERIFY(!names.isEmpty());
    for (int value = 0; value < names.size(); ++value)
        QCOMPARE(fromName(names[value]), value);
    QVERIFY(isValid(static_cast<int>(names.size()) - 1));
    QVERIFY(!isValid(static_cast<int>(names.size())));
}

QTEST_GUILESS_MAIN(SchemasTest)

#include "SchemasTest.moc"
