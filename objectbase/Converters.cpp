#include "objectbase/Converters.h"

#include <objectbase/Constants_p.h>
#include <objectbase/QtCompat_p.h>
#include <objectbase/Text_p.h>

namespace TESSEL {

namespace {

[[maybe_unused]] constexpr auto LogLevels = LogLevelNames;

constexpr QStringView DateTimeFormat = u"yyyy-MM-ddThh:mm:ss,zzzZ";

} // namespace

QString Converters::ToString(const QDateTime &dateTime)
{
    prepareCalendar();
    return dateTime.toUTC().toString(borrowed(DateTimeFormat));
}

QDateTime Converters::ToDateTime(const QString &text)
{
    // Not Qt's parser: it takes the text for local time, which has no date for an hour in spring.
    constexpr int LengthBehindYear = 20;
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
