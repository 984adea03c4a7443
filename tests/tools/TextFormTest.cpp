#include "tools/TextForm.h"

#include <tools/NameLists.h>

#include <QtTest>

class TextFormTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void objections_data();
    void objections();
    void longTextsAreCut();
    void allowed();
    void numberRead();
};

using Kind = TextForm::Kind;
Q_DECLARE_METATYPE(TextForm)

void TextFormTest::objections_data()
{
    QTest::addColumn<TextForm>("form");
    QTest::addColumn<QString>("text"); // which does not say it
    QTest::addColumn<QString>("objection");

    QTest::newRow("boolean") << TextForm(Kind::Boolean) << ""
                             << "\"\" is not a boolean; it reads as false";
    QTest::newRow("flag") << TextForm(Kind::Flag) << "1"
                          << "\"1\" is not a boolean; it reads as false";
    QTest::newRow("whole number") << TextForm(Kind::Integer) << "1.0"
                                  << "\"1.0\" is not a whole number of 32 bits; it reads as 0";
    QTest::newRow("long number") << TextForm(Kind::LongLong) << "9223372036854775808"
                                 << "\"9223372036854775808\" is not a whole number of 64 bits; it reads as 0";
    QTest::newRow("limited number") << TextForm::upTo(23) << "0"
                                    << "\"0\" is not a whole number from 1 to 23";
    QTest::newRow("single precision") << TextForm(Kind::Float) << "1e39"
                                      << "\"1e39\" is not a number of single precision; it reads as 0";
    QTest::newRow("double precision") << TextForm(Kind::Double) << "1 kHz"
                                      << "\"1 kHz\" is not a number; it reads as 0";
    QTest::newRow("time")
        << TextForm(Kind::DateTime) << "now\n"
        << "\"now\\n\" is not a time such as 2026-03-15T22:00:00,000Z; it reads as \"not set\"";
    QTest::newRow("name") << TextForm(WorkflowModes) << "Manual"
                          << "\"Manual\" is not a known name; it reads as \"not set\"";
    QTest::newRow("name that leaves what was") << TextForm(ParameterTypes, u"stays as it was") << "%1"
                                               << "\"%1\" is not a known name; it stays as it was";
    QTest::newRow("name that is refused") << TextForm(SearchStrategies, QStringView()) << "First"
                                          << "\"First\" is not a known name";
}

void TextFormTest::objections()
{
    QFETCH(TextForm, form);
    QFETCH(QString, text);
    QFETCH(QString, objection);

    QVERIFY(!form.isSaidBy(text));
    QVERIFY(!form.isFree());
    QCOMPARE(form.objectionTo(text), objection);
}

void TextFormTest::longTextsAreCut()
{
    const QString text(100000, 'x');
    QCOMPARE(TextForm(Kind::Double).objectionTo(text),
             '"' + text.left(200) + QChar(0x2026) + "\" is not a number; it reads as 0");
}

void TextFormTest::allowed()
{
    QCOMPARE(TextForm(WorkflowModes).allowed(), (QStringList{"ManualMode", "AutomaticMode"}));
    QCOMPARE(TextForm(Kind::Boolean).allowed(), (QStringList{"true", "false"}));
    QCOMPARE(TextForm(Kind::Flag).allowed(), (QStringList{"true", "false"}));
    QCOMPARE(TextForm(Kind::Double).allowed(), QStringList());
    QCOMPARE(TextForm::upTo(3).allowed(), QStringList());
}

void TextFormTest::numberRead()
{
    QCOMPARE(TextForm::upTo(3).numberRead("24"), QString("24"));
    QCOMPARE(TextForm::upTo(3).numberRead("-1"), QString("0"));
    QCOMPARE(TextForm::upTo(3).numberRead("4294967297"), QString("0"));
    QCOMPARE(TextForm(SearchStrategies).numberRead("First"), QString("-1"));
}

QTEST_GUILESS_MAIN(TextFormTest)
#include "TextFormTest.moc"
