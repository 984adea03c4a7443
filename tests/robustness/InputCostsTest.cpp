// What a megabyte of anything costs to read: never much memory, and never much longer than an ordinary
// document of that size.
#include "HostileInputs.h"

#include <tests/support/DocumentKinds.h>

#include <QtTest>

#include <ctime>
#include <malloc.h>

// The allocator of the whole program. glibc's own goes by these names, too.
extern "C" {
void *__libc_malloc(size_t size); // NOLINT
void *__libc_calloc(size_t count, size_t size); // NOLINT
void *__libc_realloc(void *block, size_t size); // NOLINT
void __libc_free(void *block); // NOLINT
}

namespace {

long long held = 0; ///< bytes of the heap
long long greatest = 0;

void *taken(void *block)
{
    held += block ? static_cast<long long>(malloc_usable_size(block)) : 0;
    greatest = held > greatest ? held : greatest;
    return block;
}

void given(void *block)
{
    held -= block ? static_cast<long long>(malloc_usable_size(block)) : 0;
}

} // namespace

extern "C" {

void *malloc(size_t size)
{
    return taken(__libc_malloc(size));
}

void *calloc(size_t count, size_t size)
{
    return taken(__libc_calloc(count, size));
}

/// A block that moves is there twice for a while.
void *realloc(void *block, size_t size)
{
    const auto before = block ? static_cast<long long>(malloc_usable_size(block)) : 0;
    void *const moved = __libc_realloc(block, size);
    if (!moved)
        return moved;
    const bool hasMoved = moved != block;
    held -= hasMoved ? 0 : before;
    taken(moved);
    held -= hasMoved ? before : 0;
    return moved;
}

void free(void *block)
{
    given(block);
    __libc_free(block);
}
}

using namespace TestSupport;

namespace {

constexpr double MostMegabytes = 200;
#ifdef __OPTIMIZE__
constexpr double MostYardsticks = 150;
#else
constexpr double MostYardsticks = 500; // what grows as the square of the input takes thousands
#endif

double processorSeconds()
{
    timespec time{};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &time);
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) * 1e-9;
}

struct Cost {
    double seconds;
    double megabytes;
};

template <class Work>
Cost costOf(Work work)
{
    const long long before = held;
    greatest = held;
    const double begin = processorSeconds();
    work();
    return {processorSeconds() - begin, static_cast<double>(greatest - before) / HostileInputs::Megabyte};
}

/// The time that Qt takes for the tokens of an ordinary document of a megabyte: machines and sanitizers
/// differ.
double yardstick()
{
    static const double seconds = [] {
        const QString text = HostileInputs::within(
            "GenericReceiver", HostileInputs::filled(HostileInputs::Megabyte, [](int i) {
                return "<Parameter Version=\"1.0\" UniqueName=\"rx." + QString::number(i)
                    + "\">\n<RepresentationName>Gain of the channel</RepresentationName>\n"
                      "<ValueType>ValueNumericInt</ValueType>\n<Enable>true</Enable>\n</Parameter>\n";
            }));
        double least = 1e9;
        constexpr int Runs = 5;
        for (int i = 0; i < Runs; ++i) {
            const Cost cost = costOf([&text] {
                QXmlStreamReader reader(text);
                while (!reader.atEnd())
                    reader.readNext();
            });
            least = std::min(least, cost.seconds);
        }
        return least;
    }();
    return seconds;
}

/// Once more when it took long: something else may have been in the way.
template <class Work>
void checkCost(Work work)
{
    constexpr int Runs = 3;
    Cost cost = costOf(work);
    for (int i = 1; i < Runs && cost.seconds > MostYardsticks * yardstick(); ++i)
        cost.seconds = std::min(cost.seconds, costOf(work).seconds);
    const QString text = QString("%1 s, %2 yardsticks, %3 MB")
                             .arg(cost.seconds, 0, 'f', 3)
                             .arg(cost.seconds / yardstick(), 0, 'f', 1)
                             .arg(cost.megabytes, 0, 'f', 1);
    qInfo("%s", qPrintable(text));
    QVERIFY2(cost.megabytes <= MostMegabytes, qPrintable(text));
    QVERIFY2(cost.seconds <= MostYardsticks * yardstick(), qPrintable(text));
}

} // namespace

class InputCostsTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void documents_data();
    void documents();
    void binaryForms_data();
    void binaryForms();
};

void InputCostsTest::documents_data()
{
    QTest::addColumn<QString>("kind");
    QTest::addColumn<QString>("text");
    for (const auto &document : HostileInputs::documents())
        QTest::newRow(document.description) << document.kind << document.text;
}

void InputCostsTest::documents()
{
    QFETCH(QString, kind);
    QFETCH(QString, text);

    constexpr int About = HostileInputs::Megabyte + HostileInputs::Megabyte / 4;
    QVERIFY2(text.size() < About, qPrintable(QString::number(text.size())));
    const auto object = newObject(kind);
    checkCost([&] {
        try {
            (void)object->SetXmlString(text, true);
        } catch (const TESSEL::TesselException &) {
        }
        object->Reset();
    });
    QByteArray form = HostileInputs::binaryForm(kind.toUtf8(), text.toUtf8());
    checkCost([&] {
        try {
            (void)object->SetBinaryRepresentation(form);
        } catch (const TESSEL::TesselException &) {
        }
        object->Reset();
    });
}

void InputCostsTest::binaryForms_data()
{
    QTest::addColumn<QString>("kind");
    QTest::addColumn<QByteArray>("bytes");
    for (const auto &form : HostileInputs::binaryForms())
        QTest::newRow(form.description) << form.kind << form.bytes;
}

void InputCostsTest::binaryForms()
{
    QFETCH(QString, kind);
    QFETCH(QByteArray, bytes);

    const auto object = newObject(kind);
    checkCost([&] {
        try {
            (void)object->SetBinaryRepresentation(bytes);
        } catch (const TESSEL::TesselException &) {
        }
        object->Reset();
    });
}

QTEST_GUILESS_MAIN(InputCostsTest)
#include "InputCostsTest.moc"
