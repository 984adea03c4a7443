#include "tools/TableFilter.h"

#include <inspection/FieldText_p.h>
#include <tools/Command.h>
#include <tools/Usage.h>

#include <QDateTime>

#include <cmath>
#include <optional>
#include <type_traits>
#include <variant>

using namespace KORMAK::Inspection;

namespace Table {

namespace {

using Kind = TextType::Kind;

bool isWholeNumber(const TextType &type)
{
    return type.kind == Kind::Integer || type.kind == Kind::Unsigned || type.kind == Kind::LongLong;
}

bool isNumber(const TextType &type)
{
    return isWholeNumber(type) || type.kind == Kind::Float || type.kind == Kind::Double;
}

bool hasOrder(const TextType &type)
{
    return isNumber(type) || type.kind == Kind::DateTime;
}

/// Any number, also one that the field could not hold. \throws FieldError
FieldValue numberOf(const TextType &type, const QString &text)
{
    bool isRead = false;
    if (isWholeNumber(type)) {
        const qint64 number = text.toLongLong(&isRead);
        if (isRead)
            return number;
    }
    if (type.kind == Kind::Float) { // 0.2 is what the field holds that was read from 0.2
        const float number = text.toFloat(&isRead);
        if (isRead && std::isfinite(number))
            return number;
    }
    const double number = text.toDouble(&isRead);
    if (!isRead || !std::isfinite(number))
        throw FieldError{QStringLiteral("'%1' is not a number").arg(text)};
    return number;
}

/// \throws FieldError
FieldValue valueOf(const TextType &type, const QString &text)
{
    if (isNumber(type))
        return numberOf(type, text);
    if (type.kind == Kind::DateTime) {
        const QDate date = QDate::fromString(text, QStringLiteral("yyyy-MM-dd"));
        if (date.isValid())
            return QDateTime(date, QTime(0, 0), Qt::UTC);
    }
    return valueOfText(type, text);
}

template <class Value>
int order(const Value &a, const Value &b)
{
    return a < b ? -1 : b < a ? 1 : 0;
}

std::optional<double> numberIn(const FieldValue &value)
{
    return std::visit(
        [](const auto &held) -> std::optional<double> {
            using Held = std::decay_t<decltype(held)>;
            if constexpr (std::is_same_v<Held, qint64> || std::is_floating_point_v<Held>)
                return static_cast<double>(held);
            else
                return std::nullopt;
        },
        value);
}

/// Negative, 0 or positive as \a a is less than, equal to or more than \a b; nothing where there is no
/// telling.
std::optional<int> compared(const FieldValue &a, const FieldValue &b)
{
    if (std::holds_alternative<qint64>(a) && std::holds_alternative<qint64>(b))
        return order(std::get<qint64>(a), std::get<qint64>(b));
    const auto first = numberIn(a);
    const auto second = numberIn(b);
    if (first && second) {
        if (std::isnan(*first) || std::isnan(*second))
            return std::nullopt;
        return order(*first, *second);
    }
    if (a.index() != b.index())
        return std::nullopt;
    if (std::holds_alternative<bool>(a))
        return order(std::get<bool>(a), std::get<bool>(b));
    if (std::holds_alternative<QDateTime>(a))
        return order(std::get<QDateTime>(a), std::get<QDateTime>(b));
    if (std::holds_alternative<QString>(a))
        return order(std::get<QString>(a), std::get<QString>(b));
    return std::nullopt;
}

} // namespace

Condition::Condition(const QString &text, const QString &part) : name(fieldOf(text, part))
{
    try {
        const int end = endOfName(text, 0, QStringLiteral(" \t=!<>"));
        readOperator(text.mid(end).trimmed());
        readValue();
    } catch (const FieldError &error) {
        throw UsageError{QStringLiteral("'%1': %2").arg(text, error.message)};
    }
}

FieldName Condition::fieldOf(const QString &text, const QString &part)
{
    const QString called = text.left(endOfName(text, 0, QStringLiteral(" \t=!<>")));
    return {called, part};
}

void Condition::readOperator(const QString &rest)
{
    static const struct {
        QString name;
        Operator op;
        bool isAlone; ///< no value follows
    } Operators[] = {
        {QStringLiteral("is not set"), Operator::NotSet, true},
        {QStringLiteral("is set"), Operator::Set, true},
        {QStringLiteral("contains "), Operator::Contains, false},
        {QStringLiteral("!="), Operator::NotEqual, false},
        {QStringLiteral("<="), Operator::LessOrEqual, false},
        {QStringLiteral(">="), Operator::GreaterOrEqual, false},
        {QStringLiteral("="), Operator::Equal, false},
        {QStringLiteral("<"), Operator::Less, false},
        {QStringLiteral(">"), Operator::Greater, false},
    };
    for (const auto &[text, which, isAlone] : Operators) {
        if (isAlone ? rest != text : !rest.startsWith(text))
            continue;
        op = which;
        valueText = rest.mid(text.size()).trimmed();
        if (isAlone || !valueText.isEmpty())
            return;
    }
    throw FieldError{
        QStringLiteral("is not FIELD OP VALUE. OP is one of =, !=, <, <=, >, >=, contains; without "
                       "a VALUE there are: is set, is not set")};
}

void Condition::readValue()
{
    if (valueText.isEmpty() || op == Operator::Contains)
        return;
    if (name.isKind() && !documentKindNames().contains(valueText))
        throw FieldError{Usage::unknown(QStringLiteral("kind"), valueText, documentKindNames()).message};
    QString reason;
    for (const TextType *const type : name.types()) {
        if (comparesOrder() && !hasOrder(*type)) {
            reason = QStringLiteral("only numbers and dates are less or more than others");
            continue;
        }
        try {
            values.emplace(type, valueOf(*type, valueText));
        } catch (const FieldError &error) {
            reason = error.message;
        }
    }
    if (values.empty())
        throw FieldError{reason};
}

bool Condition::comparesOrder() const
{
    return op == Operator::Less || op == Operator::LessOrEqual || op == Operator::Greater
        || op == Operator::GreaterOrEqual;
}

bool Condition::holdsFor(const Subject &subject) const
{
    const Cell cell = name.in(subject);
    if (op == Operator::Set || op == Operator::NotSet)
        return cell.isSet() == (op == Operator::Set);
    if (!cell.isSet())
        return false;
    if (op == Operator::Contains)
        return cell.text().contains(valueText);
    const auto value = values.find(cell.type);
    const std::optional<int> order =
        value == values.end() ? std::nullopt : compared(cell.value, value->second);
    if (!order)
        return op == Operator::NotEqual;
    switch (op) {
    case Operator::Equal:
        return *order == 0;
    case Operator::NotEqual:
        return *order != 0;
    case Operator::Less:
        return *order < 0;
    case Operator::LessOrEqual:
        return *order <= 0;
    case Operator::Greater:
        return *order > 0;
    case Operator::GreaterOrEqual:
        return *order >= 0;
    default:
        return false;
    }
}

bool comesBefore(const Cell &a, const Cell &b)
{
    const auto rank = [](const Cell &cell) {
        const std::optional<double> number = numberIn(cell.value);
        const bool isName = cell.type && cell.type->names;
        return !cell.isSet() ? 3 : number && !isName && std::isnan(*number) ? 2 : number && !isName ? 0 : 1;
    };
    if (rank(a) != rank(b))
        return rank(a) < rank(b);
    if (rank(a) == 0 || (a.type == b.type && a.type && hasOrder(*a.type)))
        return compared(a.value, b.value).value_or(0) < 0;
    return rank(a) == 1 && a.text() < b.text();
}

} // namespace Table
