#include <inspection/Rewriting_p.h>
#include <tools/Command.h>
#include <tools/Console.h>
#include <tools/DocumentFile.h>
#include <tools/LimitOptions.h>
#include <tools/ListOf.h>
#include <tools/Output.h>
#include <tools/PathEncoding.h>

#include <QCommandLineParser>

#include <algorithm>

using namespace KORMAK;
using namespace KORMAK::Inspection;

namespace {

constexpr QStringView InPlaceOption = u"in-place";
constexpr QStringView CheckOption = u"check";
constexpr QStringView ReadableOption = u"readable";
constexpr QStringView DropCommentsOption = u"drop-comments";

QList<QCommandLineOption> options()
{
    return withLimitOptions(listOf<QList<QCommandLineOption>>(
        outputOption(),
        QCommandLineOption(listOf<QStringList>(InPlaceOption.toString()),
                           QStringLiteral("Write each document to the FILE that it comes from.")),
        QCommandLineOption(listOf<QStringList>(CheckOption.toString()),
                           QStringLiteral("Write nothing, but tell which FILE would change.")),
        QCommandLineOption(listOf<QStringList>(ReadableOption.toString()),
                           QStringLiteral("Write what is read back, not what the library writes.")),
        QCommandLineOption(listOf<QStringList>(DropCommentsOption.toString()),
                           QStringLiteral("Write even if comments are lost."))));
}

enum class Mode {
    WriteOutput, ///< of one document
    WriteInPlace,
    Check,
};

/// What a call asks for.
struct Request {
    Mode mode;
    QString output; ///< unless documents are written in place or checked
    WrittenForm form;
    bool dropsComments;
};

bool isComment(const FindingData &loss)
{
    return loss.id == FindingId::LostComment;
}

void complainAboutLosses(const QString &path, const FileDocument &document, const Findings &losses, Mode mode)
{
    complainAbout(path, document, u"loss", losses);
    const bool hasComments = std::any_of(losses.begin(), losses.end(), isComment);
    const QString start =
        mode == Mode::Check ? QStringLiteral("would not be written") : QStringLiteral("not written");
    Console::complain(
        complaintLine(path, std::nullopt, u"error",
                      start + QStringLiteral(", since the lines above would be lost"))
        + (hasComments ? QStringLiteral(" (--drop-comments allows to lose comments)") : QString()));
}

/// Writes \a text in the place of \a document, or to the output that is asked for. A file that holds the text
/// already is left alone.
ExitStatus write(const QByteArray &text, const FileDocument &document, const QString &source,
                 const Request &request, QStringList &changed)
{
    const bool isChanged = !document.isVerbatim || text != document.text;
    if (request.mode == Mode::Check) {
        if (isChanged)
            changed += source;
        return isChanged ? Faulty : Good;
    }
    const QString target = request.mode == Mode::WriteInPlace ? source : request.output;
    const bool replacesSource = target == source || InputFile::stateOf(target).isSameFile(document.source);
    if (replacesSource && target != StandardStream && !isChanged)
        return Good;
    const SourceText original{document.text, document.source};
    const ExitStatus status = writeOutput(text, target, replacesSource ? &original : nullptr);
    if (request.mode == Mode::WriteInPlace && status == Good)
        changed += source;
    return status;
}

/// Writes the document unless it cannot be written or something of it would be lost. \throws DocumentError
ExitStatus format(FileDocument &document, const QString &source, const Request &request, QStringList &changed)
{
    auto [obstacles, refusal, text, losses] = rewrite(document, request.form);
    complainAbout(source, document, u"error", obstacles);
    if (!obstacles.empty())
        return Faulty;
    if (refusal)
        throwRejection(*refusal, document.text);
    if (request.dropsComments)
        losses.erase(std::remove_if(losses.begin(), losses.end(), isComment), losses.end());
    if (losses.empty())
        return write(text, document, source, request, changed);
    complainAboutLosses(source, document, losses, request.mode);
    return Faulty;
}

/// \throws UsageError
Request requestOf(const QCommandLineParser &parser)
{
    const bool isInPlace = parser.isSet(InPlaceOption.toString());
    const bool isCheck = parser.isSet(CheckOption.toString());
    const QStringList outputs = parser.values(OutputOption.toString());
    const QStringList sources = parser.positionalArguments();
    if (outputs.size() + (isInPlace ? 1 : 0) + (isCheck ? 1 : 0) > 1) {
        throw UsageError{
            QStringLiteral("only one of -o, --in-place and --check can be given, and -o only once")};
    }
    if (sources.size() > 1 && !isInPlace && !isCheck) {
        throw UsageError{
            QStringLiteral("takes one FILE, not %1, unless with --in-place or --check").arg(sources.size())};
    }
    if (isInPlace && sources.contains(StandardStream.toString()))
        throw UsageError{QStringLiteral("standard input cannot be written in place")};
    if (sources.count(StandardStream.toString()) > 1)
        throw UsageError{QStringLiteral("standard input can be read only once")};
    return {isInPlace     ? Mode::WriteInPlace
                : isCheck ? Mode::Check
                          : Mode::WriteOutput,
            outputs.isEmpty() ? StandardStream.toString() : outputs.constFirst(),
            parser.isSet(ReadableOption.toString()) ? WrittenForm::Readable : WrittenForm::OfLibrary,
            parser.isSet(DropCommentsOption.toString())};
}

ExitStatus run(const QCommandLineParser &parser)
{
    const Request request = requestOf(parser);
    const TESSEL::ReadingLimits limits = limitsOf(parser);
    QStringList changed;
    ExitStatus worst = Good;
    const QStringList sources = parser.positionalArguments();
    for (const QString &source : sources) {
        const auto formatIt = [&](FileDocument &document) {
            return format(document, source, request, changed);
        };
        worst = std::max(worst, onDocument(source, limits, formatIt));
    }
    // In the end, so that no file is left out when whoever reads this has seen enough.
    for (const QString &path : changed)
        Console::print(PathEncoding::shown(path));
    return worst;
}

} // namespace

const Command formatCommand{
    u"format",
    u"rewrite documents as the library writes them",
    u"Reads a document and writes it in the order and layout that the library gives it, to standard output "
    u"unless told otherwise. With --in-place or --check there can be several files. Those that would not "
    u"change are left alone; the names of the others go to standard output, one in a line.\n"
    u"\n"
    u"The library drops what it does not know. Before something of FILE gets lost in that way, nothing is "
    u"written, and standard error tells what it is, one thing in a line:\n"
    u"  FILE:LINE:COLUMN: loss: PATH: MESSAGE\n"
    u"\n"
    u"Not all that the library writes it reads again: the mode of a workflow, the type of a boolean "
    u"parameter "
    u"and the default of a string stand elsewhere in what it writes, and numbers have few digits. With "
    u"--readable, everything is written where it is read, be the document complete or not, also what stands "
    u"where the library writes it.",
    {u"all documents are written, or need not be",
     u"a document is at fault, something would be lost, or --check names a FILE",
     u"a file cannot be read or written"},
    u"kormak format --in-place jobs/*.xml",
    ManyFiles,
    options,
    run,
};
