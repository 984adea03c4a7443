#include "tools/OrderedWork.h"

#include <QtTest>

#include <atomic>
#include <stdexcept>

class OrderedWorkTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void order_data();
    void order();
    void resultsAreThereAtOnce();
    void fewResultsAreHeld();
    void exceptions();
    void theRestIsLeft();
};

namespace {

void wait(int /*done*/) { }

/// Closed until it is opened.
class Gate {
public:
    void open()
    {
        const std::lock_guard<std::mutex> lock(mutex);
        isOpen = true;
        change.notify_all();
    }
    void pass()
    {
        std::unique_lock<std::mutex> lock(mutex);
        change.wait(lock, [this] { return isOpen; });
    }

private:
    std::mutex mutex;
    std::condition_variable change;
    bool isOpen = false;
};

} // namespace

void OrderedWorkTest::order_data()
{
    QTest::addColumn<int>("threads");

    QTest::newRow("none") << 0;
    QTest::newRow("one") << 1;
    QTest::newRow("many") << 16;
}

void OrderedWorkTest::order()
{
    QFETCH(int, threads);

    constexpr std::size_t Count = 5000;
    OrderedWork<QString> work(Count, threads, [](std::size_t number) {
        if (number % 7 == 0)
            QThread::usleep(50);
        return QString::number(static_cast<int>(number));
    });
    for (std::size_t i = 0; i < Count; ++i)
        QCOMPARE(work.take(i, wait), QString::number(static_cast<int>(i)));
}

/// The first results are taken before the others are made.
void OrderedWorkTest::resultsAreThereAtOnce()
{
    Gate gate;
    OrderedWork<int> work(4, 2, [&gate](std::size_t number) {
        if (number > 0)
            gate.pass();
        return static_cast<int>(number);
    });
    QCOMPARE(work.take(0, wait), 0);
    int waits = 0;
    QCOMPARE(work.take(1,
                       [&](int done) {
                           QCOMPARE(done, 1);
                           if (++waits == 3)
                               gate.open();
                       }),
             1);
    QVERIFY(waits >= 3);
}

/// However long the first takes.
void OrderedWorkTest::fewResultsAreHeld()
{
    constexpr std::size_t Count = 10'000;
    constexpr int Most = 256;
    Gate gate;
    std::atomic<int> begun{0};
    OrderedWork<QByteArray> work(Count, 4, [&](std::size_t number) {
        ++begun;
        if (number == 0)
            gate.pass();
        return QByteArray::number(static_cast<int>(number));
    });
    QTRY_COMPARE(begun.load(), Most);
    QTest::qWait(100);
    QCOMPARE(begun.load(), Most);
    gate.open();
    for (std::size_t i = 0; i < Count; ++i) {
        QCOMPARE(work.take(i, wait), QByteArray::number(static_cast<int>(i)));
        QVERIFY(begun.load() <= static_cast<int>(i) + Most);
    }
    QCOMPARE(begun.load(), static_cast<int>(Count));
}

void OrderedWorkTest::exceptions()
{
    OrderedWork<int> work(3, 2, [](std::size_t number) {
        if (number == 1)
            throw std::runtime_error("one");
        return static_cast<int>(number);
    });
    QCOMPARE(work.take(0, wait), 0);
    QString message;
    try {
        (void)work.take(1, wait);
    } catch (const std::runtime_error &error) {
        message = error.what();
    }
    QCOMPARE(message, QString("one"));
    QCOMPARE(work.take(2, wait), 2);
}

void OrderedWorkTest::theRestIsLeft()
{
    std::atomic<int> begun{0};
    {
        OrderedWork<int> work(10'000, 2, [&begun](std::size_t /*number*/) {
            QThread::msleep(1);
            return ++begun;
        });
        (void)work.take(0, wait);
    }
    QVERIFY(begun.load() < 1000);
}

QTEST_GUILESS_MAIN(OrderedWorkTest)
#include "OrderedWorkTest.moc"
