// Not installed. Makes the rows of the table of a class, in a private nested struct Xml:
//     static constexpr Row elements[] = {
//         element<&JobHeader::author, &JobHeader::SetAuthor>(u"Author").required(),
//         element<&JobHeader::description,
//         &JobHeader::SetDescription>(u"Description").writtenIf<hasDescription>(),
//     };
// Members are reached through pointers to them; predicates are member functions, or functions that take the
// object.
#ifndef TESSEL_DOCUMENTROWS_P_H
#define TESSEL_DOCUMENTROWS_P_H

#include <objectbase/DocumentTable_p.h>
#include <objectbase/Nesting_p.h>
#include <objectbase/Text_p.h>

#include <QXmlStreamWriter>

#include <functional>
#include <type_traits>

namespace TESSEL {

namespace Rows {

template <class Function>
struct Takes;
template <class Object, class Type>
struct Takes<Type Object::*> { // a member, or a member function without arguments
    using Document = Object;
};
template <class Object, class Result>
struct Takes<Result (*)(const Object &)> {
    using Document = Object;
};
template <class Object, class Result>
struct Takes<Result (*)(Object &)> {
    using Document = Object;
};
template <class Object>
struct Takes<void (*)(Object &, QStringView)> {
    using Document = Object;
};
/// The class that a member, or a function, belongs to.
template <auto Function>
using DocumentOf = typename Takes<decltype(Function)>::Document;

template <auto Getter>
using ValueOf = std::decay_t<std::invoke_result_t<decltype(Getter), const DocumentOf<Getter> &>>;

template <class Document>
Document &as(void *object)
{
    return *static_cast<Document *>(object);
}
template <class Document>
const Document &as(const void *object)
{
    return *static_cast<const Document *>(object);
}

/// What \a Function gives for the object.
template <auto Function>
auto ask(const void *object) -> ValueOf<Function>
{
    return std::invoke(Function, as<DocumentOf<Function>>(object));
}

// Values

template <class Value>
constexpr TextType typeOf()
{
    using Kind = TextType::Kind;
    TextType type;
    if constexpr (std::is_same_v<Value, bool>) {
        type.kind = Kind::Boolean;
    } else if constexpr (std::is_enum_v<Value>) {
        type.kind = Kind::Name;
    } else if constexpr (std::is_integral_v<Value>) {
        type.kind = sizeof(Value) > sizeof(qint32) ? Kind::LongLong
            : std::is_unsigned_v<Value>            ? Kind::Unsigned
                                                   : Kind::Integer;
        type.least = static_cast<qint64>(std::numeric_limits<Value>::min());
        type.most = static_cast<qint64>(std::numeric_limits<Value>::max());
    } else if constexpr (std::is_same_v<Value, float>) {
        type.kind = Kind::Float;
    } else if constexpr (std::is_same_v<Value, double>) {
        type.kind = Kind::Double;
    } else if constexpr (std::is_same_v<Value, QDateTime>) {
        type.kind = Kind::DateTime;
    }
    return type;
}

template <class Value>
FieldValue toField(const Value &value)
{
    if constexpr (std::is_same_v<Value, QString>)
        return value.isEmpty() ? FieldValue() : FieldValue(value);
    else if constexpr (std::is_same_v<Value, QDateTime>)
        return value.isValid() ? FieldValue(value) : FieldValue();
    else if constexpr (std::is_enum_v<Value>)
        return static_cast<qint64>(value) < 0 ? FieldValue() : FieldValue(static_cast<qint64>(value));
    else if constexpr (std::is_integral_v<Value> && !std::is_same_v<Value, bool>)
        return static_cast<qint64>(value);
    else
        return value;
}

template <class Value>
Value fromField(const FieldValue &value)
{
    if constexpr (std::is_enum_v<Value> || (std::is_integral_v<Value> && !std::is_same_v<Value, bool>))
        return static_cast<Value>(std::get<qint64>(value));
    else if constexpr (std::is_same_v<Value, QString>)
        return value.index() == 0 ? QString() : std::get<QString>(value);
    else
        return std::get<Value>(value);
}

template <auto Getter>
FieldValue get(const void *object)
{
    return toField(std::invoke(Getter, as<DocumentOf<Getter>>(object)));
}

template <auto Getter, auto Setter>
void set(void *object, const FieldValue &value)
{
    std::invoke(Setter, as<DocumentOf<Getter>>(object), fromField<ValueOf<Getter>>(value));
}

/// A double that is not set when it is NaN.
template <auto Getter>
FieldValue getNumber(const void *object)
{
    const double value = std::invoke(Getter, as<DocumentOf<Getter>>(object));
    return std::isnan(value) ? FieldValue() : FieldValue(value);
}

template <class Value>
bool isSet(const Value &value)
{
    return toField(value).index() != 0;
}

// Texts

template <auto Member>
void read(void *object, QStringView text)
{
    fromText(text, as<DocumentOf<Member>>(object).*Member);
}

template <auto Member, auto Setter>
void readBySetter(void *object, QStringView text)
{
    ValueOf<Member> value{};
    fromText(text, value);
    std::invoke(Setter, as<DocumentOf<Member>>(object), value);
}

template <auto Member>
QString write(const void *object)
{
    return toText(std::invoke(Member, as<DocumentOf<Member>>(object)));
}

template <auto Member, NameTable (*Names)()>
void readName(void *object, QStringView text)
{
    as<DocumentOf<Member>>(object).*Member = static_cast<ValueOf<Member>>(Names().valueOf(text));
}

template <auto Member, NameTable (*Names)(), auto Setter>
void readNameBySetter(void *object, QStringView text)
{
    std::invoke(Setter, as<DocumentOf<Member>>(object), static_cast<ValueOf<Member>>(Names().valueOf(text)));
}

template <auto Member, NameTable (*Names)()>
QString writeName(const void *object)
{
    return Names().nameOf(static_cast<qint32>(std::invoke(Member, as<DocumentOf<Member>>(object))));
}

/// With what only some have.
struct Maker : Row {
    template <auto Member, class Value>
    constexpr Maker with(Value value) const
    {
        Maker row = *this;
        row.*Member = value;
        return row;
    }
    template <auto Member, class Value>
    constexpr Maker typed(Value value) const
    {
        Maker row = *this;
        row.type.*Member = value;
        return row;
    }

    /// Written only where the condition holds; read always.
    template <auto Condition>
    constexpr Maker writtenIf() const
    {
        return with<&Row::isWritten>(ask<Condition>);
    }
    constexpr Maker onlyRead() const
    {
        Maker row = *this;
        row.write = nullptr;
        row.isWritten = [](const void * /*object*/) { return false; };
        return row;
    }
    constexpr Maker onlyWritten() const { return with<&Row::read>(nullptr); }
    /// Read, or written, in a way of its own.
    template <auto Read>
    constexpr Maker readBy() const
    {
        Maker row = *this;
        row.read = [](void *object, QStringView text) { Read(as<DocumentOf<Read>>(object), text); };
        return row;
    }
    template <auto Write>
    constexpr Maker writtenBy() const
    {
        return with<&Row::write>(ask<Write>);
    }
    /// Check() asks for it unless \a IsValid holds, by \a field.
    template <auto IsValid>
    constexpr Maker required(QStringView field) const
    {
        return with<&Row::requiredAs>(field).with<&Row::isValid>(ask<IsValid>);
    }
    template <auto IsValid>
    constexpr Maker required() const
    {
        return required<IsValid>(name);
    }
    /// A part that must be complete; Check() leaves it to the part to say what it lacks.
    template <auto IsThere>
    constexpr Maker requiredPart() const
    {
        return needed<IsThere>().template with<&Row::requiredAs>(name);
    }
    /// HasData() asks for it, and Check() does not.
    template <auto IsThere>
    constexpr Maker needed() const
    {
        return with<&Row::isComplete>(ask<IsThere>);
    }
    /// Required, or needed, only where the condition holds.
    template <auto Condition>
    constexpr Maker requiredIf() const
    {
        return with<&Row::isApplicable>(ask<Condition>);
    }
    constexpr Maker expected() const { return with<&Row::isExpected>(true); }
    /// As other values than the text says, with the setter if there is one.
    template <auto Getter, auto... Setter>
    constexpr Maker valued() const
    {
        Maker row = *this;
        row.type = typeOf<ValueOf<Getter>>();
        row.get = Rows::get<Getter>;
        if constexpr (sizeof...(Setter) > 0)
            row.set = Rows::set<Getter, Setter...>;
        return row;
    }
    template <FieldValue (*Get)(const void *)>
    constexpr Maker gotBy() const
    {
        return with<&Row::get>(Get);
    }
    /// Fields are set by assigning to a public member.
    template <auto Member>
    constexpr Maker assigned() const
    {
        Maker row = *this;
        row.set = [](void *object, const FieldValue &value) {
            as<DocumentOf<Member>>(object).*Member = fromField<ValueOf<Member>>(value);
        };
        return row;
    }
    constexpr Maker in(QStringView unit) const { return typed<&TextType::unit>(unit); }
    constexpr Maker from(qint64 least, qint64 most) const
    {
        return typed<&TextType::least>(least).typed<&TextType::most>(most);
    }
    constexpr Maker limit() const { return typed<&TextType::isLimit>(true); }
    constexpr Maker orEmpty() const { return typed<&TextType::mayBeEmpty>(true); }
    /// Texts that it may not say are refused by a setter, which calls it \a field.
    constexpr Maker refusedAs(QStringView field) const { return with<&Row::refusedAs>(field); }
    constexpr Maker keeping() const { return with<&Row::keepsFormer>(true); }
    /// Where it is missing, that means the same as \a text.
    constexpr Maker defaultsTo(QStringView text) const { return with<&Row::defaultText>(text); }
};

constexpr Maker textRow(QStringView name, decltype(Row::read) read, decltype(Row::write) write)
{
    Maker row;
    row.name = name;
    row.read = read;
    row.write = write;
    return row;
}

/// An attribute or element that holds a member as text. Fields are set by \a Setter; reading needs none.
template <auto Member, auto... Setter>
constexpr Maker element(QStringView name)
{
    return textRow(name, read<Member>, write<Member>).template valued<Member, Setter...>();
}
template <auto Member, auto... Setter>
constexpr Maker attribute(QStringView name)
{
    return element<Member, Setter...>(name);
}

/// As element(), for a double that is not set when it is NaN.
template <auto Member, auto Setter>
constexpr Maker numberElement(QStringView name)
{
    return element<Member, Setter>(name).template gotBy<getNumber<Member>>();
}

/// An element that is written as \a Member, a member or a getter, says, and read through a setter, which may
/// throw.
template <auto Member, auto Setter>
constexpr Maker checkedElement(QStringView name)
{
    return textRow(name, readBySetter<Member, Setter>, write<Member>).template valued<Member, Setter>();
}

/// A member by its name in a vocabulary, stored as it comes out, unknown or not.
template <auto Member, NameTable (*Names)(), auto... Setter>
constexpr Maker namedElement(QStringView name)
{
    return textRow(name, readName<Member, Names>, writeName<Member, Names>)
        .template valued<Member, Setter...>()
        .template typed<&TextType::names>(Names);
}

/// As namedElement(), read through the setter, which may throw.
template <auto Member, NameTable (*Names)(), auto Setter>
constexpr Maker checkedNamedElement(QStringView name)
{
    return namedElement<Member, Names, Setter>(name).template with<&Row::read>(
        readNameBySetter<Member, Names, Setter>);
}

/// What \a Getter gives and \a Setter takes; documents do not say it.
template <auto Getter, auto... Setter>
constexpr Maker field(QStringView name)
{
    return textRow(name, nullptr, nullptr).template valued<Getter, Setter...>();
}

// Parts

template <auto Member>
std::vector<FieldPart> onePart(const void *object)
{
    return {{QString(), &std::invoke(Member, as<DocumentOf<Member>>(object))}};
}

template <auto Member>
void changePart(void *object, const QString & /*key*/, const FieldChange &work)
{
    work(&std::invoke(Member, as<DocumentOf<Member>>(object)));
}

/// An object that is a member.
template <auto Member, auto Change = changePart<Member>>
inline constexpr Part OwnedPart{
    Part::Kind::One,
    DocumentTables::of<ValueOf<Member>>,
    onePart<Member>,
    Change,
    [](const void *object) -> const QString & {
        return (as<DocumentOf<Member>>(object).*Member).GetObjectName();
    },
    [](const void *object) { (as<DocumentOf<Member>>(object).*Member).Check(); },
    [](void *object, QXmlStreamReader &reader) {
        auto &document = as<DocumentOf<Member>>(object);
        readOwned(document, document.*Member, reader);
    },
    [](const void *object, QXmlStreamWriter &writer, const QString & /*tag*/) {
        (as<DocumentOf<Member>>(object).*Member).GetXml(writer);
    },
    [](void *object) -> void * { return &(as<DocumentOf<Member>>(object).*Member); },
};

template <auto List>
std::vector<FieldPart> listParts(const void *object)
{
    std::vector<FieldPart> all;
    for (const auto &item : std::invoke(List, as<DocumentOf<List>>(object)))
        all.push_back({QString::number(static_cast<int>(all.size())), &item});
    return all;
}

template <auto List>
void *appendToList(void *object)
{
    auto &list = std::invoke(List, as<DocumentOf<List>>(object));
    list.append(typename std::decay_t<decltype(list)>::value_type());
    return &list.last();
}

template <auto List>
void changeInList(void *object, const QString &key, const FieldChange &work)
{
    auto &list = std::invoke(List, as<DocumentOf<List>>(object));
    const int index = key.toInt();
    if (index == list.size())
        appendToList<List>(object);
    if (index >= list.size())
        throw FieldError{QStringLiteral("there are only %1 elements before it").arg(list.size())};
    work(&list[index]);
}

/// The items of a list, with one table for all: \a List gives it to be looked at, \a Variable to be changed.
template <auto List, auto Variable, const ObjectTable &(*Table)()>
constexpr Part listPart(decltype(Part::read) read = nullptr, decltype(Part::write) write = nullptr,
                        decltype(Part::leave) leave = nullptr)
{
    return {Part::Kind::List, Table, listParts<List>, changeInList<Variable>, nullptr,
            nullptr,          read,  write,           appendToList<Variable>, leave};
}

constexpr Maker partElement(QStringView name, Row::Content content, const Part &part)
{
    return textRow(name, nullptr, nullptr).with<&Row::content>(content).with<&Row::part>(&part);
}

/// The element of an object that the document owns, called \a name unless it has given itself another one.
template <auto Member, auto Change = changePart<Member>>
constexpr Maker ownedElement(QStringView name)
{
    return partElement(name, Row::Content::Object, OwnedPart<Member, Change>);
}

/// An element without any meaning.
constexpr Maker ignoredElement(QStringView name)
{
    return textRow(name, nullptr, nullptr).with<&Row::content>(Row::Content::Ignored);
}

} // namespace Rows

} // namespace TESSEL

#endif
