#include "tools/Tool.h"

#include <tools/Options.h>

#include <algorithm>

namespace {

QCommandLineOption helpOption()
{
    return QCommandLineOption(listOf<QStringList>(QStringLiteral("h"), QStringLiteral("help")),
                              QStringLiteral("Show this help."));
}

} // namespace

TESSEL::TableView<const Command *> Tool::commands()
{
    static constexpr const Command *All[] = {
        &checkCommand, &showCommand, &reportCommand, &tableCommand, &diffCommand, &formatCommand,
        &setCommand,   &fixCommand,  &newCommand,    &listCommand,  &helpCommand,
    };
    return All;
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
    const auto all = commands();
    const auto *const found = std::find_if(all.begin(), all.end(),
                                           [name](const Command *command) { return command->name == name; });
    return found == all.end() ? nullptr : *found;
}

QList<QCommandLineOption> Tool::options()
{
    return listOf<QList<QCommandLineOption>>(
        helpOption(),
        QCommandLineOption(
            listOf<QStringList>(QStringLiteral("v"), QStringLiteral("V"), QStringLiteral("version")),
            QStringLiteral("Show the version of the tool.")));
}

QList<QCommandLineOption> Tool::optionsOf(const Command &command)
{
    return command.options() << helpOption();
}
