#include "tools/OrderedWork.h"

#include <QThread>

#include <algorithm>
#include <chrono>
#include <new>

namespace {

/// To wake another thread takes about as long as to check a short document: who waits for results is woken
/// for many of them, and for fewer looks by itself from time to time; so it is with room for more.
constexpr std::size_t Many = OrderedThreads::Window / 2;

} // namespace

OrderedThreads::OrderedThreads(std::size_t count, int jobs, std::function<void(std::size_t)> work)
    : job(std::move(work)), isDone(std::min(count, Window)), end(count)
{
    const auto wanted = std::min(static_cast<std::size_t>(jobs), count);
    try {
        while (threads.size() < wanted)
            threads.emplace_back([this] { this->work(); });
    } catch (const std::exception &) {
        // So many it shall be. Without any, the work is done when it is waited for.
    }
}

OrderedThreads::~OrderedThreads()
{
    {
        const std::lock_guard<std::mutex> lock(mutex);
        end = 0;
    }
    room.notify_all();
    for (std::thread &thread : threads)
        thread.join();
}

void OrderedThreads::await(std::size_t number, const std::function<void(int)> &idle)
{
    constexpr std::chrono::milliseconds Tick(20);
    std::unique_lock<std::mutex> lock(mutex);
    awaited = number;
    if (threads.empty())
        workOnNext(lock);
    else if (waiting > 0 && next <= awaited + Many)
        room.notify_all();
    const std::size_t place = number % isDone.size();
    while (!isDone[place]) {
        if (results.wait_for(lock, Tick) == std::cv_status::no_timeout || isDone[place])
            continue;
        const int done = finished;
        lock.unlock();
        idle(done);
        lock.lock();
    }
    isDone[place] = false; // for the one that takes its place
}

/// In a thread of its own.
void OrderedThreads::work() noexcept
{
    try {
        (void)QThread::currentThread(); // made now, and not where Qt could not do without
    } catch (const std::bad_alloc &) {
        // Then the first reader makes it.
    }
    std::unique_lock<std::mutex> lock(mutex);
    while (next < end) {
        if (next < awaited + Window) {
            workOnNext(lock);
        } else {
            ++waiting;
            room.wait(lock);
            --waiting;
        }
    }
}

void OrderedThreads::workOnNext(std::unique_lock<std::mutex> &lock)
{
    const std::size_t number = next++;
    lock.unlock();
    job(number);
    lock.lock();
    isDone[number % isDone.size()] = true;
    ++finished;
    const bool areAll = static_cast<std::size_t>(finished) == end;
    if (isDone[awaited % isDone.size()] && (areAll || next >= awaited + Many))
        results.notify_one();
}
