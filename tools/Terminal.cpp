#include "tools/Terminal.h"

#include <QtGlobal>

#include <cstdio>

#ifdef Q_OS_WIN
#include <io.h>
#else
#include <sys/ioctl.h>
#include <unistd.h>
#endif

namespace {

bool isTerminal(std::FILE *file)
{
#ifdef Q_OS_WIN
    return _isatty(_fileno(file)) != 0;
#else
    return isatty(fileno(file)) != 0;
#endif
}

/// 0 when nobody knows.
int columnsOfOutput()
{
#ifdef Q_OS_WIN
    return 0;
#else
    winsize size = {};
    return ioctl(fileno(stdout), TIOCGWINSZ, &size) == 0 ? size.ws_col : 0;
#endif
}

bool wantsColours()
{
    return Terminal::isErrorOutput() && qEnvironmentVariableIsEmpty("NO_COLOR") && qgetenv("TERM") != "dumb";
}

} // namespace

bool Terminal::isOutput()
{
    static const bool result = isTerminal(stdout);
    return result;
}

bool Terminal::isErrorOutput()
{
    static const bool result = isTerminal(stderr);
    return result;
}

std::optional<int> Terminal::outputWidth()
{
    constexpr int Usual = 80;
    if (!isOutput())
        return std::nullopt;
    const int wanted = qEnvironmentVariableIntValue("COLUMNS");
    const int width = wanted > 0 ? wanted : columnsOfOutput();
    return width > 0 ? width : Usual;
}

QString Terminal::coloured(QStringView severity)
{
    static const bool hasColours = wantsColours();
    if (!hasColours)
        return severity.toString();
    const bool isWarning = severity == QLatin1String("warning");
    return QStringLiteral("\x1b[1;%1m%2\x1b[0m").arg(isWarning ? 35 : 31).arg(severity.toString());
}
