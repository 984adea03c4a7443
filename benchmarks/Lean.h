// The fields of a receiver description in structures of the smallest form that holds them, as a program would
// have them that reads such descriptions with another library. Numbers of names are their places in the lists
// below.
#ifndef BENCHMARKS_LEAN_H
#define BENCHMARKS_LEAN_H

#include <QMap>
#include <QString>
#include <QStringView>
#include <QVector>

#include <variant>

namespace KORMAK {
class GenericReceiver;
}

namespace Lean {

enum Type { NoType = -1, Boolean, Long, Integer, String, Double, DoubleList, Float, Enum, TimeStamp };

inline constexpr QStringView TypeNames[] = {u"Boolean",    u"Long",  u"Integer", u"String",   u"Double",
                                            u"DoubleList", u"Float", u"Enum",    u"TimeStamp"};
inline constexpr QStringView ValueTypeNames[] = {u"ValueSelection",    u"ValueBoolean",  u"ValueNumericInt",
                                                 u"ValueNumericFloat", u"ValueString",   u"ValueNumericInt64",
                                                 u"ValueFrequency",    u"ValueFloatList"};
inline constexpr QStringView ControlTypeNames[] = {u"VCFrequency", u"VCLineEdit", u"VCLineEditFrequency",
                                                   u"VCTimeEdit"};

/// The place of \a name, or -1.
template <std::size_t Count>
int placeOf(const QStringView (&names)[Count], QStringView name)
{
    for (std::size_t place = 0; place < Count; ++place) {
        if (names[place] == name)
            return static_cast<int>(place);
    }
    return -1;
}

struct Entry {
    int key = -1;
    QString name;
    QString identifier;
    double value = 0;
    bool isDefault = false;

    bool operator==(const Entry &other) const;
};

struct WholeNumber {
    long long minimum = 0;
    long long maximum = 0;
    long long standard = 0;

    bool operator==(const WholeNumber &other) const;
};

/// Of a Float, a Double or a DoubleList.
struct RealNumber {
    double minimum = 0;
    double maximum = 0;
    double standard = 0;
    int precision = 0;
    int maximumLength = 0;

    bool operator==(const RealNumber &other) const;
};

struct Parameter {
    QString version;
    QString uniqueName;
    QString representationName;
    QString displayName;
    QString toolTip;
    QString displaySuffix;
    double multiplier = 1;
    Type type = NoType;
    int valueType = -1;
    int controlType = -1;
    bool enabled = true;
    std::variant<bool, WholeNumber, RealNumber, QString, QVector<Entry>> value;

    bool operator==(const Parameter &other) const;
};

struct Receiver {
    QString version;
    QMap<QString, Parameter> parameters;

    bool operator==(const Receiver &other) const;
};

/// The name of the element that holds the value.
[[nodiscard]] QStringView blockName(Type type);

/// What the library has read.
[[nodiscard]] Receiver receiverOf(const KORMAK::GenericReceiver &receiver);

/// The elements, attributes and texts of a document, whatever its layout and the order of its attributes.
[[nodiscard]] QStringList contentOf(const QString &document);

} // namespace Lean

#endif
