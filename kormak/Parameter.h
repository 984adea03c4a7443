#ifndef KORMAK_PARAMETER_H
#define KORMAK_PARAMETER_H

#include <kormak/EnumHandler.h>
#include <kormak/HandlerSlot.h>
#include <kormak/kormak_export.h>
#include <kormak/TypeHandler.h>
#include <kormak/VocabularyNames.h>
#include <objectbase/ITesselObject.h>

#include <QString>

namespace KORMAK {

/// The kind of value that a parameter carries; it selects the handler that holds it. The names are in
/// \ref vocabulary_parameter_type.
enum class ParameterType : qint32 {
    Invalid = -1,
    Boolean,
    Long,
    Integer,
    String,
    Double,
    DoubleList,
    Float,
    Enum,
    TimeStamp,
};

/// The name in documents of \a type; empty when it is not valid.
[[nodiscard]] KORMAK_EXPORT QString ParameterTypeToName(ParameterType type);

/// The type whose name is exactly \a name (case-sensitive), or Invalid.
[[nodiscard]] KORMAK_EXPORT ParameterType NameToParameterType(const QString &name);

/// A setting of a generic receiver: its names, how a user interface shows and edits it, and its value with
/// limits and default in one of eight handlers. All handlers are there at all times; the parameter type says
/// which one counts. The others keep what they hold.
///
/// \snippet docs/KormakSnippetsTest.cpp Parameter
///
/// Three things are not read back as they were written: the type of a boolean parameter is not written, the
/// default of a string parameter is written as an attribute and read from an element, and the values of a
/// double list are not written at all.
class KORMAK_EXPORT Parameter : public TESSEL::ITesselObject {
public:
    /// How a user interface presents the value. The names are in \ref vocabulary_value_type.
    enum ValueType : qint32 {
        InvalidValueType = -1,
        ValueSelection,
        ValueBoolean,
        ValueNumericInt,
        ValueNumericFloat,
        ValueString,
        ValueNumericInt64,
        ValueFrequency,
        ValueFloatList,
    };

    /// How a user interface edits the value. The names are in \ref vocabulary_control_type.
    enum ControlType : qint32 {
        InvalidControlType = -1,
        VCFrequency,
        VCLineEdit,
        VCLineEditFrequency,
        VCTimeEdit,
    };

    Parameter();
    Parameter(const Parameter &other);
    Parameter &operator=(const Parameter &other);
    ~Parameter() override;

    /// \name Names and display
    /// The names are handed on to the handler of the current type: set the type first, or set them again
    /// after it.
    /// @{

    /// The key of the parameter. Mandatory.
    [[nodiscard]] const QString &GetUniqueParameterName() const noexcept { return uniqueName; }
    void SetUniqueParameterName(const QString &name);

    /// The name of the parameter as the receiver knows it. Mandatory.
    [[nodiscard]] const QString &GetRepresenationName() const noexcept { return representationName; }
    void SetRepresenationName(const QString &name);

    /// A label for a user interface.
    [[nodiscard]] const QString &GetDisplayName() const noexcept { return displayName; }
    void SetDisplayName(const QString &text);

    /// The unit shown behind the value. A character outside Latin-1 becomes "?" when it is set here, but is
    /// kept when a document is read.
    [[nodiscard]] const QString &GetDisplaySuffix() const noexcept { return displaySuffix; }
    void SetDisplaySuffix(const QString &text);
    [[nodiscard]] bool HasSuffix() { return !displaySuffix.isEmpty(); }
    [[nodiscard]] bool HasSuffix() const { return !displaySuffix.isEmpty(); }

    [[nodiscard]] const QString &GetToolTip() const noexcept { return toolTip; }
    void SetToolTip(const QString &text);

    /// The factor between shown and stored value; handed on to the handler of the current type, as the names
    /// are, where it has one.
    [[nodiscard]] const double &GetMultiplier() const noexcept { return multiplier; }
    void SetMultiplier(double factor);

    /// Only reading and Reset() change it.
    [[nodiscard]] bool IsEnabled() const noexcept { return enabled; }
    /// @}

    /// \name Types
    /// The setters store any value.
    /// @{

    /// Mandatory.
    [[nodiscard]] ParameterType &GetParameterType() noexcept { return parameterType; }
    [[nodiscard]] const ParameterType &GetParameterType() const noexcept { return parameterType; }
    void SetParameterType(const ParameterType &type);

    /// Mandatory.
    [[nodiscard]] ValueType &GetValueType() noexcept { return valueType; }
    [[nodiscard]] const ValueType &GetValueType() const noexcept { return valueType; }
    void SetValueType(const ValueType &type);

    [[nodiscard]] ControlType &GetControlType() noexcept { return controlType; }
    [[nodiscard]] const ControlType &GetControlType() const noexcept { return controlType; }
    void SetControlType(const ControlType &type);
    [[nodiscard]] bool HasControlType() { return IsValidControlType(controlType); }
    [[nodiscard]] bool HasControlType() const { return IsValidControlType(controlType); }

    [[nodiscard]] bool IsBoolean() const noexcept { return parameterType == ParameterType::Boolean; }
    [[nodiscard]] bool IsLong() const noexcept { return parameterType == ParameterType::Long; }
    [[nodiscard]] bool IsInteger() const noexcept { return parameterType == ParameterType::Integer; }
    [[nodiscard]] bool IsString() const noexcept { return parameterType == ParameterType::String; }
    /// False for a double list.
    [[nodiscard]] bool IsDouble() const noexcept { return parameterType == ParameterType::Double; }
    [[nodiscard]] bool IsDoubleList() const noexcept { return parameterType == ParameterType::DoubleList; }
    [[nodiscard]] bool IsFloat() const noexcept { return parameterType == ParameterType::Float; }
    [[nodiscard]] bool IsEnum() const noexcept { return parameterType == ParameterType::Enum; }
    [[nodiscard]] bool IsTimeStamp() const noexcept { return parameterType == ParameterType::TimeStamp; }

    /// \throws TesselException "...: Invalid ValueType '...'" for an unknown name
    [[nodiscard]] ValueType NameToValueType(const QString &name) const;
    /// \throws TesselException "...: Invalid ValueType '...'", too, for an unknown name
    [[nodiscard]] ControlType NameToControlType(const QString &name) const;
    /// \throws TesselException "...: Invalid ValueType '...'" for a value outside the vocabulary
    [[nodiscard]] const QString &ValueTypeToName(ValueType type) const;
    /// \throws TesselException "...: Invalid ControlType '...'" for a value outside the vocabulary
    [[nodiscard]] const QString &ControlTypeToName(ControlType type) const;
    /// @}

    /// \name Handlers
    /// All are there at all times; the one of the current type counts. Each has one address for the life of
    /// the parameter, whatever is read or assigned. Setting one copies it, names included.
    /// @{
    [[nodiscard]] BooleanHandler &GetBooleanHandler();
    [[nodiscard]] const BooleanHandler &GetBooleanHandler() const;
    void SetBooleanHandler(const BooleanHandler &handler);

    [[nodiscard]] IntegerHandler &GetIntegerHandler();
    [[nodiscard]] const IntegerHandler &GetIntegerHandler() const;
    void SetIntegerHandler(const IntegerHandler &handler);

    [[nodiscard]] LongHandler &GetLongHandler();
    [[nodiscard]] const LongHandler &GetLongHandler() const;
    void SetLongHandler(const LongHandler &handler);

    [[nodiscard]] FloatHandler &GetFloatHandler();
    [[nodiscard]] const FloatHandler &GetFloatHandler() const;
    void SetFloatHandler(const FloatHandler &handler);

    /// For double lists, too.
    [[nodiscard]] DoubleHandler &GetDoubleHandler();
    [[nodiscard]] const DoubleHandler &GetDoubleHandler() const;
    void SetDoubleHandler(const DoubleHandler &handler);

    [[nodiscard]] StringHandler &GetStringHandler();
    [[nodiscard]] const StringHandler &GetStringHandler() const;
    void SetStringHandler(const StringHandler &handler);

    [[nodiscard]] TimeStampHandler &GetTimeStampHandler();
    [[nodiscard]] const TimeStampHandler &GetTimeStampHandler() const;
    void SetTimeStampHandler(const TimeStampHandler &handler);

    [[nodiscard]] EnumHandler &GetEnumHandler();
    [[nodiscard]] const EnumHandler &GetEnumHandler() const;
    void SetEnumHandler(const EnumHandler &handler);
    /// @}

    /// The handler of the current type holds data; false when no type is set.
    [[nodiscard]] bool IsValidParameter() const;

    /// Compares unique name, representation name, parameter type, display name, enabled flag and the handlers
    /// of that type. Two parameters without a type are never equal.
    [[nodiscard]] bool operator==(const Parameter &other) const;
    [[nodiscard]] bool operator!=(const Parameter &other) const { return !(*this == other); }

    /// Both names, the parameter type and the value type are set, and the handler holds data.
    [[nodiscard]] bool HasData() const override;
    /// True when the representation name or one of the types is set, or the handler holds data.
    [[nodiscard]] bool AnyData() const;
    void Reset() override;
    using ITesselObject::Check;
    /// A parameter whose handler lacks data passes.
    /// \throws TesselException "...: Please set " followed by ParameterType, ValueType, UniqueName attribute
    /// or RepresentationName, in this order
    void Check() const override;

    /// \cond
    void GetXml(QXmlStreamWriter &writer) const override;
    void ProcessXml(QXmlStreamReader &reader) override;
    /// \endcond

protected:
    /// Sets the type by its name (case-sensitive); an unknown name changes nothing.
    void SetParameterType(const QString &name);

    /// \name Reading the block of a type
    /// \a reader stands on the start element of the block and is left on the next end element of the block's
    /// name, or at the end of the document when there is none. \throws TesselException the error of \a reader
    /// @{
    void ProcessDoubleList(QXmlStreamReader &reader);
    void ProcessEnumList(QXmlStreamReader &reader);
    void ProcessFloatList(QXmlStreamReader &reader);
    void ProcessIntegerList(QXmlStreamReader &reader);
    void ProcessLongList(QXmlStreamReader &reader);
    void ProcessStringList(QXmlStreamReader &reader);
    void ProcessTimeStampList(QXmlStreamReader &reader);
    /// @}

    /// \cond
    void ProcessXmlStartElement(QXmlStreamReader &reader) override;
    /// \endcond

private:
    friend class TESSEL::DocumentTables;
    struct KORMAK_NO_EXPORT Xml;

    [[nodiscard]] static const TESSEL::ObjectTable &table();

    [[nodiscard]] KORMAK_NO_EXPORT static bool IsValidValueType(ValueType type);
    [[nodiscard]] static bool IsValidControlType(ControlType type);
    [[nodiscard]] KORMAK_NO_EXPORT ValueType ToValueType(const QString &name) const;
    [[nodiscard]] KORMAK_NO_EXPORT ControlType ToControlType(const QString &name) const;

    template <class Visitor>
    auto visitHandler(Visitor visit) const;

    QString version;
    QString uniqueName;
    QString representationName;
    QString toolTip;
    QString displayName;
    QString displaySuffix;
    double multiplier;
    bool enabled;
    ValueType valueType;
    ControlType controlType;
    ParameterType parameterType;
    VocabularyNames valueTypeNames;
    VocabularyNames controlTypeNames;
    HandlerSlot<TimeStampHandler> timeStampHandler;
    HandlerSlot<BooleanHandler> booleanHandler;
    HandlerSlot<EnumHandler> enumHandler;
    HandlerSlot<IntegerHandler> integerHandler;
    HandlerSlot<DoubleHandler> doubleHandler;
    HandlerSlot<FloatHandler> floatHandler;
    HandlerSlot<LongHandler> longHandler;
    HandlerSlot<StringHandler> stringHandler;
};

/// Writes the name of \a value, or its number when it has none.
KORMAK_EXPORT QDebug operator<<(QDebug debug, ParameterType value);

/// Writes the name of \a value, or its number when it has none.
KORMAK_EXPORT QDebug operator<<(QDebug debug, Parameter::ValueType value);

/// Writes the name of \a value, or its number when it has none.
KORMAK_EXPORT QDebug operator<<(QDebug debug, Parameter::ControlType value);

/// Writes the name of the object and all of its fields that are set, in a line.
KORMAK_EXPORT QDebug operator<<(QDebug debug, const Parameter &object);

} // namespace KORMAK

#endif
