#include "widgets/MomentFormat_p.h"

#include <QCoreApplication>
#include <QDateTime>
#include <QRegularExpression>

namespace KORMAK::Widgets {

namespace {

constexpr int SecondsEnd = 19; // of "2026-03-14 06:30:00"
constexpr int MonthStart = 5;
constexpr int DayStart = 8;
constexpr int HourStart = 11;
constexpr int MinuteStart = 14;
constexpr int SecondStart = 17;

QString translated(const char *text)
{
    return QCoreApplication::translate("KORMAK::ParameterEdit", text);
}

/// A moment in whole seconds, and what is beyond them.
struct Moment {
    QDateTime seconds;
    DecimalNumber fraction; // from 0 to below 1
};

bool canBeShown(const QDateTime &dateTime)
{
    constexpr int LastYear = 9999;
    return dateTime.isValid() && dateTime.date().year() >= 1 && dateTime.date().year() <= LastYear;
}

std::optional<Moment> momentOf(const DecimalNumber &seconds)
{
    const QString text = seconds.ToText();
    bool isNumber = false;
    qint64 whole = text.section(QLatin1Char('.'), 0, 0).toLongLong(&isNumber);
    if (!isNumber)
        return std::nullopt;
    if (seconds.IsNegative() && !seconds.IsWhole())
        --whole;
    constexpr qint64 MostSeconds =
        1000000000000; // beyond year 9999 either way, and no overflow in milliseconds
    if (whole < -MostSeconds || whole > MostSeconds)
        return std::nullopt;
    const auto before = DecimalNumber::FromText(QString::number(whole));
    const QDateTime dateTime = QDateTime::fromSecsSinceEpoch(whole, Qt::UTC);
    if (!before || !canBeShown(dateTime))
        return std::nullopt;
    return Moment{dateTime, seconds.Plus(before->Negated())};
}

DecimalNumber secondsOf(const Moment &moment)
{
    const auto whole = DecimalNumber::FromText(QString::number(moment.seconds.toSecsSinceEpoch()));
    return whole.value_or(DecimalNumber()).Plus(moment.fraction);
}

QDateTime moved(const QDateTime &dateTime, int position, int steps)
{
    if (position < MonthStart)
        return dateTime.addYears(steps);
    if (position < DayStart)
        return dateTime.addMonths(steps);
    if (position < HourStart)
        return dateTime.addDays(steps);
    constexpr qint64 Minute = 60;
    const qint64 unit = position < MinuteStart ? Minute * Minute : (position < SecondStart ? Minute : 1);
    return dateTime.addSecs(steps * unit);
}

} // namespace

std::optional<int> MomentFormat::PowerOfUnit(const QString &unit)
{
    const struct {
        QString name;
        int power;
    } Units[] = {{QStringLiteral("s"), 0},
                 {QStringLiteral("ms"), -3},
                 {QStringLiteral("us"), -6},
                 {QStringLiteral("ns"), -9},
                 {QChar(0xB5) + QStringLiteral("s"), -6},
                 {QChar(0x3BC) + QStringLiteral("s"), -6}};
    for (const auto &row : Units) {
        if (row.name == unit)
            return row.power;
    }
    return std::nullopt;
}

int MomentFormat::power() const
{
    return PowerOfUnit(number.unit).value_or(0);
}

NumberFormat::Reading MomentFormat::read(const QString &text) const
{
    static const QRegularExpression form(
        QStringLiteral(R"(^(\d{4})-(\d\d?)-(\d\d?)(?:[T ]+(\d\d?):(\d\d)(?::(\d\d)(?:[.,](\d{1,30}))?)?)?)"
                       R"( *(?:Z|UTC)?$)"));
    const auto match = form.match(text.trimmed());
    if (!match.hasMatch()) {
        // A number alone could be a date without its dashes.
        if (!number.unit.isEmpty() && text.trimmed().endsWith(number.unit))
            return number.read(text);
        return {{}, translated("This is no date and time such as 2026-03-14 06:30:00")};
    }
    const auto part = [&match](int index) { return match.captured(index).toInt(); };
    const QDate date(part(1), part(2), part(3));
    const QTime time(part(4), part(5), part(6));
    if (!date.isValid() || !time.isValid())
        return {{}, translated("There is no such day or time")};
    const auto fraction = DecimalNumber::FromText(QStringLiteral("0.") + match.captured(7));
    const DecimalNumber seconds =
        secondsOf({QDateTime(date, time, Qt::UTC), fraction.value_or(DecimalNumber())});
    // In the unit, which the number is held in by its multiplier.
    return number.read(seconds.Times(DecimalNumber::PowerOfTen(-power()))
                           .ToText()
                           .replace(QLatin1Char('.'), QString(number.locale.decimalPoint())));
}

QString MomentFormat::show(const QVariant &value) const
{
    const auto shown = number.shown(value);
    const auto moment = shown ? momentOf(shown->Times(DecimalNumber::PowerOfTen(power()))) : std::nullopt;
    if (!moment)
        return number.showWithUnit(value);
    const QString text = moment->seconds.toString(QStringLiteral("yyyy-MM-dd hh:mm:ss"));
    return moment->fraction.IsZero() ? text : text + moment->fraction.ToText().mid(1);
}

QString MomentFormat::unitOf(const QString &shown) const
{
    return shown.endsWith(number.unit) ? QString() : QStringLiteral("UTC");
}

QString MomentFormat::problemOf(const QVariant &value) const
{
    const auto moment = decimalOf(value);
    const auto least = decimalOf(number.minimum);
    const auto most = decimalOf(number.maximum);
    if (moment && least && *moment < *least)
        return translated("Before %1, the earliest allowed").arg(show(number.minimum));
    if (moment && most && *most < *moment)
        return translated("After %1, the latest allowed").arg(show(number.maximum));
    return {};
}

QVariant MomentFormat::stepped(const QVariant &value, const QString &shown, int position, int steps) const
{
    const auto count = number.shown(value);
    const auto moment = count ? momentOf(count->Times(DecimalNumber::PowerOfTen(power()))) : std::nullopt;
    if (!moment)
        return {};
    if (position > SecondsEnd && shown.size() > SecondsEnd) // a digit of the fraction
        return number.stepped(value, steps, SecondsEnd - position + 1 - power());
    const QDateTime next = moved(moment->seconds, position, steps);
    return canBeShown(next)
        ? number.held(secondsOf({next, moment->fraction}).Times(DecimalNumber::PowerOfTen(-power())))
        : QVariant();
}

} // namespace KORMAK::Widgets
