#include <widgets/FrequencyEdit.h>

#include <QtTest>

using KORMAK::FrequencyEdit;

class FrequencyEditTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void takes_data();
    void takes();
    void refuses_data();
    void refuses();
    void everyDigitIsKept();
};

void FrequencyEditTest::takes_data()
{
    QTest::addColumn<QString>("unit");
    QTest::addColumn<double>("multiplier");
    QTest::addColumn<QString>("locale");
    QTest::addColumn<QString>("typed");
    QTest::addColumn<qint64>("value");

    const QString en = "en_GB";
    QTest::newRow("in the shown unit") << "MHz" << 1e6 << en << "14.263" << qint64(14263000);
    QTest::newRow("short") << "MHz" << 1e6 << en << "1.6M" << qint64(1600000);
    QTest::newRow("power") << "Hz" << 1.0 << en << "1e7" << qint64(10000000);
    QTest::newRow("unit") << "Hz" << 1.0 << en << "145 MHz" << qint64(145000000);
    QTest::newRow("thousands and unit") << "Hz" << 1.0 << en << "7 100 kHz" << qint64(7100000);
    QTest::newRow("unit without a blank") << "Hz" << 1.0 << en << "145MHz" << qint64(145000000);
    QTest::newRow("small letters") << "Hz" << 1.0 << en << "145mhz" << qint64(145000000);
    QTest::newRow("small letter") << "Hz" << 1.0 << en << "145m" << qint64(145000000);
    QTest::newRow("capital") << "Hz" << 1.0 << en << "15K" << qint64(15000);
    QTest::newRow("giga") << "Hz" << 1.0 << en << "6g" << qint64(6000000000);
    QTest::newRow("hertz where kHz is shown") << "kHz" << 1000.0 << en << "12500 Hz" << qint64(12500);
    QTest::newRow("mega where kHz is shown") << "kHz" << 1000.0 << en << "1.5 MHz" << qint64(1500000);
    QTest::newRow("decimal comma") << "MHz" << 1e6 << "de_DE"
                                   << "14,263 MHz" << qint64(14263000);
    QTest::newRow("power and unit") << "Hz" << 1.0 << en << "1e3 kHz" << qint64(1000000);
    QTest::newRow("unit that is no frequency") << "ch" << 1.0 << en << "12 ch" << qint64(12);
    QTest::newRow("stored in kHz, shown in MHz") << "MHz" << 1000.0 << en << "14.263 MHz" << qint64(14263);
}

void FrequencyEditTest::takes()
{
    QFETCH(QString, unit);
    QFETCH(double, multiplier);
    QFETCH(QString, locale);
    QFETCH(QString, typed);
    QFETCH(qint64, value);
    FrequencyEdit edit;
    edit.setLocale(QLocale(locale));
    edit.SetUnit(unit);
    edit.SetMultiplier(multiplier);
    QTest::keyClicks(&edit, typed);
    QCOMPARE(edit.GetProblem(), QString());
    QTest::keyClick(&edit, Qt::Key_Return);
    QCOMPARE(edit.GetValue(), QVariant(value));
}

void FrequencyEditTest::refuses_data()
{
    QTest::addColumn<QString>("unit");
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("problem");

    QTest::newRow("no frequency") << "Hz"
                                  << "12 dB"
                                  << "\"dB\" is no unit here: Hz is";
    QTest::newRow("unknown unit") << "ch"
                                  << "12 MHz"
                                  << "\"MHz\" is no unit here: ch is";
    QTest::newRow("short for an unknown unit") << "k"
                                               << "12 MHz"
                                               << "\"MHz\" is no unit here: k is";
    QTest::newRow("no unit") << ""
                             << "12 MHz"
                             << "There is no unit here, but \"MHz\" was typed";
    QTest::newRow("part of a hertz") << "Hz"
                                     << "0.5"
                                     << "Only whole numbers can be held";
    QTest::newRow("part of a hertz in kHz") << "Hz"
                                            << "0.0005 kHz"
                                            << "Only whole numbers can be held";
}

void FrequencyEditTest::refuses()
{
    QFETCH(QString, unit);
    QFETCH(QString, typed);
    QFETCH(QString, problem);
    FrequencyEdit edit;
    edit.setLocale(QLocale("en_GB"));
    edit.SetUnit(unit);
    edit.SetValue(qint64(7));
    edit.setText(typed);
    QVERIFY(!edit.Take());
    QCOMPARE(edit.GetProblem(), problem);
    QCOMPARE(edit.GetValue(), QVariant(qint64(7)));
}

void FrequencyEditTest::everyDigitIsKept()
{
    FrequencyEdit edit;
    edit.setLocale(QLocale("en_GB"));
    QCOMPARE(edit.GetUnit(), QString("Hz"));
    edit.setText("9223372036854775807");
    QVERIFY(edit.Take());
    QCOMPARE(edit.GetValueText(), QString("9223372036854775807"));
    edit.setText("9007199254740.993 kHz");
    QVERIFY(edit.Take());
    QCOMPARE(edit.GetValueText(), QString("9007199254740993"));
    edit.setCursorPosition(static_cast<int>(edit.text().size()));
    QTest::keyClick(&edit, Qt::Key_Up);
    QCOMPARE(edit.GetValueText(), QString("9007199254740994"));
}

QTEST_MAIN(FrequencyEditTest)
#include "FrequencyEditTest.moc"
