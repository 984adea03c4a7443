#include "tools/Console.h"

#include <QByteArray>
#include <QChar>

#include <cerrno>
#include <cstdio>

namespace {

QString escaped(QChar c)
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

bool isHarmless(QChar c)
{
    return c.category() != QChar::Other_Control && c != QChar::LineSeparator
        && c != QChar::ParagraphSeparator;
}

} // namespace

void Console::write(const QString &text)
{
    const QByteArray bytes = text.toUtf8();
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
    if (std::fflush(stdout) != 0)
        throw OutputError{errno};
}

void Console::complain(const QString &line)
{
    std::fflush(stdout);
    std::fputs((line + QLatin1Char('\n')).toUtf8().constData(), stderr);
}

QString Console::oneLine(const QString &text)
{
    QString line;
    line.reserve(text.size());
    for (const QChar c : text)
        line += isHarmless(c) ? QString(c) : escaped(c);
    return line;
}
