#include "HandlerChecks.h"

#include <kormak/EnumHandler.h>

#include <cmath>
#include <limits>

using namespace HandlerChecks;
using namespace KORMAK;
using EnumValue = EnumHandler::EnumValue;
using EnumList = QVector<EnumValue>;

Q_DECLARE_METATYPE(EnumHandler::EnumValue)

namespace KORMAK {

/// All five fields; found by the checks of the handlers.
static QString textOf(const EnumValue &entry)
{
    using HandlerChecks::textOf;
    return QStringList{textOf(entry.Key), textOf(entry.Name), textOf(entry.Identifier), textOf(entry.Value),
                       textOf(entry.Default)}
        .join(' ');
}

} // namespace KORMAK

namespace {

constexpr double NotANumber = std::numeric_limits<double>::quiet_NaN();

static_assert(std::is_aggregate_v<EnumValue>);
static_assert(!std::is_polymorphic_v<EnumValue>);
static_assert(std::is_same_v<decltype(EnumValue::Key), qint32>);
static_assert(std::is_same_v<decltype(EnumValue::Name), QString>);
static_assert(std::is_same_v<decltype(EnumValue::Identifier), QString>);
static_assert(std::is_same_v<decltype(EnumValue::Value), double>);
static_assert(std::is_same_v<decltype(EnumValue::Default), QString>);

// Members of exactly these types exist
using H = EnumHandler;
template <class Function>
using Member = Function H::*;
[[maybe_unused]] constexpr Member<EnumList &()> GetEnumList = &H::GetEnumList;
[[maybe_unused]] constexpr Member<void(const EnumValue &)> AppendEnumValue = &H::AppendEnumValue;
[[maybe_unused]] constexpr Member<EnumValue &()> GetDefaultValue = &H::GetDefaultValue;
[[maybe_unused]] constexpr Member<EnumValue &()> GetSelectedEnumValue = &H::GetSelectedEnumValue;
[[maybe_unused]] constexpr Member<const EnumValue &(const QString &)> GetEnumValueByName = &H::GetEnumValue;
[[maybe_unused]] constexpr Member<const EnumValue &(int) const> GetEnumValueByKey = &H::GetEnumValue;
[[maybe_unused]] constexpr Member<const EnumValue &(double) const> GetEnumValueByValue = &H::GetEnumValue;

EnumValue entry(int key, const QString &name, double value, const QString &identifier = QString(),
                const QString &isDefault = "false")
{
    EnumValue entry;
    entry.Key = key;
    entry.Name = name;
    entry.Identifier = identifier;
    entry.Value = value;
    entry.Default = isDefault;
    return entry;
}

EnumHandler handlerWith(const EnumList &entries)
{
    EnumHandler handler;
    for (const EnumValue &entry : entries)
        handler.AppendEnumValue(entry);
    return handler;
}

EnumHandler lowAndHigh()
{
    EnumHandler handler = handlerWith({entry(1, "Low", 0.5), entry(2, "High", 1.5)});
    handler.SetDefaultValue(entry(7, "Default", 7.5));
    handler.SetSelectedEnumValue(entry(8, "Selected", 8.5));
    return handler;
}

const EnumValue *dataOf(const EnumHandler &handler)
{
    return handler.GetEnumList().constData();
}

/// A field of the default or the selected entry. Reset() leaves them alone.
template <class Value, class Entry>
Field<H> entryField(const QString &name, Entry entryOf, Value EnumValue::*member, QVector<Value> values,
                    const Value &start)
{
    return makeField<H, Value>(
        name, [entryOf, member](H &handler, const Value &value) { entryOf(handler).*member = value; },
        [entryOf, member](const H &handler) -> const Value & { return entryOf(handler).*member; }, values,
        keptFrom(start), Compared::Yes);
}

template <class Entry>
void addEntryFields(std::vector<Field<H>> &fields, const QString &name, Entry entryOf)
{
    const QVector<double> values{0.5, 1.5, NotANumber, -0.0};
    const QVector<QString> texts{"Wide", "wide", "", " "};
    fields.push_back(entryField<qint32>(name + ", Key", entryOf, &EnumValue::Key, {3, 5, -1}, -1));
    fields.push_back(entryField<QString>(name + ", Name", entryOf, &EnumValue::Name, texts, QString()));
    fields.push_back(
        entryField<QString>(name + ", Identifier", entryOf, &EnumValue::Identifier, texts, QString()));
    fields.push_back(entryField<double>(name + ", Value", entryOf, &EnumValue::Value, values, 0.0));
    fields.push_back(entryField<QString>(name + ", Default", entryOf, &EnumValue::Default,
                                         {"true", "false", "", "maybe"}, QString()));
}

Handler<H> enumHandler()
{
    const EnumList one{entry(1, "Low", 0.5), entry(2, "High", 1.5)};
    const EnumList other{entry(1, "Low", 0.5), entry(2, "high", 1.5)};
    std::vector<Field<H>> fields{field<H, EnumList>("enum list", &H::GetEnumList, &H::SetEnumList,
                                                    {one, other, {}}, resetTo(EnumList()))};
    addEntryFields(
        fields, "default value", [](auto &handler) -> auto & { return handler.GetDefaultValue(); });
    addEntryFields(
        fields, "selected value", [](auto &handler) -> auto & { return handler.GetSelectedEnumValue(); });
    return withNames<H>({"EnumHandler", fields});
}

} // namespace

class EnumHandlerTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void entriesAreAggregates();
    void referencesToEntries();
    void construction_data() { addRows(addConstruction<H>); }
    void construction() { run(); }
    void storing_data() { addRows(addStoring<H>); }
    void storing() { run(); }
    void references_data() { addRows(addReferences<H>); }
    void references() { run(); }
    void reset_data() { addRows(addReset<H>); }
    void reset() { run(); }
    void equality_data() { addRows(addEquality<H>); }
    void equality() { run(); }
    void copiesAndMoves_data() { addRows(addCopiesAndMoves<H>); }
    void copiesAndMoves() { run(); }
    void namesThroughBase_data() { addRows(addNamesThroughBase<H>); }
    void namesThroughBase() { run(); }
    void ownNames_data() { addRows(addOwnNames<H>); }
    void ownNames() { run(); }
    void slotOrder_data() { addRows(addSlots<H>); }
    void slotOrder() { run(); }

    void freshEntry();
    void fieldsOfEntryInOrder();
    void copiesOfEntry();
    void equalityOfEntries_data();
    void equalityOfEntries();

    void holdsData_data();
    void holdsData();
    void append();
    void appendElementOfItself();
    void setEntries();
    void editInPlace();
    void entriesEditedThroughReferencesStayApart();
    void assignmentReachesReferences();
    void listIsShared();
    void movedListIsExchanged();
    void equalityOfHandlers_data();
    void equalityOfHandlers();
    void equalityOfListsThatShareTheirData();

    void findByName_data();
    void findByName();
    void findByKey_data();
    void findByKey();
    void findByValue_data();
    void findByValue();
    void findInFreshHandler();
    void notFoundFollowsTheDefaultValue();
    void findByNameDetaches();
    void findByNumberDetachesNothing();

private:
    static void addRows(void (*add)(const Handler<H> &))
    {
        addColumn();
        add(enumHandler());
    }
};

void EnumHandlerTest::freshEntry()
{
    const EnumValue fresh;
    QCOMPARE(fresh.Key, -1);
    QCOMPARE(fresh.Name, QString());
    QCOMPARE(fresh.Identifier, QString());
    QCOMPARE(bitsOf(fresh.Value), quint64(0));
    QVERIFY(fresh == entry(-1, "", 0.0, "", "false"));
}

void EnumHandlerTest::fieldsOfEntryInOrder()
{
    const EnumValue object;
    const std::less<const void *> isBefore;
    QVERIFY(isBefore(&object.Key, &object.Name));
    QVERIFY(isBefore(&object.Name, &object.Identifier));
    QVERIFY(isBefore(&object.Identifier, &object.Value));
    QVERIFY(isBefore(&object.Value, &object.Default));
}

void EnumHandlerTest::copiesOfEntry()
{
    EnumValue source = entry(4, "Name", 2.5, "Identifier", "maybe");
    const QString text = textOf(source);

    EnumValue copy(source);
    EnumValue assigned = entry(1, "Other", 1.5, "Other", "true");
    assigned = source;
    source = entry(1, "Other", 1.5, "Other", "true");
    QCOMPARE(textOf(copy), text);
    QCOMPARE(textOf(assigned), text);

    const EnumValue &same = copy;
    copy = same;
    QCOMPARE(textOf(copy), text);
}

void EnumHandlerTest::equalityOfEntries_data()
{
    QTest::addColumn<EnumValue>("left");
    QTest::addColumn<EnumValue>("right");
    QTest::addColumn<bool>("areEqual");

    const EnumValue sample = entry(3, "Wide", 2.5, "W", "true");
    const auto row = [&sample](const char *name, bool areEqual, void (*change)(EnumValue &)) {
        EnumValue changed = sample;
        change(changed);
        QTest::newRow(name) << sample << changed << areEqual;
    };
    row("same", true, [](EnumValue &) {});
    row("Key", false, [](EnumValue &e) { e.Key = 4; });
    row("Name", false, [](EnumValue &e) { e.Name = "Narrow"; });
    row("Name in another case", false, [](EnumValue &e) { e.Name = "wide"; });
    row("Identifier", false, [](EnumValue &e) { e.Identifier = ""; });
    row("Identifier in another case", false, [](EnumValue &e) { e.Identifier = "w"; });
    row("Value", false, [](EnumValue &e) { e.Value = std::nextafter(2.5, 3.0); });
    row("Default", false, [](EnumValue &e) { e.Default = "false"; });

    const auto numbers = [](const char *name, bool areEqual, double left, double right) {
        QTest::newRow(name) << entry(1, "", left) << entry(1, "", right) << areEqual;
    };
    numbers("Value, zeros of both signs", true, 0.0, -0.0);
    numbers("Value, NaN", false, NotANumber, NotANumber);

    const auto defaults = [](const QString &left, const QString &right, bool areEqual) {
        QTest::newRow(qPrintable("Default, '" + left + "' and '" + right + '\''))
            << entry(1, "", 1, "", left) << entry(1, "", 1, "", right) << areEqual;
    };
    defaults("true", "true", true);
    defaults("false", "", true);
    defaults("false", "TRUE", true);
    defaults("", "1", true);
    for (const char *other : {"false", "", "TRUE", "True", " true", "true ", "truest", "tru", "1", "yes"})
        defaults("true", other, false);
}

void EnumHandlerTest::equalityOfEntries()
{
    QFETCH(EnumValue, left);
    QFETCH(EnumValue, right);
    QFETCH(bool, areEqual);

    QCOMPARE(left == right, areEqual);
    QCOMPARE(right == left, areEqual);
    QCOMPARE(left != right, !areEqual);
    QCOMPARE(right != left, !areEqual);
}

using Change = std::function<void(EnumHandler &)>;
Q_DECLARE_METATYPE(Change)

void EnumHandlerTest::holdsData_data()
{
    QTest::addColumn<Change>("change");
    QTest::addColumn<bool>("hasData");
    const auto row = [](const char *name, bool hasData, const Change &change) {
        QTest::newRow(name) << change << hasData;
    };
    row("nothing", false, [](H &) {});
    row("default value", false, [](H &h) { h.SetDefaultValue(entry(1, "Low", 0.5)); });
    row("selected value", false, [](H &h) { h.SetSelectedEnumValue(entry(1, "Low", 0.5)); });
    row("names", false, [](H &h) {
        h.SetRepresentationName("Shown");
        h.SetUniqueParameterName("Owner");
    });
    row("a fresh entry", true, [](H &h) { h.AppendEnumValue(EnumValue()); });
    row("two entries", true, [](H &h) { h = lowAndHigh(); });
    row("after Reset", false, [](H &h) {
        h = lowAndHigh();
        h.Reset();
    });
    row("list emptied in place", false, [](H &h) {
        h = lowAndHigh();
        h.GetEnumList().clear();
    });
}

void EnumHandlerTest::holdsData()
{
    QFETCH(Change, change);
    QFETCH(bool, hasData);

    EnumHandler handler;
    change(handler);
    const TypeHandler &base = handler;
    QCOMPARE(base.HasData(), hasData);
    QCOMPARE(base.AnyData(), hasData);
}

void EnumHandlerTest::append()
{
    EnumHandler handler;
    EnumValue low = entry(1, "Low", 0.5, "L", "true");
    handler.AppendEnumValue(low);
    handler.AppendEnumValue(entry(2, "High", 1.5));
    handler.AppendEnumValue(low);
    low.Name = "changed";

    const EnumList expected{entry(1, "Low", 0.5, "L", "true"), entry(2, "High", 1.5),
                            entry(1, "Low", 0.5, "L", "true")};
    QCOMPARE(textOf(std::as_const(handler).GetEnumList()), textOf(expected));
    QCOMPARE(textOf(handler.GetDefaultValue()), textOf(EnumValue()));
    QCOMPARE(textOf(handler.GetSelectedEnumValue()), textOf(EnumValue()));
}

void EnumHandlerTest::appendElementOfItself()
{
    EnumHandler handler = handlerWith({entry(1, "Low", 0.5)});
    for (int count = 0; count < 100; ++count)
        handler.AppendEnumValue(std::as_const(handler).GetEnumList().constFirst());
    QCOMPARE(textOf(handler.GetEnumList()), textOf(EnumList(101, entry(1, "Low", 0.5))));
}

void EnumHandlerTest::setEntries()
{
    EnumHandler handler = lowAndHigh();
    const QString list = textOf(handler.GetEnumList());
    const EnumValue one = entry(11, "One", 1.25, "I", "true");
    const EnumValue other = entry(12, "Other", 2.25, "O", "maybe");

    handler.SetDefaultValue(one);
    handler.SetSelectedEnumValue(other);
    QCOMPARE(textOf(std::as_const(handler).GetDefaultValue()), textOf(one));
    QCOMPARE(textOf(std::as_const(handler).GetSelectedEnumValue()), textOf(other));
    QCOMPARE(textOf(handler.GetEnumList()), list);

    handler.SetDefaultValue(handler.GetSelectedEnumValue());
    handler.SetSelectedEnumValue(handler.GetEnumList().first());
    QCOMPARE(textOf(handler.GetDefaultValue()), textOf(other));
    QCOMPARE(textOf(handler.GetSelectedEnumValue()), textOf(entry(1, "Low", 0.5)));
}

void EnumHandlerTest::editInPlace()
{
    EnumHandler handler = lowAndHigh();
    const EnumHandler copy = handler;

    handler.GetEnumList()[0].Name = "Lowest";
    handler.GetDefaultValue().Key = 70;
    handler.GetSelectedEnumValue().Key = 80;

    const EnumHandler &constant = handler;
    QCOMPARE(constant.GetEnumList().at(0).Name, QString("Lowest"));
    QCOMPARE(constant.GetDefaultValue().Key, 70);
    QCOMPARE(constant.GetSelectedEnumValue().Key, 80);
    QVERIFY(copy == lowAndHigh());
}

/// Copies share their default and selected entries until someone may change them.
void EnumHandlerTest::entriesEditedThroughReferencesStayApart()
{
    EnumHandler handler = lowAndHigh();
    EnumValue &defaultValue = handler.GetDefaultValue();
    EnumValue &selected = handler.GetSelectedEnumValue();

    const EnumHandler copy = handler;
    EnumHandler assigned;
    assigned = handler;
    defaultValue.Name = "Changed";
    selected.Name = "Chosen";

    QCOMPARE(std::as_const(handler).GetDefaultValue().Name, QString("Changed"));
    QCOMPARE(std::as_const(handler).GetSelectedEnumValue().Name, QString("Chosen"));
    QVERIFY(copy == lowAndHigh());
    QVERIFY(assigned == lowAndHigh());
}

void EnumHandlerTest::assignmentReachesReferences()
{
    EnumHandler handler;
    EnumValue &defaultValue = handler.GetDefaultValue();
    EnumValue &selected = handler.GetSelectedEnumValue();
    const EnumHandler source = lowAndHigh();

    handler = source;
    QVERIFY(defaultValue == source.GetDefaultValue());
    QVERIFY(selected == source.GetSelectedEnumValue());

    defaultValue.Key = 70;
    selected.Key = 80;
    QVERIFY(source == lowAndHigh());

    handler = EnumHandler(source);
    QVERIFY(defaultValue == source.GetDefaultValue());
    QVERIFY(selected == source.GetSelectedEnumValue());
}

void EnumHandlerTest::listIsShared()
{
    EnumList list{entry(1, "Low", 0.5), entry(2, "High", 1.5)};
    EnumHandler handler;
    handler.SetEnumList(list);
    QCOMPARE(dataOf(handler), list.constData());

    EnumHandler copy(handler);
    QCOMPARE(dataOf(copy), list.constData());
    EnumHandler moved(std::move(copy));
    QCOMPARE(dataOf(moved), list.constData());
    QCOMPARE(dataOf(copy), list.constData()); // NOLINT: the source keeps what it holds
    EnumHandler assigned;
    assigned = moved;
    QCOMPARE(dataOf(assigned), list.constData());

    assigned.AppendEnumValue(entry(3, "Highest", 2.5));
    QCOMPARE(std::as_const(assigned).GetEnumList().size(), 3);
    QCOMPARE(dataOf(handler), list.constData());
    QCOMPARE(list.size(), 2);

    list[0].Name = "Lowest";
    QCOMPARE(std::as_const(handler).GetEnumList().at(0).Name, QString("Low"));
}

void EnumHandlerTest::movedListIsExchanged()
{
    EnumHandler source = lowAndHigh();
    EnumHandler target = handlerWith({entry(3, "Highest", 2.5)});
    const EnumValue *dataOfSource = dataOf(source);
    const EnumValue *dataOfTarget = dataOf(target);

    target = std::move(source);
    QCOMPARE(dataOf(target), dataOfSource);
    QCOMPARE(dataOf(source), dataOfTarget); // NOLINT: it has the target's list

    source.AppendEnumValue(entry(4, "Added", 3.5));
    QCOMPARE(textOf(source.GetEnumList()),
             textOf(EnumList{entry(3, "Highest", 2.5), entry(4, "Added", 3.5)}));
    QVERIFY(target == lowAndHigh());
}

void EnumHandlerTest::equalityOfHandlers_data()
{
    QTest::addColumn<EnumList>("left");
    QTest::addColumn<EnumList>("right");
    QTest::addColumn<bool>("areEqual");
    const EnumValue low = entry(1, "Low", 0.5);
    const EnumValue high = entry(2, "High", 1.5);

    QTest::newRow("no entries") << EnumList{} << EnumList{} << true;
    QTest::newRow("same entries") << EnumList{low, high} << EnumList{low, high} << true;
    QTest::newRow("one is empty") << EnumList{} << EnumList{low} << false;
    QTest::newRow("one is longer") << EnumList{low} << EnumList{low, high} << false;
    QTest::newRow("order") << EnumList{low, high} << EnumList{high, low} << false;
    QTest::newRow("last entry") << EnumList{low, high} << EnumList{low, entry(2, "High", 2.5)} << false;
    QTest::newRow("Default 'false' and ''")
        << EnumList{entry(1, "Low", 0.5, "", "false")} << EnumList{entry(1, "Low", 0.5, "", "")} << true;
    QTest::newRow("Default 'true' and 'TRUE'")
        << EnumList{entry(1, "Low", 0.5, "", "true")} << EnumList{entry(1, "Low", 0.5, "", "TRUE")} << false;
    QTest::newRow("NaN") << EnumList{entry(1, "Low", NotANumber)} << EnumList{entry(1, "Low", NotANumber)}
                         << false;
    QTest::newRow("zeros of both signs")
        << EnumList{entry(1, "Low", 0.0)} << EnumList{entry(1, "Low", -0.0)} << true;
}

void EnumHandlerTest::equalityOfHandlers()
{
    QFETCH(EnumList, left);
    QFETCH(EnumList, right);
    QFETCH(bool, areEqual);

    const EnumHandler one = handlerWith(left);
    const EnumHandler other = handlerWith(right);
    QCOMPARE(one == other, areEqual);
    QCOMPARE(other == one, areEqual);
    QCOMPARE(one != other, !areEqual);
    QCOMPARE(other != one, !areEqual);
}

void EnumHandlerTest::equalityOfListsThatShareTheirData()
{
    const EnumHandler numbers = lowAndHigh();
    const EnumHandler copyOfNumbers = numbers;
    QCOMPARE(dataOf(numbers), dataOf(copyOfNumbers));
    QVERIFY(numbers == copyOfNumbers);

    const EnumHandler notNumbers = handlerWith({entry(1, "Low", NotANumber)});
    const EnumHandler copy = notNumbers;
    QCOMPARE(dataOf(notNumbers), dataOf(copy));
    QVERIFY(notNumbers != copy);
    const EnumHandler &same = notNumbers;
    QVERIFY(notNumbers != same);
}

namespace {

constexpr int NotFound = -1;

/// Number of the entry in the list, NotFound for the default value; anything else is another object.
int indexOf(const EnumHandler &handler, const EnumValue &found)
{
    if (&found == &handler.GetDefaultValue())
        return NotFound;
    for (int index = 0; index < static_cast<int>(handler.GetEnumList().size()); ++index) {
        if (&found == &handler.GetEnumList().at(index))
            return index;
    }
    return -2;
}

/// The names, keys and values of the first and the last entry are the same.
EnumHandler searched()
{
    EnumHandler handler = lowAndHigh();
    handler.AppendEnumValue(entry(-1, "", -0.0));
    handler.AppendEnumValue(entry(std::numeric_limits<int>::min(), "High ", NotANumber));
    handler.AppendEnumValue(
        entry(std::numeric_limits<int>::max(), "\u00c4", std::numeric_limits<double>::infinity()));
    handler.AppendEnumValue(entry(1, "Low", 0.5, "second"));
    return handler;
}

} // namespace

void EnumHandlerTest::findByName_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<int>("index");

    QTest::newRow("first of two") << "Low" << 0;
    QTest::newRow("second entry") << "High" << 1;
    QTest::newRow("lower case") << "high" << NotFound;
    QTest::newRow("upper case") << "HIGH" << NotFound;
    QTest::newRow("blank in front") << " High" << NotFound;
    QTest::newRow("blank behind") << "High " << 3;
    QTest::newRow("part") << "Hig" << NotFound;
    QTest::newRow("empty") << "" << 2;
    QTest::newRow("null") << QString() << 2;
    QTest::newRow("letter") << "\u00c4" << 4;
    QTest::newRow("letter and accent apart") << "A\u0308" << NotFound;
    QTest::newRow("identifier") << "second" << NotFound;
    QTest::newRow("key as text") << "1" << NotFound;
    QTest::newRow("default value") << "Default" << NotFound;
    QTest::newRow("selected value") << "Selected" << NotFound;
}

void EnumHandlerTest::findByName()
{
    QFETCH(QString, name);
    QFETCH(int, index);
    EnumHandler handler = searched();
    QCOMPARE(indexOf(handler, handler.GetEnumValue(name)), index);
}

void EnumHandlerTest::findByKey_data()
{
    QTest::addColumn<int>("key");
    QTest::addColumn<int>("index");

    QTest::newRow("first of two") << 1 << 0;
    QTest::newRow("second entry") << 2 << 1;
    QTest::newRow("not set") << -1 << 2;
    QTest::newRow("smallest number") << std::numeric_limits<int>::min() << 3;
    QTest::newRow("greatest number") << std::numeric_limits<int>::max() << 4;
    QTest::newRow("unknown") << 3 << NotFound;
    QTest::newRow("position") << 0 << NotFound;
    QTest::newRow("default value") << 7 << NotFound;
    QTest::newRow("selected value") << 8 << NotFound;
}

void EnumHandlerTest::findByKey()
{
    QFETCH(int, key);
    QFETCH(int, index);
    const EnumHandler handler = searched();
    QCOMPARE(indexOf(handler, handler.GetEnumValue(key)), index);
}

void EnumHandlerTest::findByValue_data()
{
    QTest::addColumn<double>("value");
    QTest::addColumn<int>("index");

    QTest::newRow("first of two") << 0.5 << 0;
    QTest::newRow("second entry") << 1.5 << 1;
    QTest::newRow("a little more") << 1.5000001 << NotFound;
    QTest::newRow("next number") << std::nextafter(1.5, 2.0) << NotFound;
    QTest::newRow("0 for -0") << 0.0 << 2;
    QTest::newRow("-0 for -0") << -0.0 << 2;
    QTest::newRow("NaN") << NotANumber << NotFound;
    QTest::newRow("infinity") << std::numeric_limits<double>::infinity() << 4;
    QTest::newRow("minus infinity") << -std::numeric_limits<double>::infinity() << NotFound;
    QTest::newRow("key") << 2.0 << NotFound;
    QTest::newRow("default value") << 7.5 << NotFound;
    QTest::newRow("selected value") << 8.5 << NotFound;
}

void EnumHandlerTest::findByValue()
{
    QFETCH(double, value);
    QFETCH(int, index);
    const EnumHandler handler = searched();
    QCOMPARE(indexOf(handler, handler.GetEnumValue(value)), index);

    const EnumHandler withPositiveZero = handlerWith({entry(1, "Zero", 0.0)});
    QCOMPARE(indexOf(withPositiveZero, withPositiveZero.GetEnumValue(-0.0)), 0);
}

void EnumHandlerTest::findInFreshHandler()
{
    EnumHandler handler;
    QCOMPARE(&handler.GetEnumValue(QString()), &handler.GetDefaultValue());
    QCOMPARE(&handler.GetEnumValue(-1), &handler.GetDefaultValue());
    QCOMPARE(&handler.GetEnumValue(0.0), &handler.GetDefaultValue());
    QVERIFY(!handler.HasData());
}

void EnumHandlerTest::notFoundFollowsTheDefaultValue()
{
    EnumHandler handler = lowAndHigh();
    const EnumValue &byName = handler.GetEnumValue("unknown");
    const EnumValue &byKey = handler.GetEnumValue(99);
    const EnumValue &byValue = handler.GetEnumValue(99.5);

    handler.SetDefaultValue(entry(20, "Later", 20.5));
    QCOMPARE(byName.Name, QString("Later"));
    QCOMPARE(byKey.Name, QString("Later"));
    QCOMPARE(byValue.Name, QString("Later"));
}

void EnumHandlerTest::findByNameDetaches()
{
    for (const QString name : {"High", "unknown"}) {
        EnumHandler handler = lowAndHigh();
        const EnumHandler copy = handler;
        const EnumValue *shared = dataOf(copy);
        QCOMPARE(dataOf(handler), shared);

        const EnumValue &found = handler.GetEnumValue(name);
        QVERIFY(dataOf(handler) != shared);
        QCOMPARE(dataOf(copy), shared);
        QCOMPARE(indexOf(handler, found), name == "High" ? 1 : NotFound);
        QCOMPARE(indexOf(copy, found), -2);
        QVERIFY(handler == copy);
    }
}

void EnumHandlerTest::findByNumberDetachesNothing()
{
    const EnumHandler original = lowAndHigh();
    EnumHandler handler = original;
    QCOMPARE(indexOf(original, handler.GetEnumValue(2)), 1);
    QCOMPARE(indexOf(original, handler.GetEnumValue(1.5)), 1);
    QCOMPARE(dataOf(handler), dataOf(original));
}

void EnumHandlerTest::entriesAreAggregates()
{
    const EnumValue low{1, "Low", "", 0.5, "false"};
    QCOMPARE(low.Key, 1);
    QCOMPARE(low.Name, "Low");
    QCOMPARE(low.Identifier, "");
    QCOMPARE(low.Value, 0.5);
    QCOMPARE(low.Default, "false");
    QVERIFY(low == entry(1, "Low", 0.5));
    QCOMPARE(EnumValue().Key, -1);
    QCOMPARE(EnumValue().Value, 0.0);
}

// Both forms of a getter give the field itself, whatever is copied, set, assigned or reset meanwhile.
void EnumHandlerTest::referencesToEntries()
{
    EnumHandler handler;
    const EnumHandler &sameHandler = handler;
    const EnumValue &standard = sameHandler.GetDefaultValue();
    const EnumValue &selected = sameHandler.GetSelectedEnumValue();
    QCOMPARE(&standard, &handler.GetDefaultValue());
    QCOMPARE(&selected, &handler.GetSelectedEnumValue());
    QCOMPARE(&standard, &handler.GetEnumValue("none"));
    QCOMPARE(&standard, &sameHandler.GetEnumValue(7));
    QCOMPARE(&standard, &sameHandler.GetEnumValue(7.5));
    {
        const EnumHandler copy = handler;
        handler.SetDefaultValue(entry(1, "Low", 0.5));
        handler.SetSelectedEnumValue(entry(2, "High", 1.5));
        QCOMPARE(copy.GetDefaultValue().Name, "");
        QVERIFY(&copy.GetDefaultValue() != &standard);
    }
    QCOMPARE(standard.Name, "Low");
    QCOMPARE(selected.Name, "High");

    EnumHandler other;
    other.SetDefaultValue(entry(3, "Other", 2));
    handler = std::as_const(other);
    QCOMPARE(standard.Name, "Other");
    other.SetDefaultValue(standard);
    other.GetDefaultValue().Name = "Moved";
    handler = std::move(other);
    QCOMPARE(standard.Name, "Moved");
    handler.Reset();
    QCOMPARE(standard.Name, "Moved");
    QCOMPARE(&standard, &handler.GetDefaultValue());

    QVector<EnumValue> list{entry(1, "Low", 0.5), entry(2, "High", 1.5)};
    handler.SetEnumList(list);
    const EnumValue &high = handler.GetEnumValue("High");
    const EnumHandler copy = handler;
    QCOMPARE(&high, &sameHandler.GetEnumValue(2));
    QCOMPARE(&high, &sameHandler.GetEnumValue(1.5));
    handler.SetSelectedEnumValue(high);
    QCOMPARE(high.Name, "High");
}

QTEST_GUILESS_MAIN(EnumHandlerTest)
#include "EnumHandlerTest.moc"
