#include <inspection/FieldText_p.h>
#include <kormak/Vocabularies_p.h>

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
    QTest::newRow("float") << ofType(Kind::Float) << FieldValue(0.1234567F) << "0.123457";
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

    QTest::newRow("capitals") << ofType(Kind::Boolean) << "True"
                              << "true, false";
    QTest::newRow("below") << range(1, 23) << "0"
                           << "whole number from 1 to 23";
    QTest::newRow("above") << range(1, 23) << "24"
                           << "whole number from 1 to 23";
    QTest::newRow("beyond 64 bits") << range(1, 23) << "18446744073709551617"
                                    << "whole number from 1 to 23";
    QTest::newRow("empty") << ofType(Kind::Double) << ""
                           << "number from -1.79769e+308 to 1.79769e+308";
    QTest::newRow("infinite") << ofType(Kind::Double, u"Hz") << "inf"
                              << "number in Hz from -1.79769e+308 to 1.79769e+308";
    QTest::newRow("infinite float") << ofType(Kind::Float) << "-1e39"
                                    << "number from -3.40282e+38 to 3.40282e+38";
    QTest::newRow("decimal comma") << ofType(Kind::Float) << "1,5"
                                   << "number from -3.40282e+38 to 3.40282e+38";
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

QTEST_GUILESS_MAIN(FieldTextTest)
#include "FieldTextTest.moc"
