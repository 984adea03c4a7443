// Prints what every operation gives: with "main" in main(), with "end" when the destructors of the libraries
// and of Qt have run, with "again" in both.
#include "EveryOperation.h"

#include <cstdio>
#include <cstring>
#include <string>

namespace {

bool isPrinting = false;

std::string results()
{
    std::string text;
    const auto done = EveryOperation::everything();
    for (auto entry = done.begin(); entry != done.end(); ++entry)
        text += (entry.key() + ": " + entry.value() + '\n').toStdString();
    return text;
}

/// Made before anything of the libraries is, and so destroyed behind all of it.
struct Ending {
    ~Ending()
    {
        if (isPrinting)
            std::fputs(results().c_str(), stdout);
        std::fflush(stdout);
    }
} ending;

} // namespace

int main(int /*argc*/, char **argv)
{
    isPrinting = std::strcmp(argv[1], "main") != 0;
    if (std::strcmp(argv[1], "end") != 0) {
        const std::string text = results();
        if (!isPrinting)
            std::fputs(text.c_str(), stdout);
    }
    return 0;
}
