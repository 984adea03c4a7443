#include <kormak/GenericReceiver.h>
#include <tools/DocumentFields.h>
#include <tools/FieldRows.h>
#include <tools/FieldText.h>
#include <tools/NameLists.h>
#include <tools/Obstacles.h>
#include <tools/WrittenForm.h>

using namespace KORMAK;

namespace {

constexpr QStringView VersionName = u"Version";
constexpr double NoValue = -111111.11; ///< the value of a DoubleHandler that has none

// Handlers

/// What documents never say and people do not need to see.
template <class Handler>
constexpr FieldRow representationNameRow()
{
    return FieldRows<Handler>::template value<&Handler::GetRepresentationName,
                                              &Handler::SetRepresentationName>(u"RepresentationName",
                                                                               u"Name in the handler")
        .neverShown();
}

template <class Handler>
constexpr FieldRow uniqueNameRow()
{
    return FieldRows<Handler>::template value<&Handler::GetUniqueParameterName,
                                              &Handler::SetUniqueParameterName>(u"UniqueParameterName",
                                                                                u"Unique name in the handler")
        .neverShown();
}

template <class Handler>
constexpr FieldRow minimumRow()
{
    return FieldRows<Handler>::template value<&Handler::GetMinimum, &Handler::SetMinimum>(u"Minimum",
                                                                                          u"Minimum")
        .limit();
}

template <class Handler>
constexpr FieldRow maximumRow()
{
    return FieldRows<Handler>::template value<&Handler::GetMaximum, &Handler::SetMaximum>(u"Maximum",
                                                                                          u"Maximum")
        .limit();
}

template <class Handler>
constexpr FieldRow defaultRow()
{
    return FieldRows<Handler>::template value<&Handler::GetDefault, &Handler::SetDefault>(u"Default",
                                                                                          u"Default");
}

template <class Handler>
constexpr FieldRow valueRow()
{
    return FieldRows<Handler>::template value<&Handler::GetValue, &Handler::SetValue>(u"Value", u"Value")
        .neverShown();
}

template <class Handler>
constexpr FieldRow precisionRow()
{
    return FieldRows<Handler>::template value<&Handler::GetPrecision, &Handler::SetPrecision>(u"Precision",
                                                                                              u"Decimals");
}

template <class Handler>
constexpr FieldRow multiplierRow()
{
    return FieldRows<Handler>::template value<&Handler::GetMultiplier, &Handler::SetMultiplier>(
               u"Multiplier", u"Multiplier in the handler")
        .neverShown();
}

constexpr FieldRow BooleanRows[] = {
    FieldRows<BooleanHandler>::value<&BooleanHandler::GetValue, &BooleanHandler::SetValue>(u"Value",
                                                                                           u"Value"),
    representationNameRow<BooleanHandler>(),
    uniqueNameRow<BooleanHandler>(),
};
constexpr FieldTable BooleanFields{BooleanRows};

template <class Handler>
constexpr FieldRow WholeNumberRows[] = {
    minimumRow<Handler>(),    maximumRow<Handler>(),    defaultRow<Handler>(),
    valueRow<Handler>(),      multiplierRow<Handler>(), representationNameRow<Handler>(),
    uniqueNameRow<Handler>(),
};
template <class Handler>
constexpr FieldTable WholeNumberFields{WholeNumberRows<Handler>};

constexpr FieldRow FloatRows[] = {
    minimumRow<FloatHandler>(),
    maximumRow<FloatHandler>(),
    defaultRow<FloatHandler>(),
    precisionRow<FloatHandler>(),
    valueRow<FloatHandler>(),
    multiplierRow<FloatHandler>(),
    representationNameRow<FloatHandler>(),
    uniqueNameRow<FloatHandler>(),
};
constexpr FieldTable FloatFields{FloatRows};

constexpr FieldRow StringRows[] = {
    defaultRow<StringHandler>(),
    valueRow<StringHandler>(),
    representationNameRow<StringHandler>(),
    uniqueNameRow<StringHandler>(),
};
constexpr FieldTable StringFields{StringRows};

double elementOf(const double &element)
{
    return element;
}

void setElement(double &element, double value)
{
    element = value;
}

constexpr FieldRow DoubleElementRows[] = {
    FieldRows<double>::value<elementOf, setElement>(QStringView(), u"Value"),
};
constexpr FieldTable DoubleElementFields{DoubleElementRows};

const QVector<double> &doublesOf(const DoubleHandler &handler)
{
    return handler.GetDoubleList();
}

QVector<double> &doublesIn(DoubleHandler &handler)
{
    return handler.GetDoubleList();
}

void addDouble(DoubleHandler &handler)
{
    handler.AppendDoubleValue(0);
}

bool hasDoubles(const DoubleHandler &handler)
{
    return !handler.GetDoubleList().isEmpty();
}

bool isList(const DoubleHandler &handler)
{
    return handler.IsDoubleList();
}

std::optional<double> doubleValue(const DoubleHandler &handler)
{
    return handler.GetValue() == NoValue ? std::nullopt : std::optional(handler.GetValue());
}

using DoubleRow = FieldRows<DoubleHandler>;

constexpr FieldParts Doubles = DoubleRow::list<doublesOf, doublesIn, addDouble>(DoubleElementFields);

constexpr FieldRow DoubleRows[] = {
    minimumRow<DoubleHandler>(),
    maximumRow<DoubleHandler>(),
    defaultRow<DoubleHandler>(),
    precisionRow<DoubleHandler>(),
    DoubleRow::value<&DoubleHandler::GetMaxDoubleListLength, &DoubleHandler::SetMaxDoubleListLength>(
        u"MaxDoubleListLength", u"Maximum length")
        .shownIf<isList>(),
    DoubleRow::value<doubleValue, &DoubleHandler::SetValue>(u"Value", u"Value").neverShown(),
    DoubleRow::value<&DoubleHandler::IsDoubleList, &DoubleHandler::SetUseAsList>(u"UseAsList", u"List")
        .neverShown(),
    DoubleRow::parts(u"DoubleList", u"Values", Doubles).shownIf<hasDoubles>(),
    multiplierRow<DoubleHandler>(),
    representationNameRow<DoubleHandler>(),
    uniqueNameRow<DoubleHandler>(),
};
constexpr FieldTable DoubleFields{DoubleRows};

using Entry = EnumHandler::EnumValue;
using EntryRow = FieldRows<Entry>;

void setDefault(Entry &entry, bool isDefault)
{
    entry.Default = isDefault ? QStringLiteral("true") : QStringLiteral("false");
}

constexpr FieldRow EntryRows[] = {
    EntryRow::member<&Entry::Key>(u"Key", u"Key"),
    EntryRow::member<&Entry::Name>(u"Name", u"Name"),
    EntryRow::member<&Entry::Identifier>(u"Identifier", u"Identifier"),
    EntryRow::member<&Entry::Value>(u"Value", u"Value"),
    EntryRow::value<&Entry::IsDefault, setDefault>(u"Default", u"Default"),
};

QString entryText(const void *object)
{
    const auto &entry = *static_cast<const Entry *>(object);
    const QString identifier =
        entry.Identifier.isEmpty() ? QString() : QStringLiteral(", ") + entry.Identifier;
    return QString::number(entry.Key) + QLatin1Char(' ') + entry.Name + QStringLiteral(" (")
        + numberText(entry.Value) + identifier + QLatin1Char(')');
}

constexpr FieldTable EntryFields{EntryRows, entryText};

const QVector<Entry> &entriesOf(const EnumHandler &handler)
{
    return handler.GetEnumList();
}

QVector<Entry> &entriesIn(EnumHandler &handler)
{
    return handler.GetEnumList();
}

void addEntry(EnumHandler &handler)
{
    handler.AppendEnumValue(Entry());
}

const Entry &defaultOf(const EnumHandler &handler)
{
    return handler.GetDefaultValue();
}

void changeDefault(EnumHandler &handler, const FieldChange &work)
{
    work(&handler.GetDefaultValue());
}

const Entry &selectedOf(const EnumHandler &handler)
{
    return handler.GetSelectedEnumValue();
}

void changeSelected(EnumHandler &handler, const FieldChange &work)
{
    work(&handler.GetSelectedEnumValue());
}

bool hasEntries(const EnumHandler &handler)
{
    return handler.HasData();
}

bool hasOtherSelected(const EnumHandler &handler)
{
    return hasEntries(handler) && selectedOf(handler) != defaultOf(handler);
}

using EnumRow = FieldRows<EnumHandler>;

constexpr FieldParts Entries = EnumRow::list<entriesOf, entriesIn, addEntry>(EntryFields);
constexpr FieldParts DefaultEntry = EnumRow::one<defaultOf, changeDefault>(EntryFields);
constexpr FieldParts SelectedEntry = EnumRow::one<selectedOf, changeSelected>(EntryFields);

constexpr FieldRow EnumRows[] = {
    EnumRow::parts(u"EnumValue", u"Entry", Entries),
    EnumRow::parts(u"DefaultValue", u"Default", DefaultEntry).shownIf<hasEntries>(),
    EnumRow::parts(u"SelectedEnumValue", u"Selected", SelectedEntry).shownIf<hasOtherSelected>(),
    representationNameRow<EnumHandler>(),
    uniqueNameRow<EnumHandler>(),
};
constexpr FieldTable EnumFields{EnumRows};

// Parameters

using P = Parameter;
using ParameterRow = FieldRows<P>;

/// The handler of a parameter; \a Of is an overloaded getter.
template <class Handler, const Handler &(P::*Of)() const, Handler &(P::*In)()>
constexpr FieldParts handlerPart(const FieldTable &table)
{
    return {
        FieldParts::Kind::One,
        table,
        [](const void *object) {
            return std::vector<FieldPart>{{QString(), &(static_cast<const P *>(object)->*Of)()}};
        },
        [](void *object, const QString & /*key*/, const FieldChange &work) {
            work(&(static_cast<P *>(object)->*In)());
        },
    };
}

constexpr FieldParts BooleanPart =
    handlerPart<BooleanHandler, &P::GetBooleanHandler, &P::GetBooleanHandler>(BooleanFields);
constexpr FieldParts LongPart =
    handlerPart<LongHandler, &P::GetLongHandler, &P::GetLongHandler>(WholeNumberFields<LongHandler>);
constexpr FieldParts IntegerPart = handlerPart<IntegerHandler, &P::GetIntegerHandler, &P::GetIntegerHandler>(
    WholeNumberFields<IntegerHandler>);
constexpr FieldParts StringPart =
    handlerPart<StringHandler, &P::GetStringHandler, &P::GetStringHandler>(StringFields);
constexpr FieldParts DoublePart =
    handlerPart<DoubleHandler, &P::GetDoubleHandler, &P::GetDoubleHandler>(DoubleFields);
constexpr FieldParts FloatPart =
    handlerPart<FloatHandler, &P::GetFloatHandler, &P::GetFloatHandler>(FloatFields);
constexpr FieldParts EnumPart = handlerPart<EnumHandler, &P::GetEnumHandler, &P::GetEnumHandler>(EnumFields);
constexpr FieldParts TimeStampPart =
    handlerPart<TimeStampHandler, &P::GetTimeStampHandler, &P::GetTimeStampHandler>(
        WholeNumberFields<TimeStampHandler>);

bool usesDouble(const P &parameter)
{
    return parameter.IsDouble() || parameter.IsDoubleList();
}

ParameterType typeOf(const P &parameter)
{
    return parameter.GetParameterType();
}

void setType(P &parameter, ParameterType type)
{
    parameter.SetParameterType(type);
}

P::ValueType valueTypeOf(const P &parameter)
{
    return parameter.GetValueType();
}

P::ControlType controlTypeOf(const P &parameter)
{
    return parameter.GetControlType();
}

bool hasMultiplier(const P &parameter)
{
    return parameter.GetMultiplier() != 1.0;
}

bool isDisabled(const P &parameter)
{
    return !parameter.IsEnabled();
}

/// The version, which only the written form tells. A boolean parameter lacks nothing but its names.
QString versionText(const P &parameter)
{
    P copy(parameter);
    copy.SetParameterType(ParameterType::Boolean);
    copy.SetUniqueParameterName(QStringLiteral("-"));
    copy.SetRepresenationName(QStringLiteral("-"));
    copy.SetValueType(P::ValueBoolean);
    return writtenText(copy, VersionName);
}

constexpr FieldRow ParameterRows[] = {
    ParameterRow::value<&P::GetUniqueParameterName, &P::SetUniqueParameterName>(u"UniqueName",
                                                                                u"Unique name"),
    ParameterRow::name<typeOf, setType>(u"ParameterType", u"Parameter type", ParameterTypes).setFirst(),
    ParameterRow::value<&P::GetDisplaySuffix, &P::SetDisplaySuffix>(u"DisplaySuffix", u"Unit").shownIfSet(),
    ParameterRow::parts(u"Boolean", {}, BooleanPart)
        .existsIf<&P::IsBoolean>(u"ParameterType=Boolean")
        .setLast(),
    ParameterRow::parts(u"Long", {}, LongPart).existsIf<&P::IsLong>(u"ParameterType=Long").setLast(),
    ParameterRow::parts(u"Integer", {}, IntegerPart)
        .existsIf<&P::IsInteger>(u"ParameterType=Integer")
        .setLast(),
    ParameterRow::parts(u"Float", {}, FloatPart).existsIf<&P::IsFloat>(u"ParameterType=Float").setLast(),
    ParameterRow::parts(u"Double", {}, DoublePart)
        .existsIf<usesDouble>(u"ParameterType=Double or DoubleList")
        .setLast(),
    ParameterRow::parts(u"TimeStamp", {}, TimeStampPart)
        .existsIf<&P::IsTimeStamp>(u"ParameterType=TimeStamp")
        .setLast(),
    ParameterRow::parts(u"String", {}, StringPart).existsIf<&P::IsString>(u"ParameterType=String").setLast(),
    ParameterRow::parts(u"Enum", {}, EnumPart).existsIf<&P::IsEnum>(u"ParameterType=Enum").setLast(),
    ParameterRow::value<&P::GetRepresenationName, &P::SetRepresenationName>(u"RepresentationName",
                                                                            u"Representation name"),
    ParameterRow::name<valueTypeOf, &P::SetValueType>(u"ValueType", u"Value type", ValueTypes),
    ParameterRow::name<controlTypeOf, &P::SetControlType>(u"ControlType", u"Control type", ControlTypes)
        .shownIfSet(),
    ParameterRow::value<&P::GetMultiplier, &P::SetMultiplier>(u"Multiplier", u"Multiplier")
        .shownIf<hasMultiplier>(),
    ParameterRow::value<&P::IsEnabled>(u"Enable", u"Enabled").shownIf<isDisabled>(),
    ParameterRow::value<&P::GetDisplayName, &P::SetDisplayName>(u"DisplayName", u"Display name").shownIfSet(),
    ParameterRow::value<&P::GetToolTip, &P::SetToolTip>(u"ToolTip", u"Tool tip").shownIfSet().prose(),
    ParameterRow::value<versionText>(u"Version", u"Version").neverShown(),
};

// Receivers

std::vector<FieldPart> allParameters(const void *object)
{
    const auto &parameters = static_cast<const GenericReceiver *>(object)->GetParameterList();
    std::vector<FieldPart> all;
    all.reserve(static_cast<std::size_t>(parameters.size()));
    for (auto entry = parameters.constBegin(); entry != parameters.constEnd(); ++entry)
        all.push_back({entry.key(), &*entry});
    return all;
}

/// The handler of a new type gets to know the name only when it is set again.
void changeParameter(void *object, const QString &name, const FieldChange &work)
{
    auto &receiver = *static_cast<GenericReceiver *>(object);
    const bool isNew = !receiver.GetParameterList().contains(name);
    Parameter parameter = isNew ? Parameter() : receiver.GetParameter(name);
    if (isNew)
        parameter.SetUniqueParameterName(name);
    const ParameterType typeBefore = typeOf(parameter);
    work(&parameter);
    if (parameter.GetUniqueParameterName() != name)
        throw FieldError{QStringLiteral("must be the name in the brackets")};
    if (typeOf(parameter) != typeBefore)
        parameter.SetUniqueParameterName(name);
    receiver.AddParameter(parameter);
}

using ReceiverRow = FieldRows<GenericReceiver>;

constexpr FieldParts Parameters{FieldParts::Kind::Map, ParameterFields, allParameters, changeParameter};

constexpr FieldRow ReceiverRows[] = {
    ReceiverRow::value<&GenericReceiver::GetVersion>(u"Version", u"Version"),
    ReceiverRow::parts(u"Parameter", u"Parameters", Parameters),
};

/// The field whose setter gives the handler what it lacks to hold data.
QString missingInHandler(const Parameter &parameter)
{
    if (parameter.IsEnum())
        return QStringLiteral("Enum.EnumValue");
    if (parameter.IsString())
        return QStringLiteral("String.Value");
    if (usesDouble(parameter) && parameter.GetDoubleHandler().IsDoubleList())
        return QStringLiteral("Double.MaxDoubleListLength");
    return QStringLiteral("Double.Value");
}

} // namespace

const FieldTable ParameterFields{ParameterRows};
const FieldTable GenericReceiverFields{ReceiverRows};

QStringList missingBeyondCheck(const Parameter &parameter)
{
    return {QStringLiteral("Parameter: Please set ") + missingInHandler(parameter)};
}

QStringList missingBeyondCheck(const GenericReceiver &receiver)
{
    QStringList missing;
    for (const Parameter &parameter : receiver.GetParameterList()) {
        if (parameter.HasData())
            continue;
        const QString name = bracketed(Parameters, parameter.GetUniqueParameterName());
        const QString reason = complaintOf(parameter).value_or(missingBeyondCheck(parameter).join(QString()));
        missing += QStringLiteral("Parameter") + name + reason.mid(reason.indexOf(QLatin1Char(':')));
    }
    return missing;
}
