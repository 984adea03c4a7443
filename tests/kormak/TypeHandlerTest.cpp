#include "NumericHandlerChecks.h"

#include <kormak/TypeHandler.h>

using namespace HandlerChecks;
using namespace KORMAK;

namespace {

/// Has nothing but what the base gives it.
class PlainHandler final : public TypeHandler {
public:
    bool HasData() const override { return false; }
    bool AnyData() const override { return false; }
    void Reset() override { }

    bool operator==(const PlainHandler &other) const { return hasNamesOf(other); }
    bool operator!=(const PlainHandler &other) const { return !(*this == other); }
};

/// Keeps its names elsewhere.
class RenamedHandler final : public TypeHandler {
public:
    bool HasData() const override { return false; }
    bool AnyData() const override { return false; }
    void Reset() override { }
    const QString &GetRepresentationName() const override { return representationName; }
    const QString &GetUniqueParameterName() const override { return uniqueParameterName; }

    bool operator==(const RenamedHandler &other) const { return hasNamesOf(other); }

    QString representationName;
    QString uniqueParameterName;
};

class WithoutHasData : public TypeHandler {
public:
    bool AnyData() const override { return false; }
    void Reset() override { }

protected:
    ~WithoutHasData() = default;
};

class WithoutAnyData : public TypeHandler {
public:
    bool HasData() const override { return false; }
    void Reset() override { }

protected:
    ~WithoutAnyData() = default;
};

class WithoutReset : public TypeHandler {
public:
    bool HasData() const override { return false; }
    bool AnyData() const override { return false; }

protected:
    ~WithoutReset() = default;
};

static_assert(std::is_abstract_v<WithoutHasData>);
static_assert(std::is_abstract_v<WithoutAnyData>);
static_assert(std::is_abstract_v<WithoutReset>);
static_assert(!std::has_virtual_destructor_v<TypeHandler>);

Handler<PlainHandler> plainHandler()
{
    return withNames<PlainHandler>({"TypeHandler", {}});
}

Handler<BooleanHandler> booleanHandler()
{
    using H = BooleanHandler;
    return withNames<H>(
        {"BooleanHandler",
         {field<H, bool>("value", &H::GetValue, &H::SetValue, {true, false}, resetTo(false))}});
}

Handler<IntegerHandler> integerHandler()
{
    return withNames<IntegerHandler>(
        {"IntegerHandler", numericFields<IntegerHandler, int>(-32768, 32767, keptFrom(0))});
}

Handler<LongHandler> longHandler()
{
    return withNames<LongHandler>(
        {"LongHandler", numericFields<LongHandler, qint32>(-2147483647, 2147483647, keptFrom(0))});
}

Handler<TimeStampHandler> timeStampHandler()
{
    return withNames<TimeStampHandler>(
        {"TimeStampHandler",
         numericFields<TimeStampHandler, long long>(-9223372036854775807LL - 1, 9223372036854775807LL,
                                                    resetTo(0LL))});
}

Handler<FloatHandler> floatHandler()
{
    using H = FloatHandler;
    auto fields = numericFields<H, float>(-3.4028235e38F, 3.4028235e38F, resetTo(0.0F));
    fields.push_back(
        field<H, int>("precision", &H::GetPrecision, &H::SetPrecision, Integers, resetTo(2), Compared::No));
    return withNames<H>({"FloatHandler", fields});
}

Handler<StringHandler> stringHandler()
{
    using H = StringHandler;
    const QVector<QString> texts{"Wide Band", "wide Band", "", " ", "\u00e9\n"};
    const bool areNamesReset = true;
    return withNames<H>(
        {"StringHandler",
         {field<H, QString>("default", &H::GetDefault, &H::SetDefault, texts, resetTo(QString())),
          field<H, QString>("value", &H::GetValue, &H::SetValue, texts, resetTo(QString()))}},
        areNamesReset);
}

template <class Action>
void forEachHandler(Action action)
{
    addColumn();
    action(plainHandler());
    action(booleanHandler());
    action(integerHandler());
    action(longHandler());
    action(timeStampHandler());
    action(floatHandler());
    action(stringHandler());
}

/// Whatever is in it, the handler holds data.
template <class Class>
void addAlwaysHoldsData(const Handler<Class> &handler)
{
    const auto check = [](const TypeHandler &object) {
        QVERIFY(object.HasData());
        QVERIFY(object.AnyData());
    };
    addRow(handler.name + ", as constructed", [check] { check(Class()); });
    addRow(handler.name + ", after Reset", [handler, check] {
        Class object = filled(handler, 0);
        object.Reset();
        check(object);
    });
    for (const int number : {0, 1})
        addRow(handler.name + ", filled " + QString::number(number),
               [handler, check, number] { check(filled(handler, number)); });
}

} // namespace

class TypeHandlerTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void construction_data()
    {
        forEachHandler([](const auto &handler) { addConstruction(handler); });
    }
    void construction() { run(); }
    void storing_data()
    {
        forEachHandler([](const auto &handler) { addStoring(handler); });
    }
    void storing() { run(); }
    void references_data()
    {
        forEachHandler([](const auto &handler) { addReferences(handler); });
    }
    void references() { run(); }
    void reset_data()
    {
        forEachHandler([](const auto &handler) { addReset(handler); });
    }
    void reset() { run(); }
    void equality_data()
    {
        forEachHandler([](const auto &handler) { addEquality(handler); });
    }
    void equality() { run(); }
    void copiesAndMoves_data()
    {
        forEachHandler([](const auto &handler) { addCopiesAndMoves(handler); });
    }
    void copiesAndMoves() { run(); }
    void namesThroughBase_data()
    {
        forEachHandler([](const auto &handler) { addNamesThroughBase(handler); });
    }
    void namesThroughBase() { run(); }
    void ownNames_data()
    {
        addColumn();
        addOwnNames(booleanHandler());
        addOwnNames(integerHandler());
        addOwnNames(longHandler());
        addOwnNames(timeStampHandler());
        addOwnNames(floatHandler());
        addOwnNames(stringHandler());
    }
    void ownNames() { run(); }
    void slotOrder_data()
    {
        forEachHandler([](const auto &handler) { addSlots(handler); });
    }
    void slotOrder() { run(); }

    void namesAreComparedAsTheyAreGiven();

    void alwaysHoldsData_data();
    void alwaysHoldsData() { run(); }
    void minimumAboveMaximum_data();
    void minimumAboveMaximum() { run(); }
    void specialNumbers_data();
    void specialNumbers() { run(); }

    void floatLimits();
    void dataOfString_data();
    void dataOfString();
};

void TypeHandlerTest::namesAreComparedAsTheyAreGiven()
{
    RenamedHandler one;
    RenamedHandler other;
    QVERIFY(one == other);

    one.SetRepresentationName("not asked for");
    one.SetUniqueParameterName("not asked for");
    QVERIFY(one == other);

    one.representationName = "Shown";
    QVERIFY(!(one == other));
    QVERIFY(!(other == one));
    other.representationName = "Shown";
    QVERIFY(one == other);

    one.uniqueParameterName = "Owner";
    QVERIFY(!(one == other));
    QVERIFY(!(other == one));
    other.uniqueParameterName = "Owner";
    QVERIFY(one == other);
}

void TypeHandlerTest::alwaysHoldsData_data()
{
    addColumn();
    addAlwaysHoldsData(booleanHandler());
    addAlwaysHoldsData(integerHandler());
    addAlwaysHoldsData(longHandler());
    addAlwaysHoldsData(timeStampHandler());
    addAlwaysHoldsData(floatHandler());
}

void TypeHandlerTest::minimumAboveMaximum_data()
{
    addColumn();
    addMinimumAboveMaximum(integerHandler());
    addMinimumAboveMaximum(longHandler());
    addMinimumAboveMaximum(timeStampHandler());
    addMinimumAboveMaximum(floatHandler());
}

void TypeHandlerTest::specialNumbers_data()
{
    addColumn();
    addSpecialNumbers<FloatHandler, float>("FloatHandler");
}

void TypeHandlerTest::floatLimits()
{
    FloatHandler handler = filled(floatHandler(), 0);
    handler.Reset();
    QCOMPARE(bitsOf(handler.GetMinimum()), quint32(0xFF7FFFFF));
    QCOMPARE(bitsOf(handler.GetMaximum()), quint32(0x7F7FFFFF));
    QCOMPARE(bitsOf(handler.GetDefault()), quint32(0));
    QCOMPARE(bitsOf(handler.GetValue()), quint32(0));
}

void TypeHandlerTest::dataOfString_data()
{
    QTest::addColumn<QString>("defaultText");
    QTest::addColumn<QString>("value");
    QTest::addColumn<QString>("representationName");
    QTest::addColumn<QString>("uniqueParameterName");
    QTest::addColumn<bool>("hasData");
    QTest::addColumn<bool>("anyData");

    QTest::newRow("nothing") << QString() << QString() << QString() << QString() << false << false;
    QTest::newRow("empty texts") << ""
                                 << ""
                                 << ""
                                 << "" << false << false;
    QTest::newRow("value") << ""
                           << "x"
                           << ""
                           << "" << true << true;
    QTest::newRow("value of a blank") << ""
                                      << " "
                                      << ""
                                      << "" << true << true;
    QTest::newRow("default") << "x"
                             << ""
                             << ""
                             << "" << false << true;
    QTest::newRow("representation name") << ""
                                         << ""
                                         << "x"
                                         << "" << false << true;
    QTest::newRow("unique parameter name") << ""
                                           << ""
                                           << ""
                                           << "x" << false << true;
}

void TypeHandlerTest::dataOfString()
{
    QFETCH(QString, defaultText);
    QFETCH(QString, value);
    QFETCH(QString, representationName);
    QFETCH(QString, uniqueParameterName);
    QFETCH(bool, hasData);
    QFETCH(bool, anyData);

    StringHandler handler;
    handler.SetDefault(defaultText);
    handler.SetValue(value);
    handler.SetRepresentationName(representationName);
    handler.SetUniqueParameterName(uniqueParameterName);
    const TypeHandler &base = handler;
    QCOMPARE(base.HasData(), hasData);
    QCOMPARE(base.AnyData(), anyData);

    handler.Reset();
    QVERIFY(!handler.HasData());
    QVERIFY(!handler.AnyData());
}

QTEST_GUILESS_MAIN(TypeHandlerTest)
#include "TypeHandlerTest.moc"
