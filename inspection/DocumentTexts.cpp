#include "inspection/DocumentTexts_p.h"

#include <inspection/QuotedText_p.h>
#include <objectbase/Converters.h>
#include <objectbase/Text_p.h>

#include <QDateTime>
#include <QStringView>

#include <algorithm>
#include <iterator>

namespace KORMAK::Inspection {

namespace {

using TESSEL::Row;
using TESSEL::TextType;
using Kind = TextType::Kind;

constexpr QStringView BooleanTexts[] = {u"true", u"false"};

/// Whether Qt takes all of \a text for a number of the type, as it does any plain one.
template <class Plain, auto Convert, class... Base>
bool isNumber(QStringView text, Base... base)
{
    if (TESSEL::Detail::plainNumber<Plain>(text))
        return true;
    bool ok = false;
    (void)(text.toString().*Convert)(&ok, base...);
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

bool isValid(const TextType &type, QStringView text)
{
    if (type.mayBeEmpty && text.isEmpty())
        return true;
    switch (type.kind) {
    case Kind::Text:
        return true;
    case Kind::Boolean:
        return std::find(std::begin(BooleanTexts), std::end(BooleanTexts), text) != std::end(BooleanTexts);
    case Kind::Name:
        return type.names().valueOf(text) >= 0;
    case Kind::Integer:
        return isNumber<int, &QString::toInt>(text, 10);
    case Kind::Unsigned: {
        const qint64 number = text.toString().toUInt();
        return number >= type.least && number <= type.most;
    }
    case Kind::LongLong:
        return isNumber<qint64, &QString::toLongLong>(text, 10);
    case Kind::Float:
        return isNumber<double, &QString::toFloat>(text);
    case Kind::Double:
        return isNumber<double, &QString::toDouble>(text);
    case Kind::DateTime:
        return TESSEL::Converters::ToDateTime(text.toString()).isValid();
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
        return {BooleanTexts[0].toString(), BooleanTexts[1].toString()};
    default:
        return {};
    }
}

} // namespace KORMAK::Inspection
