#include "inspection/Field.h"

#include <inspection/DocumentTexts_p.h>
#include <inspection/FieldList_p.h>
#include <inspection/FieldText_p.h>
#include <inspection/NameLists_p.h>
#include <inspection/QuotedText_p.h>
#include <objectbase/Debug_p.h>
#include <objectbase/NoDestructor_p.h>

#include <type_traits>
#include <utility>

namespace KORMAK {

using namespace Inspection;

struct Field::Private {
    QString path;
    QStringView label;
    TextType type;
    FieldValue value;
    bool isSettable = false;
    Requirement requirement = Requirement::None;
    bool isInDocuments = true;
};

namespace {

Field::Type typeOf(TextType::Kind kind)
{
    using Kind = TextType::Kind;
    switch (kind) {
    case Kind::Text:
        break;
    case Kind::Boolean:
        return Field::Type::Boolean;
    case Kind::Integer:
    case Kind::Unsigned:
    case Kind::LongLong:
        return Field::Type::Integer;
    case Kind::Float:
        return Field::Type::Float;
    case Kind::Double:
        return Field::Type::Double;
    case Kind::DateTime:
        return Field::Type::DateTime;
    case Kind::Name:
        return Field::Type::Name;
    }
    return Field::Type::Text;
}

} // namespace

Field::Field() = default;

const Field::Private &Field::data() const
{
    static const TESSEL::NoDestructor<Private> none;
    return d ? *d : *none;
}

QString Field::GetPath() const
{
    return data().path;
}

QString Field::GetLabel() const
{
    return data().label.toString();
}

Field::Type Field::GetType() const noexcept
{
    return typeOf(data().type.kind);
}

QString Field::GetUnit() const
{
    return data().type.unit.toString();
}

qint64 Field::GetMinimum() const noexcept
{
    return GetType() == Type::Integer ? data().type.least : 0;
}

qint64 Field::GetMaximum() const noexcept
{
    return GetType() == Type::Integer ? data().type.most : 0;
}

Vocabulary Field::GetVocabulary() const
{
    return VocabularyMaker::made(nameListOf(data().type.names));
}

QStringList Field::GetAllowed() const
{
    return allowedTexts(data().type);
}

QString Field::GetAllowedInWords() const
{
    return describe(data().type);
}

bool Field::IsSettable() const noexcept
{
    return data().isSettable;
}

bool Field::IsInDocuments() const noexcept
{
    return data().isInDocuments;
}

Field::Requirement Field::GetRequirement() const noexcept
{
    return data().requirement;
}

bool Field::IsSet() const noexcept
{
    return Inspection::isSet(data().value);
}

QVariant Field::GetValue() const
{
    const TextType &type = data().type;
    return std::visit(
        [&type](const auto &value) -> QVariant {
            using Value = std::decay_t<decltype(value)>;
            if constexpr (std::is_same_v<Value, std::monostate>)
                return {};
            else if constexpr (std::is_same_v<Value, qint64>)
                return type.names && type.names().isValid(static_cast<qint32>(value))
                    ? QVariant(nameOrNumber(type.names(), value))
                    : QVariant(value);
            else
                return value;
        },
        data().value);
}

QString Field::GetText() const
{
    return settableText(data().type, data().value);
}

QString Field::TextOf(const QVariant &value)
{
    switch (value.userType()) {
    case QMetaType::Float:
        return settableText({TextType::Kind::Float}, value.toFloat());
    case QMetaType::Double:
        return settableText({TextType::Kind::Double}, value.toDouble());
    case QMetaType::QDateTime:
        return settableText({TextType::Kind::DateTime}, value.toDateTime());
    default:
        return value.toString();
    }
}

QString Field::GetShownText() const
{
    return shownText(data().type, data().value).value_or(QString());
}

bool Field::operator==(const Field &other) const
{
    return d == other.d
        || (GetPath() == other.GetPath() && GetType() == other.GetType()
            && data().type.names == other.data().type.names && IsSettable() == other.IsSettable()
            && areSame(data().value, other.data().value));
}

Field FieldMaker::made(const QString &path, const FieldRow &row, FieldValue value,
                       const FieldSurroundings &around)
{
    Field field;
    field.d = std::make_shared<const Field::Private>(
        Field::Private{path, row.label, row.type, std::move(value), around.isReached && row.set,
                       std::min(around.requirement, row.requirement), row.isInDocuments});
    return field;
}

namespace {

constexpr TESSEL::VocabularyRow<Field::Type> TypeRows[] = {
    {Field::Type::Text, u"Text"},   {Field::Type::Boolean, u"Boolean"}, {Field::Type::Integer, u"Integer"},
    {Field::Type::Float, u"Float"}, {Field::Type::Double, u"Double"},   {Field::Type::DateTime, u"DateTime"},
    {Field::Type::Name, u"Name"},
};
constexpr TESSEL::Vocabulary Types{TypeRows};

constexpr TESSEL::VocabularyRow<Field::Requirement> RequirementRows[] = {
    {Field::Requirement::None, u"None"},
    {Field::Requirement::Sometimes, u"Sometimes"},
    {Field::Requirement::Always, u"Always"},
};
constexpr TESSEL::Vocabulary Requirements{RequirementRows};

} // namespace

namespace Inspection {

QString typeName(Field::Type type)
{
    return Types.table().find(static_cast<qint32>(type))->name.toString();
}

} // namespace Inspection

QDebug operator<<(QDebug debug, Field::Type value)
{
    return TESSEL::printName(debug, Types.table(), value);
}

QDebug operator<<(QDebug debug, Field::Requirement value)
{
    return TESSEL::printName(debug, Requirements.table(), value);
}

QDebug operator<<(QDebug debug, const Field &field)
{
    const QString value = field.IsSet() ? QLatin1Char('=') + field.GetText() : QStringLiteral(", not set");
    return TESSEL::printText(debug,
                             QStringLiteral("Field(") + oneLine(field.GetPath() + value) + QLatin1Char(')'));
}

} // namespace KORMAK
