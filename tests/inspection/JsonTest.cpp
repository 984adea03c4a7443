#include <inspection/Json_p.h>
#include <kormak/Vocabularies_p.h>

#include <QtTest>

#include <limits>

using namespace KORMAK::Inspection;

Q_DECLARE_METATYPE(FieldValue)

class JsonTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void texts_data();
    void texts();
    void values_data();
    void values();
    void layouts();
};

void JsonTest::texts_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("json");

    QTest::newRow("empty") << ""
                           << "\"\"";
    QTest::newRow("quotes") << "\"a\\b\""
                            << "\"\\\"a\\\\b\\\"\"";
    QTest::newRow("breaks") << "a\tb\r\n"
                            << "\"a\\tb\\r\\n\"";
    QTest::newRow("control characters") << QString(QChar(1)) + QChar(0x7f) + QChar(0x9b) + QChar(0x2028)
                                        << "\"\\u0001\\u007f\\u009b\\u2028\"";
    QTest::newRow("beyond 16 bits") << QString("\U0001F4E1") << QString("\"\U0001F4E1\"");
    QTest::newRow("half a character") << QString(QChar(0xd83d)) + 'a' << "\"\\ud83da\"";
    QTest::newRow("second half") << 'a' + QString(QChar(0xdce1)) << "\"a\\udce1\"";
}

void JsonTest::texts()
{
    QFETCH(QString, text);
    QFETCH(QString, json);

    QCOMPARE(jsonText(text), json);
}

void JsonTest::values_data()
{
    QTest::addColumn<FieldValue>("value");
    QTest::addColumn<QString>("json");

    using Double = std::numeric_limits<double>;
    using Float = std::numeric_limits<float>;
    QTest::newRow("not set") << FieldValue() << "null";
    QTest::newRow("true") << FieldValue(true) << "true";
    QTest::newRow("false") << FieldValue(false) << "false";
    QTest::newRow("least") << FieldValue(std::numeric_limits<qint64>::min()) << "-9223372036854775808";
    QTest::newRow("beyond 53 bits") << FieldValue(qint64(9007199254740993)) << "9007199254740993";
    QTest::newRow("text") << FieldValue(QString("a\"")) << "\"a\\\"\"";
    QTest::newRow("date") << FieldValue(QDateTime({2026, 3, 29}, {1, 2, 3, 4}, Qt::UTC))
                          << "\"2026-03-29T01:02:03,004Z\"";
    QTest::newRow("double") << FieldValue(0.1) << "0.1";
    QTest::newRow("double that a float is not")
        << FieldValue(static_cast<double>(0.1F)) << "0.10000000149011612";
    QTest::newRow("float") << FieldValue(0.1F) << "0.1";
    QTest::newRow("whole") << FieldValue(3e7) << "30000000";
    QTest::newRow("large") << FieldValue(1e16) << "1e+16";
    QTest::newRow("small") << FieldValue(1e-7) << "1e-07";
    QTest::newRow("greatest") << FieldValue(Double::max()) << "1.7976931348623157e+308";
    QTest::newRow("greatest float") << FieldValue(Float::max()) << "3.4028235e+38";
    QTest::newRow("zero below") << FieldValue(-0.0) << "-0";
    QTest::newRow("no number") << FieldValue(Double::quiet_NaN()) << "null";
    QTest::newRow("no float") << FieldValue(Float::quiet_NaN()) << "null";
    QTest::newRow("infinite") << FieldValue(-Double::infinity()) << "\"-inf\"";
    QTest::newRow("infinite float") << FieldValue(Float::infinity()) << "\"inf\"";
}

void JsonTest::values()
{
    QFETCH(FieldValue, value);
    QFETCH(QString, json);

    QCOMPARE(jsonValue({}, value), json);
}

void JsonTest::layouts()
{
    const auto write = [](JsonWriter::Layout layout) {
        JsonWriter json(layout);
        json.beginObject();
        json.key(u"a");
        json.beginArray();
        json.value("1");
        json.beginObject();
        json.endObject();
        json.endArray();
        json.key(u"b");
        json.value("true");
        json.endObject();
        return json.text();
    };
    QCOMPARE(write(JsonWriter::Layout::OneLine), QString("{\"a\": [1, {}], \"b\": true}"));
    QCOMPARE(write(JsonWriter::Layout::Indented),
             QString("{\n  \"a\": [\n    1,\n    {}\n  ],\n  \"b\": true\n}"));

    TextType type;
    type.kind = TextType::Kind::Name;
    type.names = KORMAK::jobTypes;
    QCOMPARE(jsonValue(type, qint64(11)), QString("\"Search MC VUHF\""));
}

QTEST_GUILESS_MAIN(JsonTest)
#include "JsonTest.moc"
