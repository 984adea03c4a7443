#include <tools/Command.h>
#include <tools/Console.h>
#include <tools/Tool.h>
#include <tools/Usage.h>

#include <QCommandLineParser>

namespace {

ExitStatus run(const QCommandLineParser &parser)
{
    const QStringList names = parser.positionalArguments();
    if (names.isEmpty()) {
        Console::write(Usage::ofTool());
        return Good;
    }
    const Command *command = Tool::findCommand(names.constFirst());
    if (!command)
        throw Usage::unknown(QStringLiteral("command"), names.constFirst(), Tool::commandNames());
    Console::write(Usage::ofCommand(*command));
    return Good;
}

} // namespace

const Command helpCommand{
    u"help",
    u"show the help of the tool or of a command",
    u"Shows what 'kormak --help' shows, with a COMMAND what 'kormak COMMAND --help' shows.",
    {u"the help is shown", {}, u"there is no such command"},
    u"kormak help check",
    {u"COMMAND", u"[COMMAND]", 0, 1},
    [] { return QList<QCommandLineOption>(); },
    run,
};
