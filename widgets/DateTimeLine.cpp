#include "widgets/DateTimeLine_p.h"

#include <QCoreApplication>
#include <QDateTime>
#include <QRegularExpression>

namespace KORMAK::Widgets {

DateTimeLine::DateTimeLine(QWidget *parent) : ValueEdit(parent)
{
    SetUnit(QStringLiteral("UTC"));
}

ValueEdit::Reading DateTimeLine::Read(const QString &text) const
{
    if (text.trimmed().compare(QLatin1String("now"), Qt::CaseInsensitive) == 0)
        return {QDateTime::currentDateTimeUtc(), {}};
    static const QRegularExpression form(QStringLiteral(
        R"(^\s*(\d{4})-(\d{1,2})-(\d{1,2})(?:T|\s+)(\d{1,2}):(\d{2})(?::(\d{2})(?:[.,](\d{1,3}))?)?\s*(?:Z|UTC)?\s*$)"));
    const auto match = form.match(text);
    const auto number = [&match](int group) { return match.captured(group).toInt(); };
    const QDate date(number(1), number(2), number(3));
    constexpr int Decimals = 3;
    const QTime time(number(4), number(5), number(6),
                     match.captured(7).leftJustified(Decimals, QLatin1Char('0')).toInt());
    if (!match.hasMatch() || !date.isValid() || !time.isValid()) {
        return {{},
                QCoreApplication::translate("KORMAK::DocumentForm",
                                            "This is no date with a time, such as 2026-03-14 06:30:00.")};
    }
    return {QDateTime(date, time, Qt::UTC), {}};
}

QString DateTimeLine::Show(const QVariant &value) const
{
    const QDateTime moment = value.toDateTime().toUTC();
    return moment.toString(moment.time().msec() != 0 ? QStringLiteral("yyyy-MM-dd hh:mm:ss.zzz")
                                                     : QStringLiteral("yyyy-MM-dd hh:mm:ss"));
}

QVariant DateTimeLine::Step(int steps) const
{
    if (!GetValue().isValid())
        return {};
    const QDateTime moment = GetValue().toDateTime().toUTC();
    // Where each part of "yyyy-MM-dd hh:mm:ss.zzz" ends.
    constexpr int Year = 4, Month = 7, Day = 10, Hour = 13, Minute = 16, Second = 19;
    constexpr int InHour = 3600, InMinute = 60;
    const int at = cursorPosition();
    const QDateTime next = at <= Year ? moment.addYears(steps)
        : at <= Month                 ? moment.addMonths(steps)
        : at <= Day                   ? moment.addDays(steps)
        : at <= Hour                  ? moment.addSecs(qint64{InHour} * steps)
        : at <= Minute                ? moment.addSecs(qint64{InMinute} * steps)
        : at <= Second                ? moment.addSecs(steps)
                                      : moment.addMSecs(steps);
    constexpr int LastYear = 9999;
    return next.isValid() && next.date().year() >= 1 && next.date().year() <= LastYear ? QVariant(next)
                                                                                       : QVariant();
}

int DateTimeLine::PlaceCursor(const QString & /*shown*/, int position) const
{
    return position;
}

} // namespace KORMAK::Widgets
