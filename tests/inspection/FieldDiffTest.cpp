#include <inspection/FieldDiff_p.h>
#include <inspection/FieldTable_p.h>
#include <kormak/Parameter.h>

#include <QtTest>

#include <limits>

using namespace KORMAK;
using namespace KORMAK::Inspection;

class FieldDiffTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void plainLists();
    void valueThatIsNone();
    void handlerNames();
};

namespace {

QStringList lines(const Parameter &before, const Parameter &after)
{
    QStringList all;
    for (const FieldDifference &difference :
         differences(fieldsOf(TESSEL::DocumentTables::of<Parameter>()), &before, &after))
        all += difference.toLine();
    return all;
}

Parameter parameter()
{
    Parameter result;
    result.SetParameterType(ParameterType::DoubleList);
    return result;
}

} // namespace

void FieldDiffTest::plainLists()
{
    Parameter before = parameter();
    Parameter after = parameter();
    before.GetDoubleHandler().AppendDoubleValue(1);
    before.GetDoubleHandler().AppendDoubleValue(2);
    after.GetDoubleHandler().AppendDoubleValue(1.5);
    QCOMPARE(lines(before, after),
             (QStringList{"Double.DoubleList[0]: 1 -> 1.5", "Double.DoubleList[1]: removed 2"}));
    QCOMPARE(lines(after, before),
             (QStringList{"Double.DoubleList[0]: 1.5 -> 1", "Double.DoubleList[1]: added 2"}));
}

void FieldDiffTest::valueThatIsNone()
{
    Parameter before = parameter();
    Parameter after = parameter();
    after.GetDoubleHandler().SetValue(std::numeric_limits<double>::quiet_NaN());
    QCOMPARE(lines(before, after), QStringList{"Double.Value: not set -> nan"});
    QCOMPARE(lines(after, after), QStringList());
}

void FieldDiffTest::handlerNames()
{
    Parameter before = parameter();
    Parameter after = parameter();
    after.GetDoubleHandler().SetRepresentationName("a");
    after.GetDoubleHandler().SetMultiplier(2);
    after.GetIntegerHandler().SetMinimum(1); // not that of the type
    QCOMPARE(lines(before, after),
             (QStringList{"Double.Multiplier: 1 -> 2", "Double.RepresentationName: not set -> \"a\""}));
}

QTEST_GUILESS_MAIN(FieldDiffTest)
#include "FieldDiffTest.moc"
