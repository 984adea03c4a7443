#include "widgets/NumberFormat_p.h"

#include <objectbase/QtCompat_p.h>
#include <objectbase/Text_p.h>

#include <QCoreApplication>
#include <QStringList>

#include <algorithm>
#include <cmath>
#include <iterator>
#include <limits>

namespace KORMAK::Widgets {

namespace {

using TESSEL::TextSize;

constexpr TextSize GroupSize = 3;
constexpr TextSize LeastGrouped = 5; // digits
constexpr QChar NarrowBlank(0x202F);
constexpr QChar LeftToRight(0x200E);

constexpr struct {
    QStringView name;
    int power;
} FrequencyUnits[] = {{u"Hz", 0}, {u"kHz", 3}, {u"MHz", 6}, {u"GHz", 9}};

QString translated(const char *text)
{
    return QCoreApplication::translate("KORMAK::NumberEdit", text);
}

/// Whether the first letter of a unit will do.
enum class Short : qint32 { Refused, Accepted };

/// The power of ten of a unit of frequencies.
std::optional<int> powerOf(const QString &unit, Short shortForm)
{
    for (const auto &row : FrequencyUnits) {
        const QString name = row.name.toString();
        const bool isShort = shortForm == Short::Accepted && row.power > 0
            && unit.compare(name.left(1), Qt::CaseInsensitive) == 0;
        if (isShort || unit.compare(name, Qt::CaseInsensitive) == 0)
            return row.power;
    }
    return std::nullopt;
}

/// Of a text that is one character in all but a few locales.
QChar characterOf(const QString &text)
{
    return text.isEmpty() ? QChar() : text.at(text.size() - 1);
}

bool isGroupBlank(QChar character)
{
    return character.isSpace() || character == QLatin1Char('\'') || character == QChar(0x2019)
        || character == QChar(0x066C);
}

bool isInvisible(QChar character)
{
    return character == LeftToRight || character == QChar(0x200F) || character == QChar(0x061C);
}

bool isMinus(QChar character)
{
    return character == QLatin1Char('-') || character == QChar(0x2212);
}

bool hasLetters(const QStringList &parts)
{
    return std::any_of(parts.begin(), parts.end(), [](const QString &part) { return part.isEmpty(); });
}

/// Whether digits are parted as thousands are.
bool areThousands(const QStringList &groups)
{
    return !hasLetters(groups) && groups.first().size() <= GroupSize
        && std::all_of(groups.begin() + 1, groups.end(),
                       [](const QString &group) { return group.size() == GroupSize; });
}

/// Whether digits behind the decimal point are parted as in tables.
bool areThousandths(const QStringList &groups)
{
    return !hasLetters(groups) && groups.last().size() <= GroupSize
        && std::all_of(groups.begin(), groups.end() - 1,
                       [](const QString &group) { return group.size() == GroupSize; });
}

/// A text of a number and of what stands behind it; the number in a form in which blanks stand for blanks
/// between thousands, a point for the decimal point of the locale, and a comma for the other one.
struct Parts {
    QString number;
    QString exponent;
    QString unit;
};

class Splitter {
public:
    Splitter(const QString &typed, QChar point) : decimalPoint(point)
    {
        for (const QChar character : typed.trimmed()) {
            if (!isInvisible(character))
                text += character;
        }
    }

    [[nodiscard]] Parts split()
    {
        Parts parts;
        if (position < text.size() && (isMinus(text.at(position)) || text.at(position) == QLatin1Char('+'))) {
            parts.number += isMinus(text.at(position)) ? QStringLiteral("-") : QString();
            ++position;
        }
        takeNumber(parts.number);
        takeExponent(parts.exponent);
        parts.unit = text.mid(position).trimmed();
        return parts;
    }

private:
    [[nodiscard]] bool isDigitAt(TextSize at) const
    {
        return at < text.size() && text.at(at).digitValue() >= 0;
    }

    void takeNumber(QString &number)
    {
        for (; position < text.size(); ++position) {
            const QChar character = text.at(position);
            if (const int digit = character.digitValue(); digit >= 0)
                number += QLatin1Char(static_cast<char>('0' + digit));
            else if (character == decimalPoint)
                number += QLatin1Char('.');
            else if (character == QLatin1Char('.') || character == QLatin1Char(','))
                number += QLatin1Char(',');
            else if (isGroupBlank(character) && isDigitAt(position + 1))
                number += QLatin1Char(' ');
            else
                return;
        }
    }

    void takeExponent(QString &exponent)
    {
        if (position >= text.size() || text.at(position).toLower() != QLatin1Char('e'))
            return;
        TextSize at = position + 1;
        if (at < text.size() && (isMinus(text.at(at)) || text.at(at) == QLatin1Char('+'))) {
            exponent += isMinus(text.at(at)) ? QStringLiteral("-") : QString();
            ++at;
        }
        if (!isDigitAt(at)) {
            exponent.clear();
            return;
        }
        for (; isDigitAt(at); ++at)
            exponent += QLatin1Char(static_cast<char>('0' + text.at(at).digitValue()));
        position = at;
    }

    QString text;
    QChar decimalPoint;
    TextSize position = 0;
};

/// What is left of a number when it is understood: digits and a point. Null when it is none, empty when it
/// could be two.
QString plainNumber(QString number, bool commaParts)
{
    const bool isNegative = number.startsWith(QLatin1Char('-'));
    if (isNegative)
        number.remove(0, 1);
    QStringList halves = number.split(QLatin1Char('.'));
    if (halves.size() > 2)
        return {};
    QStringList groups = halves.first().split(QLatin1Char(','));
    if (groups.size() == 2 && halves.size() == 1) {
        // One comma, and no point: thousands, or the decimal point of elsewhere.
        const QString &whole = groups.first();
        const bool canPart = commaParts && !whole.isEmpty() && whole.size() <= GroupSize
            && whole.at(0) != QLatin1Char('0') && groups.last().size() == GroupSize;
        if (canPart)
            return QString::fromLatin1("");
        halves = groups;
        groups = QStringList{whole};
    }
    if (groups.size() > 1) {
        if (!commaParts || !areThousands(groups))
            return {};
        halves.first() = groups.join(QString());
    }
    QStringList whole = halves.first().split(QLatin1Char(' '));
    QStringList decimals = halves.mid(1).value(0).split(QLatin1Char(' '));
    if ((whole.size() > 1 && !areThousands(whole)) || (decimals.size() > 1 && !areThousandths(decimals)))
        return {};
    if (decimals.join(QString()).contains(QLatin1Char(',')))
        return {};
    const QString digits = whole.join(QString()) + QLatin1Char('.') + decimals.join(QString());
    if (digits.size() < 2)
        return {};
    return (isNegative ? QStringLiteral("-") : QString()) + digits;
}

} // namespace

DecimalNumber NumberFormat::factor() const
{
    const auto number = DecimalNumber::FromDouble(multiplier);
    return number && !number->IsZero() ? *number : DecimalNumber::PowerOfTen(0);
}

QChar NumberFormat::decimalPoint() const
{
    return characterOf(QString(locale.decimalPoint()));
}

NumberFormat::Reading NumberFormat::read(const QString &text) const
{
    if (text.trimmed().isEmpty())
        return {{}, translated("There is no number")};
    const Parts parts = Splitter(text, decimalPoint()).split();
    const bool commaParts = characterOf(QString(locale.groupSeparator())) == QLatin1Char('.')
        || characterOf(QString(locale.groupSeparator())) == QLatin1Char(',');
    const QString plain = plainNumber(parts.number, commaParts);
    if (plain.isEmpty() && !plain.isNull()) {
        const QStringList halves = parts.number.split(QLatin1Char(','));
        return {{},
                translated("This may be %1 or %2: please write it so")
                    .arg(halves.join(decimalPoint()), halves.join(QString()))};
    }
    const auto number =
        DecimalNumber::FromText(parts.exponent.isEmpty() ? plain : plain + QLatin1Char('e') + parts.exponent);
    if (plain.isNull() || !number)
        return {{}, translated("This is not a number")};
    DecimalNumber shown = *number;
    if (!parts.unit.isEmpty() && parts.unit != unit) {
        const auto typed = isFrequency ? powerOf(parts.unit, Short::Accepted) : std::nullopt;
        const auto own = powerOf(unit, Short::Refused);
        if (!typed || !own)
            return {{},
                    unit.isEmpty() ? translated("There is no unit here, but \"%1\" was typed").arg(parts.unit)
                                   : translated("\"%1\" is no unit here: %2 is").arg(parts.unit, unit)};
        shown = shown.Times(DecimalNumber::PowerOfTen(*typed - *own));
    }
    const DecimalNumber stored = shown.Times(factor());
    const QVariant value = store(stored);
    return {value, value.isValid() ? QString() : whyNotHeld(stored)};
}

std::optional<DecimalNumber> NumberFormat::shown(const QVariant &value) const
{
    const auto stored = decimalOf(value);
    return stored ? std::optional(stored->DividedBy(factor())) : std::nullopt;
}

QVariant NumberFormat::held(const DecimalNumber &number) const
{
    return store(number.Times(factor()));
}

QVariant NumberFormat::store(const DecimalNumber &stored) const
{
    bool isNumber = false;
    const QString text = stored.ToText();
    switch (type) {
    case Type::Whole32: {
        const int value = text.toInt(&isNumber);
        return isNumber ? QVariant(static_cast<qint64>(value)) : QVariant();
    }
    case Type::Whole64: {
        const qint64 value = text.toLongLong(&isNumber);
        return isNumber ? QVariant(value) : QVariant();
    }
    case Type::Float: {
        const float value = text.toFloat(&isNumber);
        return isNumber && std::isfinite(value) ? QVariant(value) : QVariant();
    }
    case Type::Double: {
        const double value = text.toDouble(&isNumber);
        return isNumber && std::isfinite(value) ? QVariant(value) : QVariant();
    }
    }
    return {};
}

QString NumberFormat::whyNotHeld(const DecimalNumber &stored) const
{
    const bool isWhole = type == Type::Whole32 || type == Type::Whole64;
    if (!isWhole || stored.IsWhole())
        return translated("This number is too large to be held");
    const DecimalNumber least = DecimalNumber::PowerOfTen(0).DividedBy(factor());
    if (least == DecimalNumber::PowerOfTen(0))
        return translated("Only whole numbers can be held");
    return translated("Only multiples of %1 can be held").arg(showNumber(least));
}

QString NumberFormat::showNumber(const DecimalNumber &shown) const
{
    QString text = shown.ToText(decimals);
    const bool isNegative = text.startsWith(QLatin1Char('-'));
    if (isNegative)
        text.remove(0, 1);
    const TextSize point = text.indexOf(QLatin1Char('.'));
    const TextSize whole = point < 0 ? text.size() : point;
    if (point >= 0)
        text[point] = decimalPoint();
    if (whole >= LeastGrouped) {
        for (TextSize i = whole - GroupSize; i > 0; i -= GroupSize)
            text.insert(i, NarrowBlank);
    }
    const QChar zero = characterOf(QString(locale.zeroDigit()));
    if (zero != QLatin1Char('0')) {
        for (QChar &character : text) {
            if (character >= QLatin1Char('0') && character <= QLatin1Char('9'))
                character = QChar(zero.unicode() + character.unicode() - u'0');
        }
    }
    if (isNegative)
        text.prepend(QLatin1Char('-'));
    // Else the sign would stand behind the number.
    return isNegative && isMirrored ? text.prepend(LeftToRight) : text;
}

QString NumberFormat::show(const QVariant &value) const
{
    const auto number = shown(value);
    return number ? showNumber(*number) : documentText(value);
}

QString NumberFormat::showWithUnit(const QVariant &value) const
{
    NumberFormat plain = *this;
    plain.decimals = 0;
    QString number = plain.show(value);
    if (unit.isEmpty() || number.isEmpty())
        return number;
    return number + (unit == QString(QChar(0xB0)) ? QString() : QString(QChar(0xA0))) + unit;
}

QString NumberFormat::problemOf(const QVariant &value) const
{
    const auto number = decimalOf(value);
    if (!number)
        return value.isValid() ? translated("This is not a finite number") : QString();
    const auto least = decimalOf(minimum);
    const auto most = decimalOf(maximum);
    if (least && *number < *least)
        return translated("Below the minimum of %1").arg(showWithUnit(minimum));
    if (most && *most < *number)
        return translated("Above the maximum of %1").arg(showWithUnit(maximum));
    return {};
}

int NumberFormat::placeAt(const QString &shown, int position) const
{
    const TextSize found = shown.indexOf(decimalPoint());
    const TextSize point = found < 0 ? shown.size() : found;
    const auto isDigit = [&shown](TextSize i) { return shown.at(i).digitValue() >= 0; };
    TextSize digit = std::min<TextSize>(position, shown.size()) - 1;
    while (digit >= 0 && !isDigit(digit))
        --digit;
    if (digit < 0) {
        digit = 0;
        while (digit < shown.size() && !isDigit(digit))
            ++digit;
    }
    int place = 0;
    if (digit > point) {
        for (TextSize i = point; i <= digit; ++i)
            place -= isDigit(i) ? 1 : 0;
    } else {
        for (TextSize i = digit + 1; i < point; ++i)
            place += isDigit(i) ? 1 : 0;
    }
    return place;
}

int NumberFormat::positionOf(const QString &shown, int place) const
{
    TextSize first = 0; // of the digits
    while (first < shown.size() && shown.at(first).digitValue() < 0)
        ++first;
    for (TextSize position = shown.size(); position > first; --position) {
        if (shown.at(position - 1).digitValue() >= 0 && placeAt(shown, static_cast<int>(position)) == place)
            return static_cast<int>(position);
    }
    return static_cast<int>(placeAt(shown, static_cast<int>(shown.size())) > place ? shown.size() : first);
}

QVariant NumberFormat::stepped(const QVariant &value, int steps, int place) const
{
    const auto stored = decimalOf(value);
    const auto count = DecimalNumber::FromText(QString::number(steps));
    if (!stored || !count)
        return {};
    return store(stored->Plus(count->Times(DecimalNumber::PowerOfTen(place)).Times(factor())));
}

std::optional<DecimalNumber> decimalOf(const QVariant &value)
{
    const QString text = documentText(value);
    return text.isEmpty() ? std::nullopt : DecimalNumber::FromText(text);
}

QString documentText(const QVariant &value)
{
    switch (static_cast<QMetaType::Type>(value.userType())) {
    case QMetaType::Float:
        return TESSEL::shortestText(value.toFloat());
    case QMetaType::Double:
        return TESSEL::shortestText(value.toDouble());
    default:
        return value.toString();
    }
}

} // namespace KORMAK::Widgets
