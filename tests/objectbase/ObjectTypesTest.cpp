#include <objectbase/ObjectTypes.h>

#include <QtTest>

#include <limits>
#include <type_traits>

using namespace TESSEL;

class ObjectTypesTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void names_data();
    void names();
    void numbers();
    void unknownNames_data();
    void unknownNames();
    void otherNumbersHaveNoName();
};

void ObjectTypesTest::names_data()
{
    QTest::addColumn<int>("number");
    QTest::addColumn<QString>("name");

    QTest::newRow("GenericReceiver") << 38 << "GenericReceiver";
    QTest::newRow("Job") << 40 << "Job";
    QTest::newRow("JobHeader") << 41 << "JobHeader";
    QTest::newRow("Area") << static_cast<int>(ObjectTypes::Area) << "Area";
    QTest::newRow("AntennaData") << static_cast<int>(ObjectTypes::AntennaData) << "AntennaData";
}

void ObjectTypesTest::names()
{
    QFETCH(int, number);
    QFETCH(QString, name);

    QCOMPARE(ObjectTypeToName(static_cast<ObjectTypes>(number)), name);
    QCOMPARE(static_cast<int>(NameToObjectType(name)), number);
}

void ObjectTypesTest::numbers()
{
    static_assert(std::is_same_v<std::underlying_type_t<ObjectTypes>, qint32>);
    QCOMPARE(static_cast<int>(ObjectTypes::GenericReceiver), 38);
    QCOMPARE(static_cast<int>(ObjectTypes::Job), 40);
    QCOMPARE(static_cast<int>(ObjectTypes::JobHeader), 41);
    QCOMPARE(static_cast<int>(ObjectTypes::Invalid), -1);
}

void ObjectTypesTest::unknownNames_data()
{
    QTest::addColumn<QString>("name");

    QTest::newRow("empty") << "";
    QTest::newRow("lower case") << "job";
    QTest::newRow("upper case") << "JOB";
    QTest::newRow("blank in front") << " Job";
    QTest::newRow("blank behind") << "Job ";
    QTest::newRow("beginning of a name") << "Antenna";
    QTest::newRow("number") << "40";
    QTest::newRow("not set") << "Invalid";
}

void ObjectTypesTest::unknownNames()
{
    QFETCH(QString, name);
    QCOMPARE(NameToObjectType(name), ObjectTypes::Invalid);
}

void ObjectTypesTest::otherNumbersHaveNoName()
{
    int named = 0;
    for (int number = -2; number < 300; ++number)
        named += ObjectTypeToName(static_cast<ObjectTypes>(number)).isEmpty() ? 0 : 1;
    QCOMPARE(named, 5);
    QVERIFY(ObjectTypeToName(static_cast<ObjectTypes>(std::numeric_limits<int>::min())).isEmpty());
    QVERIFY(ObjectTypeToName(static_cast<ObjectTypes>(std::numeric_limits<int>::max())).isEmpty());
}

QTEST_GUILESS_MAIN(ObjectTypesTest)
#include "ObjectTypesTest.moc"
