#include "inspection/DocumentTexts_p.h"

#include <inspection/QuotedText_p.h>
#include <objectbase/Converters.h>

#include <QDateTime>
#include <QStringView>

namespace KORMAK::Inspection {

namespace {

using TESSEL::Row;
using TESSEL::TextType;
using Kind = TextType::Kind;

/// Whether Qt takes all of \a text for a number of the type.
template <auto Convert, class... Base>
bool isNumber(const QString &text, Base... base)
{
    bool ok = false;
    (void)(text.*Convert)(&ok, base...);
    return ok;
}

/// The noun behind "is not", and what else is made of the text.
struct Objection {
    QString noun;
    QStringView reading;
};

Objection objection(const Row &row)
{
    switch (row.type.kind) {
    case Kind::Boolean:
        return {QStringLiteral("a boolean"), u"reads as false"};
    case Kind::Integer:
        return {QStringLiteral("a whole number of 32 bits"), u"reads as 0"};
    case Kind::Unsigned:
        return {QStringLiteral("a whole number from %1 to %2").arg(row.type.least).arg(row.type.most), {}};
    case Kind::LongLong:
        return {QStringLiteral("a whole number of 64 bits"), u"reads as 0"};
    case Kind::Float:
        return {QStringLiteral("a number of single precision"), u"reads as 0"};
    case Kind::Double:
        return {QStringLiteral("a number"), u"reads as 0"};
    case Kind::DateTime:
        return {QStringLiteral("a time such as 2026-03-15T22:00:00,000Z"), u"reads as \"not set\""};
    case Kind::Name:
    case Kind::Text:
        break;
    }
    const QStringView otherwise =
        row.keepsFormer ? QStringView(u"leaves the type as it was") : QStringView(u"reads as \"not set\"");
    return {QStringLiteral("a known name"), row.refusedAs.isNull() ? otherwise : QStringView()};
}

} // namespace

bool isValid(const TextType &type, const QString &text)
{
    if (type.mayBeEmpty && text.isEmpty())
        return true;
    switch (type.kind) {
    case Kind::Text:
        return true;
    case Kind::Boolean:
    case Kind::Name:
        return type.kind == Kind::Name ? type.names().valueOf(text) >= 0 : allowedTexts(type).contains(text);
    case Kind::Integer:
        return isNumber<&QString::toInt>(text, 10);
    case Kind::Unsigned: {
        const qint64 number = text.toUInt();
        return number >= type.least && number <= type.most;
    }
    case Kind::LongLong:
        return isNumber<&QString::toLongLong>(text, 10);
    case Kind::Float:
        return isNumber<&QString::toFloat>(text);
    case Kind::Double:
        return isNumber<&QString::toDouble>(text);
    case Kind::DateTime:
        return TESSEL::Converters::ToDateTime(text).isValid();
    }
    return true;
}

QString objectionTo(const Row &row, const QString &text)
{
    const auto [noun, reading] = objection(row);
    return quoted(text) + QStringLiteral(" is not ") + noun
        + (reading.isEmpty() ? QString() : QStringLiteral("; it ") + reading.toString());
}

QStringList allowedTexts(const TextType &type)
{
    switch (type.kind) {
    case Kind::Name:
        return type.names().names();
    case Kind::Boolean:
        return {QStringLiteral("true"), QStringLiteral("false")};
    default:
        return {};
    }
}

} // namespace KORMAK::Inspection
