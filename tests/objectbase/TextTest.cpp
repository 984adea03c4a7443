#include <objectbase/Text_p.h>
#include <tests/support/LocaleRuns.h>
#include <tests/support/RowNames.h>

#include <QDateTime>

#include <cfloat>
#include <climits>
#include <cmath>
#include <limits>

using namespace TESSEL;

namespace {

enum Small : qint32 { Unset = -1, First, Last = INT_MAX };
enum class Tiny : quint8 { Greatest = 255 };

template <class Value>
Value read(const QString &text, Value before)
{
    fromText(text, before);
    return before;
}

/// Numbers with nothing rounded: what differs in one bit differs in text, but all NaNs are one.
template <class Number>
QString exact(Number number)
{
    if constexpr (std::is_floating_point_v<Number>) {
        if (std::isnan(number))
            return "nan";
        const QString digits = QString::number(static_cast<double>(std::abs(number)), 'g',
                                               std::numeric_limits<double>::max_digits10);
        return (std::signbit(number) ? "-" : "+") + digits;
    } else {
        return QString::number(number);
    }
}

template <class Number>
QString whatQtReads(const QString &text, Number (QString::*convert)(bool *) const)
{
    bool ok = false;
    const Number number = (text.*convert)(&ok);
    return exact(ok ? number : Number(0));
}

template <class Number>
QString whatQtReads(const QString &text, Number (QString::*convert)(bool *, int) const)
{
    bool ok = false;
    const Number number = (text.*convert)(&ok, 10);
    return exact(ok ? number : Number(0));
}

/// What each kind of number reads in \a text.
QStringList readings(const QString &text)
{
    return {
        "int " + exact(read<int>(text, 99)),
        "unsigned int " + exact(read<unsigned int>(text, 99)),
        "long long " + exact(read<long long>(text, 99)),
        "float " + exact(read<float>(text, 99)),
        "double " + exact(read<double>(text, 99)),
    };
}

QStringList readingsOfQt(const QString &text)
{
    return {
        "int " + whatQtReads(text, &QString::toInt),
        "unsigned int " + whatQtReads(text, &QString::toUInt),
        "long long " + whatQtReads(text, &QString::toLongLong),
        "float " + whatQtReads(text, &QString::toFloat),
        "double " + whatQtReads(text, &QString::toDouble),
    };
}

} // namespace

class TextTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase_data() { LocaleRuns::addLocales(); }
    void init() { LocaleRuns::useLocale(); }
    void cleanup() { LocaleRuns::restoreLocale(); }

    void borrowedTexts();
    void texts();
    void words_data();
    void words();
    void dates();
    void readingIntegers_data();
    void readingIntegers();
    void readingRealNumbers_data();
    void readingRealNumbers();
    void numbersAreReadAsQtReadsThem();
    void longNumbersAreReadAsQtReadsThem_data();
    void longNumbersAreReadAsQtReadsThem();
    void writingIntegers();
    void writingFloats_data();
    void writingFloats();
    void writingDoubles_data();
    void writingDoubles();
    void doublesAreReadBack();
    void fixedPoint_data();
    void fixedPoint();
    void fixedPointIsAsQtWritesIt();
    void numberTexts();
};

void TextTest::borrowedTexts()
{
    static constexpr QStringView Constant = u"Größe \"1\"";
    const QString text = borrowed(Constant);
    QCOMPARE(text, QString::fromUtf8("Größe \"1\""));
    QCOMPARE(static_cast<const void *>(text.constData()), static_cast<const void *>(Constant.data()));

    QVERIFY(borrowed({}).isNull());
    QVERIFY(borrowed(u"").isEmpty());
    QVERIFY(!borrowed(u"").isNull());

    QString changed = text;
    changed[0] = 'g';
    QCOMPARE(text, Constant.toString());
}

void TextTest::texts()
{
    for (const QString &text : {QString(), QString(""), QString(" a\nb "), QString("%1"), QString("µ")}) {
        QCOMPARE(toText(text), text);
        QCOMPARE(read<QString>(text, "before"), text);
    }
}

void TextTest::words_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("value");

    QTest::newRow("true") << "true" << true;
    for (const char *text : {"", "false", "True", "TRUE", " true", "true ", "true\n", "tru", "truetrue", "1",
                             "yes", "on", "wahr"})
        QTest::newRow(RowNames::quoted(text)) << text << false;
    QTest::newRow("null") << QString() << false;
}

void TextTest::words()
{
    QFETCH(QString, text);
    QFETCH(bool, value);

    QCOMPARE(read<bool>(text, true), value);
    QCOMPARE(read<bool>(text, false), value);
    QCOMPARE(toText(true), QString("true"));
    QCOMPARE(toText(false), QString("false"));
}

void TextTest::dates()
{
    const QDateTime date(QDate(2026, 3, 29), QTime(0, 59, 59, 250), Qt::UTC);
    QCOMPARE(toText(date), QString("2026-03-29T00:59:59,250Z"));
    QCOMPARE(read<QDateTime>("2026-03-29T00:59:59,250Z", {}), date);
    QCOMPARE(read<QDateTime>("2026-03-29T00:59:59,250Z", {}).timeSpec(), Qt::UTC);
    QCOMPARE(toText(QDateTime()), QString());
    for (const char *text : {"", "2026-03-29", "29.03.2026 00:59", "2026-03-29T00:59:59.250Z", "yesterday"})
        QCOMPARE(read<QDateTime>(text, date), QDateTime());
}

void TextTest::readingIntegers_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("number");
    QTest::addColumn<unsigned int>("positive");
    QTest::addColumn<long long>("large");

    const auto add = [](const QString &text, int number, unsigned int positive, long long large) {
        QTest::newRow(RowNames::quoted(text)) << text << number << positive << large;
    };
    add("0", 0, 0, 0);
    add("-0", 0, 0, 0);
    add("7", 7, 7, 7);
    add("+7", 7, 7, 7);
    add("-7", -7, 0, -7);
    add("007", 7, 7, 7);
    add(" 7", 7, 7, 7);
    add("7 ", 7, 7, 7);
    add("\t\r\n7\n", 7, 7, 7);
    add(QString(31, '0') + '7', 7, 7, 7);
    add(QString(32, '0') + '7', 7, 7, 7);
    add(QString(100, '0') + '7', 7, 7, 7);
    add("2147483647", INT_MAX, INT_MAX, INT_MAX);
    add("2147483648", 0, 2147483648U, 2147483648LL);
    add("-2147483648", INT_MIN, 0, INT_MIN);
    add("-2147483649", 0, 0, -2147483649LL);
    add("4294967295", 0, UINT_MAX, 4294967295LL);
    add("4294967296", 0, 0, 4294967296LL);
    add("9223372036854775807", 0, 0, LLONG_MAX);
    add("9223372036854775808", 0, 0, 0);
    add("-9223372036854775808", 0, 0, LLONG_MIN);
    add("-9223372036854775809", 0, 0, 0);
    add("18446744073709551623", 0, 0, 0);
    add(QString(31, '9'), 0, 0, 0);
    add(QString(40, '9'), 0, 0, 0);
    for (const char *text : {"",    " ",   "-",   "+",   "abc", "7a",   "a7",     "7 7",   "- 7", "--7",
                             "-+7", "7-",  "7.0", "7.",  ".7",  "7,0",  "7.000",  "1e1",   "0x7", "0b1",
                             "7'0", "7_0", "7L",  "nan", "inf", "true", "\u0667", "\uFF17"})
        add(text, 0, 0, 0);
}

void TextTest::readingIntegers()
{
    QFETCH(QString, text);
    QFETCH(int, number);
    QFETCH(unsigned int, positive);
    QFETCH(long long, large);

    QCOMPARE(read<int>(text, 99), number);
    QCOMPARE(read<unsigned int>(text, 99), positive);
    QCOMPARE(read<long long>(text, 99), large);
}

void TextTest::readingRealNumbers_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<float>("number");
    QTest::addColumn<double>("exactNumber");

    const auto add = [](const QString &text, float number, double exactNumber) {
        QTest::newRow(RowNames::quoted(text)) << text << number << exactNumber;
    };
    const float infinity = std::numeric_limits<float>::infinity();
    const float nan = std::numeric_limits<float>::quiet_NaN();
    add("0", 0, 0);
    add("-0", -0.0F, -0.0);
    add("-0.0", -0.0F, -0.0);
    add("7", 7, 7);
    add("+7", 7, 7);
    add("-7.25", -7.25F, -7.25);
    add("7.", 7, 7);
    add(".7", 0.7F, 0.7);
    add("-.7", -0.7F, -0.7);
    add("007.50", 7.5F, 7.5);
    add(" 7.5", 7.5F, 7.5);
    add("7.5 ", 7.5F, 7.5);
    add("\t\r\n7.5\n", 7.5F, 7.5);
    add("0.1", 0.1F, 0.1);
    add("0.1000000000000000055511151231257827", 0.1F, 0.1);
    add("123456789.125", 123456789.125F, 123456789.125);
    add("16777217", 16777216, 16777217);
    add("9007199254740993", 9007199254740992.0F, 9007199254740992.0);
    add("12345678901234567890123456789012", 1.2345679e31F, 12345678901234567890123456789012.0);
    add("99999999999999999999999999999999", 1e32F, 1e32);
    add("0.00000000000000000000000000012345", 1.2345e-28F, 1.2345e-28);
    add("1e3", 1000, 1000);
    add("1E3", 1000, 1000);
    add("1e+3", 1000, 1000);
    add("-1.5e-3", -1.5e-3F, -1.5e-3);
    add("1e0005", 1e5F, 1e5);
    add("0e99999", 0, 0);
    add("3.4028234e38", FLT_MAX, 3.4028234e38);
    add("1e38", 1e38F, 1e38);
    add("3.5e38", 0, 3.5e38);
    add("-3.5e38", 0, -3.5e38);
    add("350000000000000000000000000000000000000", 0, 3.5e38);
    add("1.7976931348623157e308", 0, DBL_MAX);
    add("1e309", 0, 0);
    add("-1e400", 0, 0);
    add("1e-45", 1e-45F, 1e-45);
    add("1e-50", 0, 1e-50);
    add("5e-324", 0, 5e-324);
    add("1e-400", 0, 0);
    add("inf", infinity, infinity);
    add("INF", infinity, infinity);
    add("+inf", infinity, infinity);
    add("-inf", -infinity, -infinity);
    add("nan", nan, nan);
    add("NaN", nan, nan);
    for (const char *text :
         {"",    " ",       "-",       "+",     ".",      "-.",       "..",   "abc",   "7a",
          "a7",  "7 5",     "- 7",     "--7",   "-+7",    "7-",       "7.5-", "7-5",   "7.5.1",
          "7,5", "7.000,5", "7,000.5", "7'000", "7_0",    "7f",       "0x7",  "0x1p3", "1e",
          "1e+", "e5",      "1e1.5",   "-nan",  "nan(1)", "infinity", "true", "\u0667"})
        add(text, 0, 0);
}

void TextTest::readingRealNumbers()
{
    QFETCH(QString, text);
    QFETCH(float, number);
    QFETCH(double, exactNumber);

    QCOMPARE(exact(read<float>(text, 99)), exact(number));
    QCOMPARE(exact(read<double>(text, 99)), exact(exactNumber));
}

/// All texts of up to four characters that matter in numbers.
void TextTest::numbersAreReadAsQtReadsThem()
{
    const QString alphabet = "019.-+e ";
    QStringList texts{QString()};
    for (int first = 0, length = 1; length <= 4; ++length) {
        const int end = static_cast<int>(texts.size());
        for (; first < end; ++first) {
            for (const QChar c : alphabet)
                texts << texts.at(first) + c;
        }
    }
    QCOMPARE(texts.size(), 1 + 8 + 64 + 512 + 4096);
    for (const QString &text : texts) {
        if (readings(text) != readingsOfQt(text))
            QFAIL(qPrintable(QString("'%1': %2").arg(text, readings(text).join(", "))));
    }
}

void TextTest::longNumbersAreReadAsQtReadsThem_data()
{
    QTest::addColumn<QString>("text");

    const auto add = [](const QString &text) { QTest::newRow(RowNames::quoted(text)) << text; };
    for (const int length : {30, 31, 32, 33, 40}) {
        add(QString(length, '1'));
        add('-' + QString(length - 1, '1'));
        add("0." + QString(length - 3, '0') + '1');
        add(QString(length - 2, '0') + "10");
        add(QString(length / 2, '1') + '.' + QString(length - length / 2 - 1, '9'));
    }
    // halfway between two floats, and between two doubles
    add("16777217");
    add("16777219");
    add("1.00000005960464477539");
    add("1.000000059604644775390625");
    add("1.00000005960464484");
    add("9007199254740993");
    add("9007199254740995");
    add("1.00000000000000011102230246251");
    add("179769313486231570000000000000.");
}

void TextTest::longNumbersAreReadAsQtReadsThem()
{
    QFETCH(QString, text);
    QCOMPARE(readings(text), readingsOfQt(text));
}

void TextTest::writingIntegers()
{
    QCOMPARE(toText(0), QString("0"));
    QCOMPARE(toText(-1234567), QString("-1234567"));
    QCOMPARE(toText(INT_MAX), QString("2147483647"));
    QCOMPARE(toText(INT_MIN), QString("-2147483648"));
    QCOMPARE(toText(0U), QString("0"));
    QCOMPARE(toText(UINT_MAX), QString("4294967295"));
    QCOMPARE(toText(0LL), QString("0"));
    QCOMPARE(toText(LLONG_MAX), QString("9223372036854775807"));
    QCOMPARE(toText(LLONG_MIN), QString("-9223372036854775808"));
}

void TextTest::writingFloats_data()
{
    QTest::addColumn<float>("value");
    QTest::addColumn<QString>("text");

    QTest::newRow("0") << 0.0F << "0";
    QTest::newRow("-0") << -0.0F << "0";
    QTest::newRow("0.5") << 0.5F << "0.5";
    QTest::newRow("10") << 10.0F << "10";
    QTest::newRow("0.1") << 0.1F << "0.1";
    QTest::newRow("-0.1") << -0.1F << "-0.1";
    QTest::newRow("third") << 1.0F / 3 << "0.333333";
    QTest::newRow("123456") << 123456.0F << "123456";
    QTest::newRow("999999.5") << 999999.5F << "1e+06";
    QTest::newRow("1234567") << 1234567.0F << "1.23457e+06";
    QTest::newRow("16777216") << 16777216.0F << "1.67772e+07";
    QTest::newRow("1e-4") << 1e-4F << "0.0001";
    QTest::newRow("1e-5") << 1e-5F << "1e-05";
    QTest::newRow("1e-7") << 1e-7F << "1e-07";
    QTest::newRow("greatest") << FLT_MAX << "3.40282e+38";
    QTest::newRow("smallest") << std::numeric_limits<float>::denorm_min() << "1.4013e-45";
    QTest::newRow("infinity") << std::numeric_limits<float>::infinity() << "inf";
    QTest::newRow("-infinity") << -std::numeric_limits<float>::infinity() << "-inf";
    QTest::newRow("NaN") << std::numeric_limits<float>::quiet_NaN() << "nan";
}

void TextTest::writingFloats()
{
    QFETCH(float, value);
    QFETCH(QString, text);
    QCOMPARE(toText(value), text);
}

void TextTest::writingDoubles_data()
{
    QTest::addColumn<double>("value");
    QTest::addColumn<QString>("text");

    const auto add = [](double value, const char *text) { QTest::newRow(text) << value << text; };
    add(0, "0");
    add(-0.0, "-0");
    add(0.5, "0.5");
    add(-179.75, "-179.75");
    add(0.1, "0.1");
    add(0.1 + 0.2, "0.30000000000000004");
    add(1.0 / 3, "0.3333333333333333");
    add(100, "100");
    add(30000000, "30000000");
    add(1234567.875, "1234567.875");
    add(9007199254740991.0, "9007199254740991");
    add(0.000001, "0.000001");
    add(-0.0000012345678901234567, "-0.0000012345678901234567");
    add(std::nextafter(1e-6, 0), "9.999999999999997e-07");
    add(1e-7, "1e-07");
    add(std::nextafter(1e16, 0), "9999999999999998");
    add(1e16, "1e+16");
    add(-1e16, "-1e+16");
    add(1.5e300, "1.5e+300");
    add(DBL_MAX, "1.7976931348623157e+308");
    add(-DBL_MAX, "-1.7976931348623157e+308");
    add(DBL_MIN, "2.2250738585072014e-308");
    add(std::numeric_limits<double>::denorm_min(), "5e-324");
    add(std::numeric_limits<double>::infinity(), "inf");
    add(-std::numeric_limits<double>::infinity(), "-inf");
    add(std::numeric_limits<double>::quiet_NaN(), "nan");
    QTest::newRow("NaN with a sign") << std::copysign(std::numeric_limits<double>::quiet_NaN(), -1.0)
                                     << "nan";
}

void TextTest::writingDoubles()
{
    QFETCH(double, value);
    QFETCH(QString, text);

    QCOMPARE(toText(value), text);
    QCOMPARE(exact(read<double>(text, 99)), exact(value));
}

/// Doubles of every magnitude, and their neighbours.
void TextTest::doublesAreReadBack()
{
    for (int exponent = DBL_MIN_EXP; exponent < DBL_MAX_EXP; ++exponent) {
        for (const double fraction : {0.5, 0.6180339887498949, 1.0 / 3, 0.1}) {
            const double value = std::ldexp(fraction, exponent);
            for (const double near : {value, std::nextafter(value, 0), -value}) {
                if (read<double>(toText(near), 99) != near)
                    QFAIL(qPrintable(toText(near)));
            }
        }
    }
    QCOMPARE(toText(std::ldexp(0.5, 1)), QString("1"));
}

void TextTest::fixedPoint_data()
{
    QTest::addColumn<double>("value");
    QTest::addColumn<QString>("sixDecimals");
    QTest::addColumn<QString>("twoDecimals");

    QTest::newRow("0") << 0.0 << "0.000000"
                       << "0.00";
    QTest::newRow("1") << 1.0 << "1.000000"
                       << "1.00";
    QTest::newRow("-1.5") << -1.5 << "-1.500000"
                          << "-1.50";
    QTest::newRow("0.1") << 0.1 << "0.100000"
                         << "0.10";
    QTest::newRow("1.005") << 1.005 << "1.005000"
                           << "1.00";
    QTest::newRow("0.126") << 0.126 << "0.126000"
                           << "0.13";
    QTest::newRow("seventh decimal") << 0.0000006 << "0.000001"
                                     << "0.00";
    QTest::newRow("1234567.891") << 1234567.891 << "1234567.891000"
                                 << "1234567.89";
    QTest::newRow("1e15") << 1e15 << "1000000000000000.000000"
                          << "1000000000000000.00";
    QTest::newRow("-0") << -0.0 << "0.000000"
                        << "0.00";
    QTest::newRow("-7") << -7.0 << "-7.000000"
                        << "-7.00";
    QTest::newRow("half of the last decimal") << 0.125 << "0.125000"
                                              << "0.13";
    QTest::newRow("half of the last decimal, negative") << -0.0078125 << "-0.007813"
                                                        << "-0.01";
    QTest::newRow("2 to the power of 80") << std::ldexp(1.0, 80) << "1208925819614629174706176.000000"
                                          << "1208925819614629174706176.00";
    QTest::newRow("greatest float") << static_cast<double>(std::numeric_limits<float>::max())
                                    << "340282346638528859811704183484516925440.000000"
                                    << "340282346638528859811704183484516925440.00";
    QTest::newRow("infinity") << std::numeric_limits<double>::infinity() << "inf"
                              << "inf";
    QTest::newRow("-infinity") << -std::numeric_limits<double>::infinity() << "-inf"
                               << "-inf";
    QTest::newRow("NaN") << std::numeric_limits<double>::quiet_NaN() << "nan"
                         << "nan";
}

void TextTest::fixedPoint()
{
    QFETCH(double, value);
    QFETCH(QString, sixDecimals);
    QFETCH(QString, twoDecimals);

    QCOMPARE(fixedText(value, 6), sixDecimals);
    QCOMPARE(fixedText(value, 2), twoDecimals);
}

void TextTest::fixedPointIsAsQtWritesIt()
{
    constexpr double Step = 1.37;
    for (const double sign : {1.0, -1.0}) {
        for (double magnitude = 1e-9; magnitude < 1e30; magnitude *= Step) {
            for (const double value :
                 {sign * magnitude, sign * std::floor(magnitude), sign * std::floor(magnitude * 8) / 8}) {
                for (const int decimals : {0, 2, 6})
                    QCOMPARE(fixedText(value, decimals), QString::number(value, 'f', decimals));
            }
        }
    }
    for (const double value : {std::numeric_limits<double>::max(), std::numeric_limits<double>::lowest()})
        QCOMPARE(fixedText(value, 6), QString::number(value, 'f', 6));
}

void TextTest::numberTexts()
{
    QCOMPARE(numberText(-1), QString("-1"));
    QCOMPARE(numberText(static_cast<unsigned int>(-1)), QString("4294967295"));
    QCOMPARE(numberText(LLONG_MIN), QString("-9223372036854775808"));
    QCOMPARE(numberText(Unset), QString("-1"));
    QCOMPARE(numberText(First), QString("0"));
    QCOMPARE(numberText(Last), QString("2147483647"));
    QCOMPARE(numberText(static_cast<Small>(INT_MIN)), QString("-2147483648"));
    QCOMPARE(numberText(Tiny::Greatest), QString("255"));
}

QTEST_GUILESS_MAIN(TextTest)
#include "TextTest.moc"
