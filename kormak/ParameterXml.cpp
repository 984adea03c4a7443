// The XML form of Parameter: its own attributes and elements, and the blocks of its handlers. A block is a
// table like any other; it is written like an element and read by readBlock().
#include "kormak/Parameter.h"

#include <kormak/HandlerSlot_p.h>
#include <objectbase/Constants_p.h>
#include <objectbase/TesselException.h>
#include <objectbase/XmlForm_p.h>

#include <array>

namespace KORMAK {

using namespace TESSEL;

namespace {

[[maybe_unused]] constexpr auto LogLevels = LogLevelNames;

constexpr int LimitDecimals = 6;
constexpr int ShortDecimals = 2; // multipliers and the values of enumeration entries

constexpr QStringView TagDefault = u"Default";
constexpr QStringView TagDoubleBlock = u"Double";
constexpr QStringView TagEnumBlock = u"Enum";
constexpr QStringView TagFloatBlock = u"Float";
constexpr QStringView TagIntegerBlock = u"Integer";
constexpr QStringView TagLongBlock = u"Long";
constexpr QStringView TagStringBlock = u"String";
constexpr QStringView TagTimeStampBlock = u"TimeStamp";

using EnumValue = EnumHandler::EnumValue;

/// The attributes of an enumeration entry.
struct EnumValueXml {
    static bool hasIdentifier(const EnumValue &entry) { return !entry.Identifier.isEmpty(); }

    static void readValue(EnumValue &entry, QStringView text) { fromText(text, entry.Value); }
    static QString valueText(const EnumValue &entry) { return fixedText(entry.Value, ShortDecimals); }

    static bool isDefault(const EnumValue &entry) { return entry.IsDefault(); }
    static void readDefault(EnumValue &entry, QStringView text)
    {
        bool isDefault = false;
        fromText(text, isDefault);
        entry.Default = toText(isDefault);
    }
    static QString defaultText(const EnumValue &entry) { return entry.Default; }

    static constexpr XmlAttribute<EnumValue> attributes[] = {
        attribute<&EnumValue::Key>(u"Key"),
        attribute<&EnumValue::Name>(u"Name"),
        attribute<&EnumValue::Identifier>(u"Identifier").when(hasIdentifier),
        {u"Value", readValue, valueText},
        {TagDefault, readDefault, defaultText, isDefault},
    };
    static constexpr std::array<XmlElement<EnumValue>, 0> elements{};
};

template <class Number>
QString limitText(Number number)
{
    if constexpr (std::is_floating_point_v<Number>)
        return fixedText(static_cast<double>(number), LimitDecimals);
    else
        return numberText(number);
}

/// Calls the setters of a handler with the number that \a text says.
template <auto Handler, auto Getter, auto... Setters>
void readNumber(Parameter &parameter, QStringView text)
{
    auto &handler = (parameter.*Handler).edit();
    std::decay_t<decltype((handler.*Getter)())> number{};
    fromText(text, number);
    ((handler.*Setters)(number), ...);
}

template <auto Handler, auto Getter>
QString writeNumber(const Parameter &parameter)
{
    return limitText(((parameter.*Handler).look().*Getter)());
}

template <auto Handler, auto Getter, auto... Setters>
constexpr auto numberElement(QStringView tag)
{
    return textElement<Parameter, readNumber<Handler, Getter, Setters...>, writeNumber<Handler, Getter>>(tag);
}

template <class Handler>
Handler handlerOf(const HandlerSlot<Handler> &);

template <auto Slot>
using HandlerOf = decltype(handlerOf(std::declval<typename Detail::MemberOf<Slot>::Type>()));

template <auto Handler>
constexpr auto minimumElement()
{
    using H = HandlerOf<Handler>;
    return numberElement<Handler, &H::GetMinimum, &H::SetMinimum>(u"Minimum");
}

template <auto Handler>
constexpr auto maximumElement()
{
    using H = HandlerOf<Handler>;
    return numberElement<Handler, &H::GetMaximum, &H::SetMaximum>(u"Maximum");
}

/// Reading a default also sets the value.
template <auto Handler>
constexpr auto defaultElement()
{
    using H = HandlerOf<Handler>;
    return numberElement<Handler, &H::GetDefault, &H::SetDefault, &H::SetValue>(TagDefault);
}

template <auto Handler>
constexpr auto precisionElement()
{
    using H = HandlerOf<Handler>;
    return numberElement<Handler, &H::GetPrecision, &H::SetPrecision>(u"Precision");
}

struct WithoutAttributes {
    static constexpr std::array<XmlAttribute<Parameter>, 0> attributes{};
};

/// A block whose reading calls the member \a Read.
template <class Block, auto Read>
constexpr auto blockElement(QStringView tag)
{
    return XmlElement<Parameter>{
        tag,
        [](Parameter &parameter, QXmlStreamReader &reader) { (parameter.*Read)(reader); },
        [](const Parameter &parameter, QXmlStreamWriter &writer, const QString &name) {
            writeElement<Block>(parameter, writer, name);
        },
    };
}

/// Reads up to the next end element called \a name, whatever the block was opened as. Every descendant is
/// looked at; what no row of the block stands for is passed over.
template <class Block, class Handler>
void readBlock(Parameter &parameter, Handler &handler, QStringView name, QXmlStreamReader &reader)
{
    handler.SetRepresentationName(parameter.GetRepresenationName());
    handler.SetUniqueParameterName(parameter.GetUniqueParameterName());
    constexpr int WithBlock = 2;
    Nesting nesting(parameter, reader, WithBlock);
    while (!reader.atEnd()) {
        const auto token = reader.readNext();
        nesting.count(token);
        if (reader.hasError())
            break;
        if (token == QXmlStreamReader::EndElement && QStringView(reader.qualifiedName()) == name)
            break;
        if (token == QXmlStreamReader::StartElement && readKnownChild<Block>(parameter, reader)
            && !reader.isStartElement())
            nesting.leave();
    }
    if (reader.hasError())
        throw TesselException(reader.errorString());
}

} // namespace

struct Parameter::Xml {
    template <auto Predicate>
    static bool is(const Parameter &parameter)
    {
        return (parameter.*Predicate)();
    }
    template <auto Text>
    static bool isSet(const Parameter &parameter)
    {
        return !(parameter.*Text).isEmpty();
    }

    template <auto Handler>
    struct WholeNumberBlock : WithoutAttributes {
        static constexpr XmlElement<Parameter> elements[] = {
            minimumElement<Handler>(),
            maximumElement<Handler>(),
            defaultElement<Handler>(),
        };
    };

    struct FloatBlock : WithoutAttributes {
        static constexpr XmlElement<Parameter> elements[] = {
            minimumElement<&Parameter::floatHandler>(),
            maximumElement<&Parameter::floatHandler>(),
            defaultElement<&Parameter::floatHandler>(),
            precisionElement<&Parameter::floatHandler>(),
        };
    };

    struct DoubleBlock : WithoutAttributes {
        static constexpr XmlElement<Parameter> elements[] = {
            minimumElement<&Parameter::doubleHandler>(),
            maximumElement<&Parameter::doubleHandler>(),
            defaultElement<&Parameter::doubleHandler>(),
            precisionElement<&Parameter::doubleHandler>(),
            numberElement<&Parameter::doubleHandler, &DoubleHandler::GetMaxDoubleListLength,
                          &DoubleHandler::SetMaxDoubleListLength>(u"MaxDoubleListLength")
                .when(is<&Parameter::IsDoubleList>),
        };
    };

    /// The default is written as an attribute, but read from an element.
    struct StringBlock {
        static bool hasDefault(const Parameter &p) { return !p.stringHandler.look().GetDefault().isEmpty(); }
        static QString defaultText(const Parameter &p) { return p.stringHandler.look().GetDefault(); }
        static void readDefault(Parameter &p, QXmlStreamReader &reader)
        {
            const QString text = elementText(reader);
            p.stringHandler.edit().SetDefault(text);
            p.stringHandler.edit().SetValue(text);
        }

        static constexpr XmlAttribute<Parameter> attributes[] = {
            {TagDefault, nullptr, defaultText, hasDefault},
        };
        static constexpr XmlElement<Parameter> elements[] = {
            {TagDefault, readDefault, nullptr},
        };
    };

    struct EnumBlock : WithoutAttributes {
        /// The first entry is the default until one that says so takes its place.
        static void readEntry(Parameter &p, QXmlStreamReader &reader)
        {
            EnumValue entry;
            readAttributes<EnumValueXml>(entry, reader);
            EnumHandler &handler = p.enumHandler.edit();
            if (entry.IsDefault() || !handler.HasData()) {
                handler.SetDefaultValue(entry);
                handler.SetSelectedEnumValue(entry);
            }
            handler.AppendEnumValue(entry);
        }
        static void writeEntries(const Parameter &p, QXmlStreamWriter &writer, const QString &tag)
        {
            for (const EnumValue &entry : p.enumHandler.look().GetEnumList())
                writeElement<EnumValueXml>(entry, writer, tag);
        }

        static constexpr XmlElement<Parameter> elements[] = {
            {u"EnumValue", readEntry, writeEntries}, // one element each
        };
    };

    static void readUniqueName(Parameter &p, QStringView text) { p.SetUniqueParameterName(text.toString()); }
    static QString uniqueNameText(const Parameter &p) { return p.uniqueName; }

    static void readRepresentationName(Parameter &p, QStringView text)
    {
        p.SetRepresenationName(text.toString());
    }
    static QString representationNameText(const Parameter &p) { return p.representationName; }

    static bool hasValueType(const Parameter &p) { return IsValidValueType(p.valueType); }

    static bool hasValidControlType(const Parameter &p) { return p.HasControlType(); }

    static bool hasMultiplier(const Parameter &p) { return p.multiplier != 1.0; }
    static void readMultiplier(Parameter &p, QStringView text)
    {
        double factor = 0;
        fromText(text, factor);
        p.SetMultiplier(factor);
    }
    static QString multiplierText(const Parameter &p) { return fixedText(p.multiplier, ShortDecimals); }

    static bool hasTypeName(const Parameter &p) { return !p.IsBoolean() && !typeName(p).isEmpty(); }
    static void readType(Parameter &p, QStringView name) { p.SetParameterType(borrowed(name)); }
    static QString typeName(const Parameter &p) { return ParameterTypeToName(p.parameterType); }

    static void readBoolean(Parameter &p, QStringView text)
    {
        bool on = false;
        fromText(text, on);
        BooleanHandler &handler = p.booleanHandler.edit();
        handler.SetValue(on);
        handler.SetRepresentationName(p.representationName);
        handler.SetUniqueParameterName(p.uniqueName);
    }
    static QString booleanText(const Parameter &p) { return toText(p.booleanHandler.look().GetValue()); }

    static bool hasDoubleBlock(const Parameter &p) { return p.IsDouble() || p.IsDoubleList(); }

    using P = Parameter;
    static constexpr XmlAttribute<P> attributes[] = {
        attribute<&P::version>(TagVersion),
        {u"UniqueName", readUniqueName, uniqueNameText},
    };
    static constexpr XmlElement<P> elements[] = {
        textElement<P, readRepresentationName, representationNameText>(u"RepresentationName"),
        element<&P::displayName>(u"DisplayName").when(isSet<&P::displayName>),
        element<&P::toolTip>(u"ToolTip").when(isSet<&P::toolTip>),
        namedElement<&P::valueType, &P::ToValueType, &P::ValueTypeToName>(u"ValueType").when(hasValueType),
        namedElement<&P::controlType, &P::ToControlType, &P::ControlTypeToName>(u"ControlType")
            .when(hasValidControlType),
        element<&P::displaySuffix>(u"DisplaySuffix").when(isSet<&P::displaySuffix>),
        textElement<P, readMultiplier, multiplierText>(u"Multiplier").when(hasMultiplier),
        element<&P::enabled>(u"Enable"),
        textElement<P, readType, typeName>(u"ParameterType").when(hasTypeName),
        textElement<P, readBoolean, booleanText>(u"Boolean").when(is<&P::IsBoolean>),
        blockElement<EnumBlock, &P::ProcessEnumList>(TagEnumBlock).when(is<&P::IsEnum>),
        blockElement<DoubleBlock, &P::ProcessDoubleList>(TagDoubleBlock).when(hasDoubleBlock),
        blockElement<DoubleBlock, &P::ProcessDoubleList>(u"DoubleList").onlyRead(),
        blockElement<WholeNumberBlock<&P::integerHandler>, &P::ProcessIntegerList>(TagIntegerBlock)
            .when(is<&P::IsInteger>),
        blockElement<WholeNumberBlock<&P::longHandler>, &P::ProcessLongList>(TagLongBlock)
            .when(is<&P::IsLong>),
        blockElement<FloatBlock, &P::ProcessFloatList>(TagFloatBlock).when(is<&P::IsFloat>),
        blockElement<StringBlock, &P::ProcessStringList>(TagStringBlock).when(is<&P::IsString>),
        blockElement<WholeNumberBlock<&P::timeStampHandler>, &P::ProcessTimeStampList>(TagTimeStampBlock)
            .when(is<&P::IsTimeStamp>),
    };
};

void Parameter::GetXml(QXmlStreamWriter &writer) const
{
    writeDocument<Xml>(*this, writer);
}

void Parameter::ProcessXml(QXmlStreamReader &reader)
{
    readDocument<Xml>(*this, reader);
}

void Parameter::ProcessXmlStartElement(QXmlStreamReader &reader)
{
    readChild<Xml>(*this, reader);
}

void Parameter::ProcessDoubleList(QXmlStreamReader &reader)
{
    doubleHandler.edit().SetUseAsList(IsDoubleList());
    readBlock<Xml::DoubleBlock>(*this, doubleHandler.edit(), TagDoubleBlock, reader);
}

void Parameter::ProcessEnumList(QXmlStreamReader &reader)
{
    if (isMerging())
        enumHandler.edit().Reset(); // which leaves the default and the selected entry
    readBlock<Xml::EnumBlock>(*this, enumHandler.edit(), TagEnumBlock, reader);
}

void Parameter::ProcessFloatList(QXmlStreamReader &reader)
{
    readBlock<Xml::FloatBlock>(*this, floatHandler.edit(), TagFloatBlock, reader);
}

void Parameter::ProcessIntegerList(QXmlStreamReader &reader)
{
    readBlock<Xml::WholeNumberBlock<&Parameter::integerHandler>>(*this, integerHandler.edit(),
                                                                 TagIntegerBlock, reader);
}

void Parameter::ProcessLongList(QXmlStreamReader &reader)
{
    readBlock<Xml::WholeNumberBlock<&Parameter::longHandler>>(*this, longHandler.edit(), TagLongBlock,
                                                              reader);
}

void Parameter::ProcessStringList(QXmlStreamReader &reader)
{
    readBlock<Xml::StringBlock>(*this, stringHandler.edit(), TagStringBlock, reader);
}

void Parameter::ProcessTimeStampList(QXmlStreamReader &reader)
{
    readBlock<Xml::WholeNumberBlock<&Parameter::timeStampHandler>>(*this, timeStampHandler.edit(),
                                                                   TagTimeStampBlock, reader);
}

} // namespace KORMAK
