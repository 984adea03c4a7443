// That the locale and time zone in which this runs are the ones that were asked for, and that dates and
// numbers of documents are the same in them. CTest runs it, and other tests, in several of them; the
// environment says in which.
#include <kormak/JobHeader.h>
#include <objectbase/Converters.h>
#include <tests/support/RandomDocuments.h>

#include <QDateTime>
#include <QtTest>

#include <clocale>
#include <cstdlib>

using namespace TestSupport;

class LocalesTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void localeIsInForce();
    void timeZoneIsInForce();
    void writtenAlike_data();
    void writtenAlike();
    void everyQuarterOfAnHour();
};

void LocalesTest::localeIsInForce()
{
    const QByteArray asked = qgetenv("LC_ALL");
    const QByteArray inForce = std::setlocale(LC_ALL, nullptr);
    if (!asked.isEmpty())
        QCOMPARE(inForce, asked);
    const bool hasComma = asked.startsWith("de_") || asked.startsWith("tr_");
    QCOMPARE(QByteArray(std::localeconv()->decimal_point), QByteArray(hasComma ? "," : "."));
    QCOMPARE(std::strtod("1,5", nullptr), hasComma ? 1.5 : 1.0);
}

void LocalesTest::timeZoneIsInForce()
{
    const QMap<QByteArray, int> minutesEastInJuly{{"UTC", 0},
                                                  {"Europe/Berlin", 120},
                                                  {"America/St_Johns", -150},
                                                  {"Asia/Kathmandu", 345},
                                                  {"Pacific/Apia", 780}};
    const QByteArray zone = qgetenv("TZ");
    if (!minutesEastInJuly.contains(zone)) {
        QTest::qSkip("no time zone is asked for", __FILE__, __LINE__);
        return;
    }
    const QDateTime july(QDate(2026, 7, 1), QTime(12, 0), Qt::LocalTime);
    QCOMPARE(july.offsetFromUtc() / 60, minutesEastInJuly[zone]);
}

void LocalesTest::writtenAlike_data()
{
    QTest::addColumn<QString>("written");
    QTest::addColumn<QString>("expected");

    const auto number = [](double value) {
        TESSEL::Area area;
        area.SetName("a");
        area.AddCoordinate({value, 0});
        return elementOf(area).section("<Latitude>", 1).section('<', 0, 0);
    };
    const auto fixed = [](double value) {
        KORMAK::Parameter parameter;
        parameter.SetUniqueParameterName("I");
        parameter.SetRepresenationName("i");
        parameter.SetValueType(KORMAK::Parameter::ValueNumericInt);
        parameter.SetParameterType(KORMAK::ParameterType::Integer);
        parameter.GetIntegerHandler().SetMaximum(1234567);
        parameter.SetMultiplier(value);
        return elementOf(parameter);
    };
    KORMAK::ActivityGenerationData data;
    data.SetActivtyGenerationMode(KORMAK::ActivityGenerationData::AGSC);
    data.SetSessionCloseTime(1234567.0F);

    QTest::newRow("shortest") << number(-1234567.25) << "-1234567.25";
    QTest::newRow("exponent") << number(1.5e-9) << "1.5e-09";
    QTest::newRow("six digits") << elementOf(data).section("<SessionCloseTime>", 1).section('<', 0, 0)
                                << "1.23457e+06";
    QTest::newRow("fixed") << fixed(1234567.375).section("<Multiplier>", 1).section('<', 0, 0)
                           << "1234567.38";
    QTest::newRow("whole") << fixed(1).section("<Maximum>", 1).section('<', 0, 0) << "1234567";
    QTest::newRow("letters i") << fixed(1).section("UniqueName=", 1).section('>', 0, 0) << "\"I\"";
}

void LocalesTest::writtenAlike()
{
    QFETCH(QString, written);
    QFETCH(QString, expected);

    QCOMPARE(written, expected);
}

/// Two years of local time, hours that there are twice included: each instant is read back as itself.
void LocalesTest::everyQuarterOfAnHour()
{
    constexpr qint64 Quarter = 15LL * 60 * 1000;
    constexpr qint64 Start = 1'293'840'000'000; // 2011, when a day was left out in Apia
    constexpr int Quarters = 2 * 366 * 24 * 4;
    QString textBefore;
    for (int i = 0; i < Quarters; ++i) {
        const qint64 instant = Start + i * Quarter + 250;
        const QDateTime local = QDateTime::fromMSecsSinceEpoch(instant, Qt::LocalTime);
        const QString text = TESSEL::Converters::ToString(local);
        QVERIFY(text > textBefore);
        QCOMPARE(TESSEL::Converters::ToDateTime(text).toMSecsSinceEpoch(), instant);
        QCOMPARE(TESSEL::Converters::ToDateTime(text).timeSpec(), Qt::UTC);
        textBefore = text;
        constexpr int EveryNow = 97;
        if (i % EveryNow == 0) {
            KORMAK::JobHeader header;
            header.SetAuthor("a");
            header.SetJobType(KORMAK::JobType::Antenna);
            header.SetCreation(local);
            KORMAK::JobHeader again;
            QVERIFY(again.SetXmlString(header.GetXmlString(), true));
            QVERIFY(again == header);
            QCOMPARE(again.GetCreation().toMSecsSinceEpoch(), instant);
        }
    }
}

QTEST_GUILESS_MAIN(LocalesTest)
#include "LocalesTest.moc"
