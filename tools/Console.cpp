#include "tools/Console.h"

#include <QByteArray>
#include <QChar>

#include <algorithm>
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

QString Console::escaped(QChar c)
{
    switch (c.unicode()) {
    case '\n':
        return QStringLiteral("\\n");
    case '\r':
        return QStringLiteral("\\r");
    case '\t':
        return QStringLiteral("\\t");
    default:
        return QStringLiteral("\\u%1").arg(c.unicode(), 4, 16, QLatin1Char('0'));
    }
}

bool Console::isHarmless(QChar c)
{
    return c.category() != QChar::Other_Control && c != QChar::LineSeparator
        && c != QChar::ParagraphSeparator;
}

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

QString Console::oneLine(const QString &text)
{
    if (std::all_of(text.begin(), text.end(), isHarmless))
        return text;
    QString line;
    line.reserve(text.size());
    for (const QChar c : text)
        line += isHarmless(c) ? QString(c) : escaped(c);
    return line;
}

QString Console::shortened(const QString &text)
{
    constexpr int Longest = 200;
    return text.size() > Longest ? text.left(Longest) + QChar(0x2026) : text;
}

QString Console::quoted(const QString &text)
{
    return QLatin1Char('"') + oneLine(shortened(text)) + QLatin1Char('"');
}
