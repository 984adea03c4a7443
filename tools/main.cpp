#include <tools/Command.h>
#include <tools/Console.h>
#include <tools/Usage.h>

#include <QCommandLineParser>
#include <QCoreApplication>
#if QT_VERSION < QT_VERSION_CHECK(6, 0, 0)
#include <QTextCodec>
#endif

#include <algorithm>
#include <cerrno>
#include <clocale>
#include <cstring>
#include <exception>

namespace {

const Usage::Commands Commands{&checkCommand,  &showCommand, &diffCommand,
                               &formatCommand, &newCommand,  &listCommand};

QCommandLineOption helpOption()
{
    return {{QStringLiteral("h"), QStringLiteral("help")}, QStringLiteral("Show this help.")};
}

QCommandLineOption versionOption()
{
    return {{QStringLiteral("v"), QStringLiteral("version")},
            QStringLiteral("Show the version of the tool.")};
}

/// \throws UsageError for an option that is not known or is not given as it should be
void parse(QCommandLineParser &parser, const QList<QCommandLineOption> &options, const QStringList &arguments)
{
    parser.addOptions(options);
    if (parser.parse(arguments))
        return;
    throw UsageError{QStringLiteral("%1 Allowed: %2").arg(parser.errorText(), Usage::optionNames(options))};
}

ExitStatus runCommand(const Command &command, const QStringList &arguments)
{
    QCommandLineParser parser;
    const QCommandLineOption help = helpOption();
    const QList<QCommandLineOption> options = command.options() << help;
    parse(parser, options, arguments);
    if (parser.isSet(help)) {
        Console::write(Usage::ofCommand(command, options));
        return Good;
    }
    Usage::checkCount(command.arguments, static_cast<int>(parser.positionalArguments().size()));
    return command.run(parser);
}

/// A call whose first argument is no command.
ExitStatus runWithoutCommand(const QStringList &arguments)
{
    QCommandLineParser parser;
    const QCommandLineOption help = helpOption();
    const QCommandLineOption version = versionOption();
    parse(parser, {help, version}, arguments.mid(0, 2));
    if (parser.isSet(help))
        Console::write(Usage::ofTool(Commands, {help, version}));
    else if (parser.isSet(version))
        Console::print(QStringLiteral("kormak " KORMAK_VERSION));
    else
        throw UsageError{QStringLiteral("Unknown command '%1'. Allowed: %2")
                             .arg(arguments.at(1), Usage::commandNames(Commands))};
    return Good;
}

ExitStatus run(const QStringList &arguments)
{
    if (arguments.size() < 2) {
        Console::complain(Usage::brief(Commands));
        return Failed;
    }
    const auto found = std::find_if(Commands.begin(), Commands.end(), [&arguments](const Command *candidate) {
        return candidate->name == arguments.at(1);
    });
    const bool isCommand = found != Commands.end();
    try {
        const ExitStatus status =
            isCommand ? runCommand(**found, arguments.mid(1)) : runWithoutCommand(arguments);
        Console::flush();
        return status;
    } catch (const UsageError &error) {
        const QString command = isCommand ? QLatin1Char(' ') + arguments.at(1) : QString();
        Console::complain(QStringLiteral("kormak") + command + QStringLiteral(": ") + error.message);
        return Failed;
    }
}

/// Whatever the locale: messages of the system in English, and names of files in UTF-8.
void fixLocale()
{
#ifdef LC_MESSAGES
    std::setlocale(LC_MESSAGES, "C");
#endif
#if QT_VERSION < QT_VERSION_CHECK(6, 0, 0)
    QTextCodec::setCodecForLocale(QTextCodec::codecForName("UTF-8"));
#endif
}

void ignoreMessage(QtMsgType /*type*/, const QMessageLogContext & /*context*/, const QString & /*message*/) {
}

} // namespace

int main(int argc, char **argv)
{
    // Qt warns of locales and empty file names; what is wrong the tool says itself.
    qInstallMessageHandler(ignoreMessage);
    const QCoreApplication application(argc, argv);
    fixLocale();
    try {
        return run(QCoreApplication::arguments());
    } catch (const std::exception &error) { // of which running out of memory is one
        Console::complain(QStringLiteral("kormak: ") + QString::fromUtf8(error.what()));
        return Failed;
    } catch (const Console::OutputError &error) {
        if (error.code != EPIPE) // who closes the pipe has seen enough
            Console::complain(QStringLiteral("kormak: standard output: ")
                              + QString::fromLocal8Bit(std::strerror(error.code)));
        return Failed;
    }
}
