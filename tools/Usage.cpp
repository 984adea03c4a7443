#include "tools/Usage.h"

#include <inspection/DocumentKind_p.h>
#include <inspection/Remedy_p.h>
#include <tools/TextLayout.h>
#include <tools/Tool.h>

#include <algorithm>
#include <vector>

using namespace KORMAK::Inspection;

namespace {

using TextLayout::Row;

QString section(QStringView heading, const std::vector<Row> &rows)
{
    return QLatin1Char('\n') + heading.toString() + QStringLiteral(":\n")
        + TextLayout::twoColumns(rows, QStringLiteral("  "));
}

QString optionSection(const QList<QCommandLineOption> &options)
{
    std::vector<Row> rows;
    for (const QCommandLineOption &option : options)
        rows.push_back({Usage::nameOf(option), option.description()});
    return section(u"Options", rows);
}

QString commandSection()
{
    std::vector<Row> rows;
    for (const Command *command : Tool::commands()) {
        rows.push_back({command->name.toString() + QLatin1Char(' ') + command->arguments.usage.toString(),
                        command->summary.toString()});
    }
    return section(u"Commands", rows);
}

QString exampleSection(QStringView calls)
{
    const QString indented = calls.toString().replace(QLatin1Char('\n'), QStringLiteral("\n  "));
    return QStringLiteral("\nExample:\n  ") + indented + QLatin1Char('\n');
}

QString numberWord(int number)
{
    return number == 1 ? QStringLiteral("one")
        : number == 2  ? QStringLiteral("two")
                       : QString::number(number);
}

} // namespace

QString Usage::brief()
{
    return QStringLiteral("Usage: kormak COMMAND [OPTIONS] ARGUMENT...\nCommands: %1\nTry 'kormak --help'.")
        .arg(Tool::commandNames().join(QStringLiteral(", ")));
}

QString Usage::ofTool()
{
    return QStringLiteral("Usage: kormak COMMAND [OPTIONS] ARGUMENT...\n\n")
        + TextLayout::wrapped(Tool::Description.toString()) + commandSection()
        + optionSection(Tool::options()) + section(u"Exit status", exitRows(Tool::ExitMeanings))
        + exampleSection(Tool::Example)
        + QStringLiteral("\n'kormak COMMAND --help' tells more about a command.\n");
}

QString Usage::ofCommand(const Command &command)
{
    return QStringLiteral("Usage: kormak ") + callOf(command) + QStringLiteral("\n\n")
        + TextLayout::wrapped(command.description.toString() + noteOnArguments(command))
        + optionSection(Tool::optionsOf(command)) + section(u"Exit status", exitRows(command.exitStatus))
        + exampleSection(command.example);
}

QString Usage::noteOnArguments(const Command &command)
{
    const QStringView name = command.arguments.name;
    if (name == KindName)
        return QStringLiteral("\n\nA KIND is one of: ") + documentKindNames().join(QStringLiteral(", "))
            + QLatin1Char('.');
    if (name != FileName && name != PathName)
        return {};
    return QStringLiteral("\n\nThe %1 - is standard input.").arg(name.toString());
}

QString Usage::callOf(const Command &command)
{
    return command.name.toString() + QStringLiteral(" [OPTIONS] ") + command.arguments.usage.toString();
}

std::vector<Row> Usage::exitRows(const ExitTexts &texts)
{
    std::vector<Row> rows;
    int status = Good;
    for (const QStringView text : texts) {
        if (!text.isEmpty())
            rows.push_back({QString::number(status), text.toString()});
        ++status;
    }
    return rows;
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

QStringList Usage::dashedNames(const QCommandLineOption &option)
{
    QStringList names = option.names();
    for (QString &name : names)
        name.prepend(name.size() == 1 ? QStringLiteral("-") : QStringLiteral("--"));
    return names;
}

QString Usage::nameOf(const QCommandLineOption &option)
{
    const QString value = option.valueName();
    return dashedNames(option).join(QStringLiteral(", "))
        + (value.isEmpty() ? value : QLatin1Char(' ') + value);
}

QString Usage::optionNames(const QList<QCommandLineOption> &options)
{
    QStringList names;
    for (const QCommandLineOption &option : options)
        names += nameOf(option);
    return names.join(QStringLiteral(", "));
}

UsageError Usage::unknown(const QString &what, const QString &name, const QStringList &allowed)
{
    const QStringList meant = guessOf(name, allowed).names;
    return {QStringLiteral("Unknown %1 '%2'%3 Allowed: %4")
                .arg(what, name, meant.isEmpty() ? QStringLiteral(".") : question(meant),
                     allowed.join(QStringLiteral(", ")))};
}
