#include <inspection/Rewriting_p.h>
#include <tools/Command.h>
#include <tools/Console.h>
#include <tools/DocumentFile.h>
#include <tools/LimitOptions.h>
#include <tools/ListOf.h>
#include <tools/Output.h>

#include <QCommandLineParser>

#include <algorithm>

using namespace KORMAK;
using namespace KORMAK::Inspection;

namespace {

constexpr QStringView InPlaceOption = u"in-place";
constexpr QStringView DropCommentsOption = u"drop-comments";

QList<QCommandLineOption> options()
{
    return withLimitOptions(listOf<QList<QCommandLineOption>>(
        outputOption(),
        QCommandLineOption(listOf<QStringList>(InPlaceOption.toString()),
                           QStringLiteral("Write each document to the FILE that it comes from.")),
        QCommandLineOption(listOf<QStringList>(DropCommentsOption.toString()),
                           QStringLiteral("Write even if comments are lost."))));
}

bool isComment(const FindingData &loss)
{
    return loss.id == FindingId::LostComment;
}

void complainAboutLosses(const QString &path, const FileDocument &document, const Findings &losses)
{
    complainAbout(path, document, u"loss", losses);
    const bool hasComments = std::any_of(losses.begin(), losses.end(), isComment);
    Console::complain(
        complaintLine(path, std::nullopt, u"error",
                      QStringLiteral("not written, since the lines above would be lost"))
        + (hasComments ? QStringLiteral(" (--drop-comments allows to lose comments)") : QString()));
}

/// Writes the document to \a target unless it cannot be written or something of it would be lost.
/// \throws DocumentError
ExitStatus format(FileDocument &document, const QString &source, const QString &target, bool dropsComments)
{
    const bool replacesSource = target == source || InputFile::stateOf(target).isSameFile(document.source);
    auto [obstacles, refusal, text, losses] = rewrite(document);
    complainAbout(source, document, u"error", obstacles);
    if (!obstacles.empty())
        return Faulty;
    if (refusal)
        throwRejection(*refusal, document.text);
    if (dropsComments)
        losses.erase(std::remove_if(losses.begin(), losses.end(), isComment), losses.end());
    if (losses.empty()) {
        const SourceText original{document.text, document.source};
        return writeOutput(text, target, replacesSource ? &original : nullptr);
    }
    complainAboutLosses(source, document, losses);
    return Faulty;
}

/// \throws UsageError
QString targetOf(const QCommandLineParser &parser, const QString &source)
{
    const bool isInPlace = parser.isSet(InPlaceOption.toString());
    const QStringList outputs = parser.values(OutputOption.toString());
    if (outputs.size() + (isInPlace ? 1 : 0) > 1)
        throw UsageError{QStringLiteral("only one of -o and --in-place can be given, and only once")};
    const auto count = parser.positionalArguments().size();
    if (count > 1 && !isInPlace)
        throw UsageError{QStringLiteral("takes one FILE, not %1, unless with --in-place").arg(count)};
    if (isInPlace && source == StandardStream)
        throw UsageError{QStringLiteral("standard input cannot be written in place")};
    if (isInPlace)
        return source;
    return outputs.isEmpty() ? StandardStream.toString() : outputs.constFirst();
}

ExitStatus run(const QCommandLineParser &parser)
{
    const QStringList sources = parser.positionalArguments();
    std::vector<QString> targets;
    std::transform(sources.begin(), sources.end(), std::back_inserter(targets),
                   [&parser](const QString &source) { return targetOf(parser, source); });
    const bool dropsComments = parser.isSet(DropCommentsOption.toString());
    const TESSEL::ReadingLimits limits = limitsOf(parser);
    ExitStatus worst = Good;
    for (int i = 0; i < static_cast<int>(sources.size()); ++i) {
        const auto formatIt = [&](FileDocument &document) {
            return format(document, sources[i], targets[static_cast<std::size_t>(i)], dropsComments);
        };
        worst = std::max(worst, onDocument(sources[i], limits, formatIt));
    }
    return worst;
}

} // namespace

const Command formatCommand{
    u"format",
    u"rewrite documents as the library writes them",
    u"Reads a document and writes it in the order and layout that the library gives it, to standard output "
    u"unless told otherwise. With --in-place there can be several files, each of which is rewritten or "
    u"left alone.\n"
    u"\n"
    u"The library drops what it does not know. Before something of FILE gets lost in that way, nothing is "
    u"written, and standard error tells what it is, one thing in a line:\n"
    u"  FILE:LINE:COLUMN: loss: PATH: MESSAGE",
    {u"all documents are written", u"a document is at fault, or something would be lost",
     u"a file cannot be read or written"},
    u"kormak format --in-place jobs/*.xml",
    ManyFiles,
    options,
    run,
};
