#include <kormak/JobType.h>
#include <tests/support/VocabularyChecks.h>

using namespace KORMAK;
using JobType::JobTypeValue;

using Predicate = bool (*)(const JobTypeValue &);
Q_DECLARE_METATYPE(Predicate)

class JobTypeTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void names_data();
    void names();
    void unknownNames_data();
    void unknownNames();
    void values_data();
    void values();
    void enumerators();
    void searchIsWrittenAsSurveillance();
    void groups_data();
    void groups();
};

namespace {

VocabularyChecks::Vocabulary<JobTypeValue> jobTypes()
{
    return {{"Production SC HF",
             "Production SC VUHF",
             "Production MC HF",
             "Production MC VUHF",
             "Surveillance SC HF",
             "Surveillance SC VUHF",
             "Surveillance MC HF",
             "Surveillance MC VUHF",
             "Surveillance MC Burst HF",
             "Surveillance MC Burst VUHF",
             "Search MC HF",
             "Search MC VUHF",
             "Search MC Burst HF",
             "Search MC Burst VUHF",
             "Tuner MC HF",
             "Tuner MC VUHF",
             "Stop a cyclic Df/Locate request",
             "Signal Tracking",
             "Exciter HF",
             "Exciter VUHF",
             "Antenna",
             "TOLVA Receiver"},
            "undefined",
            JobType::JobTypeToName,
            JobType::NameToJobType,
            JobType::IsValidJobType,
            JobType::GetInvalidJobType,
            {{11, "Surveillance MC VUHF"}}};
}

} // namespace

void JobTypeTest::names_data()
{
    VocabularyChecks::addNames(jobTypes());
}

void JobTypeTest::names()
{
    VocabularyChecks::checkName(jobTypes());
}

void JobTypeTest::unknownNames_data()
{
    VocabularyChecks::addUnknownNames(jobTypes());
    QTest::newRow("with the slash of other vocabularies") << "Production SC V/UHF";
}

void JobTypeTest::unknownNames()
{
    VocabularyChecks::checkUnknownName(jobTypes());
}

void JobTypeTest::values_data()
{
    VocabularyChecks::addValues(jobTypes());
}

void JobTypeTest::values()
{
    VocabularyChecks::checkValue(jobTypes());
}

void JobTypeTest::enumerators()
{
    QCOMPARE(JobType::NameToJobType("Production SC HF"), JobType::ProductionSCHF);
    QCOMPARE(JobType::NameToJobType("Production SC VUHF"), JobType::ProductionSCVUHF);
    QCOMPARE(JobType::NameToJobType("Production MC HF"), JobType::ProductionMCHF);
    QCOMPARE(JobType::NameToJobType("Production MC VUHF"), JobType::ProductionMCVUHF);
    QCOMPARE(JobType::NameToJobType("Surveillance SC HF"), JobType::SurveillanceSCHF);
    QCOMPARE(JobType::NameToJobType("Surveillance SC VUHF"), JobType::SurveillanceSCVUHF);
    QCOMPARE(JobType::NameToJobType("Surveillance MC HF"), JobType::SurveillanceMCHF);
    QCOMPARE(JobType::NameToJobType("Surveillance MC VUHF"), JobType::SurveillanceMCVUHF);
    QCOMPARE(JobType::NameToJobType("Surveillance MC Burst HF"), JobType::SurveillanceMCBurstHF);
    QCOMPARE(JobType::NameToJobType("Surveillance MC Burst VUHF"), JobType::SurveillanceMCBurstVUHF);
    QCOMPARE(JobType::NameToJobType("Search MC HF"), JobType::SearchMCHF);
    QCOMPARE(JobType::NameToJobType("Search MC VUHF"), JobType::SearchMCVUHF);
    QCOMPARE(JobType::NameToJobType("Search MC Burst HF"), JobType::SearchMCBurstHF);
    QCOMPARE(JobType::NameToJobType("Search MC Burst VUHF"), JobType::SearchMCBurstVUHF);
    QCOMPARE(JobType::NameToJobType("Tuner MC HF"), JobType::TunerMCHF);
    QCOMPARE(JobType::NameToJobType("Tuner MC VUHF"), JobType::TunerMCVUHF);
    QCOMPARE(JobType::NameToJobType("Stop a cyclic Df/Locate request"), JobType::StopCyclicDFLocateRequest);
    QCOMPARE(JobType::NameToJobType("Signal Tracking"), JobType::SignalTracking);
    QCOMPARE(JobType::NameToJobType("Exciter HF"), JobType::ExciterHF);
    QCOMPARE(JobType::NameToJobType("Exciter VUHF"), JobType::ExciterVUHF);
    QCOMPARE(JobType::NameToJobType("Antenna"), JobType::Antenna);
    QCOMPARE(JobType::NameToJobType("TOLVA Receiver"), JobType::TolvaReceiver);
    QCOMPARE(JobType::GetInvalidJobType(), JobType::Invalid);
}

void JobTypeTest::searchIsWrittenAsSurveillance()
{
    const auto search = JobType::NameToJobType("Search MC VUHF");
    QCOMPARE(static_cast<int>(search), 11);
    QCOMPARE(JobType::JobTypeToName(search), QString("Surveillance MC VUHF"));
    QCOMPARE(static_cast<int>(JobType::NameToJobType(JobType::JobTypeToName(search))), 7);
    QCOMPARE(JobType::JobTypeToName(JobType::SurveillanceMCVUHF), QString("Surveillance MC VUHF"));
}

void JobTypeTest::groups_data()
{
    QTest::addColumn<Predicate>("isMember");
    QTest::addColumn<QVector<int>>("members");

    const auto row = [](const char *name, Predicate isMember, const QVector<int> &members) {
        QTest::newRow(name) << isMember << members;
    };
    row("IsProductionSC", JobType::IsProductionSC, {0, 1});
    row("IsProductionMC", JobType::IsProductionMC, {2, 3});
    row("IsSurveillanceSC", JobType::IsSurveillanceSC, {4, 5});
    row("IsSurveillanceMC", JobType::IsSurveillanceMC, {6, 7});
    row("IsSurveillanceMCBurst", JobType::IsSurveillanceMCBurst, {8, 9});
    row("IsSearchMC", JobType::IsSearchMC, {10, 11});
    row("IsSearchMCBurst", JobType::IsSearchMCBurst, {12, 13});
    row("IsTunerMC", JobType::IsTunerMC, {14, 15});
    row("IsExciter", JobType::IsExciter, {18, 19});
    row("IsTolvaReceiver", JobType::IsTolvaReceiver, {21});
}

void JobTypeTest::groups()
{
    QFETCH(Predicate, isMember);
    QFETCH(QVector<int>, members);

    for (int value = -2; value <= 300; ++value)
        QCOMPARE(isMember(static_cast<JobTypeValue>(value)), members.contains(value));
}

QTEST_GUILESS_MAIN(JobTypeTest)
#include "JobTypeTest.moc"
