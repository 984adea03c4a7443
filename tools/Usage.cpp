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

QString callOf(const Command &command)
{
    return command.name.toString() + QLatin1Char(' ') + command.arguments.usage.toString();
}

QString commandTable(const Usage::Commands &commands)
{
    std::vector<Row> rows;
    for (const Command *command : commands)
        rows.push_back({callOf(*command), command->summary.toString()});
    return table(QStringLiteral("Commands"), rows);
}

QString example(QStringView call)
{
    return QStringLiteral("\nExample:\n  ") + call.toString() + QLatin1Char('\n');
}

QString numberWord(int number)
{
    return number == 1 ? QStringLiteral("one")
        : number == 2  ? QStringLiteral("two")
                       : QString::number(number);
}

} // namespace

QString Usage::brief(const Commands &commands)
{
    return QStringLiteral("Usage: kormak COMMAND [OPTIONS] ARGUMENT...\nCommands: %1\nTry 'kormak --help'.")
        .arg(commandNames(commands));
}

QString Usage::ofTool(const Commands &commands, const QList<QCommandLineOption> &options)
{
    return QStringLiteral(
               "Usage: kormak COMMAND [OPTIONS] ARGUMENT...\n\n"
               "Checks, shows, compares, rewrites and makes the documents of a radio-monitoring "
               "system.\n"
               "The file - is standard input. Results go to standard output, complaints to standard "
               "error.\n"
               "Exit status: 0 all is well, 1 a document is at fault or two differ,\n"
               "2 a file cannot be read or written, or the call is wrong.\n")
        + commandTable(commands) + optionTable(options)
        + QStringLiteral("\n'kormak COMMAND --help' tells more of a command.\n")
        + example(u"kormak new Job --set JobHeader.JobType=Antenna --set JobHeader.Author=\"M. Keller\" \\\n"
                  u"    --set JobHeader.Creation=now --set ResourceType=Antenna --set AntennaData.Name=North "
                  u"\\\n"
                  u"    --set AntennaData.MinimumFrequency=1.5e6 --set AntennaData.MaximumFrequency=30e6 -o "
                  u"job.xml\n"
                  u"  kormak check job.xml");
}

QString Usage::ofCommand(const Command &command, const QList<QCommandLineOption> &options)
{
    const bool takesFiles = command.arguments.name == FileName || command.arguments.name == PathName;
    const QString input = takesFiles ? QStringLiteral("The file - is standard input.\n") : QString();
    return QStringLiteral("Usage: kormak %1 [OPTIONS] %2\n\n%3\n%4")
               .arg(command.name.toString(), command.arguments.usage.toString(),
                    command.description.toString(), input)
        + optionTable(options) + example(command.example);
}

void Usage::checkCount(const Arguments &arguments, int count)
{
    const QString name = arguments.name.toString();
    if (count >= arguments.least && count <= arguments.most)
        return;
    if (count == 0)
        throw UsageError{QStringLiteral("no %1 given").arg(name)};
    throw UsageError{
        QStringLiteral("takes %1 %2%3, not %4")
            .arg(numberWord(arguments.most), name, arguments.most == 1 ? QString() : QStringLiteral("s"))
            .arg(count)};
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
