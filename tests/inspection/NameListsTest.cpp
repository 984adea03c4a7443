#include <inspection/FieldTable_p.h>
#include <inspection/NameLists_p.h>
#include <kormak/ActivityGenerationData.h>
#include <kormak/AutomaticWorkflow.h>
#include <kormak/Job.h>
#include <kormak/Parameter.h>
#include <kormak/Vocabularies_p.h>

#include <QRegularExpression>
#include <QtTest>

using namespace KORMAK;
using namespace KORMAK::Inspection;

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
    QTest::addColumn<int>("number");
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
    int number = 0;
    for (const NameList &list : allNameLists())
        QTest::newRow(qPrintable(list.name.toString())) << number++ << counts.value(list.name.toString());
    QCOMPARE(number, static_cast<int>(counts.size()));
}

/// Every name is read as the value that it stands for.
void NameListsTest::lists()
{
    QFETCH(int, number);
    QFETCH(int, count);

    const TESSEL::NameTable table = allNameLists()[static_cast<std::size_t>(number)].table();
    QCOMPARE(table.names().size(), count);
    QVERIFY(!table.isValid(-1));
    QCOMPARE(table.valueOf(u"no such name"), -1);
    for (const TESSEL::NamedValue &value : table) {
        QVERIFY(table.isValid(value.value));
        QCOMPARE(table.valueOf(value.name), value.value);
        QCOMPARE(table.find(value.value), &value);
    }
}

void NameListsTest::listsOfTheLibrary()
{
    const ActivityGenerationData data;
    QCOMPARE(generationModes().names(), data.GetActivityGenerationModeList());
    QCOMPARE(energyChannels().names(), data.GetEnergyActivityGenerationChannelList(true));
    QCOMPARE(databaseWriteModes().names(), data.GetActivityGenerationDataBaseWriteModeList());
    QCOMPARE(activeCriteria().names(), data.GetDDemActiveCriteriaList(true));
}

namespace {

/// The text of the child called \a name in what the object writes; empty when it writes none.
QString writtenText(const TESSEL::ITesselObject &object, const QString &name)
{
    const QRegularExpression element(QString("<%1>([^<]*)</%1>").arg(name));
    return element.match(object.GetXmlString()).captured(1);
}

} // namespace

void NameListsTest::writtenJobTypes()
{
    for (const TESSEL::NamedValue &value : jobTypes()) {
        const auto type = static_cast<JobType::JobTypeValue>(value.value);
        JobHeader header;
        header.SetAuthor("a");
        header.SetCreation(QDateTime({2026, 3, 29}, {1, 2}, Qt::UTC));
        header.SetJobType(type);
        if (!JobType::IsSearchMC(type)) // which are never written
            QCOMPARE(value.writtenAs.toString(), writtenText(header, "JobType"));
        QCOMPARE(value.writtenAs.toString(), JobType::JobTypeToName(type));
        QCOMPARE(writtenDifference(value.name, value.writtenAs).isEmpty(), type != JobType::SearchMCVUHF);
    }
}

void NameListsTest::writtenParameterTypes()
{
    for (const TESSEL::NamedValue &value : parameterTypes()) {
        Parameter parameter;
        parameter.SetParameterType(static_cast<ParameterType>(value.value));
        parameter.SetValueType(Parameter::ValueString);
        parameter.SetUniqueParameterName("a");
        parameter.SetRepresenationName("b");
        parameter.GetStringHandler().SetValue("c");
        parameter.GetDoubleHandler().SetValue(1);
        parameter.GetEnumHandler().AppendEnumValue({});
        QVERIFY(parameter.HasData());
        QCOMPARE(value.writtenAs.toString(), writtenText(parameter, "ParameterType"));
    }
}

void NameListsTest::rangesOfTheWorkflow()
{
    const QMap<QString, bool (AutomaticWorkflow::*)(unsigned int) const> isValid{
        {"Classifiers", &AutomaticWorkflow::IsValidNumberClassifers},
        {"ClassificationTime", &AutomaticWorkflow::IsValidClassificationTime},
        {"ClassificationResult", &AutomaticWorkflow::IsValidClassificationResults}};
    int count = 0;
    for (const FieldRow &row : fieldsOf(TESSEL::DocumentTables::of<AutomaticWorkflow>())) {
        const auto test = isValid.value(row.key.toString());
        if (!test)
            continue;
        ++count;
        for (unsigned int value = 0; value < 1100; ++value)
            QCOMPARE((AutomaticWorkflow().*test)(value), value >= row.type.least && value <= row.type.most);
    }
    QCOMPARE(count, 3);
}

QTEST_GUILESS_MAIN(NameListsTest)
#include "NameListsTest.moc"
