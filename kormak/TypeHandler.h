#ifndef KORMAK_TYPEHANDLER_H
#define KORMAK_TYPEHANDLER_H

#include <kormak/kormak_export.h>

#include <QString>
#include <QVector>

#include <utility>

// Handlers are values, and nobody destroys one through a base.
QT_WARNING_PUSH
QT_WARNING_DISABLE_GCC("-Wnon-virtual-dtor")
QT_WARNING_DISABLE_CLANG("-Wnon-virtual-dtor")

namespace KORMAK {

/// Base of the value holders of a Parameter: the two names of each, and whether it holds
/// anything. A handler stores what it is given without a test; judging values is its owner's business.
///
/// \snippet docs/KormakSnippetsTest.cpp TypeHandler
///
/// Handlers are values: they live in their owner and are never destroyed through this base. All of them are
/// copied field by field. Moving one into a new handler copies it, too; assigning it by move copies its
/// numbers and flags and exchanges its texts and lists with the source, which stays fully usable.
///
/// References to fields are valid for the life of the handler and show what is set later.
class KORMAK_EXPORT TypeHandler {
public:
    /// True when the handler holds what a document needs.
    [[nodiscard]] virtual bool HasData() const = 0;
    /// True when anything differs from the reset state.
    [[nodiscard]] virtual bool AnyData() const = 0;
    /// Puts the fields back to their defaults; each class says which it leaves alone. Names stay.
    virtual void Reset() = 0;

    /// \name Names
    /// The concrete handlers have names of their own. Those of the base, which only calls that name it reach,
    /// are copied with them.
    /// @{

    /// The name under which the value is represented.
    virtual void SetRepresentationName(const QString &name);
    [[nodiscard]] virtual const QString &GetRepresentationName() const;

    /// The name of the parameter that owns the handler.
    virtual void SetUniqueParameterName(const QString &name);
    [[nodiscard]] virtual const QString &GetUniqueParameterName() const;
    /// @}

protected:
    TypeHandler() = default;
    TypeHandler(const TypeHandler &other) = default;
    TypeHandler(TypeHandler &&other) noexcept;
    TypeHandler &operator=(const TypeHandler &other) = default;
    TypeHandler &operator=(TypeHandler &&other) noexcept;
    ~TypeHandler() = default;

    /// Both names are equal, as the virtual accessors of both handlers give them.
    [[nodiscard]] bool hasNamesOf(const TypeHandler &other) const;

private:
    QString representationName;
    QString uniqueParameterName;
};

/// What the concrete handlers share: the names that they go by.
///
/// \snippet docs/KormakSnippetsTest.cpp NamedHandler
class KORMAK_EXPORT NamedHandler : public TypeHandler {
public:
    void SetRepresentationName(const QString &name) override;
    [[nodiscard]] const QString &GetRepresentationName() const override;

    void SetUniqueParameterName(const QString &name) override;
    [[nodiscard]] const QString &GetUniqueParameterName() const override;

protected:
    NamedHandler() = default;
    NamedHandler(const NamedHandler &other) = default;
    NamedHandler(NamedHandler &&other) noexcept;
    NamedHandler &operator=(const NamedHandler &other) = default;
    NamedHandler &operator=(NamedHandler &&other) noexcept;
    ~NamedHandler() = default;

    /// One of the names is not empty.
    [[nodiscard]] bool hasAnyName() const;
    /// Makes both empty.
    void clearNames();

private:
    QString representationName;
    QString uniqueParameterName;
};

/// What the handlers of numbers share: a value with its limits, its default and a multiplier between shown
/// and stored value. Such a handler always holds data.
///
/// \snippet docs/KormakSnippetsTest.cpp NumericHandler
template <class Number>
class NumericHandler : public NamedHandler {
public:
    /// The least value. Nothing enforces it.
    [[nodiscard]] const Number &GetMinimum() const noexcept { return minimum; }
    void SetMinimum(Number number) noexcept { minimum = number; }

    /// The greatest value. Nothing enforces it.
    [[nodiscard]] const Number &GetMaximum() const noexcept { return maximum; }
    void SetMaximum(Number number) noexcept { maximum = number; }

    /// Setting it leaves the value alone.
    [[nodiscard]] const Number &GetDefault() const noexcept { return defaultValue; }
    void SetDefault(Number number) noexcept { defaultValue = number; }

    /// Any number, within the limits or not.
    [[nodiscard]] const Number &GetValue() const noexcept { return value; }
    void SetValue(Number number) noexcept { value = number; }

    /// The factor between shown and stored value; the handler itself multiplies nothing.
    [[nodiscard]] const double &GetMultiplier() const noexcept { return multiplier; }
    void SetMultiplier(double factor) noexcept { multiplier = factor; }

    /// Always true: any number is data.
    [[nodiscard]] bool HasData() const override { return true; }
    [[nodiscard]] bool AnyData() const override { return true; }

protected:
    NumericHandler() = default;
    NumericHandler(const NumericHandler &other) = default;
    NumericHandler(NumericHandler &&other) noexcept = default;
    NumericHandler &operator=(const NumericHandler &other) = default;
    NumericHandler &operator=(NumericHandler &&other) noexcept = default;
    ~NumericHandler() = default;

    /// Limits as given, default 0, multiplier 1. The value stays.
    void resetLimits(Number least, Number most)
    {
        minimum = least;
        maximum = most;
        defaultValue = 0;
        multiplier = 1.0;
    }

    /// Limits, default and value, compared exactly.
    [[nodiscard]] bool hasNumbersOf(const NumericHandler &other) const
    {
        return minimum == other.minimum && maximum == other.maximum && defaultValue == other.defaultValue
            && value == other.value;
    }

private:
    double multiplier = 1.0;
    Number minimum = 0;
    Number maximum = 0;
    Number defaultValue = 0;
    Number value = 0;
};

/// Holds a bool. It always holds data.
///
/// \snippet docs/KormakSnippetsTest.cpp BooleanHandler
class KORMAK_EXPORT BooleanHandler : public NamedHandler {
public:
    /// False in a new handler.
    [[nodiscard]] const bool &GetValue() const noexcept { return value; }
    void SetValue(bool on) noexcept { value = on; }

    [[nodiscard]] bool HasData() const override;
    [[nodiscard]] bool AnyData() const override;
    void Reset() override;

    /// Compares value and names.
    [[nodiscard]] bool operator==(const BooleanHandler &other) const;
    [[nodiscard]] bool operator!=(const BooleanHandler &other) const { return !(*this == other); }

private:
    bool value = false;
};

/// Holds a 32-bit integer. Its limits are those of 16 bits unless others are set. Reset() leaves the value
/// alone.
///
/// \snippet docs/KormakSnippetsTest.cpp IntegerHandler
class KORMAK_EXPORT IntegerHandler : public NumericHandler<qint32> {
public:
    IntegerHandler();

    void Reset() override;

    /// The multiplier is not compared.
    [[nodiscard]] bool operator==(const IntegerHandler &other) const;
    [[nodiscard]] bool operator!=(const IntegerHandler &other) const { return !(*this == other); }
};

/// Holds a 32-bit integer, whatever the width of `long`. Its limits are -2147483647 and 2147483647 unless
/// others are set. Reset() leaves the value alone.
///
/// \snippet docs/KormakSnippetsTest.cpp LongHandler
class KORMAK_EXPORT LongHandler : public NumericHandler<qint32> {
public:
    LongHandler();

    void Reset() override;

    /// The multiplier is not compared.
    [[nodiscard]] bool operator==(const LongHandler &other) const;
    [[nodiscard]] bool operator!=(const LongHandler &other) const { return !(*this == other); }
};

/// Holds a 64-bit integer; the unit of time is the document's.
///
/// \snippet docs/KormakSnippetsTest.cpp TimeStampHandler
class KORMAK_EXPORT TimeStampHandler : public NumericHandler<long long> {
public:
    TimeStampHandler();

    void Reset() override;

    /// The multiplier is not compared.
    [[nodiscard]] bool operator==(const TimeStampHandler &other) const;
    [[nodiscard]] bool operator!=(const TimeStampHandler &other) const { return !(*this == other); }
};

/// Holds a float.
///
/// \snippet docs/KormakSnippetsTest.cpp FloatHandler
class KORMAK_EXPORT FloatHandler : public NumericHandler<float> {
public:
    FloatHandler();

    /// Number of decimals that are shown.
    [[nodiscard]] const int &GetPrecision() const noexcept { return precision; }
    void SetPrecision(int decimals) noexcept { precision = decimals; }

    void Reset() override;

    /// Multiplier and precision are not compared. A NaN equals nothing.
    [[nodiscard]] bool operator==(const FloatHandler &other) const;
    [[nodiscard]] bool operator!=(const FloatHandler &other) const { return !(*this == other); }

private:
    int precision = 0;
};

/// Holds a double, or a list of doubles when it is used as a list. The value -111111.11 means that none is
/// set.
///
/// \snippet docs/KormakSnippetsTest.cpp DoubleHandler
class KORMAK_EXPORT DoubleHandler : public NumericHandler<double> {
public:
    DoubleHandler();
    DoubleHandler(const DoubleHandler &other) = default;
    DoubleHandler(DoubleHandler &&other) noexcept;
    DoubleHandler &operator=(const DoubleHandler &other) = default;
    DoubleHandler &operator=(DoubleHandler &&other) noexcept;
    ~DoubleHandler() = default;

    /// Whether the list counts or the single value. Setting it changes neither.
    [[nodiscard]] const bool &IsDoubleList() const noexcept { return useAsList; }
    void SetUseAsList(bool on) noexcept { useAsList = on; }

    /// The values of the list, which need not be used as one.
    [[nodiscard]] QVector<double> &GetDoubleList() noexcept { return doubleList; }
    [[nodiscard]] const QVector<double> &GetDoubleList() const noexcept { return doubleList; }
    void SetDoubleList(QVector<double> &list);
    void AppendDoubleValue(const double &number);

    /// Information for the document; the list may grow beyond it. 0: none declared. Reset() leaves it alone.
    [[nodiscard]] const int &GetMaxDoubleListLength() const noexcept { return maxDoubleListLength; }
    void SetMaxDoubleListLength(int length) noexcept { maxDoubleListLength = length; }

    /// Number of decimals that are shown.
    [[nodiscard]] const int &GetPrecision() const noexcept { return precision; }
    void SetPrecision(int decimals) noexcept { precision = decimals; }

    /// As a list: it has elements or a maximum length. Otherwise: a value is set.
    [[nodiscard]] bool HasData() const override;
    /// True when limits, default or value differ from the reset state, or there is anything of a list.
    [[nodiscard]] bool AnyData() const override;
    void Reset() override;

    /// Compares lists, limits, default, value, precision and, only when this handler (the left one) is used
    /// as a list, the maximum lengths. The multiplier is not compared. A NaN equals nothing.
    [[nodiscard]] bool operator==(const DoubleHandler &other) const;
    [[nodiscard]] bool operator!=(const DoubleHandler &other) const { return !(*this == other); }

private:
    QVector<double> doubleList;
    int maxDoubleListLength = 0;
    int precision = 0;
    bool useAsList = false;
};

/// Holds a text. It holds data when the value is not empty. Reset() also clears the handler's names.
///
/// \snippet docs/KormakSnippetsTest.cpp StringHandler
class KORMAK_EXPORT StringHandler : public NamedHandler {
public:
    StringHandler() = default;
    StringHandler(const StringHandler &other) = default;
    StringHandler(StringHandler &&other) noexcept;
    StringHandler &operator=(const StringHandler &other) = default;
    StringHandler &operator=(StringHandler &&other) noexcept;
    ~StringHandler() = default;

    /// Setting it leaves the value alone.
    [[nodiscard]] const QString &GetDefault() const noexcept { return defaultValue; }
    void SetDefault(const QString &text) { defaultValue = text; }

    /// Any text; an empty one is no data.
    [[nodiscard]] const QString &GetValue() const noexcept { return value; }
    void SetValue(const QString &text) { value = text; }

    [[nodiscard]] bool HasData() const override;
    /// True when value, default or one of the names is not empty.
    [[nodiscard]] bool AnyData() const override;
    void Reset() override;

    /// Compares default, value and names.
    [[nodiscard]] bool operator==(const StringHandler &other) const;
    [[nodiscard]] bool operator!=(const StringHandler &other) const { return !(*this == other); }

private:
    QString defaultValue;
    QString value;
};

} // namespace KORMAK

QT_WARNING_POP

#endif
