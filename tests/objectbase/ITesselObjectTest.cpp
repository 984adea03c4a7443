#include <objectbase/ITesselObject.h>
#include <objectbase/Logger.h>
#include <tests/support/Objects.h>
#include <tests/support/SampleDocuments.h>

#include <QDateTime>
#include <QtTest>

#include <cstring>
#include <limits>
#include <numeric>

using namespace TESSEL;
using namespace TestSupport;
using namespace SampleDocuments;

class ITesselObjectTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void orderOfTheVirtualOperations();
    void typesAndNames_data();
    void typesAndNames();
    void nameAndTypeCanBeSet();
    void baseVersion();
    void validateFlag();
    void logger();
    void copies();
    void checkOnDemand();
    void validNumbers_data();
    void validNumbers();
    void validDatesAndTexts();
    void invalidValues();
    void mergeReplacesWhatIsWritten();
    void mergeWithItself();
    void mergeRefusesAnotherName();
    void mergeOfAnIncompleteObject();
    void mergeOfAnObjectThatFailsItsCheck();
    void mergeOfAText();
};

namespace {

/// The place of a virtual member function among those of its class, counted from 0.
template <class Member>
std::ptrdiff_t slotOf(Member member)
{
    std::ptrdiff_t words[sizeof member / sizeof(std::ptrdiff_t)];
    std::memcpy(words, &member, sizeof member);
    // x86 marks virtual members by an odd number here, ARM in the other word.
    return words[0] / static_cast<std::ptrdiff_t>(sizeof(void *));
}

/// Picks one of several overloads by its type.
template <class Type>
constexpr Type overload(Type member)
{
    return member;
}

/// A class that adds one virtual operation; it comes behind all those of the base.
class OneMore : public BareDocument {
public:
    using ITesselObject::ProcessXmlStartElement;
    virtual void More() { }
};

} // namespace

// Programs that were built with an earlier version of the library call these operations by their number.
void ITesselObjectTest::orderOfTheVirtualOperations()
{
#ifndef __GXX_ABI_VERSION
    QSKIP("The compiler lays out member pointers differently", "");
#else
    using I = ITesselObject;
    const QVector<std::ptrdiff_t> numbers{
        slotOf(&I::HasData),
        slotOf(&I::Reset),
        slotOf(overload<void (I::*)(bool) const>(&I::Check)),
        slotOf(overload<void (I::*)() const>(&I::Check)),
        slotOf(overload<bool (I::*)(float) const>(&I::IsValid)),
        slotOf(overload<bool (I::*)(bool) const>(&I::IsValid)),
        slotOf(overload<bool (I::*)(unsigned int) const>(&I::IsValid)),
        slotOf(overload<bool (I::*)(long long) const>(&I::IsValid)),
        slotOf(overload<bool (I::*)(const QDateTime &) const>(&I::IsValid)),
        slotOf(overload<bool (I::*)(const QString &) const>(&I::IsValid)),
        slotOf(overload<bool (I::*)(double) const>(&I::IsValid)),
        slotOf(overload<bool (I::*)(int) const>(&I::IsValid)),
        slotOf(overload<void (I::*)(float &) const>(&I::SetInvalid)),
        slotOf(overload<void (I::*)(unsigned int &) const>(&I::SetInvalid)),
        slotOf(overload<void (I::*)(long long &) const>(&I::SetInvalid)),
        slotOf(overload<void (I::*)(QString &) const>(&I::SetInvalid)),
        slotOf(overload<void (I::*)(double &) const>(&I::SetInvalid)),
        slotOf(overload<void (I::*)(int &) const>(&I::SetInvalid)),
        slotOf(overload<void (I::*)(QXmlStreamWriter &) const>(&I::GetXml)),
        slotOf(overload<bool (I::*)(QDataStream &, int, bool) const>(&I::GetBinary)),
        slotOf(overload<void (I::*)(QDataStream &, int)>(&I::SetBinary)),
        slotOf(overload<bool (I::*)(const QString &, bool)>(&I::SetXmlString)),
        slotOf(overload<bool (I::*)(QByteArray &)>(&I::SetBinaryRepresentation)),
        slotOf(overload<bool (I::*)(QDataStream &)>(&I::SetBinaryRepresentation)),
        slotOf(overload<bool (I::*)(const I &)>(&I::MergeTesselObject)),
        slotOf(overload<ObjectTypes (I::*)() const>(&I::GetObjectType)),
        slotOf(overload<const QString &(I::*)() const>(&I::GetObjectName)),
        slotOf(overload<void (I::*)(QXmlStreamReader &)>(&I::ProcessXml)),
        slotOf(overload<QString (I::*)() const>(&I::GetXmlString)),
        slotOf(overload<void (I::*)(QDataStream &) const>(&I::GetBinaryRepresentation)),
        slotOf(overload<QByteArray (I::*)()>(&I::GetBinaryRepresentationAsQByteArray)),
        slotOf(overload<void (I::*)(QDataStream &, int) const>(&I::GetCompressedBinaryRepresentation)),
        slotOf(overload<QByteArray (I::*)(int)>(&I::GetCompressedBinaryRepresentationAsQByteArray)),
        slotOf(overload<bool (I::*)(const QString &)>(&I::LoadXml)),
        slotOf(overload<bool (I::*)(QFile *)>(&I::LoadXml)),
        slotOf(overload<bool (I::*)(QFile *)>(&I::LoadBinary)),
        slotOf(overload<bool (I::*)(const QString &) const>(&I::SaveXml)),
        slotOf(overload<void (I::*)(bool) const>(&I::SetValidate)),
        slotOf(overload<bool (I::*)() const>(&I::GetValidate)),
        slotOf(overload<void (I::*)(std::shared_ptr<Logger>) const>(&I::SetLogger)),
        slotOf(overload<void (I::*)() const>(&I::ResetLogger)),
        slotOf(overload<const QString &(I::*)() const>(&I::GetVersion)),
        slotOf(overload<void (I::*)(ObjectTypes)>(&OneMore::SetObjectType)),
        slotOf(overload<void (I::*)(const QString &)>(&OneMore::SetObjectName)),
        slotOf(overload<void (I::*)(QXmlStreamReader &)>(&OneMore::ProcessXmlStartElement)),
        slotOf(&OneMore::More),
    };

    // The destructor is the first operation and takes two places.
    QVector<std::ptrdiff_t> consecutive(numbers.size());
    std::iota(consecutive.begin(), consecutive.end(), 2);
    QCOMPARE(numbers, consecutive);
    QCOMPARE(numbers.size(), 46);
#endif
}

void ITesselObjectTest::typesAndNames_data()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<QString>("name");

    QTest::newRow("GenericReceiver") << 38 << "GenericReceiver";
    QTest::newRow("Job") << 40 << "Job";
    QTest::newRow("JobHeader") << 41 << "JobHeader";
    QTest::newRow("Area") << static_cast<int>(ObjectTypes::Area) << "Area";
    QTest::newRow("AntennaData") << static_cast<int>(ObjectTypes::AntennaData) << "AntennaData";
    QTest::newRow("unknown") << 39 << "";
}

void ITesselObjectTest::typesAndNames()
{
    QFETCH(int, type);
    QFETCH(QString, name);

    const BareDocument object(static_cast<ObjectTypes>(type));
    QCOMPARE(static_cast<int>(object.GetObjectType()), type);
    QCOMPARE(object.GetObjectName(), name);
}

void ITesselObjectTest::nameAndTypeCanBeSet()
{
    BareDocument object;
    QCOMPARE(object.GetObjectType(), ObjectTypes::Invalid);
    QCOMPARE(object.GetObjectName(), QString());

    object.SetObjectName("Other");
    QCOMPARE(object.GetObjectName(), QString("Other"));
    QCOMPARE(object.GetObjectType(), ObjectTypes::Invalid);

    object.SetObjectType(ObjectTypes::Job);
    QCOMPARE(object.GetObjectType(), ObjectTypes::Job);
    QCOMPARE(object.GetObjectName(), QString("Other"));

    BareDocument job(ObjectTypes::Job);
    job.SetObjectName("Task");
    QCOMPARE(job.GetObjectName(), QString("Task"));
    QCOMPARE(job.GetObjectType(), ObjectTypes::Job);
}

void ITesselObjectTest::baseVersion()
{
    QCOMPARE(BareDocument().GetVersion(), QString("1.0"));
    const BareDocument object;
    QCOMPARE(&object.GetVersion(), &object.GetVersion());
}

void ITesselObjectTest::validateFlag()
{
    const BareDocument object;
    QCOMPARE(object.GetValidate(), true);
    object.SetValidate(false);
    QCOMPARE(object.GetValidate(), false);
    object.SetValidate(true);
    QCOMPARE(object.GetValidate(), true);

    // It decides nothing.
    const Note incomplete;
    incomplete.SetValidate(false);
    QCOMPARE(messageOf([&] { incomplete.Check(true); }), QString("Note: Please set Title"));
    QCOMPARE(messageOf([&] { (void)incomplete.GetXmlString(); }), QString("Note: Please set Title"));
}

void ITesselObjectTest::logger()
{
    const BareDocument object;
    QVERIFY(!object.GetLogger());

    const auto logger = std::make_shared<Logger>();
    object.SetLogger(logger);
    QCOMPARE(object.GetLogger(), logger);
    QCOMPARE(logger.use_count(), 2L);
    {
        const BareDocument copy(object);
        QCOMPARE(copy.GetLogger(), logger);
        QCOMPARE(logger.use_count(), 3L);
    }
    QCOMPARE(logger.use_count(), 2L);

    object.ResetLogger();
    QVERIFY(!object.GetLogger());
    QCOMPARE(logger.use_count(), 1L);
    object.ResetLogger();
    QVERIFY(!object.GetLogger());
}

void ITesselObjectTest::copies()
{
    BareDocument original(ObjectTypes::Job);
    original.SetObjectName("Task");
    original.SetValidate(false);
    original.SetLogger(std::make_shared<Logger>());

    const BareDocument copy(original);
    BareDocument assigned;
    assigned = original;
    BareDocument &alias = assigned;
    assigned = alias;

    for (const BareDocument *object : {&copy, static_cast<const BareDocument *>(&assigned)}) {
        QCOMPARE(object->GetObjectType(), ObjectTypes::Job);
        QCOMPARE(object->GetObjectName(), QString("Task"));
        QCOMPARE(object->GetValidate(), false);
        QCOMPARE(object->GetLogger(), original.GetLogger());
    }

    original.SetObjectName("Other");
    original.SetObjectType(ObjectTypes::Area);
    original.SetValidate(true);
    original.ResetLogger();
    QCOMPARE(copy.GetObjectName(), QString("Task"));
    QCOMPARE(copy.GetObjectType(), ObjectTypes::Job);
    QCOMPARE(copy.GetValidate(), false);
    QVERIFY(copy.GetLogger());
}

void ITesselObjectTest::checkOnDemand()
{
    const BareDocument object;
    object.Check(false);
    QCOMPARE(object.calls, QStringList());
    object.Check(true);
    QCOMPARE(object.calls, QStringList("Check"));

    const Note incomplete;
    QCOMPARE(messageOf([&] { incomplete.Check(true); }), QString("Note: Please set Title"));
    QCOMPARE(messageOf([&] { incomplete.Check(false); }), QString());
}

void ITesselObjectTest::validNumbers_data()
{
    QTest::addColumn<bool>("actual");
    QTest::addColumn<bool>("expected");

    const BareDocument document;
    const ITesselObject &object = document;
    const auto add = [&object](const char *name, auto value, bool expected) {
        QTest::newRow(name) << object.IsValid(value) << expected;
    };
    using Float = std::numeric_limits<float>;
    using Double = std::numeric_limits<double>;
    using Int = std::numeric_limits<int>;
    using Unsigned = std::numeric_limits<unsigned int>;
    using Long = std::numeric_limits<long long>;

    add("float: NaN", Float::quiet_NaN(), false);
    add("float: negative NaN", -Float::quiet_NaN(), false);
    add("float: 0", 0.0F, true);
    add("float: infinite", Float::infinity(), true);
    add("float: smallest", Float::lowest(), true);
    add("double: NaN", Double::quiet_NaN(), false);
    add("double: negative NaN", -Double::quiet_NaN(), false);
    add("double: 0", 0.0, true);
    add("double: infinite", -Double::infinity(), true);
    add("double: greatest", Double::max(), true);
    add("int: smallest", Int::min(), false);
    add("int: smallest but one", Int::min() + 1, true);
    add("int: -1", -1, true);
    add("int: 0", 0, true);
    add("int: greatest", Int::max(), true);
    add("long long: smallest", Long::min(), false);
    add("long long: smallest but one", Long::min() + 1, true);
    add("long long: smallest int", static_cast<long long>(Int::min()), true);
    add("long long: greatest", Long::max(), true);
    add("unsigned int: greatest", Unsigned::max(), false);
    add("unsigned int: greatest but one", Unsigned::max() - 1, true);
    add("unsigned int: 0", 0U, true);
    add("unsigned int: half", 0x80000000U, true);
    add("bool: true", true, true);
    add("bool: false", false, true);
}

void ITesselObjectTest::validNumbers()
{
    QFETCH(bool, actual);
    QFETCH(bool, expected);
    QCOMPARE(actual, expected);
}

void ITesselObjectTest::validDatesAndTexts()
{
    const BareDocument object;
    QVERIFY(!object.IsValid(QDateTime()));
    QVERIFY(!object.IsValid(QDateTime(QDate(2026, 2, 29), QTime(0, 0), Qt::UTC)));
    QVERIFY(object.IsValid(QDateTime::fromMSecsSinceEpoch(0, Qt::UTC)));

    QVERIFY(!object.IsValid(QString()));
    QVERIFY(!object.IsValid(QString("")));
    QVERIFY(object.IsValid(QString(" ")));
    QVERIFY(object.IsValid(QString("text")));
}

void ITesselObjectTest::invalidValues()
{
    const BareDocument object;

    float floatValue = 1;
    object.SetInvalid(floatValue);
    QVERIFY(qIsNaN(floatValue));
    QVERIFY(!object.IsValid(floatValue));

    double doubleValue = 1;
    object.SetInvalid(doubleValue);
    QVERIFY(qIsNaN(doubleValue));
    QVERIFY(!object.IsValid(doubleValue));

    int intValue = 1;
    object.SetInvalid(intValue);
    QCOMPARE(intValue, std::numeric_limits<int>::min());
    QVERIFY(!object.IsValid(intValue));

    long long longValue = 1;
    object.SetInvalid(longValue);
    QCOMPARE(longValue, std::numeric_limits<long long>::min());
    QVERIFY(!object.IsValid(longValue));

    unsigned int unsignedValue = 1;
    object.SetInvalid(unsignedValue);
    QCOMPARE(unsignedValue, std::numeric_limits<unsigned int>::max());
    QVERIFY(!object.IsValid(unsignedValue));

    QString text = "text";
    object.SetInvalid(text);
    QCOMPARE(text, QString());
    QVERIFY(!object.IsValid(text));
}

void ITesselObjectTest::mergeReplacesWhatIsWritten()
{
    Note target("old title", "old body");
    target.label = "old label";
    Note other("new title");
    other.version = "2.0";

    QVERIFY(target.MergeTesselObject(other));
    QCOMPARE(target.fields(), (QStringList{"2.0", "old label", "new title", "old body"}));
    QCOMPARE(other.fields(), (QStringList{"2.0", QString(), "new title", QString()}));

    other.body = "new body";
    other.label = "new label";
    QVERIFY(target.MergeTesselObject(other));
    QCOMPARE(target.fields(), other.fields());
}

void ITesselObjectTest::mergeWithItself()
{
    Note note("title", "body");
    const QStringList before = note.fields();
    QVERIFY(note.MergeTesselObject(note));
    QCOMPARE(note.fields(), before);
}

void ITesselObjectTest::mergeRefusesAnotherName()
{
    Note target("title");
    const QStringList before = target.fields();
    Note other("new title");
    for (const char *name : {"note", "Notes", "Binder", ""}) {
        other.SetObjectName(name);
        QVERIFY(!target.MergeTesselObject(other));
        QCOMPARE(target.fields(), before);
    }

    other.title.clear(); // the name comes first, so that no check is done
    QVERIFY(!target.MergeTesselObject(other));
}

void ITesselObjectTest::mergeOfAnIncompleteObject()
{
    Note target("title", "body");
    const QStringList before = target.fields();
    QVERIFY(!target.MergeTesselObject(DraftNote(QString(), "new body")));
    QCOMPARE(target.fields(), before);
}

void ITesselObjectTest::mergeOfAnObjectThatFailsItsCheck()
{
    Note target("title");
    const QStringList before = target.fields();
    QCOMPARE(messageOf([&] { (void)target.MergeTesselObject(Note()); }), QString("Note: Please set Title"));
    QCOMPARE(target.fields(), before);
}

void ITesselObjectTest::mergeOfAText()
{
    Note target;
    const Note other("a\r\n\t\"<&>' ", QString::fromUtf8("  Z\xC3\xBCrich \xF0\x9F\x93\xA1\n"));
    QVERIFY(target.MergeTesselObject(other));
    QCOMPARE(target.fields(), other.fields());
}

QTEST_GUILESS_MAIN(ITesselObjectTest)
#include "ITesselObjectTest.moc"
