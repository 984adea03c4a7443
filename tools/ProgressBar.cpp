#include "tools/ProgressBar.h"

#include <QByteArray>

#include <cstdio>

namespace {

constexpr int Patience = 1000; // ms
constexpr int Width = 30;

void write(const QByteArray &text)
{
    std::fputs(text.constData(), stderr);
    std::fflush(stderr);
}

} // namespace

ProgressBar::ProgressBar(int steps, bool isBarWanted) : total(steps), wanted(isBarWanted && steps > 0)
{
    timer.start();
}

ProgressBar::~ProgressBar()
{
    clear();
}

void ProgressBar::show(int done)
{
    if (!wanted || timer.elapsed() < Patience)
        return;
    const int filled = static_cast<int>(static_cast<qint64>(done) * Width / total);
    write("\r[" + QByteArray(filled, '#') + QByteArray(Width - filled, '-') + "] " + QByteArray::number(done)
          + '/' + QByteArray::number(total) + " files");
    isShown = true;
}

void ProgressBar::clear()
{
    if (isShown)
        write("\r\x1b[K");
    isShown = false;
}
