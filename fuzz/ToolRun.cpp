#include "fuzz/ToolRun.h"

#include <inspection/QuotedText_p.h>
#include <tools/Command.h>
#include <tools/Tool.h>
#include <tools/Usage.h>

#include <QCommandLineParser>

#include <cstdio>
#include <cstdlib>
#include <stdexcept>

namespace Fuzz {

namespace {

/// Takes what is written to a standard stream as long as it lives.
class Capture {
public:
    explicit Capture(std::FILE *&captured) : stream(captured), original(captured)
    {
        std::fflush(original);
        stream = open_memstream(&text, &size);
        if (!stream)
            throw std::runtime_error("standard streams cannot be captured");
    }
    Capture(const Capture &) = delete;
    Capture &operator=(const Capture &) = delete;
    ~Capture()
    {
        std::fclose(stream);
        stream = original;
        std::free(text);
    }

    [[nodiscard]] QByteArray bytes() const
    {
        std::fflush(stream);
        return {text, static_cast<int>(size)};
    }

private:
    std::FILE *&stream;
    std::FILE *original;
    char *text = nullptr;
    std::size_t size = 0;
};

ExitStatus run(const Command &command, const QStringList &arguments)
{
    QCommandLineParser parser;
    parser.addOptions(::Tool::optionsOf(command));
    if (!parser.parse(arguments))
        throw UsageError{parser.errorText()};
    Usage::checkCount(command.arguments, static_cast<int>(parser.positionalArguments().size()));
    return command.run(parser);
}

ToolRun capturedRun(const Command &command, const QStringList &arguments)
{
    const Capture output(stdout);
    const Capture complaints(stderr);
    try {
        const ExitStatus status = run(command, arguments);
        return {status, output.bytes(), complaints.bytes()};
    } catch (const UsageError &error) {
        return {Failed, output.bytes(),
                complaints.bytes() + KORMAK::Inspection::oneLine(error.message).toUtf8() + '\n'};
    }
}

} // namespace

ToolRun runTool(const QStringList &arguments)
{
    try {
        return capturedRun(*::Tool::findCommand(arguments.constFirst()), arguments);
    } catch (...) {
        throw; // now that what nobody catches is told on the real standard error
    }
}

} // namespace Fuzz
