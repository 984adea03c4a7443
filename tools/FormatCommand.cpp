#include <inspection/Rewriting_p.h>
#include <tools/Command.h>
#include <tools/Console.h>
#include <tools/DocumentFile.h>
#include <tools/LimitOptions.h>
#include <tools/Options.h>
#include <tools/RewriteTarget.h>

#include <QCommandLineParser>

#include <algorithm>

using namespace KORMAK;
using namespace KORMAK::Inspection;

namespace {

constexpr QStringView ReadableOption = u"readable";
constexpr QStringView DropCommentsOption = u"drop-comments";

QList<QCommandLineOption> options()
{
    QList<QCommandLineOption> all = RewriteTarget::options(RewriteTarget::Mode::Check);
    all +=
        optionCalled(ReadableOption, QStringLiteral("Write what is read back, not what the library writes."));
    all += optionCalled(DropCommentsOption, QStringLiteral("Write even if comments are lost."));
    return withLimitOptions(all);
}

/// What a call asks for.
struct Request {
    WrittenForm form;
    bool dropsComments;
};

bool isComment(const FindingData &loss)
{
    return loss.id == FindingId::LostComment;
}

void complainAboutLosses(const QString &path, const FileDocument &document, const Findings &losses,
                         RewriteTarget::Mode mode)
{
    complainAbout(path, document, u"loss", losses);
    const bool hasComments = std::any_of(losses.begin(), losses.end(), isComment);
    const QString start = mode == RewriteTarget::Mode::Check ? QStringLiteral("would not be written")
                                                             : QStringLiteral("not written");
    Console::complain(
        complaintLine(path, std::nullopt, u"error",
                      start + QStringLiteral(", since the lines above would be lost"))
        + (hasComments ? QStringLiteral(" (--drop-comments allows to lose comments)") : QString()));
}

/// Writes the document unless it cannot be written or something of it would be lost. \throws DocumentError
ExitStatus format(FileDocument &document, const QString &source, const Request &request,
                  RewriteTarget &target)
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
        return target.write(text, source, {document.bytes, document.text, document.source});
    complainAboutLosses(source, document, losses, target.mode());
    return Faulty;
}

ExitStatus run(const QCommandLineParser &parser)
{
    const QStringList sources = parser.positionalArguments();
    RewriteTarget target(parser, sources, RewriteTarget::Mode::Check);
    const Request request{parser.isSet(ReadableOption.toString()) ? WrittenForm::Readable
                                                                  : WrittenForm::OfLibrary,
                          parser.isSet(DropCommentsOption.toString())};
    const TESSEL::ReadingLimits limits = limitsOf(parser);
    return target.onEach(sources, [&](const QString &source) {
        FileDocument document = readDocument(source, limits);
        return format(document, source, request, target);
    });
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
