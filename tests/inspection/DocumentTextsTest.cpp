#include "inspection/DocumentTexts_p.h"

#include <kormak/Vocabularies_p.h>

#include <QtTest>

using namespace KORMAK;
using namespace KORMAK::Inspection;
using TESSEL::Row;
using TESSEL::TextType;
using Kind = TextType::Kind;

class DocumentTextsTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void objections_data();
    void objections();
    void longTextsAreCut();
    void emptyTexts();
    void allowed();
};

namespace {

Row row(Kind kind)
{
    Row made;
    made.type.kind = kind;
    return made;
}

Row named(TESSEL::NameTable (*names)())
{
    Row made = row(Kind::Name);
    made.type.names = names;
    return made;
}

Row upTo(qint64 most)
{
    Row made = row(Kind::Unsigned);
    made.type.least = 1;
    made.type.most = most;
    return made;
}

} // namespace

Q_DECLARE_METATYPE(Row)

void DocumentTextsTest::objections_data()
{
    QTest::addColumn<Row>("row");
    QTest::addColumn<QString>("text"); // which is not valid
    QTest::addColumn<QString>("objection");

    QTest::newRow("boolean") << row(Kind::Boolean) << ""
                             << "\"\" is not a boolean; it reads as false";
    QTest::newRow("whole number") << row(Kind::Integer) << "1.0"
                                  << "\"1.0\" is not a whole number of 32 bits; it reads as 0";
    QTest::newRow("long number") << row(Kind::LongLong) << "9223372036854775808"
                                 << "\"9223372036854775808\" is not a whole number of 64 bits; it reads as 0";
    QTest::newRow("limited number") << upTo(23) << "0"
                                    << "\"0\" is not a whole number from 1 to 23";
    QTest::newRow("limited number, too great") << upTo(23) << "24"
                                               << "\"24\" is not a whole number from 1 to 23";
    QTest::newRow("single precision") << row(Kind::Float) << "1e39"
                                      << "\"1e39\" is not a number of single precision; it reads as 0";
    QTest::newRow("double precision") << row(Kind::Double) << "1 kHz"
                                      << "\"1 kHz\" is not a number; it reads as 0";
    QTest::newRow("time")
        << row(Kind::DateTime) << "now\n"
        << "\"now\\n\" is not a time such as 2026-03-15T22:00:00,000Z; it reads as \"not set\"";
    QTest::newRow("name") << named(workflowModes) << "Manual"
                          << "\"Manual\" is not a known name; it reads as \"not set\"";
    Row keeping = named(parameterTypes);
    keeping.keepsFormer = true;
    QTest::newRow("name that leaves what was") << keeping << "%1"
                                               << "\"%1\" is not a known name; it leaves the type as it was";
    Row refused = named(searchStrategies);
    refused.refusedAs = u"SearchStrategy";
    QTest::newRow("name that is refused") << refused << "First"
                                          << "\"First\" is not a known name";
}

void DocumentTextsTest::objections()
{
    QFETCH(Row, row);
    QFETCH(QString, text);
    QFETCH(QString, objection);

    QVERIFY(!isValid(row.type, text));
    QCOMPARE(objectionTo(row, text), objection);
}

void DocumentTextsTest::longTextsAreCut()
{
    const QString text(100000, 'x');
    QCOMPARE(objectionTo(row(Kind::Double), text),
             '"' + text.left(200) + QChar(0x2026) + "\" is not a number; it reads as 0");
}

void DocumentTextsTest::emptyTexts()
{
    TextType flag = row(Kind::Boolean).type;
    QVERIFY(!isValid(flag, {}));
    flag.mayBeEmpty = true;
    QVERIFY(isValid(flag, {}));
    QVERIFY(!isValid(flag, u"1"));
    QVERIFY(isValid(row(Kind::Text).type, {}));
}

void DocumentTextsTest::allowed()
{
    QCOMPARE(allowedTexts(named(workflowModes).type), (QStringList{"ManualMode", "AutomaticMode"}));
    QCOMPARE(allowedTexts(row(Kind::Boolean).type), (QStringList{"true", "false"}));
    QCOMPARE(allowedTexts(row(Kind::Double).type), QStringList());
    QCOMPARE(allowedTexts(upTo(3).type), QStringList());
}

QTEST_GUILESS_MAIN(DocumentTextsTest)
#include "DocumentTextsTest.moc"
