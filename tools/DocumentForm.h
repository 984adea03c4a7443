// The XML form of a document as people should write it: which elements and attributes there are, what their
// texts may say, and what Check() of the library asks for. A document is described by tables,
//     constexpr ElementForm HeaderElements[] = {
//         text(u"Author").askedFor(u"Author"),
//         text(u"Description"),
//     };
//     constexpr ObjectForm Header{u"JobHeader", VersionOnly, HeaderElements};
// each with a row per element or attribute that the library knows; findProblems() goes through a document
// with them.
#ifndef KORMAK_TOOLS_DOCUMENTFORM_H
#define KORMAK_TOOLS_DOCUMENTFORM_H

#include <tools/TextForm.h>

#include <QString>
#include <QStringView>

#include <cstddef>
#include <optional>

class XmlTree;

/// A view of a table.
template <class Row>
class FormTable {
public:
    constexpr FormTable() = default;
    template <std::size_t Count>
    constexpr FormTable(const Row (&rows)[Count]) : first(rows), count(Count)
    {
    }

    [[nodiscard]] constexpr const Row *begin() const { return first; }
    [[nodiscard]] constexpr const Row *end() const { return first + count; }
    [[nodiscard]] constexpr std::size_t size() const { return count; }
    [[nodiscard]] constexpr const Row &operator[](std::size_t index) const { return first[index]; }

private:
    const Row *first = nullptr;
    std::size_t count = 0;
};

/// What a document says in the elements of an object, the last of each name.
class ObjectTexts {
public:
    virtual ~ObjectTexts() = default;
    /// Nothing when there is no such element.
    [[nodiscard]] virtual std::optional<QString> text(QStringView element) const = 0;
};

struct ObjectForm;

struct AttributeForm {
    QStringView name;
    TextForm text = TextForm::Kind::Any;
    QStringView field = {}; ///< as Check() calls it when it asks for it; null: it does not
    QStringView unread = {}; ///< why the library does not read it; null: it does
};

struct ElementForm {
    enum class Content {
        Text,
        Object, ///< read up to the end of the element
        List, ///< as Object; each element is an object of its own
        Block, ///< read up to the next end of the name `end`; all that is in it is looked at
        Entry, ///< attributes only; what is in it belongs to the block around it
        Ignored,
    };
    enum class Demand {
        None,
        Expected, ///< the library is content without it, but it should be there
        Asked, ///< by Check()
    };
    using Condition = bool (*)(const ObjectTexts &object);

    QStringView name;
    Content content = Content::Text;
    TextForm form = TextForm::Kind::Any;
    FormTable<AttributeForm> attributes = {}; ///< of texts
    const ObjectForm *object = nullptr;
    QStringView end = {};
    Demand demand = Demand::None;
    QStringView field = {}; ///< as Check() calls it
    QStringView refusedAs = {}; ///< as the setter calls it that refuses texts; null: none does
    QStringView unread = {}; ///< of ignored elements, why; null: nothing worth telling
    Condition condition = nullptr; ///< when there is the demand; null: always
    Condition isMet = nullptr; ///< whether the demand is met by the element; null: when its text says it
    QStringView wanted = {}; ///< what would meet the demand
    bool keepsFormer = false; ///< a text that does not say it leaves what an element before it said

    [[nodiscard]] constexpr ElementForm askedFor(QStringView checkedField, Condition when = nullptr) const
    {
        ElementForm row = *this;
        row.demand = Demand::Asked;
        row.field = checkedField;
        row.condition = when;
        return row;
    }
    [[nodiscard]] constexpr ElementForm expected(Condition when = nullptr) const
    {
        ElementForm row = *this;
        row.demand = Demand::Expected;
        row.condition = when;
        return row;
    }
    [[nodiscard]] constexpr ElementForm metBy(Condition isGood, QStringView whatIsGood) const
    {
        ElementForm row = *this;
        row.isMet = isGood;
        row.wanted = whatIsGood;
        return row;
    }
    [[nodiscard]] constexpr ElementForm elseRefusedAs(QStringView setterField) const
    {
        ElementForm row = *this;
        row.refusedAs = setterField;
        return row;
    }
    [[nodiscard]] constexpr ElementForm elseAsBefore() const
    {
        ElementForm row = *this;
        row.keepsFormer = true;
        return row;
    }
};

/// Something about an object that no single row can tell.
struct FormRule {
    QStringView element; ///< where it is told
    bool (*isBroken)(const ObjectTexts &object);
    QStringView message;
    QStringView field = {}; ///< as Check() calls what it asks for then; null: it does not ask
};

struct ObjectForm {
    QStringView name; ///< of the object, in the messages of the library
    FormTable<AttributeForm> attributes;
    FormTable<ElementForm> elements;
    FormTable<FormRule> rules = {};
    bool refusesOthers = true; ///< other elements than these
};

/// What tables are made of.
namespace DocumentForms {

constexpr ElementForm text(QStringView name, TextForm form = TextForm::Kind::Any)
{
    ElementForm row;
    row.name = name;
    row.form = form;
    return row;
}

constexpr ElementForm withObject(QStringView name, const ObjectForm &object, ElementForm::Content content)
{
    ElementForm row;
    row.name = name;
    row.content = content;
    row.object = &object;
    return row;
}

constexpr ElementForm object(const ObjectForm &form)
{
    return withObject(form.name, form, ElementForm::Content::Object);
}

constexpr ElementForm list(QStringView name, const ObjectForm &form)
{
    return withObject(name, form, ElementForm::Content::List);
}

constexpr ElementForm entry(const ObjectForm &form)
{
    return withObject(form.name, form, ElementForm::Content::Entry);
}

constexpr ElementForm block(QStringView name, const ObjectForm &form, QStringView end)
{
    ElementForm row = withObject(name, form, ElementForm::Content::Block);
    row.end = end;
    return row;
}

constexpr ElementForm block(QStringView name, const ObjectForm &form)
{
    return block(name, form, name);
}

constexpr ElementForm ignored(QStringView name, QStringView why = {})
{
    ElementForm row;
    row.name = name;
    row.content = ElementForm::Content::Ignored;
    row.unread = why;
    return row;
}

inline constexpr AttributeForm VersionOnly[] = {{u"Version"}};

} // namespace DocumentForms

// The documents: each a form whose one element is the root.
[[nodiscard]] const ObjectForm &jobForm(const XmlTree &document);
[[nodiscard]] const ObjectForm &workflowForm(const XmlTree &document);
[[nodiscard]] const ObjectForm &generationForm(const XmlTree &document);
[[nodiscard]] const ObjectForm &receiverForm(const XmlTree &document);
[[nodiscard]] const ObjectForm &parameterForm(const XmlTree &document);

#endif
