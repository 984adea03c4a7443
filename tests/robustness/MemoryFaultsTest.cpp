// Memory that runs out: the first, the second, the third... allocation of an operation fails, each in a
// process of its own. The operation ends as if nothing had happened, with std::bad_alloc or with an answer of
// its own; what it has given by then is right, the object is usable, and nothing is lost.
#include <tests/support/ObjectStates.h>

#include <QDataStream>
#include <QtTest>
#include <QXmlStreamReader>
#include <QXmlStreamWriter>

#include <algorithm>
#include <csignal>
#include <exception>
#include <functional>
#include <memory>
#include <new>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>
#include <utility>

// The allocator of the whole program. glibc's own goes by these names, too.
extern "C" {
void *__libc_malloc(size_t size); // NOLINT
void *__libc_calloc(size_t count, size_t size); // NOLINT
void *__libc_realloc(void *block, size_t size); // NOLINT
void __libc_free(void *block); // NOLINT
}

namespace {

long remaining = -1; // allocations until one fails; negative: none does
long blocks = 0; // that are allocated

bool failsNow()
{
    return remaining >= 0 && remaining-- == 0;
}

void *counted(void *block)
{
    blocks += block ? 1 : 0;
    return block;
}

} // namespace

extern "C" {

void *malloc(size_t size)
{
    return failsNow() ? nullptr : counted(__libc_malloc(size));
}

void *calloc(size_t count, size_t size)
{
    return failsNow() ? nullptr : counted(__libc_calloc(count, size));
}

void *realloc(void *block, size_t size)
{
    if (failsNow())
        return nullptr;
    void *const moved = __libc_realloc(block, size);
    return block ? moved : counted(moved);
}

void free(void *block)
{
    blocks -= block ? 1 : 0;
    __libc_free(block);
}
}

using namespace TestSupport;
using TESSEL::ITesselObject;

namespace {

/// What can happen to an operation; the exit status of its process.
enum Outcome {
    Done,
    Refused, ///< false, or an empty result
    OutOfMemory, ///< std::bad_alloc
    Message, ///< a TesselException
    Terminated, ///< std::terminate(), where something allocates but may not throw
    Enough, ///< there were fewer allocations than that
    Wrong, ///< something else was read or written
    Unusable, ///< afterwards the object does not do what it did before
    Lost, ///< blocks that nobody has any more
    OutcomeCount,
};

using Operation = std::function<bool(ITesselObject &)>; // false: no result

/// A whole document, with an entity and with blanks beside a number; of a receiver one with a single
/// parameter, since what a reader keeps of one parameter until the next is left over from the failing
/// operation, too.
QString sampleOf(const QString &kind)
{
    if (kind == "GenericReceiver")
        return "<GenericReceiver><Script>x</Script>" + wholeParameter() + "</GenericReceiver>";
    return wholeDocument(kind).replace("Mara Lind", "Mara &amp; Lind").replace(">-7.1<", "> -7.1 <");
}

/// The entries of the sample have names and values.
bool hasWholeEntries(const ITesselObject &object)
{
    const auto *parameter = dynamic_cast<const KORMAK::Parameter *>(&object);
    if (!parameter)
        return true;
    const auto &entries = parameter->GetEnumHandler().GetEnumList();
    return std::all_of(entries.begin(), entries.end(),
                       [](const auto &entry) { return !entry.Name.isEmpty() && entry.Value != 0; });
}

/// Carries out \a work on an object that is as \a prepare leaves it, the allocation \a number of it failing.
Outcome outcomeOf(const QString &kind, long number, const Operation &prepare, const Operation &work,
                  const Operation &isRight)
{
    Outcome outcome = Done;
    const long before = blocks;
    {
        const auto object = newObject(kind);
        if (!prepare(*object))
            return Unusable;
        remaining = number;
        try {
            outcome = work(*object) ? Done : Refused;
        } catch (const std::bad_alloc &) {
            outcome = OutOfMemory;
        } catch (const TESSEL::TesselException &) {
            outcome = Message;
        }
        const bool hasFailed = remaining < 0;
        remaining = -1;
        if (!hasFailed)
            return outcome == Done && isRight(*object) ? Enough : Wrong;
        if ((outcome == Done && !isRight(*object)) || !hasWholeEntries(*object))
            return Wrong;
        object->Reset();
        if (!prepare(*object) || !work(*object) || !isRight(*object))
            return Unusable;
    }
    return blocks == before ? outcome : Lost;
}

Outcome inOwnProcess(const std::function<Outcome()> &work)
{
    const pid_t child = fork();
    if (child == 0) {
        std::set_terminate([] { _exit(Terminated); });
        std::signal(SIGSEGV, SIG_DFL); // Qt Test would report it
        const rlimit noCore{};
        setrlimit(RLIMIT_CORE, &noCore);
        _exit(work());
    }
    int status = 0;
    waitpid(child, &status, 0);
    return WIFEXITED(status) ? static_cast<Outcome>(WEXITSTATUS(status)) : OutcomeCount;
}

struct Task {
    Operation prepare;
    Operation work;
    Operation isRight;
};

Task taskOf(const QString &name, const QString &kind)
{
    const QString sample = sampleOf(kind);
    const auto whole = std::shared_ptr<ITesselObject>(newObject(kind));
    (void)whole->SetXmlString(sample, true);
    const State state = stateOf(*whole);
    const QString text = whole->GetXmlString();
    const auto read = [sample](ITesselObject &object) { return object.SetXmlString(sample, true); };
    const auto isWhole = [state](const ITesselObject &object) { return stateOf(object) == state; };
    const auto result = std::make_shared<QString>();

    if (name == "read")
        return {[](ITesselObject &) { return true; }, read, isWhole};
    if (name == "write") {
        return {read,
                [result](ITesselObject &object) {
                    *result = QString();
                    *result = object.GetXmlString();
                    return true;
                },
                [result, text](ITesselObject &) { return std::exchange(*result, QString()) == text; }};
    }
    if (name == "merge") {
        return {[](ITesselObject &) { return true; },
                [whole](ITesselObject &object) { return object.MergeTesselObject(*whole); },
                [whole](ITesselObject &object) {
                    const auto again = newObject(whole->GetObjectName());
                    return again->SetXmlString(whole->GetXmlString(), true)
                        && stateOf(*again) == stateOf(object);
                }};
    }
    const auto bytes = std::make_shared<QByteArray>(whole->GetCompressedBinaryRepresentationAsQByteArray(9));
    return {[](ITesselObject &) { return true; },
            [bytes](ITesselObject &object) { return object.SetBinaryRepresentation(*bytes); },
            [text](ITesselObject &object) {
                const auto again = newObject(object.GetObjectName());
                return again->SetXmlString(text, true) && stateOf(*again) == stateOf(object);
            }};
}

/// What Qt alone does: a reader begins a document, a writer writes one, or a stream opens bytes.
Task taskOfQt(const QString &name, const QString &kind)
{
    const QString sample = sampleOf(kind);
    const auto whole = std::shared_ptr<ITesselObject>(newObject(kind));
    (void)whole->SetXmlString(sample, true);
    const auto anything = [](ITesselObject &) { return true; };
    if (name == "write") {
        return {anything,
                [whole](ITesselObject &) {
                    QString text;
                    QXmlStreamWriter writer(&text);
                    writer.setAutoFormatting(true);
#if QT_VERSION < QT_VERSION_CHECK(6, 0, 0)
                    writer.setCodec("UTF-8");
#endif
                    writer.writeStartDocument();
                    writer.writeStartElement(whole->GetObjectName());
                    writer.writeEndDocument();
                    return true;
                },
                anything};
    }
    if (name == "stream") {
        return {anything,
                [](ITesselObject &) {
                    QByteArray bytes("bytes");
                    const QDataStream stream(&bytes, QIODevice::ReadOnly);
                    return stream.device() != nullptr;
                },
                anything};
    }
    return {anything,
            [sample](ITesselObject &) {
                QXmlStreamReader reader(sample);
                return reader.readNextStartElement();
            },
            anything};
}

/// How often each outcome came of a failing allocation, and the number of allocations.
struct Outcomes {
    QVector<int> counts = QVector<int>(OutcomeCount + 1, 0);
    int allocations = 0;

    Outcomes &operator+=(const Outcomes &other)
    {
        for (int i = 0; i < counts.size(); ++i)
            counts[i] += other.counts[i];
        allocations += other.allocations;
        return *this;
    }

    QString text() const
    {
        return QString("%1 allocations: %2 without effect, %3 refused, %4 std::bad_alloc, %5 messages, "
                       "%6 std::terminate(), %7 wrong, %8 unusable, %9 with lost blocks")
                   .arg(allocations)
                   .arg(counts[Done])
                   .arg(counts[Refused])
                   .arg(counts[OutOfMemory])
                   .arg(counts[Message])
                   .arg(counts[Terminated])
                   .arg(counts[Wrong])
                   .arg(counts[Unusable])
                   .arg(counts[Lost])
            + QString(", %1 crashed").arg(counts[OutcomeCount]);
    }
};

Outcomes outcomesOf(const QString &kind, const Task &task)
{
    constexpr long Never = 1'000'000'000;
    constexpr int MostAllocations = 5000;
    Outcomes outcomes;
    for (; outcomes.allocations < MostAllocations; ++outcomes.allocations) {
        const Outcome outcome = inOwnProcess([&] {
            // What is made once and kept is made before.
            if (outcomeOf(kind, Never, task.prepare, task.work, task.isRight) != Enough)
                return Unusable;
            return outcomeOf(kind, outcomes.allocations, task.prepare, task.work, task.isRight);
        });
        if (outcome == Enough)
            break;
        ++outcomes.counts[outcome];
    }
    return outcomes;
}

} // namespace

class MemoryFaultsTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void operations_data();
    void operations();
};

void MemoryFaultsTest::operations_data()
{
    QTest::addColumn<QString>("operation");
    QTest::addColumn<QString>("kind");

    for (const char *operation : {"read", "write", "merge", "read binary"}) {
        for (const QString &kind : kinds())
            QTest::newRow(qPrintable(QString(operation) + ' ' + kind)) << QString(operation) << kind;
    }
}

void MemoryFaultsTest::operations()
{
    QFETCH(QString, operation);
    QFETCH(QString, kind);

    const Outcomes outcomes = outcomesOf(kind, taskOf(operation, kind));
    qInfo("%s", qPrintable(outcomes.text()));
    const auto &counts = outcomes.counts;
    QVERIFY(counts[OutOfMemory] > 0);
    QCOMPARE(counts[Wrong], 0);
    QCOMPARE(counts[Unusable], 0);

    // A reader of Qt that cannot be made loses what was there of it, and ends the program once. A merge
    // writes and reads; a binary form is read twice.
    const QStringList parts = operation == "read binary" ? QStringList{"stream", "read", "read"}
        : operation == "merge"                           ? QStringList{"read", "write"}
                                                         : QStringList{operation};
    Outcomes ofQt;
    for (const QString &part : parts)
        ofQt += outcomesOf(kind, taskOfQt(part, kind));
    QVERIFY2(counts[Lost] <= ofQt.counts[Lost], qPrintable(ofQt.text()));
    QVERIFY2(counts[Terminated] <= ofQt.counts[Terminated], qPrintable(ofQt.text()));
    QVERIFY2(counts[OutcomeCount] <= ofQt.counts[OutcomeCount], qPrintable(ofQt.text()));
}

QTEST_GUILESS_MAIN(MemoryFaultsTest)
#include "MemoryFaultsTest.moc"
