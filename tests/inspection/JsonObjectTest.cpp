#include <inspection/JsonObject_p.h>
#include <objectbase/TesselException.h>

#include <QtTest>

using namespace KORMAK::Inspection;

class JsonObjectTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void longNumbers();
    void refused_data();
    void refused();
    void namesThatRecur();
};

void JsonObjectTest::longNumbers()
{
    const QJsonObject object = jsonObjectOf(
        R"({"a": 9223372036854775807, "b": -9007199254740993, "c": 123456789012345, "d": 1.5e3, "e": "9223372036854775807"})");
    QCOMPARE(object.value("a").toString(), QString("9223372036854775807"));
    QCOMPARE(object.value("b").toString(), QString("-9007199254740993"));
    QCOMPARE(object.value("c").toDouble(), 123456789012345.0);
    QCOMPARE(object.value("d").toDouble(), 1500.0);
    QCOMPARE(object.value("e").toString(), QString("9223372036854775807"));
}

void JsonObjectTest::refused_data()
{
    QTest::addColumn<QByteArray>("json");
    QTest::addColumn<QString>("message");

    QTest::newRow("no JSON") << QByteArray("{") << "is no JSON: unterminated object at byte 1";
    QTest::newRow("array") << QByteArray("[{}]") << "is no JSON object";
    QTest::newRow("a name twice") << QByteArray(R"({"a": 1, "a": 1})")
                                  << "holds two members called \"a\" in one object, before byte 12";
    QTest::newRow("twice in an inner object")
        << QByteArray(R"({"b": [{"a": {}, "c": [1, "a"], "a": 2}]})")
        << "holds two members called \"a\" in one object, before byte 35";
    QTest::newRow("spelled otherwise") << QByteArray(R"({"a\"": 1, "\u0061\u0022": 1})")
                                       << "holds two members called \"a\"\" in one object, before byte 25";
}

void JsonObjectTest::refused()
{
    QFETCH(const QByteArray, json);
    QFETCH(const QString, message);
    try {
        (void)jsonObjectOf(json);
        QFAIL("nothing was thrown");
    } catch (const TESSEL::TesselException &exception) {
        QCOMPARE(exception.GetErrorMessage(), message);
    }
}

/// In objects of their own, and as texts, names may recur.
void JsonObjectTest::namesThatRecur()
{
    const QJsonObject object = jsonObjectOf(R"({"a": {"a": "a"}, "b": [{"a": "\\"}, {"a": "{:\"a\":"}]})");
    QCOMPARE(object.size(), 2);
}

QTEST_GUILESS_MAIN(JsonObjectTest)
#include "JsonObjectTest.moc"
