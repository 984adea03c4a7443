#include <tools/DocumentForm.h>
#include <tools/NameLists.h>

namespace {

using namespace DocumentForms;
using Kind = TextForm::Kind;

constexpr AttributeForm EntryAttributes[] = {
    {u"Key", Kind::Integer},     {u"Name"}, {u"Identifier"}, {u"Value", Kind::Double},
    {u"Default", Kind::Boolean},
};
constexpr ObjectForm EntryObject{u"EnumValue", EntryAttributes, {}};

constexpr ElementForm EnumElements[] = {entry(EntryObject)};

constexpr ElementForm WholeNumberElements[] = {
    text(u"Minimum", Kind::Integer),
    text(u"Maximum", Kind::Integer),
    text(u"Default", Kind::Integer),
};

constexpr ElementForm TimeStampElements[] = {
    text(u"Minimum", Kind::LongLong),
    text(u"Maximum", Kind::LongLong),
    text(u"Default", Kind::LongLong),
};

constexpr ElementForm FloatElements[] = {
    text(u"Minimum", Kind::Float),
    text(u"Maximum", Kind::Float),
    text(u"Default", Kind::Float),
    text(u"Precision", Kind::Integer),
};

constexpr ElementForm DoubleElements[] = {
    text(u"Minimum", Kind::Double),
    text(u"Maximum", Kind::Double),
    text(u"Default", Kind::Double),
    text(u"Precision", Kind::Integer),
    text(u"MaxDoubleListLength", Kind::Integer),
};

constexpr AttributeForm StringAttributes[] = {
    {u"Default", Kind::Any, {}, u"is not read: the default is read from an element \"Default\""},
};
constexpr ElementForm StringElements[] = {text(u"Default")};

constexpr bool RefusesOthers = false;
constexpr ObjectForm EnumBlock{u"Enum", {}, EnumElements, {}, RefusesOthers};
constexpr ObjectForm WholeNumberBlock{u"Integer", {}, WholeNumberElements, {}, RefusesOthers};
constexpr ObjectForm TimeStampBlock{u"TimeStamp", {}, TimeStampElements, {}, RefusesOthers};
constexpr ObjectForm FloatBlock{u"Float", {}, FloatElements, {}, RefusesOthers};
constexpr ObjectForm DoubleBlock{u"Double", {}, DoubleElements, {}, RefusesOthers};
constexpr ObjectForm StringBlock{u"String", StringAttributes, StringElements, {}, RefusesOthers};

constexpr AttributeForm ParameterAttributes[] = {
    {u"Version"},
    {u"UniqueName", Kind::Any, u"UniqueName attribute"},
};
constexpr ElementForm ParameterElementForms[] = {
    text(u"ParameterType", {ParameterTypes, u"leaves the type as it was"})
        .askedFor(u"ParameterType")
        .elseAsBefore(),
    text(u"ValueType", ValueTypes).askedFor(u"ValueType"),
    text(u"RepresentationName").askedFor(u"RepresentationName"),
    text(u"DisplayName"),
    text(u"ToolTip"),
    text(u"ControlType", ControlTypes),
    text(u"DisplaySuffix"),
    text(u"Multiplier", Kind::Double),
    text(u"Enable", Kind::Boolean),
    text(u"Boolean", Kind::Boolean),
    block(u"Enum", EnumBlock),
    block(u"Double", DoubleBlock),
    block(u"DoubleList", DoubleBlock, u"Double"),
    block(u"Integer", WholeNumberBlock),
    block(u"Long", WholeNumberBlock),
    block(u"Float", FloatBlock),
    block(u"String", StringBlock),
    block(u"TimeStamp", TimeStampBlock),
};
constexpr ObjectForm ParameterObject{u"Parameter", ParameterAttributes, ParameterElementForms};

constexpr ElementForm ParameterRoot[] = {object(ParameterObject).askedFor({})};
constexpr ObjectForm ParameterDocument{{}, {}, ParameterRoot};

constexpr ElementForm ReceiverElements[] = {list(u"Parameter", ParameterObject), ignored(u"Script")};
constexpr ObjectForm ReceiverObject{u"GenericReceiver", VersionOnly, ReceiverElements};

constexpr ElementForm ReceiverRoot[] = {object(ReceiverObject).askedFor({})};
constexpr ObjectForm ReceiverDocument{{}, {}, ReceiverRoot};

} // namespace

const ObjectForm &parameterForm(const XmlTree & /*document*/)
{
    return ParameterDocument;
}

const ObjectForm &receiverForm(const XmlTree & /*document*/)
{
    return ReceiverDocument;
}
