#include "tools/Tool.h"

#include <tools/ListOf.h>

#include <algorithm>

namespace {

QCommandLineOption helpOption()
{
    return QCommandLineOption(listOf<QStringList>(QStringLiteral("h"), QStringLiteral("help")),
                              QStringLiteral("Show this help."));
}

} // namespace

const std::array<const Command *, 6> &Tool::commands()
{
    static constexpr std::array<const Command *, 6> all{&checkCommand,  &showCommand, &diffCommand,
                                                        &formatCommand, &newCommand,  &listCommand};
    return all;
}

QStringList Tool::commandNames()
{
    QStringList names;
    for (const Command *command : commands())
        names += command->name.toString();
    return names;
}

const Command *Tool::findCommand(QStringView name)
{
    const auto found = std::find_if(commands().begin(), commands().end(),
                                    [name](const Command *command) { return command->name == name; });
    return found == commands().end() ? nullptr : *found;
}

QList<QCommandLineOption> Tool::options()
{
    return listOf<QList<QCommandLineOption>>(
        helpOption(),
        QCommandLineOption(listOf<QStringList>(QStringLiteral("v"), QStringLiteral("version")),
                           QStringLiteral("Show the version of the tool.")));
}

QList<QCommandLineOption> Tool::optionsOf(const Command &command)
{
    return command.options() << helpOption();
}
