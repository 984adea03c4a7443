#include "tools/Console.h"

#include <QByteArray>

#include <cerrno>
#include <cstdio>

namespace {

int outputFailure = 0; ///< the errno of the first

void flushOutput()
{
    if (std::fflush(stdout) != 0 && outputFailure == 0)
        outputFailure = errno;
}

} // namespace

void Console::write(const QString &text)
{
    writeBytes(text.toUtf8());
}

void Console::writeBytes(const QByteArray &bytes)
{
    const auto size = static_cast<std::size_t>(bytes.size());
    if (std::fwrite(bytes.constData(), 1, size, stdout) != size)
        throw OutputError{errno};
}

void Console::print(const QString &line)
{
    write(line + QLatin1Char('\n'));
}

void Console::flush()
{
    flushOutput();
    if (outputFailure != 0)
        throw OutputError{outputFailure};
}

void Console::complain(const QString &line)
{
    complainInBytes((line + QLatin1Char('\n')).toUtf8());
}

void Console::complainInBytes(const QByteArray &lines)
{
    if (lines.isEmpty())
        return;
    flushOutput(); // whether that goes well is asked in the end
    std::fwrite(lines.constData(), 1, static_cast<std::size_t>(lines.size()), stderr);
}
