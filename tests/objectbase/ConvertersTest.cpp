#include <objectbase/Converters.h>

#include <QDateTime>
#include <QRandomGenerator>
#include <QTimeZone>
#include <QtTest>

#include <ctime>
#include <limits>

using namespace TESSEL;

namespace {

const qint64 FirstMillisecond = QDateTime(QDate(1, 1, 1), QTime(0, 0), Qt::UTC).toMSecsSinceEpoch();
const qint64 LastMillisecond =
    QDateTime(QDate(9999, 12, 31), QTime(23, 59, 59, 999), Qt::UTC).toMSecsSinceEpoch();

QDateTime utc(int year, int month, int day, int hour = 0, int minute = 0, int second = 0, int ms = 0)
{
    return QDateTime(QDate(year, month, day), QTime(hour, minute, second, ms), Qt::UTC);
}

/// Makes \a zone (as the environment variable TZ has it) the local time zone for as long as it lives.
class LocalZone {
public:
    explicit LocalZone(const QByteArray &zone)
    {
        qputenv("TZ", zone);
        apply();
    }
    LocalZone(const LocalZone &) = delete;
    LocalZone &operator=(const LocalZone &) = delete;
    ~LocalZone()
    {
        if (wasSet)
            qputenv("TZ", former);
        else
            qunsetenv("TZ");
        apply();
    }

private:
    static void apply()
    {
#ifdef Q_OS_WIN
        _tzset();
#else
        tzset();
#endif
    }

    const bool wasSet = qEnvironmentVariableIsSet("TZ");
    const QByteArray former = qgetenv("TZ");
};

constexpr const char *CentralEurope = "CET-1CEST,M3.5.0,M10.5.0/3";
constexpr const char *FarEast = "<+14>-14";
constexpr const char *FarWest = "<-12>12";

} // namespace

class ConvertersTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void texts_data();
    void texts();
    void otherTimeZones_data();
    void otherTimeZones();
    void localTime();
    void localZoneDoesNotMatter_data();
    void localZoneDoesNotMatter();
    void invalidDatesHaveNoText();
    void malformedTexts_data();
    void malformedTexts();
    void everyChangedCharacterIsNoticed();
    void arbitraryTexts();
    void everyMillisecondOfASecond();
    void randomDates_data();
    void randomDates();
};

void ConvertersTest::texts_data()
{
    QTest::addColumn<QDateTime>("date");
    QTest::addColumn<QString>("text");

    QTest::newRow("usual") << utc(2026, 3, 29, 0, 59, 59, 250) << "2026-03-29T00:59:59,250Z";
    QTest::newRow("epoch") << utc(1970, 1, 1) << "1970-01-01T00:00:00,000Z";
    QTest::newRow("before the epoch") << utc(1969, 12, 31, 23, 59, 59, 999) << "1969-12-31T23:59:59,999Z";
    QTest::newRow("one millisecond") << utc(2026, 1, 2, 3, 4, 5, 1) << "2026-01-02T03:04:05,001Z";
    QTest::newRow("ten milliseconds") << utc(2026, 1, 2, 3, 4, 5, 10) << "2026-01-02T03:04:05,010Z";
    QTest::newRow("hundred milliseconds") << utc(2026, 1, 2, 3, 4, 5, 100) << "2026-01-02T03:04:05,100Z";
    QTest::newRow("afternoon") << utc(2026, 11, 21, 13, 0) << "2026-11-21T13:00:00,000Z";
    QTest::newRow("leap day") << utc(2024, 2, 29, 12, 30) << "2024-02-29T12:30:00,000Z";
    QTest::newRow("leap day of a full century") << utc(2000, 2, 29) << "2000-02-29T00:00:00,000Z";
    QTest::newRow("last millisecond of a year")
        << utc(2026, 12, 31, 23, 59, 59, 999) << "2026-12-31T23:59:59,999Z";
    QTest::newRow("year 1") << utc(1, 1, 1) << "0001-01-01T00:00:00,000Z";
    QTest::newRow("year 999") << utc(999, 12, 31, 23, 59) << "0999-12-31T23:59:00,000Z";
    QTest::newRow("year 1582, before the calendar reform") << utc(1582, 10, 10) << "1582-10-10T00:00:00,000Z";
    QTest::newRow("year 9999") << utc(9999, 12, 31, 23, 59, 59, 999) << "9999-12-31T23:59:59,999Z";
    QTest::newRow("year 10000") << utc(10000, 1, 1) << "10000-01-01T00:00:00,000Z";
    QTest::newRow("year 123456") << utc(123456, 6, 7, 8, 9, 10, 11) << "123456-06-07T08:09:10,011Z";
    QTest::newRow("year before 1") << utc(-1, 12, 31) << "-0001-12-31T00:00:00,000Z";
    QTest::newRow("year -44") << utc(-44, 3, 15) << "-0044-03-15T00:00:00,000Z";
    QTest::newRow("year -12345") << utc(-12345, 1, 1) << "-12345-01-01T00:00:00,000Z";
}

void ConvertersTest::texts()
{
    QFETCH(QDateTime, date);
    QFETCH(QString, text);

    QCOMPARE(Converters::ToString(date), text);
    QCOMPARE(Converters::ToDateTime(text), date);
    QCOMPARE(Converters::ToDateTime(text).timeSpec(), Qt::UTC);
}

void ConvertersTest::otherTimeZones_data()
{
    QTest::addColumn<QDateTime>("date");
    QTest::addColumn<QString>("text");

    const auto withOffset = [](int seconds) {
        return QDateTime(QDate(2026, 1, 1), QTime(0, 30, 0, 7), Qt::OffsetFromUTC, seconds);
    };
    QTest::newRow("offset east") << withOffset(3600) << "2025-12-31T23:30:00,007Z";
    QTest::newRow("offset west") << withOffset(-12 * 3600) << "2026-01-01T12:30:00,007Z";
    QTest::newRow("offset with minutes") << withOffset(5 * 3600 + 45 * 60) << "2025-12-31T18:45:00,007Z";
    QTest::newRow("offset of nothing") << withOffset(0) << "2026-01-01T00:30:00,007Z";

    const QTimeZone fixed(-3600 * 4);
    QTest::newRow("time zone") << QDateTime(QDate(2026, 1, 1), QTime(22, 0), fixed)
                               << "2026-01-02T02:00:00,000Z";

    const QTimeZone berlin("Europe/Berlin");
    if (!berlin.isValid())
        return;
    const auto inBerlin = [&berlin](int month, int day, int hour, int minute) {
        return QDateTime(QDate(2026, month, day), QTime(hour, minute), berlin);
    };
    QTest::newRow("winter") << inBerlin(1, 15, 12, 0) << "2026-01-15T11:00:00,000Z";
    QTest::newRow("summer") << inBerlin(7, 15, 12, 0) << "2026-07-15T10:00:00,000Z";
    QTest::newRow("before the hour that is left out") << inBerlin(3, 29, 1, 59) << "2026-03-29T00:59:00,000Z";
    QTest::newRow("after the hour that is left out") << inBerlin(3, 29, 3, 0) << "2026-03-29T01:00:00,000Z";
    QTest::newRow("hour that comes twice, first")
        << utc(2026, 10, 25, 0, 30).toTimeZone(berlin) << "2026-10-25T00:30:00,000Z";
    QTest::newRow("hour that comes twice, second")
        << utc(2026, 10, 25, 1, 30).toTimeZone(berlin) << "2026-10-25T01:30:00,000Z";
}

void ConvertersTest::otherTimeZones()
{
    QFETCH(QDateTime, date);
    QFETCH(QString, text);

    QCOMPARE(Converters::ToString(date), text);
    const QDateTime back = Converters::ToDateTime(text);
    QCOMPARE(back, date);
    QCOMPARE(back.timeSpec(), Qt::UTC);
}

void ConvertersTest::localTime()
{
    {
        const LocalZone zone(CentralEurope);
        QCOMPARE(Converters::ToString(QDateTime(QDate(2026, 1, 15), QTime(12, 0))),
                 QString("2026-01-15T11:00:00,000Z"));
        QCOMPARE(Converters::ToString(QDateTime(QDate(2026, 7, 15), QTime(12, 0))),
                 QString("2026-07-15T10:00:00,000Z"));
    }
    const LocalZone zone(FarEast);
    QCOMPARE(Converters::ToString(QDateTime(QDate(2026, 1, 1), QTime(0, 0))),
             QString("2025-12-31T10:00:00,000Z"));
}

void ConvertersTest::localZoneDoesNotMatter_data()
{
    QTest::addColumn<QByteArray>("zone");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QDateTime>("date");

    for (const char *zone : {CentralEurope, FarEast, FarWest, "UTC0"}) {
        const auto add = [zone](const char *description, const QString &text, const QDateTime &date) {
            QTest::addRow("%s, %s", zone, description) << QByteArray(zone) << text << date;
        };
        add("hour that local time leaves out", "2026-03-29T02:30:00,125Z", utc(2026, 3, 29, 2, 30, 0, 125));
        add("beginning of that hour", "2026-03-29T02:00:00,000Z", utc(2026, 3, 29, 2));
        add("end of that hour", "2026-03-29T02:59:59,999Z", utc(2026, 3, 29, 2, 59, 59, 999));
        add("hour that local time has twice", "2026-10-25T02:30:00,000Z", utc(2026, 10, 25, 2, 30));
        add("summer", "2026-07-01T00:00:00,000Z", utc(2026, 7, 1));
        add("winter", "2026-01-01T00:00:00,000Z", utc(2026, 1, 1));
        add("first day", "0001-01-01T00:00:00,000Z", utc(1, 1, 1));
        add("last day", "9999-12-31T23:59:59,999Z", utc(9999, 12, 31, 23, 59, 59, 999));
    }
}

void ConvertersTest::localZoneDoesNotMatter()
{
    QFETCH(QByteArray, zone);
    QFETCH(QString, text);
    QFETCH(QDateTime, date);

    const LocalZone local(zone);
    const QDateTime result = Converters::ToDateTime(text);
    QCOMPARE(result, date);
    QCOMPARE(result.timeSpec(), Qt::UTC);
    QCOMPARE(Converters::ToString(date), text);
}

void ConvertersTest::invalidDatesHaveNoText()
{
    QCOMPARE(Converters::ToString(QDateTime()), QString());
    QCOMPARE(Converters::ToString(QDateTime(QDate(2026, 2, 29), QTime(0, 0), Qt::UTC)), QString());
    QCOMPARE(Converters::ToString(QDateTime(QDate(), QTime(), Qt::UTC)), QString());
    QVERIFY(Converters::ToDateTime(QString()).isNull());
}

void ConvertersTest::malformedTexts_data()
{
    QTest::addColumn<QString>("text");

    QTest::newRow("blank") << " ";
    QTest::newRow("no zone") << "2026-03-29T00:59:59,250";
    QTest::newRow("numeric zone") << "2026-03-29T00:59:59,250+00:00";
    QTest::newRow("zone of its own name") << "2026-03-29T00:59:59,250UTC";
    QTest::newRow("lower case zone") << "2026-03-29T00:59:59,250z";
    QTest::newRow("lower case separator") << "2026-03-29t00:59:59,250Z";
    QTest::newRow("blank as separator") << "2026-03-29 00:59:59,250Z";
    QTest::newRow("blank in front") << " 2026-03-29T00:59:59,250Z";
    QTest::newRow("blank behind") << "2026-03-29T00:59:59,250Z ";
    QTest::newRow("line feed behind") << "2026-03-29T00:59:59,250Z\n";
    QTest::newRow("blank before the zone") << "2026-03-29T00:59:59,250 Z";
    QTest::newRow("blank in the date") << "2026-03- 9T00:59:59,250Z";
    QTest::newRow("blank in the time") << "2026-03-29T 1:59:59,250Z";
    QTest::newRow("point before the milliseconds") << "2026-03-29T00:59:59.250Z";
    QTest::newRow("no milliseconds") << "2026-03-29T00:59:59Z";
    QTest::newRow("empty milliseconds") << "2026-03-29T00:59:59,Z";
    QTest::newRow("one digit of milliseconds") << "2026-03-29T00:59:59,2Z";
    QTest::newRow("two digits of milliseconds") << "2026-03-29T00:59:59,25Z";
    QTest::newRow("four digits of milliseconds") << "2026-03-29T00:59:59,2500Z";
    QTest::newRow("no seconds") << "2026-03-29T00:59Z";
    QTest::newRow("date only") << "2026-03-29";
    QTest::newRow("date only, with zone") << "2026-03-29Z";
    QTest::newRow("time only") << "00:59:59,250";
    QTest::newRow("month of one digit") << "2026-3-29T00:59:59,250Z";
    QTest::newRow("day of one digit") << "2026-03-9T00:59:59,250Z";
    QTest::newRow("hour of one digit") << "2026-03-29T1:59:59,250Z";
    QTest::newRow("minute of one digit") << "2026-03-29T00:5:59,250Z";
    QTest::newRow("second of one digit") << "2026-03-29T00:59:5,250Z";
    QTest::newRow("year of two digits") << "26-03-29T00:59:59,250Z";
    QTest::newRow("year of five digits, the first a zero") << "02026-03-29T00:59:59,250Z";
    QTest::newRow("signed year") << "+2026-03-29T00:59:59,250Z";
    QTest::newRow("negative year of two digits") << "-44-03-15T00:00:00,000Z";
    QTest::newRow("no year") << "-03-29T00:59:59,250Z";
    QTest::newRow("negative year 0") << "-0000-01-01T00:00:00,000Z";
    QTest::newRow("year beyond 32 bits") << "4294969322-03-29T00:59:59,250Z";
    QTest::newRow("year 0") << "0000-01-01T00:00:00,000Z";
    QTest::newRow("month 0") << "2026-00-29T00:59:59,250Z";
    QTest::newRow("month 13") << "2026-13-29T00:59:59,250Z";
    QTest::newRow("day 0") << "2026-03-00T00:59:59,250Z";
    QTest::newRow("day 32") << "2026-03-32T00:59:59,250Z";
    QTest::newRow("leap day of a common year") << "2026-02-29T00:59:59,250Z";
    QTest::newRow("leap day of a common century") << "1900-02-29T00:59:59,250Z";
    QTest::newRow("24:00") << "2026-03-29T24:00:00,000Z";
    QTest::newRow("hour 25") << "2026-03-29T25:00:00,000Z";
    QTest::newRow("minute 60") << "2026-03-29T00:60:00,000Z";
    QTest::newRow("second 60") << "2016-12-31T23:59:60,000Z";
    QTest::newRow("negative milliseconds") << "2026-03-29T00:59:59,-50Z";
    QTest::newRow("no hyphens and colons") << "20260329T005959,250Z";
    QTest::newRow("name of the month") << "2026-Mar-29T00:59:59,250Z";
    QTest::newRow("day first") << "29-03-2026T00:59:59,250Z";
    QTest::newRow("format itself") << "yyyy-MM-ddThh:mm:ss,zzzZ";
    QTest::newRow("something behind") << "2026-03-29T00:59:59,250Z2026-03-29T00:59:59,250Z";
    QTest::newRow("NUL behind") << QString("2026-03-29T00:59:59,250Z") + QChar(0);
    QTest::newRow("Arabic-Indic digits")
        << QString("2026-03-29T00:59:59,250Z").replace('2', QChar(0x0662)).replace('6', QChar(0x0666));
    QTest::newRow("full-width digit") << QString("2026-03-29T00:59:59,250Z").replace('3', QChar(0xFF13));
    QTest::newRow("word") << "yesterday";
}

void ConvertersTest::malformedTexts()
{
    QFETCH(QString, text);

    const QDateTime result = Converters::ToDateTime(text);
    QVERIFY2(result.isNull(), qPrintable(result.toString(Qt::ISODateWithMs)));
    QCOMPARE(result, QDateTime());
}

void ConvertersTest::everyChangedCharacterIsNoticed()
{
    const QString original = "2024-02-29T13:46:58,250Z";
    const QString replacements = "0123456789 -+:,.TZtz\t";
    int accepted = 0;
    for (int i = 0; i < original.size(); ++i) {
        QVERIFY(Converters::ToDateTime(original.left(i)).isNull());
        QVERIFY(Converters::ToDateTime(QString(original).remove(i, 1)).isNull());
        for (const QChar replacement : replacements) {
            const QString text = QString(original).replace(i, 1, replacement);
            const QDateTime result = Converters::ToDateTime(text);
            if (result.isValid()) {
                ++accepted;
                QCOMPARE(Converters::ToString(result), text);
            } else {
                QVERIFY(result.isNull());
            }
        }
    }
    QVERIFY(accepted > original.size());
}

void ConvertersTest::arbitraryTexts()
{
    QRandomGenerator random(20261121);
    const QString alphabet = "0123456789-:,TZ tz+.";
    for (int i = 0; i < 20000; ++i) {
        QString text(random.bounded(30), Qt::Uninitialized);
        const bool isSimilar = random.bounded(2) == 0;
        for (QChar &character : text) {
            character = isSimilar ? alphabet[random.bounded(static_cast<int>(alphabet.size()))]
                                  : QChar(static_cast<ushort>(random.bounded(0x10000)));
        }
        const QDateTime result = Converters::ToDateTime(text);
        QVERIFY(result.isNull() || Converters::ToString(result) == text);
    }
}

void ConvertersTest::everyMillisecondOfASecond()
{
    const qint64 start = utc(2026, 6, 30, 23, 59, 59).toMSecsSinceEpoch();
    for (int millisecond = 0; millisecond < 1000; ++millisecond) {
        const QDateTime date = QDateTime::fromMSecsSinceEpoch(start + millisecond, Qt::UTC);
        const QString text = Converters::ToString(date);
        QCOMPARE(text, QString("2026-06-30T23:59:59,%1Z").arg(millisecond, 3, 10, QChar('0')));
        QCOMPARE(Converters::ToDateTime(text).toMSecsSinceEpoch(), start + millisecond);
    }
}

void ConvertersTest::randomDates_data()
{
    QTest::addColumn<QByteArray>("zone");
    QTest::addColumn<qint64>("from");
    QTest::addColumn<qint64>("to");

    const qint64 thisCentury = utc(2000, 1, 1).toMSecsSinceEpoch();
    const qint64 nextCentury = utc(2100, 1, 1).toMSecsSinceEpoch();
    QTest::newRow("all years") << QByteArray("UTC0") << FirstMillisecond << LastMillisecond;
    QTest::newRow("all years, summer time")
        << QByteArray(CentralEurope) << FirstMillisecond << LastMillisecond;
    QTest::newRow("this century, summer time") << QByteArray(CentralEurope) << thisCentury << nextCentury;
    QTest::newRow("this century, far east") << QByteArray(FarEast) << thisCentury << nextCentury;
    QTest::newRow("this century, far west") << QByteArray(FarWest) << thisCentury << nextCentury;
}

void ConvertersTest::randomDates()
{
    QFETCH(QByteArray, zone);
    QFETCH(qint64, from);
    QFETCH(qint64, to);

    const LocalZone local(zone);
    QRandomGenerator random(4711);
    for (int i = 0; i < 3000; ++i) {
        const auto range = static_cast<quint64>(to - from);
        const qint64 moment = from + static_cast<qint64>(random.generate64() % range);
        const QDateTime date = QDateTime::fromMSecsSinceEpoch(moment, Qt::UTC);
        const QDateTime back = Converters::ToDateTime(Converters::ToString(date));
        QCOMPARE(back, date);
        QCOMPARE(back.toMSecsSinceEpoch(), moment);
    }
}

QTEST_GUILESS_MAIN(ConvertersTest)
#include "ConvertersTest.moc"
