#include "tools/Usage.h"

#include <QStringList>

#include <algorithm>
#include <vector>

namespace {

struct Row {
    QString name;
    QString meaning;
};

QString dashed(const QString &name)
{
    return QStringLiteral("--").right(name.size() == 1 ? 1 : 2) + name;
}

QString nameOf(const QCommandLineOption &option)
{
    QStringList names = option.names();
    std::transform(names.begin(), names.end(), names.begin(), dashed);
    const QString value = option.valueName();
    return names.join(QStringLiteral(", ")) + (value.isEmpty() ? value : QLatin1Char(' ') + value);
}

/// A heading and under it the rows in two columns.
QString table(const QString &heading, const std::vector<Row> &rows)
{
    int width = 0;
    for (const Row &row : rows)
        width = std::max(width, static_cast<int>(row.name.size()));
    QString text = QLatin1Char('\n') + heading + QStringLiteral(":\n");
    for (const Row &row : rows)
        text += QStringLiteral("  ") + row.name.leftJustified(width) + QStringLiteral("  ") + row.meaning
            + QLatin1Char('\n');
    return text;
}

QString optionTable(const QList<QCommandLineOption> &options)
{
    std::vector<Row> rows;
    for (const QCommandLineOption &option : options)
        rows.push_back({nameOf(option), option.description()});
    return table(QStringLiteral("Options"), rows);
}

QString commandTable(const Usage::Commands &commands)
{
    std::vector<Row> rows;
    for (const Command *command : commands)
        rows.push_back({command->name.toString(), command->summary.toString()});
    return table(QStringLiteral("Commands"), rows);
}

QString example(QStringView call)
{
    return QStringLiteral("\nExample:\n  ") + call.toString() + QLatin1Char('\n');
}

} // namespace

QString Usage::brief(const Commands &commands)
{
    return QStringLiteral("Usage: kormak COMMAND [OPTIONS] FILE...\nCommands: %1\nTry 'kormak --help'.")
        .arg(commandNames(commands));
}

QString Usage::ofTool(const Commands &commands, const QList<QCommandLineOption> &options)
{
    return QStringLiteral("Usage: kormak COMMAND [OPTIONS] FILE...\n\n"
                          "Checks, shows and rewrites the documents of a radio-monitoring system.\n"
                          "The file - is standard input.\n")
        + commandTable(commands) + optionTable(options)
        + QStringLiteral("\n'kormak COMMAND --help' tells more of a command.\n")
        + example(u"kormak check job.xml");
}

QString Usage::ofCommand(const Command &command, const QList<QCommandLineOption> &options)
{
    const QString files =
        command.files == Command::Files::Many ? QStringLiteral("FILE...") : QStringLiteral("FILE");
    return QStringLiteral("Usage: kormak %1 [OPTIONS] %2\n\n%3\nThe file - is standard input.\n")
               .arg(command.name.toString(), files, command.description.toString())
        + optionTable(options) + example(command.example);
}

QString Usage::commandNames(const Commands &commands)
{
    QStringList names;
    for (const Command *command : commands)
        names += command->name.toString();
    return names.join(QStringLiteral(", "));
}

QString Usage::optionNames(const QList<QCommandLineOption> &options)
{
    QStringList names;
    for (const QCommandLineOption &option : options)
        names += nameOf(option);
    return names.join(QStringLiteral(", "));
}
