// The libraries are usable before main(), by the initialisers of other files: everything that their tables
// are needed for is done in one, and again in the test. Linked with the libraries and with their object
// files, where the initialisers of this file run before any of theirs.

#include "EveryOperation.h"

#include <QtTest>

using EveryOperation::everything;

namespace {

const QMap<QString, QString> beforeMain = everything();

} // namespace

class BeforeMainTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void isAsLater_data();
    void isAsLater();
    void says_data();
    void says();
};

void BeforeMainTest::isAsLater_data()
{
    QTest::addColumn<QString>("done");
    const QStringList names = everything().keys();
    for (const QString &name : names)
        QTest::newRow(qPrintable(name)) << name;
}

void BeforeMainTest::isAsLater()
{
    QFETCH(QString, done);
    QCOMPARE(beforeMain.value(done), everything().value(done));
    QVERIFY(!beforeMain.value(done).contains(" not read"));
}

void BeforeMainTest::says_data()
{
    QTest::addColumn<QString>("done");
    QTest::addColumn<QString>("text");

    QTest::newRow("name of a job") << "Vocabularies"
                                   << "Tuner MC HF=14 ";
    QTest::newRow("name of a resource") << "Vocabularies"
                                        << "Antenna=49 ";
    QTest::newRow("name of a criterion") << "Vocabularies"
                                         << "Demodulator and Decoder Locked";
    QTest::newRow("date") << "Dates"
                          << "2026-03-29T00:59:59,250Z";
    QTest::newRow("header") << "JobHeader"
                            << " read " + TestSupport::completeHeaderElement();
    QTest::newRow("polarization") << "Job"
                                  << "<Polarization>Right-Hand Circular</Polarization>";
    QTest::newRow("area") << "Area"
                          << "<Latitude>54.1</Latitude><Longitude>-7.25</Longitude>";
    QTest::newRow("strategy") << "AutomaticWorkflow"
                              << "<SearchStrategy>LowestLevelFirst</SearchStrategy>";
    QTest::newRow("mode") << "ActivityGeneration"
                          << "<Mode>AGED</Mode>";
    QTest::newRow("parameter") << "GenericReceiver"
                               << "<ParameterType>DoubleList</ParameterType>";
    QTest::newRow("message") << "Message"
                             << "JobHeader: Please set Author";
}

void BeforeMainTest::says()
{
    QFETCH(QString, done);
    QFETCH(QString, text);
    QVERIFY2(beforeMain.value(done).contains(text), qPrintable(beforeMain.value(done)));
}

QTEST_GUILESS_MAIN(BeforeMainTest)
#include "BeforeMainTest.moc"
