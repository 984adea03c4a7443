#include "inspection/FieldText_p.h"

#include <inspection/DocumentTexts_p.h>
#include <inspection/NameLists_p.h>
#include <inspection/Remedy_p.h>
#include <objectbase/Converters.h>
#include <objectbase/Text_p.h>

#include <QLocale>

#include <cmath>
#include <limits>
#include <type_traits>

namespace KORMAK::Inspection {

namespace {

using Kind = TextType::Kind;

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

QString textOf(const TextType & /*type*/, std::monostate /*notSet*/)
{
    return {};
}

QString textOf(const TextType & /*type*/, bool value)
{
    return value ? QStringLiteral("yes") : QStringLiteral("no");
}

QString textOf(const TextType &type, qint64 value)
{
    if (type.names) {
        const TESSEL::NameTable names = type.names();
        const TESSEL::NamedValue *const row = names.find(static_cast<qint32>(value));
        return nameOrNumber(names, value)
            + (row == names.end() ? QStringLiteral(" (no name)")
                                  : writtenDifference(row->name, row->writtenAs));
    }
    return withUnit(QString::number(value), type.unit);
}

template <class Number, std::enable_if_t<std::is_floating_point_v<Number>, bool> = true>
QString textOf(const TextType &type, Number value)
{
    if (type.isLimit && std::abs(value) == std::numeric_limits<Number>::max())
        return QStringLiteral("none");
    return type.unit == Hertz ? frequencyText(static_cast<double>(value))
                              : withUnit(numberText(value), type.unit);
}

QString textOf(const TextType & /*type*/, const QString &value)
{
    return value;
}

QString textOf(const TextType & /*type*/, const QDateTime &value)
{
    return dateText(value);
}

[[noreturn]] void throwWrong(const QString &text, const QString &allowed)
{
    throw FieldError{QStringLiteral("'%1' is not allowed. Allowed: %2").arg(text, allowed)};
}

[[noreturn]] void throwWrongName(const QString &text, const TextType &type)
{
    const QStringList all = allowedTexts(type);
    const auto [names, more] = excerptOf(all, text);
    const NameList *const list = type.names ? nameListOf(type.names) : nullptr;
    QString allowed = names.join(QStringLiteral(", "));
    if (more > 0)
        allowed += QStringLiteral("; %1 more").arg(more)
            + (list ? QStringLiteral(" in the vocabulary ") + list->name.toString() : QString());
    const QStringList meant = guessOf(text, all).names;
    throw FieldError{
        QStringLiteral("'%1' is not allowed%2%3 Allowed: %4")
            .arg(text, question(meant), meant.isEmpty() ? QStringLiteral(".") : QString(), allowed)};
}

/// In place of the limits of a type as a whole, which tell people nothing.
QString wholeNumbers(const TextType &type)
{
    const auto isRange = [&type](auto least, auto most) { return type.least == least && type.most == most; };
    if (isRange(std::numeric_limits<qint32>::min(), std::numeric_limits<qint32>::max()))
        return QStringLiteral("whole number of 32 bits");
    if (isRange(std::numeric_limits<qint64>::min(), std::numeric_limits<qint64>::max()))
        return QStringLiteral("whole number of 64 bits");
    return QStringLiteral("whole number from %1 to %2").arg(type.least).arg(type.most);
}

bool isWholeNumber(const TextType &type)
{
    return type.kind == Kind::Integer || type.kind == Kind::Unsigned || type.kind == Kind::LongLong;
}

FieldValue numberOfText(const TextType &type, const QString &text)
{
    bool isNumber = false;
    if (isWholeNumber(type)) {
        const qint64 value = text.toLongLong(&isNumber);
        if (isNumber && value >= type.least && value <= type.most)
            return value;
    } else if (type.kind == Kind::Float) {
        const float value = text.toFloat(&isNumber);
        if (isNumber && std::isfinite(value))
            return value;
    } else {
        const double value = text.toDouble(&isNumber);
        if (isNumber && std::isfinite(value))
            return value;
    }
    throwWrong(text, isWholeNumber(type) ? describe(type) : QStringLiteral("finite ") + describe(type));
}

QString settableNumber(double value)
{
    return TESSEL::shortestText(value);
}

/// The shortest text of the largest number is one that Qt takes for more than that.
QString settableNumber(float value)
{
    return std::abs(value) == std::numeric_limits<float>::max()
        ? TESSEL::shortestText(static_cast<double>(value))
        : TESSEL::shortestText(value);
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

namespace {

bool isWhole(double value)
{
    constexpr double MostWhole = 1e15;
    return std::abs(value) < MostWhole && value == std::floor(value);
}

} // namespace

QString numberText(double value)
{
    return isWhole(value) ? QString::number(value, 'f', 0)
                          : QString::number(value, 'g', QLocale::FloatingPointShortest);
}

QString numberText(float value)
{
    const auto same = static_cast<double>(value);
    return isWhole(same) ? QString::number(same, 'f', 0) : TESSEL::shortestText(value);
}

std::optional<QString> shownText(const TextType &type, const FieldValue &value)
{
    if (!isSet(value))
        return std::nullopt;
    return std::visit([&type](const auto &set) { return textOf(type, set); }, value);
}

QString settableText(const TextType &type, const FieldValue &value)
{
    return std::visit(
        [&type](const auto &set) -> QString {
            using Value = std::decay_t<decltype(set)>;
            if constexpr (std::is_same_v<Value, std::monostate>)
                return {};
            else if constexpr (std::is_same_v<Value, QString>)
                return set;
            else if constexpr (std::is_same_v<Value, bool>)
                return set ? QStringLiteral("true") : QStringLiteral("false");
            else if constexpr (std::is_same_v<Value, qint64>)
                return type.names ? nameOrNumber(type.names(), set) : QString::number(set);
            else if constexpr (std::is_same_v<Value, QDateTime>)
                return TESSEL::Converters::ToString(set);
            else
                return settableNumber(set);
        },
        value);
}

QString fieldPathOf(const QString &findingPath)
{
    QString path;
    bool isInRoot = true;
    bool isInName = false;
    for (const QChar c : findingPath) {
        isInName = c == QLatin1Char('[') || (isInName && c != QLatin1Char(']'));
        const bool isSeparator = !isInName && c == QLatin1Char('/');
        if (isSeparator && !isInRoot)
            path += QLatin1Char('.');
        else if (!isSeparator && !isInRoot && (isInName || c != QLatin1Char('@')))
            path += c;
        isInRoot = isInRoot && !isSeparator;
    }
    return path;
}

FieldValue valueOfText(const TextType &type, const QString &text)
{
    switch (type.kind) {
    case Kind::Text:
        return text.isEmpty() ? FieldValue() : FieldValue(text);
    case Kind::Boolean:
        if (!allowedTexts(type).contains(text))
            throwWrongName(text, type);
        return text == QStringView(u"true");
    case Kind::Name: {
        const qint32 value = type.names().valueOf(text);
        if (value < 0)
            throwWrongName(text, type);
        return static_cast<qint64>(value);
    }
    case Kind::DateTime: {
        const QDateTime value = dateOfText(text);
        if (!value.isValid())
            throwWrong(text, describe(type));
        return value;
    }
    case Kind::Integer:
    case Kind::Unsigned:
    case Kind::LongLong:
    case Kind::Float:
    case Kind::Double:
        break;
    }
    return numberOfText(type, text);
}

QString describe(const TextType &type)
{
    const QString unit = type.unit.isEmpty() ? QString() : QStringLiteral(" in ") + type.unit.toString();
    switch (type.kind) {
    case Kind::Text:
        return QStringLiteral("any text");
    case Kind::Boolean:
    case Kind::Name:
        return allowedTexts(type).join(QStringLiteral(", "));
    case Kind::Integer:
    case Kind::Unsigned:
    case Kind::LongLong:
        return wholeNumbers(type) + unit;
    case Kind::Float:
        return QStringLiteral("number of single precision") + unit;
    case Kind::Double:
        return QStringLiteral("number") + unit;
    case Kind::DateTime:
        return QStringLiteral("date in UTC as 2026-03-29T00:59:59,250Z, 2026-03-29T00:59:59Z, or now");
    }
    return {};
}

} // namespace KORMAK::Inspection
