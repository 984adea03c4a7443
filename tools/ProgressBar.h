// A bar on standard error that tells how far the tool has come.
#ifndef KORMAK_TOOLS_PROGRESSBAR_H
#define KORMAK_TOOLS_PROGRESSBAR_H

#include <QElapsedTimer>

class ProgressBar {
public:
    /// Nothing is shown unless \a isBarWanted, and nothing in the first second.
    ProgressBar(int steps, bool isBarWanted);
    ~ProgressBar();
    ProgressBar(const ProgressBar &) = delete;
    ProgressBar &operator=(const ProgressBar &) = delete;

    [[nodiscard]] bool isWanted() const noexcept { return wanted; }

    void show(int done);
    /// Takes the bar away, so that something else can be written.
    void clear();

private:
    const int total;
    const bool wanted;
    bool isShown = false;
    QElapsedTimer timer;
};

#endif
