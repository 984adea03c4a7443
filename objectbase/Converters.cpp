#include "objectbase/Converters.h"

#include <objectbase/Constants_p.h>
#include <objectbase/Text_p.h>

#include <cstdlib>

namespace TESSEL {

namespace {

[[maybe_unused]] constexpr auto LogLevels = LogLevelNames;

/// At least \a width digits.
QString padded(int number, int width)
{
    return QString::number(number).rightJustified(width, QLatin1Char('0'));
}

} // namespace

QString Converters::ToString(const QDateTime &dateTime)
{
    // Not through Qt's formats: they need a calendar that Qt no longer has when the process ends, and that
    // with Qt 5 threads which ask for it at the same time do not get.
    const QDateTime utc = dateTime.toUTC();
    if (!utc.isValid())
        return {};
    const QDate date = utc.date();
    const QTime time = utc.time();
    const QString sign = date.year() < 0 ? borrowed(u"-") : QString();
    return sign + padded(std::abs(date.year()), 4) + borrowed(u"-") + padded(date.month(), 2) + borrowed(u"-")
        + padded(date.day(), 2) + borrowed(u"T") + padded(time.hour(), 2) + borrowed(u":")
        + padded(time.minute(), 2) + borrowed(u":") + padded(time.second(), 2) + borrowed(u",")
        + padded(time.msec(), 3) + borrowed(u"Z");
}

QDateTime Converters::ToDateTime(const QString &text)
{
    // Not Qt's parser: it takes the text for local time, which has no date for an hour in spring.
    constexpr int LengthBehindYear = 20;
    constexpr int LongestYear = 11; // a sign and the digits of 32 bits
    if (text.size() > LongestYear + LengthBehindYear)
        return {};
    const int yearLength = static_cast<int>(text.size()) - LengthBehindYear;
    const auto number = [&](int position, int length) {
        return text.mid(yearLength + position, length).toInt();
    };
    const QDate date(text.left(yearLength).toInt(), number(1, 2), number(4, 2));
    const QTime time(number(7, 2), number(10, 2), number(13, 2), number(16, 3));
    const QDateTime dateTime(date, time, Qt::UTC);
    // Everything between the numbers, and how they are written, is checked at once.
    return dateTime.isValid() && ToString(dateTime) == text ? dateTime : QDateTime();
}

} // namespace TESSEL
