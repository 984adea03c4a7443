#include "tools/FieldText.h"

#include <objectbase/Converters.h>
#include <tools/NameLists.h>

#include <QLocale>

#include <cmath>
#include <type_traits>

namespace {

using Type = FieldForm::Type;

constexpr QStringView Hertz = u"Hz";
constexpr struct {
    double hertz;
    QStringView unit;
} FrequencyUnits[] = {{1e9, u"GHz"}, {1e6, u"MHz"}, {1e3, u"kHz"}};

/// Enough for a frequency in any unit, and few enough to hide what the division adds.
constexpr int DigitsInUnit = 15;

QString withUnit(const QString &number, QStringView unit)
{
    return unit.isEmpty() ? number : number + QLatin1Char(' ') + unit.toString();
}

/// In the larger unit that fits, too.
QString frequencyText(double hertz)
{
    QString text = withUnit(numberText(hertz), Hertz);
    for (const auto &row : FrequencyUnits) {
        if (std::abs(hertz) >= row.hertz && std::isfinite(hertz)) {
            const QString number = QString::number(hertz / row.hertz, 'g', DigitsInUnit);
            return text + QStringLiteral(" (%1)").arg(withUnit(number, row.unit));
        }
    }
    return text;
}

QString dateText(const QDateTime &dateTime)
{
    return dateTime.toUTC().toString(QStringLiteral("yyyy-MM-dd hh:mm:ss.zzz 'UTC'"));
}

QString textOf(const FieldForm & /*form*/, std::monostate /*notSet*/)
{
    return {};
}

QString textOf(const FieldForm & /*form*/, bool value)
{
    return value ? QStringLiteral("yes") : QStringLiteral("no");
}

QString textOf(const FieldForm &form, qint64 value)
{
    if (form.names)
        return form.names->nameOf(static_cast<qint32>(value))
            + form.names->difference(static_cast<qint32>(value));
    return withUnit(QString::number(value), form.unit);
}

template <class Number, std::enable_if_t<std::is_floating_point_v<Number>, bool> = true>
QString textOf(const FieldForm &form, Number value)
{
    if (form.isLimit && std::abs(value) == std::numeric_limits<Number>::max())
        return QStringLiteral("none");
    return form.unit == Hertz ? frequencyText(static_cast<double>(value))
                              : withUnit(numberText(value), form.unit);
}

QString textOf(const FieldForm & /*form*/, const QString &value)
{
    return value;
}

QString textOf(const FieldForm & /*form*/, const QDateTime &value)
{
    return dateText(value);
}

[[noreturn]] void throwWrong(const QString &text, const QString &allowed)
{
    throw FieldError{QStringLiteral("'%1' is not allowed. Allowed: %2").arg(text, allowed)};
}

FieldValue numberOfText(const FieldForm &form, const QString &text)
{
    bool isNumber = false;
    if (form.type == Type::Integer) {
        const qint64 value = text.toLongLong(&isNumber);
        if (isNumber && value >= form.least && value <= form.most)
            return value;
    } else if (form.type == Type::Float) {
        const float value = text.toFloat(&isNumber);
        if (isNumber && std::isfinite(value))
            return value;
    } else {
        const double value = text.toDouble(&isNumber);
        if (isNumber && std::isfinite(value))
            return value;
    }
    const QString range = form.type == Type::Float ? QStringLiteral(" from -3.40282e+38 to 3.40282e+38")
        : form.type == Type::Double                ? QStringLiteral(" from -1.79769e+308 to 1.79769e+308")
                                                   : QString();
    throwWrong(text, describe(form) + range);
}

/// In the form of documents; also with a point before the milliseconds, or without them.
QDateTime dateOfText(const QString &text)
{
    if (text == QStringView(u"now"))
        return QDateTime::currentDateTimeUtc();
    QString full = text;
    full.replace(QLatin1Char('.'), QLatin1Char(','));
    if (full.endsWith(QLatin1Char('Z')) && !full.contains(QLatin1Char(',')))
        full.insert(full.size() - 1, QStringLiteral(",000"));
    return TESSEL::Converters::ToDateTime(full);
}

} // namespace

QString numberText(double value)
{
    constexpr double MostWhole = 1e15;
    const bool isWhole = std::abs(value) < MostWhole && value == std::floor(value);
    return isWhole ? QString::number(value, 'f', 0)
                   : QString::number(value, 'g', QLocale::FloatingPointShortest);
}

QString numberText(float value)
{
    constexpr int Digits = 6;
    return QString::number(static_cast<double>(value), 'g', Digits);
}

std::optional<QString> shownText(const FieldForm &form, const FieldValue &value)
{
    if (!isSet(value))
        return std::nullopt;
    return std::visit([&form](const auto &set) { return textOf(form, set); }, value);
}

FieldValue valueOfText(const FieldForm &form, const QString &text)
{
    switch (form.type) {
    case Type::Text:
        return text.isEmpty() ? FieldValue() : FieldValue(text);
    case Type::Bool:
        if (!allowedTexts(form).contains(text))
            throwWrong(text, describe(form));
        return text == QStringView(u"true");
    case Type::Name: {
        const qint32 value = form.names->valueOf(text);
        if (value < 0)
            throwWrong(text, describe(form));
        return static_cast<qint64>(value);
    }
    case Type::Date: {
        const QDateTime value = dateOfText(text);
        if (!value.isValid())
            throwWrong(text, describe(form));
        return value;
    }
    case Type::Integer:
    case Type::Float:
    case Type::Double:
        break;
    }
    return numberOfText(form, text);
}

QString describe(const FieldForm &form)
{
    const QString unit = form.unit.isEmpty() ? QString() : QStringLiteral(" in ") + form.unit.toString();
    switch (form.type) {
    case Type::Text:
        return QStringLiteral("any text");
    case Type::Bool:
    case Type::Name:
        return allowedTexts(form).join(QStringLiteral(", "));
    case Type::Integer:
        return QStringLiteral("whole number from %1 to %2").arg(form.least).arg(form.most) + unit;
    case Type::Float:
    case Type::Double:
        return QStringLiteral("number") + unit;
    case Type::Date:
        return QStringLiteral("date in UTC as 2026-03-29T00:59:59,250Z, 2026-03-29T00:59:59Z, or now");
    }
    return {};
}

QStringList allowedTexts(const FieldForm &form)
{
    if (form.type == Type::Bool)
        return {QStringLiteral("true"), QStringLiteral("false")};
    return form.type == Type::Name ? form.names->names() : QStringList();
}
