#include "inspection/FieldListing_p.h"

#include <inspection/DocumentTexts_p.h>
#include <inspection/FieldAssignment_p.h>
#include <inspection/FieldList_p.h>
#include <inspection/FieldText_p.h>
#include <inspection/Json_p.h>
#include <objectbase/ITesselObject.h>

#include <algorithm>

namespace KORMAK::Inspection {

namespace {

using Kind = FieldParts::Kind;

const QString NameKey = QStringLiteral("NAME");

class Listing {
public:
    std::vector<SettableField> fields;

    /// What \a object, a new one, holds is what its fields hold as long as nothing is said.
    void add(const FieldTable &table, void *object, const SettableField &around)
    {
        for (const FieldRow &row : table) {
            if (!row.isInDocuments)
                continue;
            SettableField field = around;
            field.path += row.key.toString();
            field.requirement = std::min(around.requirement, row.requirement);
            if (!row.condition.isNull())
                field.condition = row.condition.toString();
            if (row.set)
                addValue(field, row, object);
            if (row.parts)
                addParts(field, row, object);
        }
    }

private:
    void addValue(SettableField field, const FieldRow &row, const void *object)
    {
        field.allowed = describe(row.type);
        field.row = &row;
        const FieldValue standard = row.get(object);
        if (standard != FieldValue(NameKey))
            field.standard = standard;
        fields.push_back(field);
    }

    void addParts(SettableField field, const FieldRow &row, void *object)
    {
        const FieldParts &parts = *row.parts;
        const FieldRow &first = parts.table.rows.front();
        const QString key = parts.kind == Kind::List ? QStringLiteral("[N]")
            : parts.kind == Kind::Map                ? QLatin1Char('[') + NameKey + QLatin1Char(']')
                                                     : QString();
        if (isPlainList(row)) {
            field.row = &first;
            field.allowed = QStringLiteral("adds values: ") + describe(first.type);
            fields.push_back(field);
            field.path += key;
            field.allowed = describe(first.type);
            fields.push_back(field);
            return;
        }
        if (isSetAsWhole(row)) {
            SettableField whole = field;
            whole.row = nullptr;
            whole.allowed = (parts.kind == Kind::List ? QStringLiteral("adds one: ") : QString())
                + settableKeys(parts.table).join(QLatin1Char(','));
            fields.push_back(whole);
        }
        field.path += key + QLatin1Char('.');
        // What stands in a list or is called by a name is required of each.
        field.requirement = parts.kind == Kind::One ? field.requirement : Field::Requirement::Always;
        if (parts.kind == Kind::One) {
            add(parts.table, const_cast<void *>(parts.all(object).front().object), field);
            return;
        }
        parts.change(object, parts.kind == Kind::List ? QStringLiteral("0") : NameKey,
                     [&](void *part) { add(parts.table, part, field); });
    }
};

QString requirementName(Field::Requirement requirement)
{
    switch (requirement) {
    case Field::Requirement::None:
        break;
    case Field::Requirement::Sometimes:
        return QStringLiteral("sometimes");
    case Field::Requirement::Always:
        return QStringLiteral("always");
    }
    return QStringLiteral("never");
}

void write(JsonWriter &json, const SettableField &field)
{
    const TextType *const type = field.row ? &field.row->type : nullptr;
    const Field described = field.row
        ? FieldMaker::made(field.path, *field.row, field.standard, {true, field.requirement})
        : Field();
    const bool isWhole = type && described.GetType() == Field::Type::Integer;
    json.beginObject();
    json.member(u"field", jsonText(field.path));
    json.member(u"label", jsonTextOrNull(described.GetLabel()));
    json.member(u"type", type ? jsonText(typeName(described.GetType())) : QStringLiteral("null"));
    json.member(u"unit", jsonTextOrNull(described.GetUnit()));
    json.member(u"minimum", isWhole ? QString::number(described.GetMinimum()) : QStringLiteral("null"));
    json.member(u"maximum", isWhole ? QString::number(described.GetMaximum()) : QStringLiteral("null"));
    json.key(u"allowed");
    json.array(described.GetAllowed());
    json.member(u"inWords", jsonText(field.allowed));
    json.member(u"required", jsonText(requirementName(field.requirement)));
    json.member(u"default", type ? jsonValue(*type, field.standard) : QStringLiteral("null"));
    json.member(u"condition", jsonTextOrNull(field.condition));
    json.endObject();
}

} // namespace

std::vector<SettableField> settableFields(const DocumentKind &kind)
{
    const auto object = kind.create();
    Listing listing;
    listing.add(kind.fields(), kind.variableAddress(*object), {{}, {}, nullptr, Field::Requirement::Always});
    return listing.fields;
}

QString settableFieldsJson(const DocumentKind &kind)
{
    JsonWriter json(JsonWriter::Layout::Indented);
    json.beginObject();
    json.member(u"kind", jsonText(kind.rootElement));
    json.key(u"fields");
    json.beginArray();
    for (const SettableField &field : settableFields(kind))
        write(json, field);
    json.endArray();
    json.endObject();
    return json.text();
}

} // namespace KORMAK::Inspection
