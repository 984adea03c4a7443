// The table of Parameter: its own attributes and elements, and the blocks of its handlers. A block is a
// table like any other; it is written like an element and read by readBlock().
#include "kormak/Parameter.h"

#include <kormak/HandlerSlot_p.h>
#include <kormak/NoDoubleValue_p.h>
#include <kormak/Vocabularies_p.h>
#include <objectbase/Constants_p.h>
#include <objectbase/DocumentRows_p.h>
#include <objectbase/DocumentXml_p.h>
#include <objectbase/Messages_p.h>

#include <utility>

namespace KORMAK {

using namespace TESSEL;

namespace {

[[maybe_unused]] constexpr auto LogLevels = LogLevelNames;

constexpr int LimitDecimals = 6;
constexpr int ShortDecimals = 2; // multipliers and the values of enumeration entries

constexpr QStringView ObjectName = u"Parameter";
constexpr QStringView TagBoolean = u"Boolean";
constexpr QStringView TagDefault = u"Default";
constexpr QStringView TagDoubleBlock = u"Double";
constexpr QStringView TagEnumBlock = u"Enum";
constexpr QStringView TagFloatBlock = u"Float";
constexpr QStringView TagIntegerBlock = u"Integer";
constexpr QStringView TagLongBlock = u"Long";
constexpr QStringView TagStringBlock = u"String";
constexpr QStringView TagTimeStampBlock = u"TimeStamp";

using EnumValue = EnumHandler::EnumValue;

template <class Handler>
Handler handlerOf(const HandlerSlot<Handler> &);

template <auto Slot>
using HandlerOf = decltype(handlerOf(std::declval<Rows::ValueOf<Slot> &>()));

template <class Number>
QString limitText(Number number)
{
    if constexpr (std::is_floating_point_v<Number>)
        return fixedText(static_cast<double>(number), LimitDecimals);
    else
        return numberText(number);
}

/// A field of a handler, which documents do not say.
template <auto Slot, auto Getter, auto Setter>
constexpr Rows::Maker handlerField(QStringView name)
{
    using Value = std::decay_t<std::invoke_result_t<decltype(Getter), const HandlerOf<Slot> &>>;
    Rows::Maker row;
    row.name = name;
    row.type = Rows::typeOf<Value>();
    row.get = [](const void *object) {
        return Rows::toField(((Rows::as<Parameter>(object).*Slot).look().*Getter)());
    };
    row.set = [](void *object, const FieldValue &value) {
        ((Rows::as<Parameter>(object).*Slot).edit().*Setter)(Rows::fromField<Value>(value));
    };
    return row;
}

/// A number in a handler. Reading it calls \a MoreSetters, too.
template <auto Slot, auto Getter, auto Setter, auto... MoreSetters>
constexpr Rows::Maker handlerElement(QStringView tag)
{
    Rows::Maker row = handlerField<Slot, Getter, Setter>(tag);
    row.read = [](void *object, QStringView text) {
        auto &handler = (Rows::as<Parameter>(object).*Slot).edit();
        std::decay_t<decltype((handler.*Getter)())> number{};
        fromText(text, number);
        (handler.*Setter)(number);
        ((handler.*MoreSetters)(number), ...);
    };
    row.write = [](const void *object) {
        return limitText(((Rows::as<Parameter>(object).*Slot).look().*Getter)());
    };
    return row;
}

template <auto Slot>
constexpr auto minimumElement()
{
    using H = HandlerOf<Slot>;
    return handlerElement<Slot, &H::GetMinimum, &H::SetMinimum>(u"Minimum").limit();
}

template <auto Slot>
constexpr auto maximumElement()
{
    using H = HandlerOf<Slot>;
    return handlerElement<Slot, &H::GetMaximum, &H::SetMaximum>(u"Maximum").limit();
}

/// Reading a default also sets the value.
template <auto Slot>
constexpr auto defaultElement()
{
    using H = HandlerOf<Slot>;
    return handlerElement<Slot, &H::GetDefault, &H::SetDefault, &H::SetValue>(TagDefault);
}

template <auto Slot>
constexpr auto precisionElement()
{
    using H = HandlerOf<Slot>;
    return handlerElement<Slot, &H::GetPrecision, &H::SetPrecision>(u"Precision");
}

template <auto Slot>
constexpr auto valueField()
{
    using H = HandlerOf<Slot>;
    return handlerField<Slot, &H::GetValue, &H::SetValue>(u"Value");
}

template <auto Slot>
constexpr auto multiplierField()
{
    using H = HandlerOf<Slot>;
    return handlerField<Slot, &H::GetMultiplier, &H::SetMultiplier>(u"Multiplier");
}

template <auto Slot>
constexpr auto representationNameField()
{
    using H = HandlerOf<Slot>;
    return handlerField<Slot, &H::GetRepresentationName, &H::SetRepresentationName>(u"RepresentationName");
}

template <auto Slot>
constexpr auto uniqueNameField()
{
    using H = HandlerOf<Slot>;
    return handlerField<Slot, &H::GetUniqueParameterName, &H::SetUniqueParameterName>(u"UniqueParameterName");
}

/// The attributes of an enumeration entry.
struct EntryXml {
    static bool hasIdentifier(const EnumValue &entry) { return !entry.Identifier.isEmpty(); }
    static QString valueText(const EnumValue &entry) { return fixedText(entry.Value, ShortDecimals); }
    static void setDefault(EnumValue &entry, bool isDefault) { entry.Default = toText(isDefault); }
    static void readDefault(EnumValue &entry, QStringView text)
    {
        bool isDefault = false;
        fromText(text, isDefault);
        setDefault(entry, isDefault);
    }

    static constexpr Row attributes[] = {
        Rows::attribute<&EnumValue::Key>(u"Key").assigned<&EnumValue::Key>(),
        Rows::attribute<&EnumValue::Name>(u"Name").assigned<&EnumValue::Name>(),
        Rows::attribute<&EnumValue::Identifier>(u"Identifier")
            .assigned<&EnumValue::Identifier>()
            .writtenIf<hasIdentifier>()
            .defaultsTo(u""),
        Rows::attribute<&EnumValue::Value>(u"Value").assigned<&EnumValue::Value>().writtenBy<valueText>(),
        Rows::attribute<&EnumValue::Default>(TagDefault)
            .valued<&EnumValue::IsDefault, setDefault>()
            .readBy<readDefault>()
            .writtenIf<&EnumValue::IsDefault>()
            .defaultsTo(u"false"),
    };
    static constexpr ObjectTable table{u"EnumValue", attributes, {}};
    static const ObjectTable &get() { return table; }
};

/// A value of a double list, which has no name.
struct DoubleXml {
    static double value(const double &number) { return number; }
    static void setValue(double &number, double value) { number = value; }

    static constexpr Row fields[] = {
        Rows::field<value, setValue>({}),
    };
    static constexpr ObjectTable table{{}, {}, {}, fields};
    static const ObjectTable &get() { return table; }
};

constexpr bool RefusesOthers = false; // blocks do not

constexpr Rows::Maker blockElement(QStringView tag, QStringView end, const Part &part)
{
    return Rows::partElement(tag, Row::Content::Block, part).with<&Row::end>(end);
}

/// Reads up to the next end element called \a name, whatever the block was opened as. Every descendant is
/// looked at; what no row of the block stands for is ignored.
void readBlock(const ObjectTable &table, Parameter &parameter, QStringView name, QXmlStreamReader &reader)
{
    constexpr int WithBlock = 2;
    Nesting nesting(parameter, reader, WithBlock);
    while (!reader.atEnd()) {
        const auto token = reader.readNext();
        nesting.count(token);
        if (reader.hasError())
            break;
        if (token == QXmlStreamReader::EndElement && QStringView(reader.qualifiedName()) == name)
            break;
        if (token == QXmlStreamReader::StartElement && readKnownChild(table, &parameter, reader)
            && !reader.isStartElement())
            nesting.leave();
    }
    if (reader.hasError())
        fail(reader.errorString());
}

} // namespace

struct Parameter::Xml {
    using P = Parameter;

    template <auto Text>
    static bool isSet(const P &parameter)
    {
        return !(parameter.*Text).isEmpty();
    }

    // Blocks

    /// The handler of a block gets to know the names before the block is read.
    template <auto Slot>
    static void enter(P &parameter)
    {
        auto &handler = (parameter.*Slot).edit();
        handler.SetRepresentationName(parameter.representationName);
        handler.SetUniqueParameterName(parameter.uniqueName);
    }
    static void enterDouble(P &parameter)
    {
        parameter.doubleHandler.edit().SetUseAsList(parameter.IsDoubleList());
        enter<&P::doubleHandler>(parameter);
    }
    static void enterEnum(P &parameter)
    {
        if (parameter.isMerging())
            parameter.enumHandler.edit().Reset(); // which leaves the default and the selected entry
        enter<&P::enumHandler>(parameter);
    }

    /// A block whose rows take the parameter.
    template <class Block, auto Enter, auto Read>
    static constexpr Part blockPart{
        Part::Kind::One,
        []() -> const ObjectTable & { return Block::table; },
        [](const void *object) {
            return std::vector<FieldPart>{{QString(), object}};
        },
        [](void *object, const QString & /*key*/, const FieldChange &work) { work(object); },
        nullptr,
        nullptr,
        [](void *object, QXmlStreamReader &reader) { (Rows::as<P>(object).*Read)(reader); },
        [](const void *object, QXmlStreamWriter &writer, const QString &tag) {
            writeElement(Block::table, object, writer, tag);
        },
        [](void *object) {
            Enter(Rows::as<P>(object));
            return object;
        },
    };
    template <auto Slot>
    struct WholeNumberBlock {
        static constexpr Row elements[] = {
            minimumElement<Slot>(),
            maximumElement<Slot>(),
            defaultElement<Slot>(),
        };
        static constexpr Row fields[] = {
            valueField<Slot>(),
            multiplierField<Slot>(),
            representationNameField<Slot>(),
            uniqueNameField<Slot>(),
        };
        static constexpr ObjectTable table{TagIntegerBlock, {}, elements, fields, {}, RefusesOthers};
    };

    struct FloatBlock {
        static constexpr Row elements[] = {
            minimumElement<&P::floatHandler>(),
            maximumElement<&P::floatHandler>(),
            defaultElement<&P::floatHandler>(),
            precisionElement<&P::floatHandler>(),
        };
        static constexpr Row fields[] = {
            valueField<&P::floatHandler>(),
            multiplierField<&P::floatHandler>(),
            representationNameField<&P::floatHandler>(),
            uniqueNameField<&P::floatHandler>(),
        };
        static constexpr ObjectTable table{TagFloatBlock, {}, elements, fields, {}, RefusesOthers};
    };

    struct DoubleBlock {
        static FieldValue value(const void *object)
        {
            const double number = Rows::as<P>(object).doubleHandler.look().GetValue();
            return number == NoDoubleValue ? FieldValue() : FieldValue(number);
        }
        static const QVector<double> &values(const P &p) { return p.doubleHandler.look().GetDoubleList(); }
        static QVector<double> &variableValues(P &p) { return p.doubleHandler.edit().GetDoubleList(); }
        static constexpr Part valuesPart = Rows::listPart<values, variableValues, DoubleXml::get>();

        static constexpr Row elements[] = {
            minimumElement<&P::doubleHandler>(),
            maximumElement<&P::doubleHandler>(),
            defaultElement<&P::doubleHandler>(),
            precisionElement<&P::doubleHandler>(),
            handlerElement<&P::doubleHandler, &DoubleHandler::GetMaxDoubleListLength,
                           &DoubleHandler::SetMaxDoubleListLength>(u"MaxDoubleListLength")
                .writtenIf<&P::IsDoubleList>(),
        };
        static constexpr Row fields[] = {
            valueField<&P::doubleHandler>().gotBy<value>(),
            handlerField<&P::doubleHandler, &DoubleHandler::IsDoubleList, &DoubleHandler::SetUseAsList>(
                u"UseAsList"),
            Rows::partElement(u"DoubleList", Row::Content::Object, valuesPart),
            multiplierField<&P::doubleHandler>(),
            representationNameField<&P::doubleHandler>(),
            uniqueNameField<&P::doubleHandler>(),
        };
        static constexpr ObjectTable table{TagDoubleBlock, {}, elements, fields, {}, RefusesOthers};
    };

    /// The default is written as an attribute, but read from an element.
    struct StringBlock {
        static bool hasDefault(const P &p) { return !p.stringHandler.look().GetDefault().isEmpty(); }
        static QString defaultText(const P &p) { return p.stringHandler.look().GetDefault(); }
        static void readDefault(P &p, QStringView text)
        {
            StringHandler &handler = p.stringHandler.edit();
            handler.SetDefault(text.toString());
            handler.SetValue(handler.GetDefault());
        }

        static constexpr Row attributes[] = {
            Rows::field<defaultText>(TagDefault).writtenBy<defaultText>().writtenIf<hasDefault>(),
        };
        static constexpr Row elements[] = {
            handlerField<&P::stringHandler, &StringHandler::GetDefault, &StringHandler::SetDefault>(
                TagDefault)
                .readBy<readDefault>(),
        };
        static constexpr Row fields[] = {
            valueField<&P::stringHandler>(),
            representationNameField<&P::stringHandler>(),
            uniqueNameField<&P::stringHandler>(),
        };
        static constexpr ObjectTable table{TagStringBlock, attributes, elements, fields, {}, RefusesOthers};
    };

    struct EnumBlock {
        static EnumHandler &edit(void *object) { return Rows::as<P>(object).enumHandler.edit(); }

        /// The first entry is the default until one that says so takes its place.
        static void leaveEntry(void *object, void *part)
        {
            EnumHandler &handler = edit(object);
            const auto &entry = *static_cast<const EnumValue *>(part);
            if (entry.IsDefault() || handler.GetEnumList().size() == 1) {
                handler.SetDefaultValue(entry);
                handler.SetSelectedEnumValue(entry);
            }
        }
        static void readEntry(void *object, QXmlStreamReader &reader)
        {
            EnumValue entry; // not in the list before it is whole: memory may run out
            readAttributes(EntryXml::table, &entry, reader);
            edit(object).AppendEnumValue(entry);
            leaveEntry(object, &entry);
        }
        static void writeEntries(const void *object, QXmlStreamWriter &writer, const QString &tag)
        {
            for (const EnumValue &entry : entries(Rows::as<P>(object)))
                writeElement(EntryXml::table, &entry, writer, tag);
        }

        static const QVector<EnumValue> &entries(const P &p) { return p.enumHandler.look().GetEnumList(); }
        static QVector<EnumValue> &variableEntries(P &p) { return p.enumHandler.edit().GetEnumList(); }

        static constexpr Part entriesPart =
            Rows::listPart<entries, variableEntries, EntryXml::get>(readEntry, writeEntries, leaveEntry);

        template <auto Get, auto Edit>
        static constexpr Part entryPart{
            Part::Kind::One,
            EntryXml::get,
            [](const void *object) {
                const EnumHandler &handler = Rows::as<P>(object).enumHandler.look();
                return std::vector<FieldPart>{{QString(), &(handler.*Get)()}};
            },
            [](void *object, const QString & /*key*/, const FieldChange &work) {
                work(&(edit(object).*Edit)());
            },
        };
        using Entry = const EnumValue &(EnumHandler::*)() const noexcept;
        using VariableEntry = EnumValue &(EnumHandler::*)() noexcept;

        static constexpr Row elements[] = {
            Rows::partElement(u"EnumValue", Row::Content::Entry, entriesPart), // one element each
        };
        static constexpr Row fields[] = {
            Rows::partElement(u"DefaultValue", Row::Content::Object,
                              entryPart<static_cast<Entry>(&EnumHandler::GetDefaultValue),
                                        static_cast<VariableEntry>(&EnumHandler::GetDefaultValue)>),
            Rows::partElement(u"SelectedEnumValue", Row::Content::Object,
                              entryPart<static_cast<Entry>(&EnumHandler::GetSelectedEnumValue),
                                        static_cast<VariableEntry>(&EnumHandler::GetSelectedEnumValue)>),
            representationNameField<&P::enumHandler>(),
            uniqueNameField<&P::enumHandler>(),
        };
        static constexpr ObjectTable table{TagEnumBlock, {}, elements, fields, {}, RefusesOthers};
    };

    /// The element is a text; what it fills has more fields.
    struct BooleanBlock {
        static constexpr Row fields[] = {
            valueField<&P::booleanHandler>(),
            representationNameField<&P::booleanHandler>(),
            uniqueNameField<&P::booleanHandler>(),
        };
        static constexpr ObjectTable table{TagBoolean, {}, {}, fields};
        static void enter(P & /*parameter*/) { }
    };

    template <auto Slot, auto Read>
    static constexpr const Part &wholeNumberPart = blockPart<WholeNumberBlock<Slot>, enter<Slot>, Read>;
    static constexpr const Part &doublePart = blockPart<DoubleBlock, enterDouble, &P::ProcessDoubleList>;

    // The parameter itself

    static bool hasValueType(const P &p) { return p.valueType != InvalidValueType; }
    static bool hasType(const P &p) { return p.parameterType != ParameterType::Invalid; }
    static bool isValueTypeWritten(const P &p) { return IsValidValueType(p.valueType); }
    static bool isControlTypeWritten(const P &p) { return p.HasControlType(); }
    static const QString &valueTypeName(const P &p) { return p.valueTypeNames.at(p.valueType); }
    static const QString &controlTypeName(const P &p) { return p.controlTypeNames.at(p.controlType); }

    static bool hasMultiplier(const P &p) { return p.multiplier != 1.0; }
    static QString multiplierText(const P &p) { return fixedText(p.multiplier, ShortDecimals); }

    static bool isTypeWritten(const P &p)
    {
        return !p.IsBoolean() && parameterTypes().isValid(static_cast<qint32>(p.parameterType));
    }
    static void readType(P &p, QStringView name) { p.SetParameterType(borrowed(name)); }
    static void setType(P &p, ParameterType type) { p.parameterType = type; }

    static bool booleanValue(const P &p) { return p.booleanHandler.look().GetValue(); }
    static QString booleanText(const P &p) { return toText(booleanValue(p)); }
    static void readBoolean(P &p, QStringView text)
    {
        bool on = false;
        fromText(text, on);
        p.booleanHandler.edit().SetValue(on);
        enter<&P::booleanHandler>(p);
    }

    static bool hasDoubleBlock(const P &p) { return p.IsDouble() || p.IsDoubleList(); }

    static constexpr Row attributes[] = {
        Rows::attribute<&P::version>(TagVersion),
        Rows::checkedElement<&P::uniqueName, &P::SetUniqueParameterName>(u"UniqueName")
            .required<isSet<&P::uniqueName>>(u"UniqueName attribute"),
    };
    static constexpr Row elements[] = {
        Rows::checkedElement<&P::representationName, &P::SetRepresenationName>(u"RepresentationName")
            .required<isSet<&P::representationName>>(),
        Rows::element<&P::displayName, &P::SetDisplayName>(u"DisplayName")
            .writtenIf<isSet<&P::displayName>>(),
        Rows::element<&P::toolTip, &P::SetToolTip>(u"ToolTip").writtenIf<isSet<&P::toolTip>>(),
        Rows::namedElement<&P::valueType, valueTypes, &P::SetValueType>(u"ValueType")
            .writtenBy<valueTypeName>()
            .writtenIf<isValueTypeWritten>()
            .required<hasValueType>(),
        Rows::namedElement<&P::controlType, controlTypes, &P::SetControlType>(u"ControlType")
            .writtenBy<controlTypeName>()
            .writtenIf<isControlTypeWritten>(),
        Rows::element<&P::displaySuffix, &P::SetDisplaySuffix>(u"DisplaySuffix")
            .writtenIf<isSet<&P::displaySuffix>>(),
        Rows::checkedElement<&P::multiplier, &P::SetMultiplier>(u"Multiplier")
            .writtenBy<multiplierText>()
            .writtenIf<hasMultiplier>()
            .defaultsTo(u"1"),
        Rows::element<&P::enabled>(u"Enable"),
        Rows::namedElement<&P::parameterType, parameterTypes, setType>(u"ParameterType")
            .readBy<readType>()
            .keeping()
            .writtenIf<isTypeWritten>()
            .required<hasType>(),
        Rows::field<booleanValue>(TagBoolean)
            .readBy<readBoolean>()
            .writtenBy<booleanText>()
            .writtenIf<&P::IsBoolean>(),
        blockElement(TagEnumBlock, TagEnumBlock, blockPart<EnumBlock, enterEnum, &P::ProcessEnumList>)
            .writtenIf<&P::IsEnum>(),
        blockElement(TagDoubleBlock, TagDoubleBlock, doublePart).writtenIf<hasDoubleBlock>(),
        blockElement(u"DoubleList", TagDoubleBlock, doublePart).onlyRead(),
        blockElement(TagIntegerBlock, TagIntegerBlock,
                     wholeNumberPart<&P::integerHandler, &P::ProcessIntegerList>)
            .writtenIf<&P::IsInteger>(),
        blockElement(TagLongBlock, TagLongBlock, wholeNumberPart<&P::longHandler, &P::ProcessLongList>)
            .writtenIf<&P::IsLong>(),
        blockElement(TagFloatBlock, TagFloatBlock,
                     blockPart<FloatBlock, enter<&P::floatHandler>, &P::ProcessFloatList>)
            .writtenIf<&P::IsFloat>(),
        blockElement(TagStringBlock, TagStringBlock,
                     blockPart<StringBlock, enter<&P::stringHandler>, &P::ProcessStringList>)
            .writtenIf<&P::IsString>(),
        blockElement(TagTimeStampBlock, TagTimeStampBlock,
                     wholeNumberPart<&P::timeStampHandler, &P::ProcessTimeStampList>)
            .writtenIf<&P::IsTimeStamp>(),
    };
    static constexpr Row fields[] = {
        Rows::partElement(TagBoolean, Row::Content::Block,
                          blockPart<BooleanBlock, BooleanBlock::enter, &P::ProcessStringList>)
            .writtenIf<&P::IsBoolean>(),
    };
    static constexpr QStringView checked[] = {u"ParameterType", u"ValueType", u"UniqueName",
                                              u"RepresentationName"};
    static constexpr ObjectTable table{ObjectName, attributes, elements, fields, checked};
};

const ObjectTable &Parameter::table()
{
    return Xml::table;
}

bool Parameter::HasData() const
{
    return isComplete<Xml>(this) && IsValidParameter();
}

void Parameter::Check() const
{
    if (!HasData())
        checkRequired(Xml::table, this, *this);
}

void Parameter::GetXml(QXmlStreamWriter &writer) const
{
    if (HasData())
        writeElement(Xml::table, this, writer, GetObjectName());
}

void Parameter::ProcessXml(QXmlStreamReader &reader)
{
    readAttributes(Xml::table, this, reader);
    ITesselObject::ProcessXml(reader);
}

void Parameter::ProcessXmlStartElement(QXmlStreamReader &reader)
{
    readChild(Xml::table, this, *this, reader);
}

void Parameter::ProcessDoubleList(QXmlStreamReader &reader)
{
    Xml::enterDouble(*this);
    readBlock(Xml::DoubleBlock::table, *this, TagDoubleBlock, reader);
}

void Parameter::ProcessEnumList(QXmlStreamReader &reader)
{
    Xml::enterEnum(*this);
    readBlock(Xml::EnumBlock::table, *this, TagEnumBlock, reader);
}

void Parameter::ProcessFloatList(QXmlStreamReader &reader)
{
    Xml::enter<&Parameter::floatHandler>(*this);
    readBlock(Xml::FloatBlock::table, *this, TagFloatBlock, reader);
}

void Parameter::ProcessIntegerList(QXmlStreamReader &reader)
{
    Xml::enter<&Parameter::integerHandler>(*this);
    readBlock(Xml::WholeNumberBlock<&Parameter::integerHandler>::table, *this, TagIntegerBlock, reader);
}

void Parameter::ProcessLongList(QXmlStreamReader &reader)
{
    Xml::enter<&Parameter::longHandler>(*this);
    readBlock(Xml::WholeNumberBlock<&Parameter::longHandler>::table, *this, TagLongBlock, reader);
}

void Parameter::ProcessStringList(QXmlStreamReader &reader)
{
    Xml::enter<&Parameter::stringHandler>(*this);
    readBlock(Xml::StringBlock::table, *this, TagStringBlock, reader);
}

void Parameter::ProcessTimeStampList(QXmlStreamReader &reader)
{
    Xml::enter<&Parameter::timeStampHandler>(*this);
    readBlock(Xml::WholeNumberBlock<&Parameter::timeStampHandler>::table, *this, TagTimeStampBlock, reader);
}

} // namespace KORMAK
