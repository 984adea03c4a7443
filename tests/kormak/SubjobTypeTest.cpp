#include <kormak/SubjobType.h>
#include <tests/support/VocabularyChecks.h>

using namespace KORMAK;
using SubjobType::SubjobTypeValue;

class SubjobTypeTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void names_data();
    void names();
    void unknownNames_data();
    void unknownNames();
    void values_data();
    void values();
    void enumerators();
};

namespace {

VocabularyChecks::Vocabulary<SubjobTypeValue> subjobTypes()
{
    return {{"MC Reception",
             "SC Reception",
             "Tuner Scan",
             "Spectral Zoom DDC",
             "Detection Conventional DDC",
             "Detection Shorttime DDC",
             "Detection Conventional DF Server",
             "Detection Shorttime DF Server",
             "Activity Preselection",
             "Direction Finding Exclusive",
             "Direction Finding Locate",
             "Direction Finding Shared Scan",
             "Direction Finding Background Scan",
             "Statistic Evaluation",
             "IT Scan",
             "Classification",
             "Classification DDC",
             "Production",
             "Production DDC",
             "Locate Shorttime",
             "Surveillance Postprocessing",
             "Couple",
             "Signal Tracking Control",
             "Production WaveCom",
             "Exciter"},
            "undefined",
            SubjobType::SubjobTypeToName,
            SubjobType::NameToSubjobType,
            SubjobType::IsValidSubjobType,
            SubjobType::GetInvalidSubjobType,
            {}};
}

} // namespace

void SubjobTypeTest::names_data()
{
    VocabularyChecks::addNames(subjobTypes());
}

void SubjobTypeTest::names()
{
    VocabularyChecks::checkName(subjobTypes());
}

void SubjobTypeTest::unknownNames_data()
{
    VocabularyChecks::addUnknownNames(subjobTypes());
}

void SubjobTypeTest::unknownNames()
{
    VocabularyChecks::checkUnknownName(subjobTypes());
}

void SubjobTypeTest::values_data()
{
    VocabularyChecks::addValues(subjobTypes());
}

void SubjobTypeTest::values()
{
    VocabularyChecks::checkValue(subjobTypes());
}

void SubjobTypeTest::enumerators()
{
    using namespace SubjobType;
    QCOMPARE(NameToSubjobType("MC Reception"), MCReception);
    QCOMPARE(NameToSubjobType("SC Reception"), SCReception);
    QCOMPARE(NameToSubjobType("Tuner Scan"), TunerScan);
    QCOMPARE(NameToSubjobType("Spectral Zoom DDC"), SpectralZoomDDC);
    QCOMPARE(NameToSubjobType("Detection Conventional DDC"), DetectionConventionalDDC);
    QCOMPARE(NameToSubjobType("Detection Shorttime DDC"), DetectionShorttimeDDC);
    QCOMPARE(NameToSubjobType("Detection Conventional DF Server"), DetectionConventionalDFServer);
    QCOMPARE(NameToSubjobType("Detection Shorttime DF Server"), DetectionShorttimeDFServer);
    QCOMPARE(NameToSubjobType("Activity Preselection"), ActivityPreselection);
    QCOMPARE(NameToSubjobType("Direction Finding Exclusive"), DirectionFindingExclusive);
    QCOMPARE(NameToSubjobType("Direction Finding Locate"), DirectionFindingLocate);
    QCOMPARE(NameToSubjobType("Direction Finding Shared Scan"), DirectionFindingSharedScan);
    QCOMPARE(NameToSubjobType("Direction Finding Background Scan"), DirectionFindingBackgroundScan);
    QCOMPARE(NameToSubjobType("Statistic Evaluation"), StatisticEvaluation);
    QCOMPARE(NameToSubjobType("IT Scan"), ITScan);
    QCOMPARE(NameToSubjobType("Classification"), Classification);
    QCOMPARE(NameToSubjobType("Classification DDC"), ClassificationDDC);
    QCOMPARE(NameToSubjobType("Production"), Production);
    QCOMPARE(NameToSubjobType("Production DDC"), ProductionDDC);
    QCOMPARE(NameToSubjobType("Locate Shorttime"), LocateShorttime);
    QCOMPARE(NameToSubjobType("Surveillance Postprocessing"), SurveillancePostprocessing);
    QCOMPARE(NameToSubjobType("Couple"), Couple);
    QCOMPARE(NameToSubjobType("Signal Tracking Control"), SignalTrackingControl);
    QCOMPARE(NameToSubjobType("Production WaveCom"), ProductionWaveCom);
    QCOMPARE(NameToSubjobType("Exciter"), Exciter);
    QCOMPARE(GetInvalidSubjobType(), Invalid);
}

QTEST_GUILESS_MAIN(SubjobTypeTest)
#include "SubjobTypeTest.moc"
