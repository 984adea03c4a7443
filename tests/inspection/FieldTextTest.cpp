#include <inspection/FieldText_p.h>
#include <kormak/Vocabularies_p.h>
#include <objectbase/Vocabularies_p.h>

#include <QtTest>

#include <limits>

using namespace KORMAK::Inspection;

using Kind = TextType::Kind;

Q_DECLARE_METATYPE(TextType)
Q_DECLARE_METATYPE(FieldValue)

class FieldTextTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void shown_data();
    void shown();
    void read_data();
    void read();
    void refused_data();
    void refused();
    void meant_data();
    void meant();
};

namespace {

TextType ofType(Kind kind, QStringView unit = {})
{
    TextType result;
    result.kind = kind;
    result.unit = unit;
    if (kind == Kind::Name)
        result.names = KORMAK::jobTypes;
    return result;
}

TextType named(TESSEL::NameTable (*names)())
{
    TextType result = ofType(Kind::Name);
    result.names = names;
    return result;
}

TextType limit(Kind kind)
{
    TextType result = ofType(kind);
    result.isLimit = true;
    return result;
}

TextType range(qint64 least, qint64 most)
{
    TextType result = ofType(Kind::LongLong);
    result.least = least;
    result.most = most;
    return result;
}

} // namespace

void FieldTextTest::shown_data()
{
    QTest::addColumn<TextType>("type");
    QTest::addColumn<FieldValue>("value");
    QTest::addColumn<QString>("text");

    QTest::newRow("not set") << ofType(Kind::Text) << FieldValue() << "(none)";
    QTest::newRow("bool") << ofType(Kind::Boolean) << FieldValue(true) << "yes";
    QTest::newRow("unit") << ofType(Kind::LongLong, u"dB") << FieldValue(qint64(3)) << "3 dB";
    QTest::newRow("float") << ofType(Kind::Float) << FieldValue(0.1234567F) << "0.1234567";
    QTest::newRow("double") << ofType(Kind::Double) << FieldValue(0.1234567) << "0.1234567";
    QTest::newRow("frequency") << ofType(Kind::Double, u"Hz") << FieldValue(2.4e9)
                               << "2400000000 Hz (2.4 GHz)";
    QTest::newRow("no limit") << limit(Kind::Double) << FieldValue(std::numeric_limits<double>::max())
                              << "none";
    QTest::newRow("no lower limit") << limit(Kind::Float) << FieldValue(std::numeric_limits<float>::lowest())
                                    << "none";
    QTest::newRow("limit") << limit(Kind::Float) << FieldValue(5.0F) << "5";
    QTest::newRow("name") << ofType(Kind::Name) << FieldValue(qint64(11))
                          << "Search MC VUHF (written as \"Surveillance MC VUHF\")";
    QTest::newRow("date") << ofType(Kind::DateTime)
                          << FieldValue(QDateTime({2026, 3, 29}, {1, 2, 3, 4}, Qt::UTC))
                          << "2026-03-29 01:02:03.004 UTC";
}

void FieldTextTest::shown()
{
    QFETCH(TextType, type);
    QFETCH(FieldValue, value);
    QFETCH(QString, text);

    QCOMPARE(shownText(type, value).value_or("(none)"), text);
}

void FieldTextTest::read_data()
{
    QTest::addColumn<TextType>("type");
    QTest::addColumn<QString>("text");
    QTest::addColumn<FieldValue>("value");

    QTest::newRow("text") << ofType(Kind::Text) << " a=b " << FieldValue(QString(" a=b "));
    QTest::newRow("empty text") << ofType(Kind::Text) << "" << FieldValue();
    QTest::newRow("true") << ofType(Kind::Boolean) << "true" << FieldValue(true);
    QTest::newRow("false") << ofType(Kind::Boolean) << "false" << FieldValue(false);
    QTest::newRow("greatest") << ofType(Kind::LongLong) << "9223372036854775807"
                              << FieldValue(std::numeric_limits<qint64>::max());
    QTest::newRow("least in range") << range(1, 23) << "1" << FieldValue(qint64(1));
    QTest::newRow("greatest in range") << range(1, 23) << "23" << FieldValue(qint64(23));
    QTest::newRow("float") << ofType(Kind::Float) << "0.1" << FieldValue(0.1F);
    QTest::newRow("greatest float") << ofType(Kind::Float) << "3.4028234663852886e+38"
                                    << FieldValue(std::numeric_limits<float>::max());
    QTest::newRow("least float") << ofType(Kind::Float) << "-3.4028234663852886e+38"
                                 << FieldValue(std::numeric_limits<float>::lowest());
    QTest::newRow("double") << ofType(Kind::Double) << "-1.5e6" << FieldValue(-1.5e6);
    QTest::newRow("name") << ofType(Kind::Name) << "Search MC VUHF" << FieldValue(qint64(11));
    QTest::newRow("name that another is written as")
        << ofType(Kind::Name) << "Surveillance MC VUHF" << FieldValue(qint64(7));
    const QDateTime date({2026, 3, 29}, {1, 2, 3, 4}, Qt::UTC);
    QTest::newRow("date") << ofType(Kind::DateTime) << "2026-03-29T01:02:03,004Z" << FieldValue(date);
    QTest::newRow("date with a point")
        << ofType(Kind::DateTime) << "2026-03-29T01:02:03.004Z" << FieldValue(date);
    QTest::newRow("date in seconds") << ofType(Kind::DateTime) << "2026-03-29T01:02:03Z"
                                     << FieldValue(date.addMSecs(-4));
}

void FieldTextTest::read()
{
    QFETCH(TextType, type);
    QFETCH(QString, text);
    QFETCH(FieldValue, value);

    QVERIFY(areSame(valueOfText(type, text), value));
    QVERIFY(areSame(valueOfText(type, settableText(type, value)), value));
}

void FieldTextTest::refused_data()
{
    QTest::addColumn<TextType>("type");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("allowed");

    QTest::newRow("no boolean") << ofType(Kind::Boolean) << "yes"
                                << "true, false";
    QTest::newRow("one of many names")
        << named(TESSEL::resourceTypes) << "Horn"
        << "Decoder, Antenna, Tuner HF, DDC HF; 46 more in the vocabulary ResourceType";
    QTest::newRow("32 bits") << range(std::numeric_limits<qint32>::min(), std::numeric_limits<qint32>::max())
                             << "1.5"
                             << "whole number of 32 bits";
    QTest::newRow("64 bits") << range(std::numeric_limits<qint64>::min(), std::numeric_limits<qint64>::max())
                             << "x"
                             << "whole number of 64 bits";
    QTest::newRow("below") << range(1, 23) << "0"
                           << "whole number from 1 to 23";
    QTest::newRow("above") << range(1, 23) << "24"
                           << "whole number from 1 to 23";
    QTest::newRow("beyond 64 bits") << range(1, 23) << "18446744073709551617"
                                    << "whole number from 1 to 23";
    QTest::newRow("empty") << ofType(Kind::Double) << ""
                           << "finite number";
    QTest::newRow("infinite") << ofType(Kind::Double, u"Hz") << "inf"
                              << "finite number in Hz";
    QTest::newRow("infinite float") << ofType(Kind::Float) << "-1e39"
                                    << "finite number of single precision";
    QTest::newRow("decimal comma") << ofType(Kind::Float) << "1,5"
                                   << "finite number of single precision";
    for (const char *text : {"", "2026-03-29", "2026-03-29T01:02:03", "2026-02-30T01:02:03Z", "Now"}) {
        QTest::newRow(qPrintable(QString("date %1").arg(text)))
            << ofType(Kind::DateTime) << text
            << "date in UTC as 2026-03-29T00:59:59,250Z, 2026-03-29T00:59:59Z, or now";
    }
}

void FieldTextTest::refused()
{
    QFETCH(TextType, type);
    QFETCH(QString, text);
    QFETCH(QString, allowed);

    QString message;
    try {
        (void)valueOfText(type, text);
    } catch (const FieldError &error) {
        message = error.message;
    }
    QCOMPARE(message, QString("'%1' is not allowed. Allowed: %2").arg(text, allowed));
}

void FieldTextTest::meant_data()
{
    QTest::addColumn<TextType>("type");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("message");

    QTest::newRow("capitals") << ofType(Kind::Boolean) << "True"
                              << "'True' is not allowed; did you mean \"true\"? Allowed: true, false";
    QTest::newRow("a letter of %1") << named(KORMAK::workflowModes) << "ManualMod%1"
                                    << "'ManualMod%1' is not allowed. Allowed: ManualMode, AutomaticMode";
    QTest::newRow("a letter") << named(KORMAK::workflowModes) << "ManualMod"
                              << "'ManualMod' is not allowed; did you mean \"ManualMode\"? Allowed: "
                                 "ManualMode, AutomaticMode";
}

void FieldTextTest::meant()
{
    QFETCH(TextType, type);
    QFETCH(QString, text);
    QFETCH(QString, message);

    try {
        (void)valueOfText(type, text);
        QFAIL("it is refused");
    } catch (const FieldError &error) {
        QCOMPARE(error.message, message);
    }
}

QTEST_GUILESS_MAIN(FieldTextTest)
#include "FieldTextTest.moc"
