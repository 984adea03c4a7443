#include <widgets/DecimalNumber_p.h>

#include <QtTest>

#include <limits>

using KORMAK::Widgets::DecimalNumber;

Q_DECLARE_METATYPE(KORMAK::Widgets::DecimalNumber)

namespace {

DecimalNumber number(const char *text)
{
    return DecimalNumber::FromText(QString::fromLatin1(text)).value();
}

} // namespace

class DecimalNumberTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void texts_data();
    void texts();
    void noNumbers_data();
    void noNumbers();
    void decimals();
    void doubles();
    void arithmetic_data();
    void arithmetic();
    void rounding_data();
    void rounding();
    void order();
};

void DecimalNumberTest::texts_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("shown");

    QTest::newRow("zero") << "0"
                          << "0";
    QTest::newRow("minus zero") << "-0.00"
                                << "0";
    QTest::newRow("whole") << "9223372036854775807"
                           << "9223372036854775807";
    QTest::newRow("more than 64 bits") << "123456789012345678901234567890"
                                       << "123456789012345678901234567890";
    QTest::newRow("sign") << "-12.50"
                          << "-12.5";
    QTest::newRow("plus") << "+7"
                          << "7";
    QTest::newRow("without a whole part") << ".25"
                                          << "0.25";
    QTest::newRow("without decimals") << "25."
                                      << "25";
    QTest::newRow("power") << "1e7"
                           << "10000000";
    QTest::newRow("negative power") << "15E-4"
                                    << "0.0015";
    QTest::newRow("zeros in front") << "00012.0100"
                                    << "12.01";
    QTest::newRow("many decimals") << "0.1000000000000000055511151231257827"
                                   << "0.1000000000000000055511151231257827";
}

void DecimalNumberTest::texts()
{
    QFETCH(QString, text);
    QFETCH(QString, shown);
    const auto found = DecimalNumber::FromText(text);
    QVERIFY(found);
    QCOMPARE(found->ToText(), shown);
    QCOMPARE(DecimalNumber::FromText(shown).value().ToText(), shown);
}

void DecimalNumberTest::noNumbers_data()
{
    QTest::addColumn<QString>("text");

    for (const char *text : {"", "-", ".", "nan", "inf", "1,5", "1 000", "1e", "1e+", "--1", "1.2.3", "0x10",
                             "1e999999999", "1e401", " 1"})
        QTest::newRow(text) << text;
    QTest::newRow("too many digits") << QString(401, '1');
}

void DecimalNumberTest::noNumbers()
{
    QFETCH(QString, text);
    QVERIFY(!DecimalNumber::FromText(text));
}

void DecimalNumberTest::decimals()
{
    QCOMPARE(number("12.5").ToText(3), QString("12.500"));
    QCOMPARE(number("12.5678").ToText(3), QString("12.5678"));
    QCOMPARE(number("12").ToText(2), QString("12.00"));
    QCOMPARE(number("0").ToText(1), QString("0.0"));
    QCOMPARE(number("-0.05").ToText(1), QString("-0.05"));
    QCOMPARE(number("1200").GetDecimals(), 0);
    QCOMPARE(number("0.012").GetDecimals(), 3);
    QVERIFY(number("1200").IsWhole());
    QVERIFY(!number("0.5").IsWhole());
}

void DecimalNumberTest::doubles()
{
    for (const double value :
         {0.1, 1e300, 5e-324, -2.5, 123456789.123456, std::numeric_limits<double>::max()}) {
        const auto found = DecimalNumber::FromDouble(value);
        QVERIFY(found);
        QCOMPARE(found->ToText().toDouble(), value);
    }
    QVERIFY(!DecimalNumber::FromDouble(std::numeric_limits<double>::quiet_NaN()));
    QVERIFY(!DecimalNumber::FromDouble(std::numeric_limits<double>::infinity()));
}

void DecimalNumberTest::arithmetic_data()
{
    QTest::addColumn<DecimalNumber>("result");
    QTest::addColumn<QString>("expected");

    QTest::newRow("sum") << number("0.1").Plus(number("0.2")) << "0.3";
    QTest::newRow("sum of far ones") << number("1e20").Plus(number("1e-20"))
                                     << "100000000000000000000.00000000000000000001";
    QTest::newRow("carry") << number("999").Plus(number("1")) << "1000";
    QTest::newRow("difference") << number("1000").Plus(number("-1")) << "999";
    QTest::newRow("below zero") << number("1").Plus(number("-1000")) << "-999";
    QTest::newRow("nothing left") << number("-12.5").Plus(number("12.5")) << "0";
    QTest::newRow("product") << number("14.263").Times(number("1000000")) << "14263000";
    QTest::newRow("signs") << number("-1.5").Times(number("-1.5")) << "2.25";
    QTest::newRow("times zero") << number("-1.5").Times(number("0")) << "0";
    QTest::newRow("large product") << number("9223372036854775807").Times(number("9223372036854775807"))
                                   << "85070591730234615847396907784232501249";
    QTest::newRow("quotient") << number("12500").DividedBy(number("1000")) << "12.5";
    QTest::newRow("quotient with a sign") << number("-1").DividedBy(number("8")) << "-0.125";
    QTest::newRow("64 bits") << number("9223372036854775807").DividedBy(number("1000000"))
                             << "9223372036854.775807";
    QTest::newRow("zero divided") << number("0").DividedBy(number("7")) << "0";
    QTest::newRow("without end") << number("1").DividedBy(number("3"))
                                 << "0.3333333333333333333333333333333333";
    QTest::newRow("without end, up") << number("2").DividedBy(number("3"))
                                     << "0.6666666666666666666666666666666667";
}

void DecimalNumberTest::arithmetic()
{
    QFETCH(DecimalNumber, result);
    QFETCH(QString, expected);
    QCOMPARE(result.ToText(), expected);
}

void DecimalNumberTest::rounding_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("decimals");
    QTest::addColumn<QString>("expected");

    QTest::newRow("down") << "1.234" << 2 << "1.23";
    QTest::newRow("up") << "1.235" << 2 << "1.24";
    QTest::newRow("to more digits") << "9.99" << 1 << "10";
    QTest::newRow("enough already") << "1.2" << 4 << "1.2";
    QTest::newRow("to nothing") << "0.04" << 1 << "0";
    QTest::newRow("to one") << "0.05" << 1 << "0.1";
    QTest::newRow("tens") << "15" << -1 << "20";
}

void DecimalNumberTest::rounding()
{
    QFETCH(QString, text);
    QFETCH(int, decimals);
    QFETCH(QString, expected);
    QCOMPARE(DecimalNumber::FromText(text).value().Rounded(decimals).ToText(), expected);
}

void DecimalNumberTest::order()
{
    QVERIFY(number("-2") < number("-1"));
    QVERIFY(number("9.9999") < number("10"));
    QVERIFY(number("1e-30") < number("1e30"));
    QVERIFY(!(number("10") < number("10.0")));
    QVERIFY(number("10") == number("1e1"));
    QVERIFY(number("10") != number("10.1"));
}

QTEST_GUILESS_MAIN(DecimalNumberTest)
#include "DecimalNumberTest.moc"
