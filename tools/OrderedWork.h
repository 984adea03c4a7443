// Work on many things by several threads, whose results are taken in the order of the things. However many
// there are, only some hundred results are held at a time.
#ifndef KORMAK_TOOLS_ORDEREDWORK_H
#define KORMAK_TOOLS_ORDEREDWORK_H

#include <algorithm>
#include <condition_variable>
#include <cstddef>
#include <exception>
#include <functional>
#include <mutex>
#include <thread>
#include <utility>
#include <vector>

/// The threads, which know nothing of results.
class OrderedThreads {
public:
    /// Nothing is begun that lies so far behind what is waited for.
    static constexpr std::size_t Window = 256;

    /// \a work is done with each number below \a count, in its order, by \a jobs threads at a time, or as
    /// many as there can be. It must not throw.
    OrderedThreads(std::size_t count, int jobs, std::function<void(std::size_t number)> work);
    /// What is not begun is left.
    ~OrderedThreads();
    OrderedThreads(const OrderedThreads &) = delete;
    OrderedThreads &operator=(const OrderedThreads &) = delete;

    /// Waits until \a number is done; \a idle is called with how many are done while there is nothing to do
    /// but wait. The numbers are asked for in their order.
    void await(std::size_t number, const std::function<void(int done)> &idle);

private:
    void work() noexcept;
    void workOnNext(std::unique_lock<std::mutex> &lock);

    const std::function<void(std::size_t)> job;
    std::mutex mutex; ///< of what follows
    std::condition_variable results; ///< there are some
    std::condition_variable room; ///< for more of them
    std::vector<bool> isDone; ///< by the remainder of the number
    std::size_t next = 0; ///< the first that nobody has begun
    std::size_t awaited = 0;
    std::size_t end; ///< of what is to be begun
    int finished = 0;
    int waiting = 0; ///< threads, for room
    std::vector<std::thread> threads;
};

template <class Result>
class OrderedWork {
public:
    using Work = std::function<Result(std::size_t number)>;

    OrderedWork(std::size_t count, int jobs, Work workOnOne)
        : work(std::move(workOnOne)), results(std::min(count, OrderedThreads::Window)),
          threads(count, jobs,
                  [this](std::size_t number) { results[number % results.size()] = made(number); })
    {
    }

    /// The result for \a number, once. \throws what the work has thrown
    [[nodiscard]] Result take(std::size_t number, const std::function<void(int done)> &idle)
    {
        threads.await(number, idle);
        Made made = std::exchange(results[number % results.size()], {});
        if (made.exception)
            std::rethrow_exception(made.exception);
        return std::move(made.result);
    }

private:
    struct Made {
        Result result = {};
        std::exception_ptr exception = nullptr; ///< null: there is a result
    };

    Made made(std::size_t number) const
    {
        Made made;
        try {
            made.result = work(number);
        } catch (...) {
            made.exception = std::current_exception();
        }
        return made;
    }

    const Work work;
    std::vector<Made> results;
    OrderedThreads threads; // the last: they use the others
};

#endif
