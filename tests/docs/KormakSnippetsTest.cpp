// What the pages of the classes in kormak/ show: each snippet bears the name of its class.

#include <kormak/ActivityGenerationData.h>
#include <kormak/AutomaticWorkflow.h>
#include <kormak/GenericReceiver.h>
#include <kormak/Job.h>
#include <kormak/SubjobType.h>

#include <QTimeZone>
#include <QtTest>

namespace {

//! [NumericHandler]
/// The value as a user interface shows it.
template <class Number>
double shownValue(const KORMAK::NumericHandler<Number> &handler)
{
    return static_cast<double>(handler.GetValue()) / handler.GetMultiplier();
}
//! [NumericHandler]

//! [TypeHandler]
/// For any of the handlers of a parameter.
QString describe(const KORMAK::TypeHandler &handler)
{
    return handler.GetUniqueParameterName() + (handler.HasData() ? ": ready" : ": empty");
}
//! [TypeHandler]

} // namespace

class KormakSnippetsTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void activityGenerationData();
    void automaticWorkflow();
    void booleanHandler();
    void connectableResourceType();
    void doubleHandler();
    void enumHandler();
    void enumValue();
    void floatHandler();
    void genericReceiver();
    void integerHandler();
    void job();
    void jobHeader();
    void jobType();
    void longHandler();
    void namedHandler();
    void numericHandler();
    void parameter();
    void stringHandler();
    void subjobType();
    void timeStampHandler();
    void typeHandler();
};

void KormakSnippetsTest::activityGenerationData()
{
    //! [ActivityGenerationData]
    KORMAK::ActivityGenerationData settings;
    settings.SetActivtyGenerationMode(KORMAK::ActivityGenerationData::AGMC); // all else has a default
    settings.SetSessionCloseTime(30);
    settings.SetDbWriteClass(KORMAK::ActivityGenerationData::Always);
    const QString document = settings.GetXmlString();
    //! [ActivityGenerationData]
    KORMAK::ActivityGenerationData received;
    QVERIFY(received.SetXmlString(document, true));
    QCOMPARE(received.GetActivtyGenerationMode(), KORMAK::ActivityGenerationData::AGMC);
    QCOMPARE(received.GetSessionCloseTime(), 30.0F);
    QCOMPARE(received.GetDbWriteClass(), KORMAK::ActivityGenerationData::Always);
}

void KormakSnippetsTest::automaticWorkflow()
{
    //! [AutomaticWorkflow]
    KORMAK::AutomaticWorkflow workflow;
    workflow.SetWorkflowMode(KORMAK::AutomaticWorkflow::AutomaticMode);
    workflow.SetSearchStrategy(KORMAK::AutomaticWorkflow::HighestLevelFirst);
    workflow.SetNumberClassifiers(4);
    QVERIFY(workflow.HasData());

    KORMAK::AutomaticWorkflow received;
    QVERIFY(received.SetXmlString(workflow.GetXmlString(), true));
    received.SetWorkflowMode(KORMAK::AutomaticWorkflow::AutomaticMode); // which was not read
    QCOMPARE(received, workflow);
    //! [AutomaticWorkflow]
}

void KormakSnippetsTest::booleanHandler()
{
    //! [BooleanHandler]
    KORMAK::Parameter preamplifier;
    preamplifier.SetParameterType(KORMAK::ParameterType::Boolean);
    preamplifier.GetBooleanHandler().SetValue(true);
    QVERIFY(preamplifier.IsValidParameter());
    //! [BooleanHandler]
    QVERIFY(preamplifier.GetBooleanHandler().GetValue());
}

void KormakSnippetsTest::connectableResourceType()
{
    //! [ConnectableResourceType]
    const auto resource =
        KORMAK::ConnectableResourceType::NameToConnectableResourceType("DDC IPC Voice V/UHF");
    QVERIFY(KORMAK::ConnectableResourceType::IsVUHFResource(resource));
    //! [ConnectableResourceType]
    QCOMPARE(resource, KORMAK::ConnectableResourceType::DDCIPCVoiceVUHF);
}

void KormakSnippetsTest::doubleHandler()
{
    //! [DoubleHandler]
    KORMAK::DoubleHandler bandwidth; // one value
    bandwidth.SetMinimum(10e3);
    bandwidth.SetMaximum(20e6);
    bandwidth.SetDefault(10e6);
    QVERIFY(!bandwidth.HasData());
    bandwidth.SetValue(bandwidth.GetDefault()); // setting the default does not do that
    QVERIFY(bandwidth.HasData());

    KORMAK::DoubleHandler channels; // a list
    channels.SetUseAsList(true);
    channels.SetMaxDoubleListLength(32);
    channels.AppendDoubleValue(145e6);
    QVERIFY(channels.HasData());
    //! [DoubleHandler]
    QCOMPARE(channels.GetDoubleList(), QVector<double>{145e6});
}

void KormakSnippetsTest::enumHandler()
{
    //! [EnumHandler]
    KORMAK::EnumHandler input;
    input.AppendEnumValue({0, "Antenna 1", "", 0, "true"});
    input.AppendEnumValue({1, "Antenna 2", "", 1, ""});
    input.SetDefaultValue(input.GetEnumList().first()); // appending does not do that
    input.SetSelectedEnumValue(input.GetEnumValue("Antenna 2"));
    QCOMPARE(input.GetEnumValue("Antenna 3"), input.GetDefaultValue()); // there is no such one
    //! [EnumHandler]
    QCOMPARE(input.GetDefaultValue().Name, QString("Antenna 1"));
    QCOMPARE(input.GetSelectedEnumValue().Key, 1);
}

void KormakSnippetsTest::enumValue()
{
    //! [EnumValue]
    KORMAK::EnumHandler::EnumValue entry{2, "Calibration", "CAL", 2.5, "true"};
    QVERIFY(entry.IsDefault());
    entry.Default.clear();
    QVERIFY(!entry.IsDefault());
    //! [EnumValue]
    QCOMPARE(entry.Value, 2.5);
}

void KormakSnippetsTest::floatHandler()
{
    //! [FloatHandler]
    KORMAK::FloatHandler level;
    level.SetMinimum(-20);
    level.SetMaximum(120);
    level.SetDefault(0.5F);
    level.SetValue(level.GetDefault());
    level.SetPrecision(1); // decimals that are shown
    //! [FloatHandler]
    QVERIFY(level.HasData());
    QCOMPARE(level.GetValue(), 0.5F);
}

void KormakSnippetsTest::genericReceiver()
{
    KORMAK::Parameter attenuation;
    attenuation.SetParameterType(KORMAK::ParameterType::Integer);
    attenuation.SetValueType(KORMAK::Parameter::ValueNumericInt);
    attenuation.SetUniqueParameterName("Attenuation");
    attenuation.SetRepresenationName("tuner.attenuation");
    //! [GenericReceiver]
    KORMAK::GenericReceiver receiver;
    receiver.AddParameter(attenuation); // a copy, called by its unique name
    QCOMPARE(receiver.GetParameter("Attenuation"), attenuation);

    receiver.GetParameterList()["Attenuation"].GetIntegerHandler().SetValue(20); // in its place
    for (const KORMAK::Parameter &parameter : std::as_const(receiver).GetParameterList())
        parameter.Check(); // of the receiver, Check() looks at none of them
    //! [GenericReceiver]
    QCOMPARE(receiver.GetParameter("Attenuation").GetIntegerHandler().GetValue(), 20);
    QVERIFY(receiver.HasData());
}

void KormakSnippetsTest::integerHandler()
{
    //! [IntegerHandler]
    KORMAK::IntegerHandler attenuation;
    attenuation.SetMaximum(40);
    attenuation.SetDefault(10);
    QCOMPARE(attenuation.GetValue(), 0); // setting the default leaves it alone
    attenuation.SetValue(attenuation.GetDefault());
    //! [IntegerHandler]
    QCOMPARE(attenuation.GetValue(), 10);
    QCOMPARE(attenuation.GetMinimum(), -32768);
}

void KormakSnippetsTest::job()
{
    //! [Job]
    KORMAK::Job job;
    job.GetJobHeader().SetJobType(KORMAK::JobType::SurveillanceMCHF);
    job.GetJobHeader().SetAuthor("M. Keller");
    job.GetJobHeader().SetCreation(QDateTime::currentDateTimeUtc());
    job.SetResourceType(TESSEL::ResourceType::Antenna);
    job.GetAntennaData().SetName("Log-periodic North");
    job.GetAntennaData().SetMinimumFrequency(1.5e6);
    job.GetAntennaData().SetMaximumFrequency(30e6);

    KORMAK::Job received;
    QVERIFY(received.SetXmlString(job.GetXmlString(), true));
    QCOMPARE(received, job);
    //! [Job]
    QVERIFY(received.HasData());
}

void KormakSnippetsTest::jobHeader()
{
    //! [JobHeader]
    KORMAK::JobHeader header;
    header.SetJobType(KORMAK::JobType::TunerMCVUHF);
    header.SetAuthor("M. Keller");
    header.SetCreation(QDateTime({2026, 3, 14}, {6, 30}, QTimeZone::utc()));
    header.SetDescription("Air band");
    header.Check(); // throws what is missing
    //! [JobHeader]
    QVERIFY(header.HasData());
    QVERIFY(header.GetShowJDH());
}

void KormakSnippetsTest::jobType()
{
    //! [JobType]
    const auto type = KORMAK::JobType::NameToJobType("Search MC Burst HF");
    QCOMPARE(type, KORMAK::JobType::SearchMCBurstHF);
    QVERIFY(KORMAK::JobType::IsSearchMCBurst(type));
    QCOMPARE(KORMAK::JobType::NameToJobType("Search"), KORMAK::JobType::Invalid); // no such name
    //! [JobType]
}

void KormakSnippetsTest::longHandler()
{
    //! [LongHandler]
    KORMAK::LongHandler frequency; // Hz, for what has no use for fractions
    frequency.SetMinimum(20'000'000);
    frequency.SetMaximum(1'300'000'000);
    frequency.SetDefault(145'000'000);
    frequency.SetValue(frequency.GetDefault());
    //! [LongHandler]
    QVERIFY(frequency.HasData());
    QCOMPARE(frequency.GetValue(), 145'000'000);
}

void KormakSnippetsTest::namedHandler()
{
    //! [NamedHandler]
    KORMAK::Parameter gain;
    gain.SetParameterType(KORMAK::ParameterType::Float); // before the names
    gain.SetUniqueParameterName("Gain");
    QCOMPARE(gain.GetFloatHandler().GetUniqueParameterName(), QString("Gain"));
    QCOMPARE(gain.GetIntegerHandler().GetUniqueParameterName(), QString()); // is not used
    //! [NamedHandler]
}

void KormakSnippetsTest::numericHandler()
{
    KORMAK::DoubleHandler frequency;
    frequency.SetMultiplier(1e6);
    frequency.SetValue(145e6);
    QCOMPARE(shownValue(frequency), 145.0);
}

void KormakSnippetsTest::parameter()
{
    //! [Parameter]
    KORMAK::Parameter gain;
    gain.SetParameterType(KORMAK::ParameterType::Integer); // first: the names go to its handler, too
    gain.SetValueType(KORMAK::Parameter::ValueNumericInt);
    gain.SetUniqueParameterName("Gain");
    gain.SetRepresenationName("tuner.gain");
    gain.SetDisplaySuffix("dB");
    gain.GetIntegerHandler().SetMinimum(0);
    gain.GetIntegerHandler().SetMaximum(40);
    gain.GetIntegerHandler().SetDefault(10);
    gain.GetIntegerHandler().SetValue(10); // documents carry the default alone

    KORMAK::Parameter received;
    QVERIFY(received.SetXmlString(gain.GetXmlString(), true));
    QCOMPARE(received, gain);
    //! [Parameter]
    gain.GetIntegerHandler().SetValue(20);
    QVERIFY(received.SetXmlString(gain.GetXmlString(), true));
    QVERIFY(received != gain);
}

void KormakSnippetsTest::stringHandler()
{
    //! [StringHandler]
    KORMAK::StringHandler label;
    label.SetDefault("North");
    QVERIFY(!label.HasData());
    label.SetValue(label.GetDefault()); // setting the default leaves it alone
    QVERIFY(label.HasData());
    //! [StringHandler]
}

void KormakSnippetsTest::subjobType()
{
    //! [SubjobType]
    const auto type = KORMAK::SubjobType::NameToSubjobType(
        KORMAK::SubjobType::SubjobTypeToName(KORMAK::SubjobType::TunerScan));
    QCOMPARE(type, KORMAK::SubjobType::TunerScan);
    QVERIFY(KORMAK::SubjobType::IsValidSubjobType(type));
    //! [SubjobType]
    QVERIFY(!KORMAK::SubjobType::IsValidSubjobType(KORMAK::SubjobType::Invalid));
}

void KormakSnippetsTest::timeStampHandler()
{
    //! [TimeStampHandler]
    KORMAK::TimeStampHandler switchOffAt; // milliseconds since 1970, in this document
    switchOffAt.SetMinimum(0);
    switchOffAt.SetValue(QDateTime({2026, 3, 14}, {22, 0}, QTimeZone::utc()).toMSecsSinceEpoch());
    //! [TimeStampHandler]
    QCOMPARE(switchOffAt.GetValue(), 1773525600000LL);
}

void KormakSnippetsTest::typeHandler()
{
    KORMAK::StringHandler label;
    label.SetUniqueParameterName("Label");
    QCOMPARE(describe(label), QString("Label: empty"));
    label.SetValue("North");
    QCOMPARE(describe(label), QString("Label: ready"));
}

QTEST_GUILESS_MAIN(KormakSnippetsTest)

#include "KormakSnippetsTest.moc"
