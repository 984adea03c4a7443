#include <kormak/ActivityGenerationData.h>
#include <kormak/AutomaticWorkflow.h>
#include <kormak/Job.h>
#include <kormak/Parameter.h>
#include <tools/DocumentFields.h>
#include <tools/NameLists.h>
#include <tools/WrittenForm.h>

#include <QtTest>

using namespace KORMAK;

Q_DECLARE_METATYPE(const NameList *)

class NameListsTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void lists_data();
    void lists();
    void listsOfTheLibrary();
    void writtenJobTypes();
    void writtenParameterTypes();
    void rangesOfTheWorkflow();
};

void NameListsTest::lists_data()
{
    QTest::addColumn<const NameList *>("list");
    QTest::addColumn<int>("count");

    const QMap<QString, int> counts{{"JobType", 22},
                                    {"SubjobType", 25},
                                    {"ConnectableResourceType", 6},
                                    {"ResourceType", 50},
                                    {"Polarization", 5},
                                    {"WorkflowMode", 2},
                                    {"SearchStrategy", 7},
                                    {"ActivityGenerationMode", 3},
                                    {"EnergyActivityGenerationChannel", 2},
                                    {"ActivityGenerationDataBaseWriteMode", 3},
                                    {"DDemActiveCriteria", 4},
                                    {"ParameterType", 9},
                                    {"ValueType", 8},
                                    {"ControlType", 4},
                                    {"ObjectTypes", 5}};
    for (const NameList *list : allNameLists())
        QTest::newRow(qPrintable(list->name.toString())) << list << counts.value(list->name.toString());
}

/// Every name is read as the value that it stands for.
void NameListsTest::lists()
{
    QFETCH(const NameList *, list);
    QFETCH(int, count);

    QCOMPARE(list->values().size(), count);
    QCOMPARE(list->isValid(-1), false);
    QCOMPARE(list->valueOf("no such name"), -1);
    for (const qint32 value : list->values())
        QCOMPARE(list->valueOf(list->nameOf(value)), value);
    QCOMPARE(list->names().size(), count);
}

void NameListsTest::listsOfTheLibrary()
{
    const ActivityGenerationData data;
    QCOMPARE(GenerationModes.names(), data.GetActivityGenerationModeList());
    QCOMPARE(EnergyChannels.names(), data.GetEnergyActivityGenerationChannelList(true));
    QCOMPARE(DatabaseWriteModes.names(), data.GetActivityGenerationDataBaseWriteModeList());
    QCOMPARE(ActiveCriteria.names(), data.GetDDemActiveCriteriaList(true));
}

void NameListsTest::writtenJobTypes()
{
    for (const qint32 value : JobTypes.values()) {
        const auto type = static_cast<JobType::JobTypeValue>(value);
        JobHeader header;
        header.SetAuthor("a");
        header.SetCreation(QDateTime({2026, 3, 29}, {1, 2}, Qt::UTC));
        header.SetJobType(type);
        if (!JobType::IsSearchMC(type)) // which are never written
            QCOMPARE(JobTypes.writtenAs(value), writtenText(header, u"JobType"));
        QCOMPARE(JobTypes.writtenAs(value), JobType::JobTypeToName(type));
        QCOMPARE(JobTypes.difference(value).isEmpty(), type != JobType::SearchMCVUHF);
    }
}

void NameListsTest::writtenParameterTypes()
{
    for (const qint32 value : ParameterTypes.values()) {
        Parameter parameter;
        parameter.SetParameterType(static_cast<ParameterType>(value));
        parameter.SetValueType(Parameter::ValueString);
        parameter.SetUniqueParameterName("a");
        parameter.SetRepresenationName("b");
        parameter.GetStringHandler().SetValue("c");
        parameter.GetDoubleHandler().SetValue(1);
        parameter.GetEnumHandler().AppendEnumValue({});
        QVERIFY(parameter.HasData());
        QCOMPARE(ParameterTypes.writtenAs(value), writtenText(parameter, u"ParameterType"));
    }
}

void NameListsTest::rangesOfTheWorkflow()
{
    const QMap<QString, bool (AutomaticWorkflow::*)(unsigned int) const> isValid{
        {"Classifiers", &AutomaticWorkflow::IsValidNumberClassifers},
        {"ClassificationTime", &AutomaticWorkflow::IsValidClassificationTime},
        {"ClassificationResult", &AutomaticWorkflow::IsValidClassificationResults}};
    int count = 0;
    for (const FieldRow &row : AutomaticWorkflowFields) {
        const auto test = isValid.value(row.key.toString());
        if (!test)
            continue;
        ++count;
        for (unsigned int value = 0; value < 1100; ++value)
            QCOMPARE((AutomaticWorkflow().*test)(value), value >= row.form.least && value <= row.form.most);
    }
    QCOMPARE(count, 3);
}

QTEST_GUILESS_MAIN(NameListsTest)
#include "NameListsTest.moc"
