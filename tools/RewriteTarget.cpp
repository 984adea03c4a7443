#include "tools/RewriteTarget.h"

#include <tools/Console.h>
#include <tools/Options.h>
#include <tools/Output.h>
#include <tools/PathEncoding.h>
#include <tools/UnifiedDiff.h>

#include <QCommandLineParser>

#include <algorithm>

namespace {

constexpr QStringView InPlaceOption = u"in-place";
constexpr QStringView CheckOption = u"check";
constexpr QStringView DryRunOption = u"dry-run";

using Mode = RewriteTarget::Mode;

QString previewOption(Mode preview)
{
    return (preview == Mode::Check ? CheckOption : DryRunOption).toString();
}

} // namespace

QList<QCommandLineOption> RewriteTarget::options(Mode preview)
{
    const QString help = preview == Mode::Check
        ? QStringLiteral("Write nothing, but tell which FILE would change.")
        : QStringLiteral("Write nothing, but show what would change (diff).");
    return listOf<QList<QCommandLineOption>>(
        outputOption(),
        optionCalled(InPlaceOption, QStringLiteral("Write each document to the FILE that it comes from.")),
        QCommandLineOption(listOf<QStringList>(previewOption(preview)), help));
}

RewriteTarget::RewriteTarget(const QCommandLineParser &parser, const QStringList &sources, Mode preview)
{
    const bool isInPlace = parser.isSet(InPlaceOption.toString());
    const QString previewName = previewOption(preview);
    const bool isPreview = parser.isSet(previewName);
    const QStringList outputs = parser.values(OutputOption.toString());
    if (outputs.size() + (isInPlace ? 1 : 0) + (isPreview ? 1 : 0) > 1) {
        throw UsageError{QStringLiteral("only one of -o, --in-place and --%1 can be given, and -o only once")
                             .arg(previewName)};
    }
    if (sources.size() > 1 && !isInPlace && !isPreview) {
        throw UsageError{QStringLiteral("takes one FILE, not %1, unless with --in-place or --%2")
                             .arg(QString::number(sources.size()), previewName)};
    }
    if (isInPlace && sources.contains(StandardStream.toString()))
        throw UsageError{QStringLiteral("standard input cannot be written in place")};
    checkStandardInput(sources);
    wanted = isInPlace ? Mode::InPlace : isPreview ? preview : Mode::Output;
    output = outputs.isEmpty() ? StandardStream.toString() : outputs.constFirst();
}

ExitStatus RewriteTarget::write(const QByteArray &bytes, const QString &source, const SourceText &original)
{
    const bool isChanged = bytes != original.bytes;
    if (wanted == Mode::Check) {
        if (isChanged)
            changed += source;
        return isChanged ? Faulty : Good;
    }
    if (wanted == Mode::DryRun) {
        Console::writeBytes(unifiedDiff(source, original.bytes, bytes));
        return Good;
    }
    const QString target = wanted == Mode::InPlace ? source : output;
    const bool replacesSource = target == source || InputFile::stateOf(target).isSameFile(original.source);
    if (replacesSource && target != StandardStream && !isChanged)
        return Good;
    const ExitStatus status = writeOutput(bytes, target, replacesSource ? &original : nullptr);
    if (wanted == Mode::InPlace && status == Good)
        changed += source;
    return status;
}

ExitStatus RewriteTarget::onEach(const QStringList &sources,
                                 const std::function<ExitStatus(const QString &source)> &work) const
{
    ExitStatus worst = Good;
    for (const QString &source : sources)
        worst = std::max(worst, onFile(source, [&] { return work(source); }));
    for (const QString &path : changed)
        Console::print(PathEncoding::shown(path));
    return worst;
}
