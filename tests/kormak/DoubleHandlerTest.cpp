#include "NumericHandlerChecks.h"

#include <kormak/TypeHandler.h>

using namespace HandlerChecks;
using namespace KORMAK;

namespace {

constexpr double NoValue = -111111.11;

static_assert(std::is_same_v<decltype(std::declval<DoubleHandler &>().GetDoubleList()), QVector<double> &>);
static_assert(
    std::is_same_v<decltype(&DoubleHandler::AppendDoubleValue), void (DoubleHandler::*)(const double &)>);

/// Its first set of values is that of a handler that is used as a list.
Handler<DoubleHandler> doubleHandler()
{
    using H = DoubleHandler;
    const QVector<QVector<double>> lists{
        {1.5, 2.5, 3.5}, {1.5, 2.5, 4.5}, {}, {Limits<double>::quiet_NaN(), -0.0, NoValue}};
    auto fields = numericFields<H, double>(-1.7976931348623157e308, 1.7976931348623157e308, resetTo(NoValue));
    fields.push_back(field<H, bool>("use as list", &H::IsDoubleList, &H::SetUseAsList, {true, false},
                                    resetTo(false), Compared::No));
    fields.push_back(field<H, QVector<double>>("double list", &H::GetDoubleList, &H::SetDoubleList, lists,
                                               resetTo(QVector<double>())));
    fields.push_back(field<H, int>("maximum double list length", &H::GetMaxDoubleListLength,
                                   &H::SetMaxDoubleListLength, Integers, keptFrom(0)));
    fields.push_back(field<H, int>("precision", &H::GetPrecision, &H::SetPrecision, Integers, resetTo(2)));
    return withNames<H>({"DoubleHandler", fields});
}

/// A list handler with that list.
DoubleHandler listHandler(QVector<double> list, int maximumLength = 0)
{
    DoubleHandler handler;
    handler.SetUseAsList(true);
    handler.SetDoubleList(list);
    handler.SetMaxDoubleListLength(maximumLength);
    return handler;
}

const double *dataOf(const DoubleHandler &handler)
{
    return handler.GetDoubleList().constData();
}

} // namespace

class DoubleHandlerTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void construction_data() { addRows(addConstruction<DoubleHandler>); }
    void construction() { run(); }
    void storing_data() { addRows(addStoring<DoubleHandler>); }
    void storing() { run(); }
    void references_data() { addRows(addReferences<DoubleHandler>); }
    void references() { run(); }
    void reset_data() { addRows(addReset<DoubleHandler>); }
    void reset() { run(); }
    void equality_data() { addRows(addEquality<DoubleHandler>); }
    void equality() { run(); }
    void copiesAndMoves_data() { addRows(addCopiesAndMoves<DoubleHandler>); }
    void copiesAndMoves() { run(); }
    void namesThroughBase_data() { addRows(addNamesThroughBase<DoubleHandler>); }
    void namesThroughBase() { run(); }
    void ownNames_data() { addRows(addOwnNames<DoubleHandler>); }
    void ownNames() { run(); }
    void slotOrder_data() { addRows(addSlots<DoubleHandler>); }
    void slotOrder() { run(); }
    void minimumAboveMaximum_data() { addRows(addMinimumAboveMaximum<DoubleHandler>); }
    void minimumAboveMaximum() { run(); }
    void specialNumbers_data();
    void specialNumbers() { run(); }

    void limitsAfterReset();

    void holdsData_data();
    void holdsData();
    void noDataAfterReset();
    void append();
    void appendElementOfItself();
    void editInPlace();
    void listIsShared();
    void movedListIsExchanged();
    void switchingListUse();
    void equalityOfLists_data();
    void equalityOfLists();
    void equalityOfListsThatShareTheirData();
    void maximumLengthIsComparedByTheLeftSide();

private:
    static void addRows(void (*add)(const Handler<DoubleHandler> &))
    {
        addColumn();
        add(doubleHandler());
    }
};

void DoubleHandlerTest::specialNumbers_data()
{
    addColumn();
    addSpecialNumbers<DoubleHandler, double>("DoubleHandler");
}

void DoubleHandlerTest::limitsAfterReset()
{
    DoubleHandler handler = filled(doubleHandler(), 0);
    handler.Reset();
    QCOMPARE(bitsOf(handler.GetMinimum()), quint64(0xFFEFFFFFFFFFFFFF));
    QCOMPARE(bitsOf(handler.GetMaximum()), quint64(0x7FEFFFFFFFFFFFFF));
    QCOMPARE(bitsOf(handler.GetDefault()), quint64(0));
    QCOMPARE(bitsOf(handler.GetValue()), quint64(0xC0FB2071C28F5C29));
}

using Change = std::function<void(DoubleHandler &)>;
Q_DECLARE_METATYPE(Change)

void DoubleHandlerTest::holdsData_data()
{
    QTest::addColumn<Change>("change");
    QTest::addColumn<bool>("hasData");
    QTest::addColumn<bool>("anyData");
    const auto row = [](const char *name, bool hasData, bool anyData, const Change &change) {
        QTest::newRow(name) << change << hasData << anyData;
    };
    constexpr double NotANumber = Limits<double>::quiet_NaN();
    constexpr double Lowest = Limits<double>::lowest();
    constexpr double Largest = Limits<double>::max();
    using Single = DoubleHandler;

    row("nothing", false, false, [](Single &) {});

    row("value", true, true, [](Single &h) { h.SetValue(5); });
    row("value 0", true, true, [](Single &h) { h.SetValue(0); });
    row("value NaN", true, true, [](Single &h) { h.SetValue(NotANumber); });
    row("value that means none", false, false, [](Single &h) { h.SetValue(-111111.11); });
    row("value above the one that means none", true, true,
        [](Single &h) { h.SetValue(std::nextafter(NoValue, 0)); });
    row("value below the one that means none", true, true,
        [](Single &h) { h.SetValue(std::nextafter(NoValue, Lowest)); });
    row("value that means none as a float", true, true,
        [](Single &h) { h.SetValue(static_cast<double>(-111111.11F)); });

    row("minimum", false, true, [](Single &h) { h.SetMinimum(0); });
    row("minimum next to the lowest", false, true,
        [](Single &h) { h.SetMinimum(std::nextafter(Lowest, 0)); });
    row("minimum infinite", false, true, [](Single &h) { h.SetMinimum(-Limits<double>::infinity()); });
    row("minimum NaN", false, true, [](Single &h) { h.SetMinimum(NotANumber); });
    row("minimum the least positive number", false, true,
        [](Single &h) { h.SetMinimum(Limits<double>::min()); });
    row("maximum", false, true, [](Single &h) { h.SetMaximum(0); });
    row("maximum next to the largest", false, true,
        [](Single &h) { h.SetMaximum(std::nextafter(Largest, 0)); });
    row("maximum infinite", false, true, [](Single &h) { h.SetMaximum(Limits<double>::infinity()); });
    row("maximum NaN", false, true, [](Single &h) { h.SetMaximum(NotANumber); });
    row("default", false, true, [](Single &h) { h.SetDefault(Limits<double>::denorm_min()); });
    row("default NaN", false, true, [](Single &h) { h.SetDefault(NotANumber); });
    row("default -0", false, false, [](Single &h) { h.SetDefault(-0.0); });

    row("multiplier", false, false, [](Single &h) { h.SetMultiplier(1000); });
    row("precision", false, false, [](Single &h) { h.SetPrecision(6); });
    row("names", false, false, [](Single &h) {
        h.SetRepresentationName("Shown");
        h.SetUniqueParameterName("Owner");
    });

    row("list, not used", false, true, [](Single &h) { h.AppendDoubleValue(1); });
    row("maximum length 1, not used", false, true, [](Single &h) { h.SetMaxDoubleListLength(1); });
    row("maximum length -1, not used", false, false, [](Single &h) { h.SetMaxDoubleListLength(-1); });

    row("use as list", false, true, [](Single &h) { h.SetUseAsList(true); });
    row("used list of one element", true, true, [](Single &h) {
        h.SetUseAsList(true);
        h.AppendDoubleValue(NoValue);
    });
    row("used list of maximum length 1", true, true, [](Single &h) {
        h.SetUseAsList(true);
        h.SetMaxDoubleListLength(1);
    });
    row("used list of maximum length 3", true, true, [](Single &h) {
        h.SetUseAsList(true);
        h.SetMaxDoubleListLength(3);
    });
    row("used list of maximum length 0", false, true, [](Single &h) {
        h.SetUseAsList(true);
        h.SetMaxDoubleListLength(0);
    });
    row("used list of maximum length -1", false, true, [](Single &h) {
        h.SetUseAsList(true);
        h.SetMaxDoubleListLength(-1);
    });
    row("used list, value only", false, true, [](Single &h) {
        h.SetUseAsList(true);
        h.SetValue(5);
    });
}

void DoubleHandlerTest::holdsData()
{
    QFETCH(Change, change);
    QFETCH(bool, hasData);
    QFETCH(bool, anyData);

    DoubleHandler handler;
    change(handler);
    const TypeHandler &base = handler;
    QCOMPARE(base.HasData(), hasData);
    QCOMPARE(base.AnyData(), anyData);
}

void DoubleHandlerTest::noDataAfterReset()
{
    DoubleHandler handler = listHandler({1, 2});
    handler.SetValue(5);
    handler.SetMinimum(1);
    QVERIFY(handler.HasData());

    handler.Reset();
    QVERIFY(!handler.HasData());
    QVERIFY(!handler.AnyData());

    handler.SetMaxDoubleListLength(3);
    handler.Reset();
    QVERIFY(!handler.HasData());
    QVERIFY(handler.AnyData());
}

void DoubleHandlerTest::append()
{
    DoubleHandler handler;
    handler.SetMaxDoubleListLength(3);
    for (const double number : {4.0, 2.0, 3.0, 2.0})
        handler.AppendDoubleValue(number);

    QCOMPARE(handler.GetDoubleList(), QVector<double>({4, 2, 3, 2}));
    QCOMPARE(handler.GetMaxDoubleListLength(), 3);
    QVERIFY(!handler.IsDoubleList());
    QCOMPARE(handler.GetValue(), NoValue);
}

void DoubleHandlerTest::appendElementOfItself()
{
    DoubleHandler handler;
    handler.AppendDoubleValue(7);
    for (int count = 0; count < 100; ++count)
        handler.AppendDoubleValue(std::as_const(handler).GetDoubleList().constFirst());
    QCOMPARE(handler.GetDoubleList(), QVector<double>(101, 7));
}

void DoubleHandlerTest::editInPlace()
{
    DoubleHandler handler = listHandler({1, 2});
    const DoubleHandler copy = handler;

    handler.GetDoubleList()[1] = 5;
    handler.GetDoubleList().append(6);
    QCOMPARE(std::as_const(handler).GetDoubleList(), QVector<double>({1, 5, 6}));
    QCOMPARE(copy.GetDoubleList(), QVector<double>({1, 2}));

    handler.GetDoubleList().clear();
    QVERIFY(!handler.HasData());
}

void DoubleHandlerTest::listIsShared()
{
    QVector<double> list{1, 2, 3};
    DoubleHandler handler;
    handler.SetDoubleList(list);
    QVERIFY(!handler.IsDoubleList());
    QCOMPARE(dataOf(handler), list.constData());

    DoubleHandler copy(handler);
    QCOMPARE(dataOf(copy), list.constData());
    DoubleHandler moved(std::move(copy));
    QCOMPARE(dataOf(moved), list.constData());
    QCOMPARE(dataOf(copy), list.constData()); // NOLINT: the source keeps what it holds
    DoubleHandler assigned;
    assigned = moved;
    QCOMPARE(dataOf(assigned), list.constData());

    assigned.AppendDoubleValue(4);
    QCOMPARE(assigned.GetDoubleList(), QVector<double>({1, 2, 3, 4}));
    QCOMPARE(dataOf(handler), list.constData());
    QCOMPARE(list, QVector<double>({1, 2, 3}));

    list[0] = 9;
    QCOMPARE(handler.GetDoubleList(), QVector<double>({1, 2, 3}));
}

void DoubleHandlerTest::movedListIsExchanged()
{
    DoubleHandler source = listHandler({1, 2});
    DoubleHandler target = listHandler({3});
    const double *dataOfSource = dataOf(source);
    const double *dataOfTarget = dataOf(target);

    target = std::move(source);
    QCOMPARE(dataOf(target), dataOfSource);
    QCOMPARE(dataOf(source), dataOfTarget); // NOLINT: it has the target's list

    source.AppendDoubleValue(4);
    QCOMPARE(source.GetDoubleList(), QVector<double>({3, 4}));
    QCOMPARE(target.GetDoubleList(), QVector<double>({1, 2}));
}

void DoubleHandlerTest::switchingListUse()
{
    DoubleHandler handler = listHandler({1, 2}, 4);
    handler.SetValue(5);

    for (const bool isUsed : {false, true}) {
        handler.SetUseAsList(isUsed);
        QCOMPARE(handler.IsDoubleList(), isUsed);
        QCOMPARE(handler.GetDoubleList(), QVector<double>({1, 2}));
        QCOMPARE(handler.GetMaxDoubleListLength(), 4);
        QCOMPARE(handler.GetValue(), 5.0);
    }
}

void DoubleHandlerTest::equalityOfLists_data()
{
    QTest::addColumn<QVector<double>>("left");
    QTest::addColumn<QVector<double>>("right");
    QTest::addColumn<bool>("areEqual");
    using List = QVector<double>;
    constexpr double NotANumber = Limits<double>::quiet_NaN();

    QTest::newRow("both empty") << List{} << List{} << true;
    QTest::newRow("same") << List{1, 2} << List{1, 2} << true;
    QTest::newRow("one is empty") << List{} << List{1} << false;
    QTest::newRow("one is longer") << List{1, 2} << List{1, 2, 0} << false;
    QTest::newRow("first element") << List{1, 2} << List{0, 2} << false;
    QTest::newRow("last element") << List{1, 2} << List{1, 3} << false;
    QTest::newRow("last digit") << List{1} << List{std::nextafter(1.0, 2.0)} << false;
    QTest::newRow("order") << List{1, 2} << List{2, 1} << false;
    QTest::newRow("zeros of both signs") << List{0.0, -0.0} << List{-0.0, 0.0} << true;
    QTest::newRow("NaN") << List{1, NotANumber} << List{1, NotANumber} << false;
}

void DoubleHandlerTest::equalityOfLists()
{
    QFETCH(QVector<double>, left);
    QFETCH(QVector<double>, right);
    QFETCH(bool, areEqual);

    for (const bool isUsed : {false, true}) {
        DoubleHandler one;
        DoubleHandler other;
        one.SetUseAsList(isUsed);
        one.SetDoubleList(left);
        other.SetDoubleList(right);
        QCOMPARE(one == other, areEqual);
        QCOMPARE(other == one, areEqual);
        QCOMPARE(one != other, !areEqual);
    }
}

void DoubleHandlerTest::equalityOfListsThatShareTheirData()
{
    const DoubleHandler numbers = listHandler({1, 2});
    const DoubleHandler copyOfNumbers = numbers;
    QCOMPARE(dataOf(numbers), dataOf(copyOfNumbers));
    QVERIFY(numbers == copyOfNumbers);

    const DoubleHandler notNumbers = listHandler({1, Limits<double>::quiet_NaN()});
    const DoubleHandler copy = notNumbers;
    QCOMPARE(dataOf(notNumbers), dataOf(copy));
    QVERIFY(notNumbers != copy);
    const DoubleHandler &same = notNumbers;
    QVERIFY(notNumbers != same);
}

void DoubleHandlerTest::maximumLengthIsComparedByTheLeftSide()
{
    const DoubleHandler list = listHandler({1, 2}, 2);
    DoubleHandler single = listHandler({1, 2}, 5);
    single.SetUseAsList(false);
    QVERIFY(single == list);
    QVERIFY(!(single != list));
    QVERIFY(!(list == single));
    QVERIFY(list != single);

    single.SetMaxDoubleListLength(2);
    QVERIFY(list == single);
    QVERIFY(single == list);

    DoubleHandler otherSingle = single;
    otherSingle.SetMaxDoubleListLength(5);
    QVERIFY(single == otherSingle);
    QVERIFY(otherSingle == single);
}

QTEST_GUILESS_MAIN(DoubleHandlerTest)
#include "DoubleHandlerTest.moc"
