#include <widgets/NumberEdit.h>

#include <QtTest>

#include <cmath>
#include <limits>

using KORMAK::NumberEdit;
using Type = NumberEdit::Type;

Q_DECLARE_METATYPE(KORMAK::NumberEdit::Type)

namespace {

const QString Blank(QChar(0x202F));

/// Blanks in the place of those that are drawn narrow.
QString plain(QString text)
{
    return text.replace(Blank, " ");
}

void type(NumberEdit &edit, const QString &text)
{
    edit.selectAll();
    QTest::keyClicks(&edit, text);
}

} // namespace

class NumberEditTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void shows_data();
    void shows();
    void takes_data();
    void takes();
    void refuses_data();
    void refuses();
    void whatIsShownIsTakenAsTheSame_data();
    void whatIsShownIsTakenAsTheSame();
    void limitsMark();
    void steps_data();
    void steps();
    void stepsKeepTheirPlace();
    void noStepToWhatCannotBeHeld();
    void unitAndMultiplier();
    void numbersThatAreNotFinite();
};

void NumberEditTest::shows_data()
{
    QTest::addColumn<Type>("type");
    QTest::addColumn<QVariant>("value");
    QTest::addColumn<double>("multiplier");
    QTest::addColumn<int>("decimals");
    QTest::addColumn<QString>("locale");
    QTest::addColumn<QString>("shown");

    const auto whole = [](qint64 value) { return QVariant(value); };
    QTest::newRow("whole") << Type::Whole64 << whole(1234) << 1.0 << 0 << "en_GB"
                           << "1234";
    QTest::newRow("thousands") << Type::Whole64 << whole(-12345678) << 1.0 << 0 << "en_GB"
                               << "-12 345 678";
    QTest::newRow("64 bits") << Type::Whole64 << whole(std::numeric_limits<qint64>::max()) << 1.0 << 0
                             << "en_GB"
                             << "9 223 372 036 854 775 807";
    QTest::newRow("least of 64 bits")
        << Type::Whole64 << whole(std::numeric_limits<qint64>::min()) << 1.0 << 0 << "en_GB"
        << "-9 223 372 036 854 775 808";
    QTest::newRow("64 bits, in a million") << Type::Whole64 << whole(9007199254740993) << 1e6 << 0 << "de_DE"
                                           << "9 007 199 254,740993";
    QTest::newRow("decimal comma") << Type::Double << QVariant(14.263) << 1.0 << 0 << "de_DE"
                                   << "14,263";
    QTest::newRow("decimals are filled up") << Type::Double << QVariant(14.2) << 1.0 << 3 << "en_GB"
                                            << "14.200";
    QTest::newRow("decimals are never cut off")
        << Type::Double << QVariant(14.263123456789) << 1.0 << 1 << "en_GB"
        << "14.263123456789";
    QTest::newRow("float") << Type::Float << QVariant(0.1F) << 1.0 << 1 << "en_GB"
                           << "0.1";
    QTest::newRow("multiplier") << Type::Double << QVariant(12500.0) << 1000.0 << 0 << "en_GB"
                                << "12.5";
    QTest::newRow("multiplier below 1") << Type::Whole32 << whole(5) << 0.25 << 0 << "en_GB"
                                        << "20";
    QTest::newRow("multiplier 0") << Type::Whole32 << whole(5) << 0.0 << 0 << "en_GB"
                                  << "5";
    QTest::newRow("multiplier nan") << Type::Whole32 << whole(5) << std::nan("") << 0 << "en_GB"
                                    << "5";
    QTest::newRow("large") << Type::Double << QVariant(1e21) << 1.0 << 0 << "en_GB"
                           << "1 000 000 000 000 000 000 000";
    QTest::newRow("digits of the locale")
        << Type::Whole64 << whole(12) << 1.0 << 0 << "ar_EG" << QString::fromUtf8("١٢");
    QTest::newRow("none") << Type::Double << QVariant() << 1.0 << 2 << "en_GB"
                          << "";
}

void NumberEditTest::shows()
{
    QFETCH(Type, type);
    QFETCH(QVariant, value);
    QFETCH(double, multiplier);
    QFETCH(int, decimals);
    QFETCH(QString, locale);
    QFETCH(QString, shown);
    NumberEdit edit;
    edit.setLocale(QLocale(locale));
    edit.SetType(type);
    edit.SetValue(value);
    edit.SetMultiplier(multiplier);
    edit.SetDecimals(decimals);
    QCOMPARE(plain(edit.text()), shown);
    QCOMPARE(edit.GetValue(), value);
    QVERIFY(!edit.IsOpen());
    QCOMPARE(edit.GetProblem(), QString());
}

void NumberEditTest::takes_data()
{
    QTest::addColumn<Type>("type");
    QTest::addColumn<double>("multiplier");
    QTest::addColumn<QString>("locale");
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QVariant>("value");

    const auto whole = [](qint64 value) { return QVariant(value); };
    QTest::newRow("whole") << Type::Whole32 << 1.0 << "en_GB"
                           << "42" << whole(42);
    QTest::newRow("sign") << Type::Whole32 << 1.0 << "en_GB"
                          << "-42" << whole(-42);
    QTest::newRow("typographic minus")
        << Type::Whole32 << 1.0 << "en_GB" << QString(QChar(0x2212)) + "42" << whole(-42);
    QTest::newRow("plus") << Type::Whole32 << 1.0 << "en_GB"
                          << "+42" << whole(42);
    QTest::newRow("blanks around") << Type::Whole32 << 1.0 << "en_GB"
                                   << "  42 " << whole(42);
    QTest::newRow("64 bits") << Type::Whole64 << 1.0 << "en_GB"
                             << "9223372036854775807" << whole(std::numeric_limits<qint64>::max());
    QTest::newRow("beyond what a double holds") << Type::Whole64 << 1e6 << "en_GB"
                                                << "9007199254.740993" << whole(9007199254740993);
    QTest::newRow("power") << Type::Whole64 << 1.0 << "en_GB"
                           << "1e7" << whole(10000000);
    QTest::newRow("negative power, whole in the end") << Type::Whole64 << 1.0 << "en_GB"
                                                      << "2500e-2" << whole(25);
    QTest::newRow("decimal point") << Type::Double << 1.0 << "en_GB"
                                   << "14.263" << QVariant(14.263);
    QTest::newRow("decimal comma") << Type::Double << 1.0 << "de_DE"
                                   << "14,263" << QVariant(14.263);
    QTest::newRow("decimal comma and thousands") << Type::Double << 1.0 << "de_DE"
                                                 << "1.234,5" << QVariant(1234.5);
    QTest::newRow("point of elsewhere") << Type::Double << 1.0 << "de_DE"
                                        << "14.26" << QVariant(14.26);
    QTest::newRow("point of elsewhere, four digits") << Type::Double << 1.0 << "de_DE"
                                                     << "14.2635" << QVariant(14.2635);
    QTest::newRow("point of elsewhere behind 0") << Type::Double << 1.0 << "de_DE"
                                                 << "0.125" << QVariant(0.125);
    QTest::newRow("comma of elsewhere") << Type::Double << 1.0 << "en_GB"
                                        << "14,5" << QVariant(14.5);
    QTest::newRow("point where it parts nothing") << Type::Double << 1.0 << "fr_FR"
                                                  << "14.263" << QVariant(14.263);
    QTest::newRow("several thousands") << Type::Whole64 << 1.0 << "de_DE"
                                       << "7.100.000" << whole(7100000);
    QTest::newRow("blanks") << Type::Whole64 << 1.0 << "en_GB"
                            << "7 100 000" << whole(7100000);
    QTest::newRow("narrow blanks") << Type::Whole64 << 1.0 << "en_GB"
                                   << "7" + Blank + "100" << whole(7100);
    QTest::newRow("blanks behind the point") << Type::Double << 1.0 << "en_GB"
                                             << "0.123 45" << QVariant(0.12345);
    QTest::newRow("apostrophes") << Type::Whole64 << 1.0 << "de_CH"
                                 << "7'100'000" << whole(7100000);
    QTest::newRow("multiplier") << Type::Double << 1000.0 << "en_GB"
                                << "12.5" << QVariant(12500.0);
    QTest::newRow("multiplied without a double") << Type::Double << 1000.0 << "en_GB"
                                                 << "4.35" << QVariant(4350.0);
    QTest::newRow("float") << Type::Float << 1.0 << "en_GB"
                           << "0.1" << QVariant(0.1F);
    QTest::newRow("digits of the locale")
        << Type::Whole32 << 1.0 << "ar_EG" << QString::fromUtf8("١٢٣") << whole(123);
    QTest::newRow("unit") << Type::Whole32 << 1.0 << "en_GB"
                          << "42 dB" << whole(42);
    QTest::newRow("unit without a blank") << Type::Whole32 << 1.0 << "en_GB"
                                          << "42dB" << whole(42);
}

void NumberEditTest::takes()
{
    QFETCH(Type, type);
    QFETCH(double, multiplier);
    QFETCH(QString, locale);
    QFETCH(QString, typed);
    QFETCH(QVariant, value);
    NumberEdit edit;
    edit.setLocale(QLocale(locale));
    edit.SetType(type);
    edit.SetUnit("dB");
    edit.SetMultiplier(multiplier);
    QSignalSpy finished(&edit, &NumberEdit::Finished);
    edit.setText(typed);
    QCOMPARE(edit.GetProblem(), QString());
    QVERIFY(edit.Take());
    QCOMPARE(edit.GetValue(), value);
    QCOMPARE(finished.count(), 1);
}

void NumberEditTest::refuses_data()
{
    QTest::addColumn<Type>("type");
    QTest::addColumn<double>("multiplier");
    QTest::addColumn<QString>("locale");
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("problem");

    const QString none = "This is not a number";
    QTest::newRow("nothing") << Type::Double << 1.0 << "en_GB"
                             << ""
                             << "There is no number";
    QTest::newRow("word") << Type::Double << 1.0 << "en_GB"
                          << "abc" << none;
    QTest::newRow("nan") << Type::Double << 1.0 << "en_GB"
                         << "nan" << none;
    QTest::newRow("point") << Type::Double << 1.0 << "en_GB"
                           << "." << none;
    QTest::newRow("two points") << Type::Double << 1.0 << "en_GB"
                                << "1.2.3" << none;
    QTest::newRow("pairs") << Type::Whole32 << 1.0 << "en_GB"
                           << "14 26" << none;
    QTest::newRow("pairs with commas") << Type::Whole32 << 1.0 << "en_GB"
                                       << "1,26,300" << none;
    QTest::newRow("hexadecimal") << Type::Whole32 << 1.0 << "en_GB"
                                 << "0x10"
                                 << "\"x10\" is no unit here: dB is";
    QTest::newRow("one or a thousand, de") << Type::Double << 1.0 << "de_DE"
                                           << "14.263"
                                           << "This may be 14,263 or 14263: please write it so";
    QTest::newRow("one or a thousand, en") << Type::Double << 1.0 << "en_GB"
                                           << "14,263"
                                           << "This may be 14.263 or 14263: please write it so";
    QTest::newRow("half") << Type::Whole32 << 1.0 << "en_GB"
                          << "12.5"
                          << "Only whole numbers can be held";
    QTest::newRow("half a step") << Type::Whole32 << 1000.0 << "en_GB"
                                 << "12.0005"
                                 << "Only multiples of 0.001 can be held";
    QTest::newRow("beyond 32 bits") << Type::Whole32 << 1.0 << "en_GB"
                                    << "2147483648"
                                    << "This number is too large to be held";
    QTest::newRow("beyond 64 bits") << Type::Whole64 << 1.0 << "en_GB"
                                    << "9223372036854775808"
                                    << "This number is too large to be held";
    QTest::newRow("beyond double") << Type::Double << 1.0 << "en_GB"
                                   << "1e309"
                                   << "This number is too large to be held";
    QTest::newRow("far beyond double") << Type::Double << 1.0 << "en_GB"
                                       << "1e999999999" << none;
    QTest::newRow("beyond float") << Type::Float << 1.0 << "en_GB"
                                  << "1e39"
                                  << "This number is too large to be held";
    QTest::newRow("other unit") << Type::Double << 1.0 << "en_GB"
                                << "10 kHz"
                                << "\"kHz\" is no unit here: dB is";
}

void NumberEditTest::refuses()
{
    QFETCH(Type, type);
    QFETCH(double, multiplier);
    QFETCH(QString, locale);
    QFETCH(QString, typed);
    QFETCH(QString, problem);
    NumberEdit edit;
    edit.setLocale(QLocale(locale));
    edit.SetType(type);
    edit.SetUnit("dB");
    edit.SetMultiplier(multiplier);
    const QVariant before = type == Type::Float ? QVariant(1.0F)
        : type == Type::Double                  ? QVariant(1.0)
                                                : QVariant(qint64(1));
    edit.SetValue(before);
    QSignalSpy finished(&edit, &NumberEdit::Finished);
    edit.setText(typed);
    QCOMPARE(edit.GetProblem(), problem);
    QVERIFY(!edit.Take());
    QCOMPARE(edit.text(), typed);
    QCOMPARE(edit.GetValue(), before);
    QCOMPARE(edit.GetProblem(), problem);
    QCOMPARE(edit.accessibleDescription(), problem);
    QVERIFY(edit.IsOpen());
    QCOMPARE(finished.count(), 0);
    edit.Discard();
    QCOMPARE(edit.GetProblem(), QString());
}

void NumberEditTest::whatIsShownIsTakenAsTheSame_data()
{
    QTest::addColumn<QString>("locale");

    for (const char *locale :
         {"C", "en_GB", "de_DE", "de_CH", "fr_FR", "ar_EG", "fa_IR", "hi_IN", "he_IL", "pt_BR"})
        QTest::newRow(locale) << locale;
}

void NumberEditTest::whatIsShownIsTakenAsTheSame()
{
    QFETCH(QString, locale);
    NumberEdit edit;
    edit.setLocale(QLocale(locale));
    for (const Qt::LayoutDirection direction : {Qt::LeftToRight, Qt::RightToLeft}) {
        edit.setLayoutDirection(direction);
        for (const double multiplier : {1.0, 1000.0, 0.01, 2.5}) {
            edit.SetMultiplier(multiplier);
            edit.SetType(Type::Double);
            for (const double value :
                 {0.0, 1.0, -1.0, 1234.0, 14263.5, -0.001, 123456789.123456, 1e15, 14263000.0}) {
                edit.SetValue(value);
                const QString shown = edit.text();
                edit.setText(shown + ' ');
                QVERIFY2(edit.Take(), qPrintable(shown + ": " + edit.GetProblem()));
                QCOMPARE(edit.GetValue().toDouble(), value);
                QCOMPARE(edit.text(), shown);
            }
            edit.SetType(Type::Whole64);
            for (const qint64 value : {qint64(0), qint64(-25), std::numeric_limits<qint64>::max(),
                                       std::numeric_limits<qint64>::min(), qint64(9007199254740993)}) {
                edit.SetValue(value);
                edit.setText(edit.text() + ' ');
                QVERIFY2(edit.Take(), qPrintable(edit.text()));
                QCOMPARE(edit.GetValue().toLongLong(), value);
            }
        }
    }
}

void NumberEditTest::limitsMark()
{
    NumberEdit edit;
    edit.setLocale(QLocale("en_GB"));
    edit.SetUnit("dB");
    edit.SetLimits(qint64(0), qint64(30));
    edit.SetValue(qint64(80));
    QCOMPARE(edit.text(), QString("80"));
    QCOMPARE(edit.GetProblem(), QString("Above the maximum of 30") + QChar(0xA0) + "dB");
    type(edit, "-1");
    QCOMPARE(edit.GetProblem(), QString("Below the minimum of 0") + QChar(0xA0) + "dB");
    QTest::keyClick(&edit, Qt::Key_Return);
    QCOMPARE(edit.GetValue(), QVariant(qint64(-1)));
    QCOMPARE(edit.text(), QString("-1"));
    QCOMPARE(edit.GetProblem(), QString("Below the minimum of 0") + QChar(0xA0) + "dB");
    type(edit, "30");
    QCOMPARE(edit.GetProblem(), QString());
    edit.SetLimits({}, {});
    edit.SetValue(qint64(-1));
    QCOMPARE(edit.GetProblem(), QString());
}

void NumberEditTest::steps_data()
{
    QTest::addColumn<QString>("before");
    QTest::addColumn<int>("fromRight"); // of the cursor
    QTest::addColumn<QList<int>>("keys");
    QTest::addColumn<QString>("after");

    QTest::newRow("last digit") << "14.263" << 0 << QList<int>{Qt::Key_Up} << "14.264";
    QTest::newRow("digit at the cursor") << "14.263" << 4 << QList<int>{Qt::Key_Up} << "15.263";
    QTest::newRow("behind the point") << "14.263" << 3 << QList<int>{Qt::Key_Up} << "15.263";
    QTest::newRow("first digit") << "14.263" << 5 << QList<int>{Qt::Key_Down} << "4.263";
    QTest::newRow("at the beginning") << "14.263" << 6 << QList<int>{Qt::Key_Up} << "24.263";
    QTest::newRow("carry") << "9.999" << 0 << QList<int>{Qt::Key_Up} << "10";
    QTest::newRow("through zero") << "1" << 0 << QList<int>{Qt::Key_Down, Qt::Key_Down} << "-1";
    QTest::newRow("page") << "14" << 0 << QList<int>{Qt::Key_PageUp} << "24";
    QTest::newRow("page down") << "14" << 0 << QList<int>{Qt::Key_PageDown} << "4";
    QTest::newRow("thousands") << "12 345" << 4 << QList<int>{Qt::Key_Up} << "13 345";
    QTest::newRow("at the blank") << "12 345" << 3 << QList<int>{Qt::Key_Up} << "13 345";
}

void NumberEditTest::steps()
{
    QFETCH(QString, before);
    QFETCH(int, fromRight);
    QFETCH(QList<int>, keys);
    QFETCH(QString, after);
    NumberEdit edit;
    edit.setLocale(QLocale("en_GB"));
    edit.SetType(Type::Double);
    edit.setText(before);
    QVERIFY(edit.Take());
    edit.setCursorPosition(static_cast<int>(edit.text().size()) - fromRight);
    QSignalSpy finished(&edit, &NumberEdit::Finished);
    for (const int key : std::as_const(keys))
        QTest::keyClick(&edit, static_cast<Qt::Key>(key));
    QCOMPARE(plain(edit.text()), after);
    QCOMPARE(finished.count(), keys.size());
}

void NumberEditTest::stepsKeepTheirPlace()
{
    NumberEdit edit;
    edit.setLocale(QLocale("en_GB"));
    edit.SetType(Type::Double);
    edit.SetDecimals(3);
    edit.SetValue(10.5);
    edit.setCursorPosition(1); // the tens
    const auto press = [&edit](Qt::Key key) {
        QTest::keyClick(&edit, key);
        return edit.text();
    };
    QCOMPARE(press(Qt::Key_Down), QString("0.500")); // where there are no tens
    QCOMPARE(press(Qt::Key_Up), QString("10.500"));
    QCOMPARE(edit.cursorPosition(), 1);
    QCOMPARE(press(Qt::Key_Up), QString("20.500"));
    QTest::keyClick(&edit, Qt::Key_Right);
    QCOMPARE(press(Qt::Key_Up), QString("21.500"));
    QCOMPARE(edit.cursorPosition(), 2);
}

void NumberEditTest::noStepToWhatCannotBeHeld()
{
    NumberEdit edit;
    edit.setLocale(QLocale("en_GB"));
    edit.SetType(Type::Whole32);
    edit.SetValue(qint64(2147483647));
    edit.setCursorPosition(static_cast<int>(edit.text().size()));
    QSignalSpy finished(&edit, &NumberEdit::Finished);
    QTest::keyClick(&edit, Qt::Key_Up);
    QCOMPARE(edit.GetValue(), QVariant(qint64(2147483647)));
    QCOMPARE(finished.count(), 0);
    edit.setText("nothing");
    QTest::keyClick(&edit, Qt::Key_Up);
    QCOMPARE(edit.text(), QString("nothing"));
    edit.Discard();
    edit.setReadOnly(true);
    QTest::keyClick(&edit, Qt::Key_Down);
    QCOMPARE(edit.GetValue(), QVariant(qint64(2147483647)));
}

void NumberEditTest::unitAndMultiplier()
{
    NumberEdit edit;
    edit.setLocale(QLocale("de_DE"));
    edit.SetType(Type::Double);
    edit.SetUnit("kHz");
    edit.SetMultiplier(1000);
    edit.SetLimits(1000.0, 80e6);
    edit.SetValue(12500.0);
    QCOMPARE(edit.text(), QString("12,5"));
    QCOMPARE(edit.GetValueText(), QString("12500"));
    edit.setText("90000");
    QCOMPARE(edit.GetProblem(), QString("Above the maximum of 80") + Blank + "000" + QChar(0xA0) + "kHz");
    QCOMPARE(edit.GetType(), Type::Double);
    QCOMPARE(edit.GetUnit(), QString("kHz"));
    QCOMPARE(edit.GetMultiplier(), 1000.0);
    QCOMPARE(edit.GetDecimals(), 0);
    QCOMPARE(edit.GetMinimum(), QVariant(1000.0));
    QCOMPARE(edit.GetMaximum(), QVariant(80e6));
}

void NumberEditTest::numbersThatAreNotFinite()
{
    NumberEdit edit;
    edit.SetType(Type::Double);
    edit.SetLimits(0.0, 1.0);
    edit.SetValue(std::numeric_limits<double>::infinity());
    QCOMPARE(edit.text(), QString("inf"));
    QCOMPARE(edit.GetProblem(), QString("This is not a finite number"));
    QVERIFY(edit.Take());
    QVERIFY(std::isinf(edit.GetValue().toDouble()));
}

QTEST_MAIN(NumberEditTest)
#include "NumberEditTest.moc"
