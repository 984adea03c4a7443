#include <inspection/DocumentEdit.h>
#include <inspection/FindingData_p.h>
#include <objectbase/TesselException.h>
#include <tools/Command.h>
#include <tools/Console.h>
#include <tools/LimitOptions.h>
#include <tools/Options.h>
#include <tools/RewriteTarget.h>
#include <tools/Terminal.h>

#include <QCommandLineParser>

#include <algorithm>

using namespace KORMAK;
using namespace KORMAK::Inspection;

namespace {

using Action = DocumentEdit::Change::Action;

constexpr QStringView UnsetOption = u"unset";
constexpr QStringView FromOption = u"from";
constexpr QStringView AreaOption = u"area";
constexpr QStringView FindingsOption = u"accept-findings";
constexpr QStringView NotChanged = u"not changed";

QList<QCommandLineOption> options()
{
    QList<QCommandLineOption> all = listOf<QList<QCommandLineOption>>(
        optionCalled(UnsetOption, QStringLiteral("Remove a field; can be given many times."), u"FIELD"),
        optionCalled(FromOption, QStringLiteral("Set what the JSON in FILE names; null unsets."), FileName));
    all += optionCalled(AreaOption, QStringLiteral("Give the area the outline in FILE, GeoJSON (RFC 7946)."),
                        FileName);
    all += RewriteTarget::options(RewriteTarget::Mode::DryRun);
    all += optionCalled(FindingsOption, QStringLiteral("Change it even if 'check' finds new fault with it."));
    return withLimitOptions(all);
}

/// Where the path of a field ends and its value begins, as in "JobHeader.Author=Keller"; -1 for what is no
/// such thing, such as the name of a file.
int endOfField(const QString &argument)
{
    bool isInName = false;
    for (int i = 0; i < argument.size(); ++i) {
        const QChar c = argument[i];
        const bool isLetter = (c >= QLatin1Char('A') && c <= QLatin1Char('Z'))
            || (i > 0 && c >= QLatin1Char('a') && c <= QLatin1Char('z'));
        if (isInName && c == QLatin1Char('\\'))
            ++i;
        else if (isInName)
            isInName = c != QLatin1Char(']');
        else if (i > 0 && c == QLatin1Char('='))
            return i;
        else if (i > 0 && c == QLatin1Char('['))
            isInName = true;
        else if (!isLetter && (i == 0 || (c != QLatin1Char('.') && c != QLatin1Char(']'))))
            return -1;
    }
    return -1;
}

bool isChange(const QString &argument)
{
    return endOfField(argument) > 0;
}

DocumentEdit::Change changeOf(const QString &argument)
{
    const int end = endOfField(argument);
    return {Action::Set, argument.left(end), argument.mid(end + 1)};
}

/// A file that an option names, which tells more changes.
struct ChangesFile {
    QString path = {}; ///< empty: there is none
    QByteArray text = {};
};

struct Request {
    QVector<DocumentEdit::Change> changes;
    ChangesFile json;
    ChangesFile area;
    DocumentEdit::NewFindings newFindings;
    TESSEL::ReadingLimits limits;
};

void complainAbout(const QString &source, QStringView severity, const QVector<Finding> &findings)
{
    for (const Finding &finding : findings)
        Console::complain(complaintLine(source, FindingMaker::positionOf(finding), severity,
                                        FindingMaker::contentOf(finding)));
}

/// What \a request asks of the document \a text.
/// \throws TESSEL::TesselException, of \a file
QVector<DocumentEdit::Change> changesOf(const Request &request, const QByteArray &text, QString &file)
{
    QVector<DocumentEdit::Change> changes;
    if (!request.json.path.isEmpty()) {
        file = request.json.path;
        changes += DocumentEdit::ReadChanges(request.json.text, text, request.limits);
    }
    if (!request.area.path.isEmpty()) {
        file = request.area.path;
        const DocumentEdit::AreaChanges read =
            DocumentEdit::ReadArea(request.area.text, text, request.limits);
        changes += read.changes;
        for (const QString &place : read.ignored)
            Console::complain(
                complaintLine(file, std::nullopt, u"warning", place + QStringLiteral(": is not taken over")));
    }
    return changes + request.changes;
}

/// Tells why \a source is not changed as it was asked, and what can be done.
ExitStatus refuse(const QString &source, const DocumentEdit &edit, const QByteArray &text,
                  const TESSEL::ReadingLimits &limits)
{
    const QVector<Finding> findings = edit.GetFindings();
    complainAbout(source, u"error", findings);
    const bool isForFindings = std::none_of(findings.begin(), findings.end(), [](const Finding &finding) {
        return finding.GetId() == FindingId::NotEdited;
    });
    const bool isRead =
        isForFindings || DocumentEdit(text, {}, DocumentEdit::NewFindings::Accepted, limits).IsDone();
    QString advice;
    if (isForFindings)
        advice = QStringLiteral(" (--accept-findings changes it all the same)");
    else if (!isRead && DocumentEdit::Fix(text, limits).IsDone())
        advice = QStringLiteral(" ('kormak fix' puts right what is certain)");
    Console::complain(complaintLine(source, std::nullopt, u"error", NotChanged.toString()) + advice);
    return Faulty;
}

ExitStatus change(const QString &source, const Request &request, RewriteTarget &target)
{
    const SourceText original = readText(source);
    QVector<DocumentEdit::Change> changes;
    QString file;
    try {
        changes = changesOf(request, original.bytes, file);
    } catch (const TESSEL::TesselException &exception) {
        const DocumentEdit nothing(original.bytes, {}, request.newFindings, request.limits);
        if (!nothing.IsDone())
            return refuse(source, nothing, original.bytes, request.limits);
        complainAbout(file, DocumentError{exception.GetErrorMessage()});
        Console::complain(complaintLine(source, std::nullopt, u"error", NotChanged.toString()));
        return Failed;
    }
    const DocumentEdit edit(original.bytes, changes, request.newFindings, request.limits);
    if (!edit.IsDone())
        return refuse(source, edit, original.bytes, request.limits);
    complainAbout(source, u"warning", edit.GetFindings());
    return target.write(edit.GetText(), source, original);
}

/// The file that \a option names. \throws UsageError
ChangesFile fileOf(const QCommandLineParser &parser, QStringView option)
{
    const auto path = onlyValue(parser, option);
    return path ? ChangesFile{*path} : ChangesFile();
}

/// False when it cannot be read, which is complained about.
bool readInto(ChangesFile &file)
{
    try {
        if (!file.path.isEmpty())
            file.text = readText(file.path).text;
        return true;
    } catch (const DocumentError &error) {
        ::complainAbout(file.path, error);
        return false;
    }
}

ExitStatus run(const QCommandLineParser &parser)
{
    const QStringList arguments = parser.positionalArguments();
    const auto firstChange = std::find_if(arguments.begin(), arguments.end(), isChange);
    const QStringList sources(arguments.begin(), firstChange);
    Request request{{},
                    fileOf(parser, FromOption),
                    fileOf(parser, AreaOption),
                    DocumentEdit::NewFindings::Refused,
                    limitsOf(parser)};
    for (auto argument = firstChange; argument != arguments.end(); ++argument) {
        if (!isChange(*argument))
            throw UsageError{
                QStringLiteral("'%1' is not FIELD=VALUE; files stand before the fields").arg(*argument)};
        request.changes += changeOf(*argument);
    }
    const QStringList unset = parser.values(UnsetOption.toString());
    for (const QString &path : unset)
        request.changes += {Action::Unset, path};
    if (sources.isEmpty())
        throw UsageError{QStringLiteral("no FILE given")};
    if (request.changes.isEmpty() && request.json.path.isEmpty() && request.area.path.isEmpty())
        throw UsageError{QStringLiteral("no FIELD=VALUE, --unset, --from or --area given")};
    checkStandardInput(sources + QStringList{request.json.path, request.area.path});
    if (parser.isSet(FindingsOption.toString()))
        request.newFindings = DocumentEdit::NewFindings::Accepted;
    RewriteTarget target(parser, sources, RewriteTarget::Mode::DryRun);
    if (!readInto(request.json) || !readInto(request.area))
        return Failed;
    return target.onEach(sources, [&](const QString &source) { return change(source, request, target); });
}

} // namespace

const Command setCommand{
    u"set",
    u"change fields, and no other byte of a document",
    u"Changes what documents say of fields, called as the commands new, show and diff call them. All that is "
    u"not "
    u"changed stays byte for byte: comments, order, blanks, line ends and what the library passes over. What "
    u"is "
    u"not there yet is added where the library would write it. The document goes to standard output unless "
    u"told otherwise; with --in-place or --dry-run there can be several files, and --in-place names those "
    u"that "
    u"changed.\n"
    u"\n"
    u"What is written is read again: when it says anything else than what was asked, or 'check' finds fault "
    u"with "
    u"it that was not there before, nothing is written, and standard error tells why.\n"
    u"\n"
    u"  JobHeader.Author=Keller               a field, added if it is not there\n"
    u"  Area.Coordinate[2].Latitude=48.2      of the third element of a list\n"
    u"  Area.Coordinate=52.1,13.4             adds an element\n"
    u"  Parameter[Gain].Integer.Maximum=60    of a parameter, added as needed\n"
    u"  Enum.EnumValue[Key=7].Name=B          of an entry, by its key\n"
    u"  --unset 'Parameter[Gain]'             removes it\n"
    u"--from takes an object as 'kormak show --format json' prints it, or its fields alone; "
    u"--area takes what 'kormak show --format geojson' prints, or other GeoJSON with one polygon. Files "
    u"stand "
    u"before the fields; one whose name looks like a field is given as ./NAME.",
    {u"all documents are changed, or need not be", u"a document cannot be changed so",
     u"the call is wrong, or a file cannot be read or written"},
    u"kormak set --in-place jobs/*.xml JobHeader.Author=Keller",
    {FileName, u"FILE... FIELD=VALUE...", 1, Arguments::Unlimited},
    options,
    run,
};
