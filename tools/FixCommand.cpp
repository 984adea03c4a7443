#include <inspection/DocumentEdit.h>
#include <inspection/FindingData_p.h>
#include <tools/Command.h>
#include <tools/Console.h>
#include <tools/LimitOptions.h>
#include <tools/RewriteTarget.h>

#include <QCommandLineParser>

#include <algorithm>

using namespace KORMAK;
using namespace KORMAK::Inspection;

namespace {

QList<QCommandLineOption> options()
{
    return withLimitOptions(RewriteTarget::options(RewriteTarget::Mode::DryRun));
}

ExitStatus fix(const QString &source, const TESSEL::ReadingLimits &limits, RewriteTarget &target)
{
    const SourceText original = readText(source);
    const DocumentEdit edit = DocumentEdit::Fix(original.bytes, limits);
    const QVector<Finding> corrected = edit.GetCorrected();
    for (const Finding &finding : corrected)
        Console::complain(complaintLine(source, FindingMaker::positionOf(finding), u"corrected",
                                        FindingMaker::contentOf(finding)));
    bool isAccepted = true;
    const QVector<Finding> remaining = edit.GetFindings();
    for (const Finding &finding : remaining) {
        const bool isError = finding.GetSeverity() == Finding::Severity::Error;
        isAccepted = isAccepted && !isError;
        Console::complain(complaintLine(source, FindingMaker::positionOf(finding),
                                        isError ? QStringView(u"error") : QStringView(u"warning"),
                                        FindingMaker::contentOf(finding)));
    }
    return std::max(target.write(edit.GetText(), source, original), isAccepted ? Good : Faulty);
}

ExitStatus run(const QCommandLineParser &parser)
{
    const QStringList sources = parser.positionalArguments();
    RewriteTarget target(parser, sources, RewriteTarget::Mode::DryRun);
    const TESSEL::ReadingLimits limits = limitsOf(parser);
    return target.onEach(sources, [&](const QString &source) { return fix(source, limits, target); });
}

} // namespace

const Command fixCommand{
    u"fix",
    u"put right what is certain, and name the rest",
    u"Corrects what 'check' finds and has a certain remedy for: a name in another case or a letter away, a "
    u"tag in "
    u"another case, a number with a comma, a time in another form, a value that stands where the library "
    u"writes "
    u"it, but does not read it. All else stays byte for byte, as 'set' leaves it. The document goes to "
    u"standard "
    u"output unless told otherwise; with --in-place or --dry-run there can be several files, and --in-place "
    u"names those that changed.\n"
    u"\n"
    u"Standard error tells what was corrected, and what remains to be put right by people:\n"
    u"  FILE:LINE:COLUMN: corrected: PATH: MESSAGE\n"
    u"  FILE:LINE:COLUMN: error: PATH: MESSAGE",
    {u"no document is at fault, or no longer", u"a document is still at fault",
     u"a file cannot be read or written"},
    u"kormak fix --dry-run jobs/*.xml",
    ManyFiles,
    options,
    run,
};
