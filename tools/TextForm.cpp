#include "tools/TextForm.h"

#include <objectbase/Converters.h>
#include <tools/Console.h>
#include <tools/NameLists.h>

#include <QDateTime>

namespace {

using Kind = TextForm::Kind;

constexpr QStringView True = u"true";
constexpr QStringView False = u"false";

/// Whether Qt takes all of \a text for a number of the type.
template <auto Convert, class... Base>
bool isNumber(const QString &text, Base... base)
{
    bool ok = false;
    (void)(text.*Convert)(&ok, base...);
    return ok;
}

bool isBoolean(const QString &text)
{
    return text == True || text == False;
}

/// The noun behind "is not", and what else is made of the text.
struct Objection {
    QStringView noun;
    QStringView reading;
};

Objection objection(Kind kind)
{
    switch (kind) {
    case Kind::Boolean:
    case Kind::Flag:
        return {u"a boolean", u"reads as false"};
    case Kind::Integer:
        return {u"a whole number of 32 bits", u"reads as 0"};
    case Kind::LongLong:
        return {u"a whole number of 64 bits", u"reads as 0"};
    case Kind::Float:
        return {u"a number of single precision", u"reads as 0"};
    case Kind::Double:
        return {u"a number", u"reads as 0"};
    case Kind::DateTime:
        return {u"a time such as 2026-03-15T22:00:00,000Z", u"reads as \"not set\""};
    default:
        return {u"a known name", {}};
    }
}

} // namespace

bool TextForm::isSaidBy(const QString &text) const
{
    switch (kind) {
    case Kind::Any:
        return true;
    case Kind::Boolean:
        return isBoolean(text);
    case Kind::Flag:
        return text.isEmpty() || isBoolean(text);
    case Kind::Integer:
        return isNumber<&QString::toInt>(text, 10);
    case Kind::UpTo: {
        const unsigned int number = text.toUInt();
        return number >= 1 && number <= greatest;
    }
    case Kind::LongLong:
        return isNumber<&QString::toLongLong>(text, 10);
    case Kind::Float:
        return isNumber<&QString::toFloat>(text);
    case Kind::Double:
        return isNumber<&QString::toDouble>(text);
    case Kind::DateTime:
        return TESSEL::Converters::ToDateTime(text).isValid();
    case Kind::Name:
        return names->names().contains(text);
    }
    return true;
}

QString TextForm::objectionTo(const QString &text) const
{
    const QString isNot = Console::quoted(text) + QStringLiteral(" is not ");
    if (kind == Kind::UpTo)
        return isNot + QStringLiteral("a whole number from 1 to %1").arg(greatest);
    const auto [noun, usualReading] = objection(kind);
    const QStringView made = kind == Kind::Name ? reading : usualReading;
    return isNot + noun.toString() + (made.isEmpty() ? QString() : QStringLiteral("; it ") + made.toString());
}

QStringList TextForm::allowed() const
{
    switch (kind) {
    case Kind::Name:
        return names->names();
    case Kind::Boolean:
    case Kind::Flag:
        return {True.toString(), False.toString()};
    default:
        return {};
    }
}

QString TextForm::numberRead(const QString &text) const
{
    return kind == Kind::Name ? QStringLiteral("-1") : QString::number(text.toUInt());
}
