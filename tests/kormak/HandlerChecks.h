// The checks that every value handler needs. Describe the handler once, in a function of the test,
//     Handler<SizeHandler> sizeHandler()
//     {
//         return {"SizeHandler", {field<SizeHandler, int>("value", &SizeHandler::GetValue,
//                                                         &SizeHandler::SetValue, {1, 2}, resetTo(0))}};
//     }
// and hand it to the add functions in the data slots; run() is the body of the slots themselves.
#ifndef KORMAK_HANDLERCHECKS_H
#define KORMAK_HANDLERCHECKS_H

#include <kormak/TypeHandler.h>
#include <objectbase/ITesselObject.h>

#include <QString>
#include <QStringList>
#include <QtTest>
#include <QVector>

#include <cstddef>
#include <cstring>
#include <functional>
#include <type_traits>
#include <utility>
#include <vector>

namespace HandlerChecks {

/// The check that a row of a data slot stands for.
struct Check {
    std::function<void()> function;
};

} // namespace HandlerChecks

Q_DECLARE_METATYPE(HandlerChecks::Check)

namespace HandlerChecks {

// Texts that are equal exactly when the values are the same, bit by bit

inline quint32 bitsOf(float value)
{
    quint32 bits = 0;
    static_assert(sizeof bits == sizeof value);
    std::memcpy(&bits, &value, sizeof bits);
    return bits;
}

inline quint64 bitsOf(double value)
{
    quint64 bits = 0;
    static_assert(sizeof bits == sizeof value);
    std::memcpy(&bits, &value, sizeof bits);
    return bits;
}

inline QString textOf(const QString &value)
{
    return '"' + value + '"';
}

template <class Number, class = std::enable_if_t<std::is_arithmetic_v<Number>>>
QString textOf(Number value)
{
    if constexpr (std::is_floating_point_v<Number>)
        return QString("%1 (bits %2)").arg(static_cast<double>(value)).arg(bitsOf(value), 0, 16);
    else
        return QString::number(value);
}

template <class Value>
QString textOf(const QVector<Value> &values)
{
    QStringList texts;
    for (const Value &value : values)
        texts << textOf(value);
    return '[' + texts.join(", ") + ']';
}

// Description of a handler

/// What a field holds after construction, and whether Reset() brings it back.
template <class Value>
struct Start {
    Value value;
    bool isReset;
};

template <class Value>
Start<Value> resetTo(const Value &value)
{
    return {value, true};
}

template <class Value>
Start<Value> keptFrom(const Value &value)
{
    return {value, false};
}

enum class Compared { No, Yes };

template <class Class>
struct Field {
    QString name;
    bool isCompared;
    bool isExchanged; ///< when the handler is assigned by move
    bool isReset;
    QString startText;
    QStringList texts; ///< of the values it is tried with; the first two are told apart by a comparison
    std::function<void(Class &, int)> set; ///< to one of those values
    std::function<QString(const Class &)> get;
    /// Takes the getter's reference, sets the field and says what the reference shows then.
    std::function<QString(Class &, int)> setBehindReference;
};

template <class Class>
struct Handler {
    QString name;
    std::vector<Field<Class>> fields;
};

template <class Value>
struct PassedAs {
    using Type = Value;
};

template <>
struct PassedAs<QString> {
    using Type = const QString &;
};

template <class Element>
struct PassedAs<QVector<Element>> {
    using Type = QVector<Element> &;
};

/// A field by any pair of functions: set(handler, value) and get(handler), which gives a reference.
template <class Class, class Value, class Set, class Get>
Field<Class> makeField(const QString &name, Set set, Get get, const QVector<Value> &values,
                       const Start<Value> &start, Compared compared)
{
    constexpr bool IsNumber = std::is_arithmetic_v<Value>;
    QStringList texts;
    for (const Value &value : values)
        texts << textOf(value);
    const auto setTo = [set, values](Class &handler, int number) {
        Value value = values[number];
        set(handler, value);
    };
    return {name,
            compared == Compared::Yes,
            !IsNumber,
            start.isReset,
            textOf(start.value),
            texts,
            setTo,
            [get](const Class &handler) { return textOf(get(handler)); },
            [setTo, get](Class &handler, int number) {
                const Value &reference = get(std::as_const(handler));
                setTo(handler, number);
                return textOf(reference);
            }};
}

/// A field with a getter and a setter. Only the exact signatures fit.
template <class Class, class Value>
Field<Class> field(const QString &name, const Value &(Class::*get)() const,
                   void (Class::*set)(typename PassedAs<Value>::Type), const QVector<Value> &values,
                   const Start<Value> &start, Compared compared = Compared::Yes)
{
    return makeField<Class, Value>(
        name, [set](Class &handler, Value &value) { (handler.*set)(value); },
        [get](const Class &handler) -> const Value & { return (handler.*get)(); }, values, start, compared);
}

/// Adds the fields that every handler ends with.
template <class Class>
Handler<Class> withNames(Handler<Class> handler, bool areReset = false)
{
    const Start<QString> start{QString(), areReset};
    const QVector<QString> names{"Centre Frequency", "centre Frequency", "", " \u00b5\t"};
    handler.fields.push_back(field<Class, QString>("representation name", &Class::GetRepresentationName,
                                                   &Class::SetRepresentationName, names, start));
    handler.fields.push_back(field<Class, QString>("unique parameter name", &Class::GetUniqueParameterName,
                                                   &Class::SetUniqueParameterName, names, start));
    return handler;
}

template <class Class>
void fill(Class &object, const Handler<Class> &handler, int number)
{
    for (const Field<Class> &field : handler.fields)
        field.set(object, number);
}

template <class Class>
Class filled(const Handler<Class> &handler, int number)
{
    Class object;
    fill(object, handler, number);
    return object;
}

/// A line for each field, with the text that \a text gives.
template <class Class, class Text>
QStringList lines(const Handler<Class> &handler, Text text)
{
    QStringList all;
    for (const Field<Class> &field : handler.fields)
        all << field.name + " = " + text(field);
    return all;
}

template <class Class>
QStringList state(const Class &object, const Handler<Class> &handler)
{
    return lines(handler, [&object](const Field<Class> &field) { return field.get(object); });
}

template <class Class>
QStringList filledState(const Handler<Class> &handler, int number)
{
    return lines(handler, [number](const Field<Class> &field) { return field.texts[number]; });
}

// Rows of the data slots

inline void addColumn()
{
    QTest::addColumn<Check>("check");
}

inline void addRow(const QString &name, const std::function<void()> &check)
{
    QTest::newRow(qPrintable(name.simplified())) << Check{check};
}

inline void run()
{
    QFETCH(Check, check);
    check.function();
}

template <class Class>
void addConstruction(const Handler<Class> &handler)
{
    addRow(handler.name, [handler] {
        const Class object;
        QCOMPARE(state(object, handler),
                 lines(handler, [](const Field<Class> &field) { return field.startText; }));
    });
}

/// Every value is stored as it is, and in no other field.
template <class Class>
void addStoring(const Handler<Class> &handler)
{
    for (std::size_t index = 0; index < handler.fields.size(); ++index) {
        const Field<Class> &field = handler.fields[index];
        for (int number = 0; number < field.texts.size(); ++number) {
            addRow(handler.name + ", " + field.name + ", " + field.texts[number], [handler, index, number] {
                Class object = filled(handler, 0);
                handler.fields[index].set(object, number);
                QStringList expected = filledState(handler, 0);
                expected[static_cast<int>(index)] =
                    handler.fields[index].name + " = " + handler.fields[index].texts[number];
                QCOMPARE(state(object, handler), expected);
            });
        }
    }
}

template <class Class>
void addReferences(const Handler<Class> &handler)
{
    for (const Field<Class> &field : handler.fields) {
        addRow(handler.name + ", " + field.name, [handler, field] {
            Class object = filled(handler, 0);
            QCOMPARE(field.setBehindReference(object, 1), field.texts[1]);
        });
    }
}

template <class Class>
void addReset(const Handler<Class> &handler)
{
    addRow(handler.name, [handler] {
        Class object = filled(handler, 0);
        const QStringList expected = lines(handler, [](const Field<Class> &field) {
            return field.isReset ? field.startText : field.texts[0];
        });

        static_cast<KORMAK::TypeHandler &>(object).Reset();
        QCOMPARE(state(object, handler), expected);
        object.Reset();
        QCOMPARE(state(object, handler), expected);
    });
}

/// Two handlers that differ in one field only.
template <class Class>
void addEquality(const Handler<Class> &handler)
{
    const auto compare = [handler](const Class &left, const Class &right, bool areEqual) {
        QCOMPARE(left == right, areEqual);
        QCOMPARE(right == left, areEqual);
        QCOMPARE(left != right, !areEqual);
        QCOMPARE(right != left, !areEqual);
    };
    addRow(handler.name + ", as constructed", [compare] { compare(Class(), Class(), true); });
    addRow(handler.name + ", the same in all fields",
           [handler, compare] { compare(filled(handler, 0), filled(handler, 0), true); });
    for (const Field<Class> &field : handler.fields) {
        addRow(handler.name + ", " + field.name, [handler, field, compare] {
            Class changed = filled(handler, 0);
            field.set(changed, 1);
            compare(filled(handler, 0), changed, !field.isCompared);
        });
    }
}

/// The target bears the source's fields, and neither sees what happens to the other afterwards.
template <class Class>
void checkCopy(Class &source, Class &target, const Handler<Class> &handler)
{
    QCOMPARE(state(target, handler), filledState(handler, 0));
    QCOMPARE(state(source, handler), filledState(handler, 0));

    fill(target, handler, 1);
    QCOMPARE(state(target, handler), filledState(handler, 1));
    QCOMPARE(state(source, handler), filledState(handler, 0));

    target = source;
    fill(source, handler, 1);
    QCOMPARE(state(target, handler), filledState(handler, 0));
    QCOMPARE(state(source, handler), filledState(handler, 1));
}

template <class Class>
void checkMoveAssignment(const Handler<Class> &handler)
{
    Class source = filled(handler, 0);
    Class target = filled(handler, 1);
    Class &result = target = std::move(source);

    QCOMPARE(&result, &target);
    QCOMPARE(state(target, handler), filledState(handler, 0));
    QCOMPARE(state(source, handler), lines(handler, [](const Field<Class> &field) { // NOLINT: not empty
                 return field.texts[field.isExchanged ? 1 : 0];
             }));

    fill(source, handler, 1);
    QCOMPARE(state(source, handler), filledState(handler, 1));
    QCOMPARE(state(target, handler), filledState(handler, 0));
    source.Reset();
    QCOMPARE(state(target, handler), filledState(handler, 0));
}

template <class Class>
void addCopiesAndMoves(const Handler<Class> &handler)
{
    static_assert(
        std::is_default_constructible_v<
            Class> && std::is_copy_constructible_v<Class> && std::is_move_constructible_v<Class> && std::is_copy_assignable_v<Class> && std::is_move_assignable_v<Class>);

    addRow(handler.name + ", copy construction", [handler] {
        Class source = filled(handler, 0);
        Class target(std::as_const(source));
        checkCopy(source, target, handler);
    });
    addRow(handler.name + ", move construction", [handler] {
        Class source = filled(handler, 0);
        Class target(std::move(source));
        checkCopy(source, target, handler); // NOLINT: the source keeps what it holds
    });
    addRow(handler.name + ", copy assignment", [handler] {
        Class source = filled(handler, 0);
        Class target = filled(handler, 1);
        const Class &result = target = std::as_const(source);
        QCOMPARE(&result, &target);
        checkCopy(source, target, handler);
    });
    addRow(handler.name + ", move assignment", [handler] { checkMoveAssignment(handler); });
    addRow(handler.name + ", copy assignment to itself", [handler] {
        Class object = filled(handler, 0);
        const Class &same = object;
        object = same;
        QCOMPARE(state(object, handler), filledState(handler, 0));
    });
    addRow(handler.name + ", move assignment to itself", [handler] {
        Class object = filled(handler, 0);
        Class &same = object;
        object = std::move(same);
        QCOMPARE(state(object, handler), filledState(handler, 0));
    });
}

/// The names as code sees them that knows the base only.
template <class Class>
void addNamesThroughBase(const Handler<Class> &handler)
{
    addRow(handler.name, [] {
        Class object;
        KORMAK::TypeHandler &base = object;

        base.SetRepresentationName("Shown");
        base.SetUniqueParameterName("Owner");
        QCOMPARE(object.GetRepresentationName(), QString("Shown"));
        QCOMPARE(object.GetUniqueParameterName(), QString("Owner"));

        object.SetRepresentationName("Shown later");
        object.SetUniqueParameterName("Owner later");
        QCOMPARE(base.GetRepresentationName(), QString("Shown later"));
        QCOMPARE(base.GetUniqueParameterName(), QString("Owner later"));
    });
}

/// Goes by names that it keeps elsewhere.
template <class Class>
class Alias : public Class {
public:
    const QString &GetRepresentationName() const override { return shown; }
    const QString &GetUniqueParameterName() const override { return owner; }

    QString shown;
    QString owner;
};

/// Names of a concrete handler: those of the base are others, and a derived class may give others still.
template <class Class>
void addOwnNames(const Handler<Class> &handler)
{
    static_assert(!std::is_final_v<Class>);
    using KORMAK::TypeHandler;
    const auto baseNames = [](const Class &object) {
        return QStringList{object.TypeHandler::GetRepresentationName(),
                           object.TypeHandler::GetUniqueParameterName()};
    };

    addRow(handler.name + ", names of the base", [handler, baseNames] {
        const QStringList none{QString(), QString()};
        Class object = filled(handler, 0);
        QCOMPARE(baseNames(object), none);

        object.TypeHandler::SetRepresentationName("base shown");
        object.TypeHandler::SetUniqueParameterName("base owner");
        const QStringList names{"base shown", "base owner"};
        QCOMPARE(baseNames(object), names);
        QCOMPARE(state(object, handler), filledState(handler, 0));
        QVERIFY(object == filled(handler, 0));

        Class copy(std::as_const(object));
        QCOMPARE(baseNames(copy), names);
        Class moved(std::move(copy));
        QCOMPARE(baseNames(moved), names);
        QCOMPARE(baseNames(copy), names); // NOLINT: the source keeps what it holds
        Class assigned;
        assigned = std::as_const(object);
        QCOMPARE(baseNames(assigned), names);
        Class exchanged;
        exchanged.TypeHandler::SetRepresentationName("other");
        exchanged = std::move(assigned);
        QCOMPARE(baseNames(exchanged), names);
        QCOMPARE(baseNames(assigned), (QStringList{"other", QString()})); // NOLINT: nor is this one empty
        object.Reset();
        QCOMPARE(baseNames(object), names);
    });
    addRow(handler.name + ", names of a derived handler", [handler] {
        Alias<Class> one;
        Alias<Class> other;
        static_cast<Class &>(one) = filled(handler, 0);
        static_cast<Class &>(other) = filled(handler, 0);
        const auto areEqual = [&one, &other] {
            const Class &left = one;
            const Class &right = other;
            return left == right && right == left && !(left != right);
        };
        QVERIFY(areEqual());
        one.SetRepresentationName("not asked for");
        one.SetUniqueParameterName("not asked for");
        QVERIFY(areEqual());
        one.shown = "Shown";
        QVERIFY(!areEqual());
        other.shown = "Shown";
        QVERIFY(areEqual());
        other.owner = "Owner";
        QVERIFY(!areEqual());
    });
    addRow(handler.name + ", references to names", [] {
        Class object;
        object.SetRepresentationName("one");
        object.SetUniqueParameterName("one");
        const QString &shown = object.GetRepresentationName();
        const QString &owner = object.GetUniqueParameterName();
        {
            const auto copy = object;
            object.SetRepresentationName("two");
            object.SetUniqueParameterName("two");
            QCOMPARE(copy.GetRepresentationName(), "one");
        }
        QCOMPARE(shown, "two");
        QCOMPARE(owner, "two");
        Class other;
        other.SetRepresentationName("three");
        object = std::as_const(other);
        QCOMPARE(shown, "three");
        QVERIFY(owner.isEmpty());
        other.SetRepresentationName("four");
        object = std::move(other);
        QCOMPARE(shown, "four");
        QCOMPARE(&shown, &object.GetRepresentationName());
        QCOMPARE(&owner, &object.GetUniqueParameterName());
    });
}

#ifdef __GXX_ABI_VERSION
/// Number of the entry in the table of virtual functions to which a pointer to a virtual function refers:
/// its first word is the offset of that entry, with the lowest bit as a mark on some processors.
template <class Function>
std::size_t slotOf(Function function)
{
    std::size_t word = 0;
    static_assert(sizeof function == 2 * sizeof word);
    std::memcpy(&word, &function, sizeof word);
    return (word & ~std::size_t(1)) / sizeof(void *);
}
#endif

/// Programs that were built earlier call the operations by their place in the table.
template <class Class>
void addSlots(const Handler<Class> &handler)
{
    static_assert(std::is_base_of_v<KORMAK::TypeHandler, Class>);
    static_assert(!std::is_base_of_v<TESSEL::ITesselObject, Class>);
    static_assert(!std::has_virtual_destructor_v<Class>);

    addRow(handler.name, [] {
#ifdef __GXX_ABI_VERSION
        QCOMPARE(slotOf<bool (Class::*)() const>(&Class::HasData), std::size_t(0));
        QCOMPARE(slotOf<bool (Class::*)() const>(&Class::AnyData), std::size_t(1));
        QCOMPARE(slotOf<void (Class::*)()>(&Class::Reset), std::size_t(2));
        QCOMPARE(slotOf<void (Class::*)(const QString &)>(&Class::SetRepresentationName), std::size_t(3));
        QCOMPARE(slotOf<const QString &(Class::*)() const>(&Class::GetRepresentationName), std::size_t(4));
        QCOMPARE(slotOf<void (Class::*)(const QString &)>(&Class::SetUniqueParameterName), std::size_t(5));
        QCOMPARE(slotOf<const QString &(Class::*)() const>(&Class::GetUniqueParameterName), std::size_t(6));
#else
        QSKIP("Pointers to member functions are laid out differently here");
#endif
    });
}

} // namespace HandlerChecks

#endif
