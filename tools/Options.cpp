#include "tools/Options.h"

#include <tools/Command.h>

#include <QCommandLineParser>

QCommandLineOption optionCalled(QStringView name, const QString &description, QStringView value)
{
    return {listOf<QStringList>(name.toString()), description, value.toString()};
}

QCommandLineOption optionCalled(QChar letter, QStringView name, const QString &description, QStringView value)
{
    return {listOf<QStringList>(QString(letter), name.toString()), description, value.toString()};
}

std::optional<QString> onlyValue(const QCommandLineParser &parser, QStringView option)
{
    const QStringList values = parser.values(option.toString());
    if (values.size() > 1)
        throw UsageError{
            QStringLiteral("%1%2 can be given only once")
                .arg(option.size() == 1 ? QStringLiteral("-") : QStringLiteral("--"), option.toString())};
    return values.isEmpty() ? std::nullopt : std::optional(values.constFirst());
}

void checkStandardInput(const QStringList &files)
{
    if (files.count(StandardStream.toString()) > 1)
        throw UsageError{QStringLiteral("standard input can be read only once")};
}
