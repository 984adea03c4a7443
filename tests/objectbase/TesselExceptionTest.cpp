#include <objectbase/TesselException.h>

#include <QtTest>

#include <memory>
#include <type_traits>

using namespace TESSEL;

class TesselExceptionTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void message_data();
    void message();
    void isCaughtAsEveryBase();
    void copiesKeepTheMessage();
};

void TesselExceptionTest::message_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QByteArray>("utf8");

    QTest::newRow("plain") << "Job: Please set Author" << QByteArray("Job: Please set Author");
    QTest::newRow("empty") << "" << QByteArray();
    QTest::newRow("placeholder") << "%1 and %2" << QByteArray("%1 and %2");
    QTest::newRow("umlaut") << QString::fromUtf8("K\xC3\xB6ln") << QByteArray("K\xC3\xB6ln");
    QTest::newRow("beyond the basic plane")
        << QString::fromUtf8("\xF0\x9F\x93\xA1") << QByteArray("\xF0\x9F\x93\xA1");
}

void TesselExceptionTest::message()
{
    QFETCH(QString, text);
    QFETCH(QByteArray, utf8);

    const TesselException exception(text);
    QCOMPARE(exception.GetErrorMessage(), text);
    QCOMPARE(QByteArray(exception.what()), utf8);

    const TesselBaseException base(text);
    QCOMPARE(base.GetErrorMessage(), text);
    QCOMPARE(QByteArray(base.what()), utf8);
}

void TesselExceptionTest::isCaughtAsEveryBase()
{
    static_assert(std::is_base_of_v<TesselBaseException, TesselException>);
    static_assert(std::is_base_of_v<std::exception, TesselBaseException>);
    static_assert(
        std::is_same_v<decltype(std::declval<const TesselException &>().GetErrorMessage()), const QString &>);
    static_assert(noexcept(std::declval<const TesselException &>().GetErrorMessage()));

    try {
        throw TesselException("text");
    } catch (const TesselBaseException &exception) {
        QCOMPARE(exception.GetErrorMessage(), QString("text"));
        QVERIFY(dynamic_cast<const TesselException *>(&exception));
    }
    try {
        throw TesselException("text");
    } catch (const std::exception &exception) {
        QCOMPARE(QByteArray(exception.what()), QByteArray("text"));
    }
    QVERIFY_EXCEPTION_THROWN(throw TesselBaseException("text"), TesselBaseException);
}

void TesselExceptionTest::copiesKeepTheMessage()
{
    auto original = std::make_unique<TesselException>(QString::fromUtf8("K\xC3\xB6ln"));
    const TesselException copy(*original);
    TesselException assigned("other");
    assigned = *original;
    original.reset();

    QCOMPARE(copy.GetErrorMessage(), QString::fromUtf8("K\xC3\xB6ln"));
    QCOMPARE(QByteArray(copy.what()), QByteArray("K\xC3\xB6ln"));
    QCOMPARE(assigned.GetErrorMessage(), QString::fromUtf8("K\xC3\xB6ln"));
    QCOMPARE(QByteArray(assigned.what()), QByteArray("K\xC3\xB6ln"));
}

QTEST_GUILESS_MAIN(TesselExceptionTest)
#include "TesselExceptionTest.moc"
