#include <tools/Command.h>
#include <tools/Console.h>
#include <tools/InputFile.h>
#include <tools/PathEncoding.h>
#include <tools/Tool.h>
#include <tools/Usage.h>

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QLocale>
#include <QThread>
#if QT_VERSION < QT_VERSION_CHECK(6, 0, 0)
#include <QTextCodec>
#endif

#include <algorithm>
#include <cerrno>
#include <clocale>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <exception>
#include <iterator>
#include <new>

#ifdef Q_OS_UNIX
#include <fcntl.h>
#include <unistd.h>
#endif

namespace {

/// \throws UsageError for an option that is not known or is not given as it should be
void parse(QCommandLineParser &parser, const QList<QCommandLineOption> &options, const QStringList &arguments)
{
    parser.addOptions(options);
    if (parser.parse(arguments))
        return;
    throw UsageError{QStringLiteral("%1 Allowed: %2").arg(parser.errorText(), Usage::optionNames(options))};
}

bool isFileLikeOptions(const QString &argument)
{
    return argument.startsWith(QLatin1Char('-')) && argument != StandardStream
        && InputFile::stateOf(argument).size >= 0;
}

/// Of a command that has been called with \a arguments. \throws UsageError
void parse(QCommandLineParser &parser, const Command &command, const QStringList &arguments)
{
    try {
        parse(parser, Tool::optionsOf(command), arguments);
    } catch (const UsageError &) {
        const auto end = std::find(arguments.begin(), arguments.end(), QStringLiteral("--"));
        const auto file = std::find_if(arguments.begin(), end, isFileLikeOptions);
        if (file == end)
            throw;
        throw UsageError{QStringLiteral("the file '%1' is taken for options. Put -- in front of it, as in: "
                                        "kormak %2 -- %1")
                             .arg(*file, command.name.toString())};
    }
}

/// \a arguments from \a begin to before \a end. QStringList::mid() does not notice it when there is no
/// memory.
QStringList part(const QStringList &arguments, qsizetype begin, qsizetype end)
{
    QStringList some;
    std::copy(arguments.begin() + begin, arguments.begin() + end, std::back_inserter(some));
    return some;
}

ExitStatus runCommand(const Command &command, const QStringList &arguments)
{
    QCommandLineParser parser;
    parse(parser, command, arguments);
    if (parser.isSet(QStringLiteral("help"))) {
        Console::write(Usage::ofCommand(command));
        return Good;
    }
    Usage::checkCount(command.arguments, static_cast<int>(parser.positionalArguments().size()));
    return command.run(parser);
}

/// A call whose first argument is no command.
ExitStatus runWithoutCommand(const QStringList &arguments)
{
    QCommandLineParser parser;
    parse(parser, Tool::options(), part(arguments, 0, 2));
    if (parser.isSet(QStringLiteral("help")))
        Console::write(Usage::ofTool());
    else if (parser.isSet(QStringLiteral("version")))
        Console::print(QStringLiteral("kormak " KORMAK_VERSION));
    else
        throw Usage::unknown(QStringLiteral("command"), arguments.at(1), Tool::commandNames());
    return Good;
}

ExitStatus run(const QStringList &arguments)
{
    if (arguments.size() < 2) {
        Console::complain(Usage::brief());
        return Failed;
    }
    const Command *command = Tool::findCommand(arguments.at(1));
    try {
        const ExitStatus status = command ? runCommand(*command, part(arguments, 1, arguments.size()))
                                          : runWithoutCommand(arguments);
        Console::flush();
        return status;
    } catch (const UsageError &error) {
        const QString name = command ? QLatin1Char(' ') + arguments.at(1) : QString();
        Console::complain(QStringLiteral("kormak") + name + QStringLiteral(": ")
                          + PathEncoding::shown(error.message));
        return Failed;
    }
}

/// A standard stream that the caller has closed stays so: otherwise the next file that is opened would take
/// its place, be read as standard input or have results written into it.
void keepClosedStreamsClosed()
{
#ifdef Q_OS_UNIX
    constexpr struct {
        int stream;
        int uselessMode;
    } Streams[] = {{STDIN_FILENO, O_WRONLY}, {STDOUT_FILENO, O_RDONLY}, {STDERR_FILENO, O_RDONLY}};
    for (const auto &[stream, uselessMode] : Streams) {
        if (fcntl(stream, F_GETFD) < 0)
            (void)open("/dev/null", uselessMode); // gets the first number that is free: this one
    }
#endif
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

/// Has made what Qt makes but once, while an exception does no harm: later, it might leave a lock behind or
/// be what Qt does not do without.
void prepareQt()
{
    (void)QThread::currentThread();
    (void)QLocale::system();
}

/// Without an application object, whose event loop nobody needs.
QStringList argumentsOf(int argc, char **argv)
{
#ifdef Q_OS_WIN
    const QCoreApplication application(argc, argv); // which knows how they are encoded
    return QCoreApplication::arguments();
#else
    QStringList arguments;
    std::transform(argv, argv + argc, std::back_inserter(arguments),
                   [](const char *argument) { return PathEncoding::decoded(argument); });
    return arguments;
#endif
}

/// Takes no memory itself.
ExitStatus complainAboutMemory() noexcept
{
    std::fflush(stdout);
    std::fputs("kormak: not enough memory\n", stderr);
    return Failed;
}

/// Memory may run out where nothing can be thrown, too.
[[noreturn]] void endAtOnce() noexcept
{
    try {
        const auto exception = std::current_exception();
        if (!exception) // what is thrown there has not been caught yet: nothing else is
            std::_Exit(complainAboutMemory());
        std::rethrow_exception(exception);
    } catch (const std::bad_alloc &) {
        std::_Exit(complainAboutMemory());
    } catch (...) {
        std::abort();
    }
}

} // namespace

int main(int argc, char **argv)
{
    std::set_terminate(endAtOnce);
    keepClosedStreamsClosed();
    // Qt warns of locales and empty file names; what is wrong the tool says itself.
    qInstallMessageHandler(ignoreMessage);
    try {
        fixLocale();
        prepareQt();
        return run(argumentsOf(argc, argv));
    } catch (const std::bad_alloc &) {
        return complainAboutMemory();
    } catch (const std::exception &error) {
        Console::complain(QStringLiteral("kormak: ") + QString::fromUtf8(error.what()));
        return Failed;
    } catch (const Console::OutputError &error) {
        if (error.code == EBADF)
            Console::complain(QStringLiteral("kormak: standard output is closed"));
        else if (error.code != EPIPE) // who closes the pipe has seen enough
            Console::complain(QStringLiteral("kormak: standard output: ")
                              + QString::fromLocal8Bit(std::strerror(error.code)));
        return Failed;
    }
}
