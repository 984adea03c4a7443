#include "objectbase/Converters.h"

#include <objectbase/Constants_p.h>
#include <objectbase/Text_p.h>

#include <algorithm>
#include <cstdlib>
#include <limits>

namespace TESSEL {

namespace {

[[maybe_unused]] constexpr auto LogLevels = LogLevelNames;

/// At least \a width digits.
QString padded(int number, int width)
{
    return QString::number(number).rightJustified(width, QLatin1Char('0'));
}

bool isDigit(QChar c)
{
    return c >= u'0' && c <= u'9';
}

/// A number of at least four digits, without zeros that are not needed for that.
bool isYear(QStringView text)
{
    constexpr int FewestDigits = 4;
    const QStringView digits = text.startsWith(u'-') ? text.mid(1) : text;
    return digits.size() >= FewestDigits && (digits.size() == FewestDigits || digits[0] != u'0')
        && std::all_of(digits.begin(), digits.end(), isDigit);
}

/// Of digits, which may have a minus before them.
qint64 numberOf(QStringView text)
{
    const bool isNegative = text.startsWith(u'-');
    qint64 number = 0;
    for (const QChar digit : isNegative ? text.mid(1) : text)
        number = number * 10 + (digit.unicode() - u'0');
    return isNegative ? -number : number;
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
    constexpr QStringView FormBehindYear = u"-00-00T00:00:00,000Z"; // with digits in place of zeros
    constexpr int LongestYear = 11; // a sign and the digits of 32 bits
    const auto yearLength = static_cast<int>(text.size() - FormBehindYear.size());
    if (yearLength > LongestYear)
        return {};
    const QStringView year = QStringView(text).left(std::max(yearLength, 0));
    const QStringView rest = QStringView(text).mid(year.size());
    const auto fits = [](QChar c, QChar form) { return form == u'0' ? isDigit(c) : c == form; };
    if (!isYear(year) || !std::equal(rest.begin(), rest.end(), FormBehindYear.begin(), fits))
        return {};
    const qint64 yearNumber = numberOf(year);
    if (std::abs(yearNumber) > std::numeric_limits<int>::max())
        return {};
    const auto number = [rest](int position, int length) {
        return static_cast<int>(numberOf(rest.mid(position, length)));
    };
    const QDate date(static_cast<int>(yearNumber), number(1, 2), number(4, 2));
    const QTime time(number(7, 2), number(10, 2), number(13, 2), number(16, 3));
    const QDateTime dateTime(date, time, Qt::UTC);
    // An hour 24, and a date that is too far away, would become another time.
    const bool isKept = dateTime.isValid() && dateTime.date() == date && dateTime.time() == time;
    return isKept ? dateTime : QDateTime();
}

} // namespace TESSEL
