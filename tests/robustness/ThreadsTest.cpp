// Eight threads, each with objects of its own, doing everything at once. What they share are the library's
// tables and constants, whose first use they race for. Meant for a build under ThreadSanitizer, where it
// needs no exceptions: the threads start and end by the standard library, and hand over nothing but numbers.
#include <objectbase/Converters.h>
#include <objectbase/Logger.h>
#include <tests/support/DocumentKinds.h>
#include <tests/support/Samples.h>

#include <QDateTime>

#include <array>
#include <atomic>
#include <cstdio>
#include <cstdlib>
#include <thread>
#include <vector>

using namespace TestSupport;

namespace {

constexpr int Threads = 8;

/// Counts what is logged, instead of handing it to Qt.
class CountingLogger : public TESSEL::Logger {
public:
    int count = 0;

protected:
    void Write(Level level, const QString &message) override
    {
        if (!LevelToName(level).isEmpty() && !message.isEmpty())
            ++count;
    }
};

/// Runs \a work in all threads at once; it tells how many things went wrong.
template <class Work>
int faultsOfAll(Work work)
{
    std::atomic<int> waiting{Threads};
    std::array<int, Threads> faults{};
    std::vector<std::thread> threads;
    for (int i = 0; i < Threads; ++i) {
        threads.emplace_back([&, i] {
            --waiting;
            while (waiting > 0) { } // all begin together
            faults.at(static_cast<std::size_t>(i)) = work(i);
        });
    }
    for (std::thread &thread : threads)
        thread.join();
    int sum = 0;
    for (const int count : faults)
        sum += count;
    return sum;
}

/// Counts every name that does not lead back to its value.
int faultsOfNames()
{
    using namespace KORMAK;
    using namespace TESSEL;
    int faults = 0;
    const auto expect = [&faults](bool holds) { faults += holds ? 0 : 1; };
    const Parameter parameter;
    const ActivityGenerationData data;
    for (int value = 0; value <= 21; ++value) {
        const auto type = static_cast<JobType::JobTypeValue>(value);
        expect(value == 11 || JobType::NameToJobType(JobType::JobTypeToName(type)) == type);
    }
    for (int value = 0; value <= 49; ++value) {
        const auto type = static_cast<ResourceType::ResourceTypeValue>(value);
        expect(ResourceType::NameToResourceType(ResourceType::ResourceTypeToName(type)) == type);
    }
    for (int value = 0; value <= 7; ++value) {
        const auto type = static_cast<Parameter::ValueType>(value);
        expect(parameter.NameToValueType(parameter.ValueTypeToName(type)) == type);
    }
    for (int value = 0; value <= 3; ++value) {
        const auto type = static_cast<Parameter::ControlType>(value);
        expect(parameter.NameToControlType(parameter.ControlTypeToName(type)) == type);
    }
    expect(data.GetActivityGenerationModeList().size() == 3);
    expect(data.GetDDemActiveCriteriaList(true).size() == 4);
    expect(parameter.GetVersion() == QString("1.0"));
    expect(ObjectTypeToName(ObjectTypes::Job) == QString("Job"));
    const QDateTime date = QDateTime::fromMSecsSinceEpoch(1'234'567'890'123, Qt::UTC);
    expect(Converters::ToDateTime(Converters::ToString(date)) == date);
    return faults;
}

/// Writes, reads, copies, checks and breaks objects of every kind; \a number makes those of a thread differ.
int faultsOfObjects(int number)
{
    using namespace KORMAK;
    int faults = 0;
    const auto expect = [&faults](bool holds) { faults += holds ? 0 : 1; };
    const auto expectRoundTrip = [&](auto object) {
        decltype(object) again;
        expect(again.SetXmlString(object.GetXmlString(), true));
        expect(again == object);
        QByteArray bytes = object.GetCompressedBinaryRepresentationAsQByteArray(9);
        expect(again.SetBinaryRepresentation(bytes));
        expect(again == object);
        const auto copy = again;
        again.Reset();
        expect(copy == object);
        expect(!again.SetXmlString("<a", true));
    };

    Job job;
    expect(messageOf([&] { job.Check(); }) == QString("JobHeader: Please set Author"));
    const auto logger = std::make_shared<CountingLogger>();
    job.SetLogger(logger);
    logger->Warning(QString::number(number));
    expect(logger->count == 1);
    job.GetJobHeader().SetAuthor(QString("author %1").arg(number));
    job.GetJobHeader().SetJobType(static_cast<JobType::JobTypeValue>(number));
    job.GetJobHeader().SetCreation(QDateTime::fromMSecsSinceEpoch(number * 1000, Qt::UTC));
    job.SetResourceType(TESSEL::ResourceType::Antenna);
    TESSEL::AntennaData antenna;
    antenna.SetName("antenna");
    antenna.SetMinimumFrequency(number);
    antenna.SetMaximumFrequency(number + 0.5);
    job.SetAntennaData(antenna);
    expectRoundTrip(job);
    expect(messageOf([&] { (void)job.SetXmlString("<Job><x/></Job>", true); })
           == QString("Unknown Tag 'x' in 'Job'."));

    AutomaticWorkflow workflow;
    expect(messageOf([&] { workflow.SetNumberClassifiers(24); })
           == QString("AutomaticWorkflow: Invalid NumberClassifiers '24'"));
    workflow.GetArea().SetName("area");
    workflow.GetArea().AddCoordinate({1.0 / (number + 1), -number * 0.1});
    expectRoundTrip(workflow.GetArea());

    ActivityGenerationData data;
    data.SetActivtyGenerationMode(static_cast<ActivityGenerationData::ActivityGenerationMode>(number % 3));
    data.SetSessionCloseTime(static_cast<float>(number));
    expectRoundTrip(data);

    GenericReceiver receiver;
    for (int type = 1; type < TypeCount; ++type) {
        if (typeNames()[type] == "String") // is not read as it is written
            continue;
        Parameter parameter = completeParameter(type, QString("parameter %1").arg(type));
        expect(parameter == parameter);
        receiver.AddParameter(parameter);
    }
    GenericReceiver again;
    expect(again.SetXmlString(receiver.GetXmlString(), true));
    expect(again.GetParameterList().size() == receiver.GetParameterList().size());
    expect(again.GetXmlString() == receiver.GetXmlString());
    return faults;
}

} // namespace

/// Not a test of Qt Test, which starts a thread of its own; ThreadSanitizer sees only half of what Qt does
/// there.
int main()
{
    // First of all, since afterwards every table has been used.
    const int faultsOfFirstUse =
        faultsOfAll([](int number) { return faultsOfNames() + faultsOfObjects(number); });
    constexpr int Rounds = 200;
    const int faults = faultsOfAll([](int number) {
        int sum = 0;
        for (int round = 0; round < Rounds; ++round)
            sum += faultsOfNames() + faultsOfObjects(number);
        return sum;
    });
    std::printf("%d threads: %d faults at first use, %d faults in %d rounds\n", Threads, faultsOfFirstUse,
                faults, Rounds);
    return faultsOfFirstUse + faults == 0 ? EXIT_SUCCESS : EXIT_FAILURE;
}
