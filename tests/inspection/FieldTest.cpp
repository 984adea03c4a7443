#include "DocumentSamples.h"

#include <inspection/Field.h>
#include <kormak/ActivityGenerationData.h>
#include <kormak/AutomaticWorkflow.h>
#include <kormak/GenericReceiver.h>
#include <kormak/Job.h>

#include <cmath>
#include <limits>

using namespace KORMAK;
using namespace DocumentSamples;

Q_DECLARE_METATYPE(Field::Type)
Q_DECLARE_METATYPE(Field::Requirement)

class FieldTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void byDefault();
    void ofAJob();
    void values_data();
    void values();
    void wholeNumbers();
    void namesBetweenBrackets();
    void textsSetWhatTheySay_data();
    void textsSetWhatTheySay();
    void comparison();
    void requirements_data();
    void requirements();
    void textsOfValues_data();
    void textsOfValues();
};

namespace {

/// A complete receiver with a parameter of a type.
GenericReceiver receiverWith(ParameterType type)
{
    Parameter parameter;
    parameter.SetParameterType(type);
    parameter.SetUniqueParameterName("P");
    parameter.SetRepresenationName("rx.p");
    parameter.SetValueType(Parameter::ValueNumericInt);
    GenericReceiver receiver;
    receiver.AddParameter(parameter);
    return receiver;
}

Field fieldSetTo(const QString &path, ParameterType type, const QString &text)
{
    Document document(receiverWith(type));
    document.SetField(path, text);
    return document.GetField(path);
}

} // namespace

void FieldTest::byDefault()
{
    const Field field;
    QCOMPARE(field.GetPath() + field.GetLabel() + field.GetUnit() + field.GetText() + field.GetShownText(),
             QString());
    QCOMPARE(field.GetType(), Field::Type::Text);
    QVERIFY(!field.IsSettable());
    QVERIFY(!field.IsSet());
    QVERIFY(!field.GetValue().isValid());
    QVERIFY(field.GetVocabulary().IsNull());
    QCOMPARE(field, Field());
}

void FieldTest::ofAJob()
{
    const Document document = example("jobs/surveillance-mc-hf.xml");
    QStringList paths;
    for (const Field &field : document.GetFields()) {
        paths += field.GetPath();
        QCOMPARE(document.GetField(field.GetPath()), field);
    }
    QCOMPARE(paths,
             QStringList({"Version", "JobHeader.Version", "JobHeader.JobType", "JobHeader.Author",
                          "JobHeader.Creation", "JobHeader.ShowJDH", "JobHeader.Description",
                          "JobHeader.ConnectableResource", "ResourceType", "AntennaData.Version",
                          "AntennaData.Name", "AntennaData.MinimumFrequency", "AntennaData.MaximumFrequency",
                          "AntennaData.Azimuth", "AntennaData.Polarization"}));

    const Field type = document.GetField("JobHeader.JobType");
    QCOMPARE(type.GetType(), Field::Type::Name);
    QCOMPARE(type.GetVocabulary(), FindVocabulary("JobType"));
    QCOMPARE(type.GetAllowed(), type.GetVocabulary().GetNames());
    QCOMPARE(type.GetLabel(), QString("Job type"));
    QVERIFY(type.IsSettable());

    const Field frequency = document.GetField("AntennaData.MinimumFrequency");
    QCOMPARE(frequency.GetType(), Field::Type::Double);
    QCOMPARE(frequency.GetUnit(), QString("Hz"));
    QCOMPARE(frequency.GetAllowedInWords(), QString("number in Hz"));
    QVERIFY(frequency.GetAllowed().isEmpty());

    QVERIFY(!document.GetField("Version").IsSettable());
    QVERIFY(document.GetField("JobHeader.Author").IsInDocuments());
    const Document parameter(
        QByteArray("<Parameter UniqueName='a'><ParameterType>Enum</ParameterType></Parameter>"));
    QVERIFY(parameter.GetField("Enum.RepresentationName").IsSettable());
    QVERIFY(!parameter.GetField("Enum.RepresentationName").IsInDocuments());
    QVERIFY(!document.GetField("JobHeader.ConnectableResource").IsSettable());
    QVERIFY(!document.GetField("JobHeader.ConnectableResource").IsSet());
}

void FieldTest::values_data()
{
    QTest::addColumn<int>("parameterType");
    QTest::addColumn<QString>("path");
    QTest::addColumn<QString>("text");
    QTest::addColumn<Field::Type>("type");
    QTest::addColumn<QVariant>("value");
    QTest::addColumn<QString>("shown");

    const auto row = [](const char *name, ParameterType parameterType, const QString &path,
                        const QString &text, Field::Type type, const QVariant &value, const QString &shown) {
        QTest::newRow(name) << static_cast<int>(parameterType) << "Parameter[P]." + path << text << type
                            << value << shown;
    };
    row("text", ParameterType::String, "String.Default", "a \"b\"\n", Field::Type::Text, "a \"b\"\n",
        "a \"b\"\n");
    row("true", ParameterType::Boolean, "Boolean.Value", "true", Field::Type::Boolean, true, "yes");
    row("false", ParameterType::Boolean, "Boolean.Value", "false", Field::Type::Boolean, false, "no");
    row("64 bits", ParameterType::TimeStamp, "TimeStamp.Minimum", "-9223372036854775807",
        Field::Type::Integer, -std::numeric_limits<qint64>::max(), "-9223372036854775807");
    row("beyond doubles", ParameterType::TimeStamp, "TimeStamp.Maximum", "9007199254740993",
        Field::Type::Integer, Q_INT64_C(9007199254740993), "9007199254740993");
    row("float", ParameterType::Float, "Float.Default", "0.1", Field::Type::Float, 0.1F, "0.1");
    row("precise float", ParameterType::Float, "Float.Default", "16777.217", Field::Type::Float, 16777.217F,
        "16777.217");
    row("double", ParameterType::Double, "Double.Default", "0.1", Field::Type::Double, 0.1, "0.1");
    row("precise double", ParameterType::Double, "Double.Default", "0.30000000000000004", Field::Type::Double,
        0.1 + 0.2, "0.30000000000000004");
    row("name", ParameterType::Double, "ControlType", "VCTimeEdit", Field::Type::Name, "VCTimeEdit",
        "VCTimeEdit");
}

void FieldTest::values()
{
    QFETCH(int, parameterType);
    QFETCH(QString, path);
    QFETCH(QString, text);
    QFETCH(Field::Type, type);
    QFETCH(QVariant, value);
    QFETCH(QString, shown);

    const Field field = fieldSetTo(path, static_cast<ParameterType>(parameterType), text);
    QVERIFY(field.IsSet());
    QCOMPARE(field.GetType(), type);
    QCOMPARE(field.GetValue(), value);
    QCOMPARE(static_cast<int>(field.GetValue().userType()), static_cast<int>(value.userType()));
    QCOMPARE(field.GetText(), text);
    QCOMPARE(field.GetShownText(), shown);
}

void FieldTest::wholeNumbers()
{
    Document document = Document::New("AutomaticWorkflow");
    const Field field = document.GetField("Classifiers");
    QCOMPARE(field.GetType(), Field::Type::Integer);
    QCOMPARE(field.GetMinimum(), 1);
    QCOMPARE(field.GetMaximum(), 23);
    QCOMPARE(field.GetAllowedInWords(), QString("whole number from 1 to 23"));
    QCOMPARE(document.GetField("SearchStrategy").GetMaximum(), 0);

    const QDateTime creation({2026, 3, 29}, {0, 59, 59, 250}, Qt::UTC);
    Document job = Document::New("Job");
    QVERIFY(!job.GetField("JobHeader.Creation").IsSet());
    job.SetField("JobHeader.Creation", "2026-03-29T00:59:59,250Z");
    QCOMPARE(job.GetField("JobHeader.Creation").GetValue(), QVariant(creation));
    QCOMPARE(job.GetField("JobHeader.Creation").GetText(), QString("2026-03-29T00:59:59,250Z"));
}

void FieldTest::namesBetweenBrackets()
{
    const QString name = "a]\\[=.b";
    Document document = Document::New("GenericReceiver");
    const QString path = "Parameter[a\\]\\\\[=.b].DisplayName";
    QVERIFY(messageOf([&] { (void)document.GetField(path); }).contains("there is no field"));
    document.SetField(path, "x=y");
    QCOMPARE(document.GetField(path).GetText(), QString("x=y"));
    const auto &receiver = dynamic_cast<const GenericReceiver &>(*document.GetObject());
    QCOMPARE(receiver.GetParameterList().keys(), QStringList(name));
}

void FieldTest::textsSetWhatTheySay_data()
{
    addExamples();
}

/// Setting a field to its text changes nothing; but a multiplier is handed on to the handler.
void FieldTest::textsSetWhatTheySay()
{
    QFETCH(QString, path);

    const Document document(contentOf(path));
    int set = 0;
    for (const Field &field : document.GetFields()) {
        if (!field.IsSettable() || !field.IsSet())
            continue;
        Document copy = document;
        const QString refusal = messageOf([&] { copy.SetField(field.GetPath(), field.GetText()); });
        if (!refusal.isEmpty()) {
            QCOMPARE(refusal,
                     field.GetPath() + ": Antenna data cannot be set for resource 'undefined' in 'Job'.");
            continue;
        }
        ++set;
        QCOMPARE(copy.GetField(field.GetPath()), field);
        for (const Difference &difference : Document::Compare(document, copy)) {
            QVERIFY2(difference.GetPath().endsWith(".Multiplier")
                         || difference.GetPath() == "JobHeader.ShowJDHText",
                     qPrintable(difference.GetText()));
        }
    }
    QVERIFY(set > 0 || !document.GetObject());
}

void FieldTest::comparison()
{
    const Document document = example("jobs/surveillance-mc-hf.xml");
    Document other = document;
    other.SetField("JobHeader.Author", "Somebody else");
    QVERIFY(document.GetField("JobHeader.Author") == document.GetField("JobHeader.Author"));
    QVERIFY(document.GetField("JobHeader.Author") != other.GetField("JobHeader.Author"));
    QVERIFY(document.GetField("Version") != other.GetField("JobHeader.Version"));

    GenericReceiver receiver = receiverWith(ParameterType::Double);
    Parameter parameter = receiver.GetParameter("P");
    parameter.GetDoubleHandler().SetDefault(std::nan(""));
    receiver.AddParameter(parameter);
    const Field nan = Document(receiver).GetField("Parameter[P].Double.Default");
    QVERIFY(nan == Document(receiver).GetField("Parameter[P].Double.Default"));
    QVERIFY(std::isnan(nan.GetValue().toDouble()));
}

void FieldTest::requirements_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<Field::Requirement>("requirement");

    QTest::newRow("always") << "JobHeader.Author" << Field::Requirement::Always;
    QTest::newRow("sometimes") << "AntennaData.Name" << Field::Requirement::Sometimes;
    QTest::newRow("never") << "JobHeader.Description" << Field::Requirement::None;
}

void FieldTest::requirements()
{
    QFETCH(QString, path);
    QFETCH(Field::Requirement, requirement);
    QCOMPARE(example("jobs/antenna.xml").GetField(path).GetRequirement(), requirement);
    QCOMPARE(Field().GetRequirement(), Field::Requirement::None);
}

void FieldTest::textsOfValues_data()
{
    QTest::addColumn<QVariant>("value");
    QTest::addColumn<QString>("text");

    QTest::newRow("nothing") << QVariant() << "";
    QTest::newRow("text") << QVariant("1,5 x") << "1,5 x";
    QTest::newRow("boolean") << QVariant(true) << "true";
    QTest::newRow("whole number") << QVariant(-7) << "-7";
    QTest::newRow("64 bits") << QVariant(std::numeric_limits<qint64>::min()) << "-9223372036854775808";
    QTest::newRow("single precision") << QVariant(0.1F) << "0.1";
    QTest::newRow("double precision") << QVariant(0.1 + 0.2) << "0.30000000000000004";
    QTest::newRow("large") << QVariant(1.5e6) << "1500000";
    QTest::newRow("date") << QVariant(QDateTime({2026, 5, 1}, {14, 0, 0, 5}, QTimeZone(7200)))
                          << "2026-05-01T12:00:00,005Z";
}

void FieldTest::textsOfValues()
{
    QFETCH(QVariant, value);
    QFETCH(QString, text);
    QCOMPARE(Field::TextOf(value), text);
}

QTEST_GUILESS_MAIN(FieldTest)
#include "FieldTest.moc"
