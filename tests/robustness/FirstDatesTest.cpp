// The first dates of a process, read in several threads at once, over and over in processes of their own:
// with Qt 5 some came out empty.
#include <objectbase/Converters.h>

#include <QDateTime>

#include <atomic>
#include <cstdio>
#include <cstdlib>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>
#include <vector>

namespace {

constexpr int Processes = 200;
constexpr int Threads = 8;

int faultsOfFirstDates()
{
    std::atomic<int> started{0};
    std::atomic<int> faults{0};
    std::vector<std::thread> threads;
    for (int i = 0; i < Threads; ++i) {
        threads.emplace_back([&started, &faults] {
            const QString text = QStringLiteral("2026-03-29T00:59:59,250Z");
            ++started;
            while (started < Threads) { }
            if (!TESSEL::Converters::ToDateTime(text).isValid())
                ++faults;
        });
    }
    for (std::thread &thread : threads)
        thread.join();
    return faults;
}

} // namespace

int main()
{
    int faults = 0;
    for (int i = 0; i < Processes; ++i) {
        const pid_t child = fork();
        if (child == 0)
            _exit(faultsOfFirstDates() == 0 ? EXIT_SUCCESS : EXIT_FAILURE);
        int status = -1;
        if (child < 0 || waitpid(child, &status, 0) != child || status != 0)
            ++faults;
    }
    std::printf("%d of %d processes at fault\n", faults, Processes);
    return faults == 0 ? EXIT_SUCCESS : EXIT_FAILURE;
}
