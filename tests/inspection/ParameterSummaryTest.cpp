#include <inspection/ParameterSummary.h>
#include <kormak/Parameter.h>

#include <QtTest>

#include <cmath>
#include <limits>

using namespace KORMAK;

namespace {

Parameter parameterOf(ParameterType type, const QString &suffix = {}, double multiplier = 1)
{
    Parameter parameter;
    parameter.SetParameterType(type);
    parameter.SetUniqueParameterName("Gain");
    parameter.SetRepresenationName("rx.gain");
    parameter.SetDisplaySuffix(suffix);
    parameter.SetMultiplier(multiplier);
    return parameter;
}

} // namespace

class ParameterSummaryTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void names();
    void groups_data();
    void groups();
    void divisors_data();
    void divisors();
    void limits();
    void onlyOneLimit();
    void valuesThatAreDefaults();
    void withoutAType();
};

void ParameterSummaryTest::names()
{
    Parameter parameter = parameterOf(ParameterType::Integer);
    QCOMPARE(ParameterSummary(parameter).name, QString("Gain"));
    parameter.SetDisplayName("RF gain");
    QCOMPARE(ParameterSummary(parameter).name, QString("RF gain"));
}

void ParameterSummaryTest::groups_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("group");

    QTest::newRow("points") << "rx.agc.attack"
                            << "rx";
    QTest::newRow("slashes") << "rx/agc"
                             << "rx";
    QTest::newRow("one part") << "gain"
                              << "";
    QTest::newRow("empty first part") << ".gain"
                                      << "";
    QTest::newRow("none") << ""
                          << "";
}

void ParameterSummaryTest::groups()
{
    QFETCH(QString, name);
    QFETCH(QString, group);
    Parameter parameter;
    parameter.SetRepresenationName(name);
    QCOMPARE(GroupOf(parameter), group);
    QCOMPARE(ParameterSummary(parameter).group, group);
}

void ParameterSummaryTest::divisors_data()
{
    QTest::addColumn<double>("multiplier");
    QTest::addColumn<double>("divisor");

    QTest::newRow("factor") << 1e6 << 1e6;
    QTest::newRow("negative") << -2.0 << -2.0;
    QTest::newRow("nothing") << 0.0 << 1.0;
    QTest::newRow("infinite") << HUGE_VAL << 1.0;
    QTest::newRow("no number") << std::nan("") << 1.0;
}

void ParameterSummaryTest::divisors()
{
    QFETCH(double, multiplier);
    QFETCH(double, divisor);
    QCOMPARE(DivisorOf(parameterOf(ParameterType::Integer, {}, multiplier)), divisor);
}

void ParameterSummaryTest::limits()
{
    Parameter parameter = parameterOf(ParameterType::Double, "kHz", 1000);
    parameter.GetDoubleHandler().SetMinimum(500);
    parameter.GetDoubleHandler().SetMaximum(30e6);
    parameter.GetDoubleHandler().SetDefault(15000250);
    parameter.GetDoubleHandler().SetValue(15000250);
    const ParameterSummary summary(parameter);
    QCOMPARE(summary.minimum, QString("0.5\u00a0kHz"));
    QCOMPARE(summary.maximum, QString("30\u202f000\u00a0kHz"));
    QCOMPARE(summary.range, QString("0.5 to 30\u202f000\u00a0kHz"));
    QCOMPARE(summary.value, QString("15\u202f000.25\u00a0kHz"));
    QVERIFY(std::abs(*summary.share - 0.5) < 1e-6);
}

void ParameterSummaryTest::onlyOneLimit()
{
    Parameter parameter = parameterOf(ParameterType::Float, "dB");
    QCOMPARE(ParameterSummary(parameter).range, QString());
    QCOMPARE(ParameterSummary(parameter).minimum + ParameterSummary(parameter).maximum, QString());
    parameter.GetFloatHandler().SetMinimum(-10);
    QCOMPARE(ParameterSummary(parameter).range, QString("at least -10\u00a0dB"));
    QCOMPARE(ParameterSummary(parameter).minimum, QString("-10\u00a0dB"));
    QCOMPARE(ParameterSummary(parameter).maximum, QString());
    parameter.GetFloatHandler().SetMinimum(std::numeric_limits<float>::lowest());
    parameter.GetFloatHandler().SetMaximum(10);
    QCOMPARE(ParameterSummary(parameter).range, QString("at most 10\u00a0dB"));
    QCOMPARE(ParameterSummary(parameter).maximum, QString("10\u00a0dB"));
    QVERIFY(!ParameterSummary(parameter).share);
}

void ParameterSummaryTest::valuesThatAreDefaults()
{
    Parameter parameter = parameterOf(ParameterType::Integer);
    parameter.GetIntegerHandler().SetDefault(3);
    parameter.GetIntegerHandler().SetValue(3);
    QCOMPARE(ParameterSummary(parameter).defaultValue, QString());
    parameter.GetIntegerHandler().SetValue(4);
    QCOMPARE(ParameterSummary(parameter).value, QString("4"));
    QCOMPARE(ParameterSummary(parameter).defaultValue, QString("3"));
}

void ParameterSummaryTest::withoutAType()
{
    const ParameterSummary summary(parameterOf(ParameterType::Invalid, "dB"));
    QCOMPARE(summary.name, QString("Gain"));
    QCOMPARE(summary.value + summary.defaultValue + summary.minimum + summary.maximum + summary.range,
             QString());
}

QTEST_GUILESS_MAIN(ParameterSummaryTest)

#include "ParameterSummaryTest.moc"
