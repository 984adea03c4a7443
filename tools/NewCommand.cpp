#include <inspection/DocumentCheck_p.h>
#include <inspection/DocumentKind_p.h>
#include <inspection/FieldAssignment_p.h>
#include <inspection/FieldDiff_p.h>
#include <inspection/FieldList_p.h>
#include <inspection/FieldListing_p.h>
#include <inspection/FieldText_p.h>
#include <inspection/QuotedText_p.h>
#include <inspection/ReadableForm_p.h>
#include <inspection/Rewriting_p.h>
#include <objectbase/ITesselObject.h>
#include <tools/Command.h>
#include <tools/Console.h>
#include <tools/DocumentFile.h>
#include <tools/LimitOptions.h>
#include <tools/Options.h>
#include <tools/Output.h>
#include <tools/OutputFormat.h>
#include <tools/PathEncoding.h>
#include <tools/Terminal.h>
#include <tools/TextLayout.h>
#include <tools/Usage.h>

#include <QCommandLineParser>
#include <QRegularExpression>

#include <algorithm>
#include <optional>
#include <utility>

using namespace KORMAK;
using namespace KORMAK::Inspection;

namespace {

using TESSEL::ITesselObject;

constexpr QStringView SetOption = u"set";
constexpr QStringView ListOption = u"list-fields";
constexpr QStringView TemplateOption = u"template";

QList<QCommandLineOption> options()
{
    return withLimitOptions(listOf<QList<QCommandLineOption>>(
        optionCalled(SetOption, QStringLiteral("Set a field; can be given many times."), u"FIELD=VALUE"),
        optionCalled(TemplateOption, QStringLiteral("Start from the document in FILE."), FileName),
        outputOption(),
        optionCalled(ListOption, QStringLiteral("List the fields of KIND and what they can be set to.")),
        formatOption()));
}

const DocumentKind &kindNamed(const QString &name)
{
    const DocumentKind *kind = findDocumentKind(name);
    if (!kind)
        throw Usage::unknown(QStringLiteral("kind of document"), name, documentKindNames());
    return *kind;
}

/// Numbers that stand for no limit are of no use to people.
bool isNoLimit(const SettableField &field)
{
    return field.row->type.isLimit && shownText(field.row->type, field.standard) == QStringLiteral("none");
}

QString inWords(const SettableField &field)
{
    QStringList words(field.allowed);
    if (field.requirement == Field::Requirement::Always)
        words += QStringLiteral("required");
    else if (field.requirement == Field::Requirement::Sometimes)
        words += QStringLiteral("required in some documents");
    if (field.row && isSet(field.standard) && !isNoLimit(field))
        words += QStringLiteral("default: ") + settableText(field.row->type, field.standard);
    if (!field.condition.isEmpty())
        words += QStringLiteral("needs ") + field.condition;
    return words.join(QStringLiteral("; "));
}

void listFields(const DocumentKind &kind)
{
    std::vector<TextLayout::Row> rows;
    for (const SettableField &field : settableFields(kind))
        rows.push_back({field.path, inWords(field)});
    Console::write(TextLayout::twoColumns(rows));
}

void complain(QStringView severity, const QString &path, const QString &message)
{
    const QString place = path.isEmpty() ? QString() : path + QStringLiteral(": ");
    Console::complain(QStringLiteral("kormak new: ") + Terminal::coloured(severity) + QStringLiteral(": ")
                      + oneLine(place + message));
}

/// Whether \a path is that of a field in \a whole, or \a whole itself.
bool isIn(const QString &path, const QString &whole)
{
    return path.startsWith(whole)
        && (path.size() == whole.size() || path[whole.size()] == QLatin1Char('.')
            || path[whole.size()] == QLatin1Char('['));
}

/// Names the fields with a text that XML cannot carry.
void complainAboutTexts(const DocumentKind &kind, const ITesselObject &object)
{
    for (const Field &field : fieldsOf(kind.fields(), kind.address(object))) {
        if (!isRepresentable(field.GetText()))
            complain(u"error", field.GetPath(), QStringLiteral("holds a character that XML cannot carry"));
    }
}

/// Names the fields that were set and would not be read back as they were set. \return whether there are any
bool complainAboutLosses(const DocumentKind &kind, const ITesselObject &object, const ITesselObject &readBack,
                         const std::vector<FieldAssignment> &wanted)
{
    bool areSome = false;
    for (const FieldDifference &difference :
         differences(kind.fields(), kind.address(object), kind.address(readBack))) {
        const bool wasSet = std::any_of(wanted.begin(), wanted.end(), [&difference](const auto &assignment) {
            return isIn(assignment.path, difference.path) || isIn(difference.path, assignment.path);
        });
        if (wasSet) {
            complain(u"error", difference.path,
                     QStringLiteral("would not be read back as it is set: ") + difference.change());
        }
        areSome = areSome || wasSet;
    }
    return areSome;
}

bool isMissing(const FindingData &finding)
{
    return finding.id == FindingId::MissingElement || finding.id == FindingId::MissingAttribute;
}

/// Tells what there is to tell about \a text, which is made of \a object. \return whether it is a complete
/// document with all that was set
bool isGood(const DocumentKind &kind, const ITesselObject &object, const QByteArray &text,
            const std::vector<FieldAssignment> &wanted)
{
    const DocumentCheck check = checkText(text, object.GetReadingLimits());
    const bool isComplete = check.isAccepted && check.isComplete;
    for (const auto &placed : check.findings) {
        const FindingData &finding = placed.finding;
        const bool isError = finding.severity == Severity::Error || (!isComplete && isMissing(finding));
        complain(isError ? QStringView(u"error") : QStringView(u"warning"), fieldPathOf(finding.path),
                 finding.message);
    }
    const bool isLossy = check.object && complainAboutLosses(kind, object, *check.object, wanted);
    if (!isComplete)
        complain(u"error", {}, QStringLiteral("nothing is written, since the document is not complete"));
    else if (isLossy)
        complain(u"error", {}, QStringLiteral("nothing is written, since the fields above would be lost"));
    return isComplete && !isLossy;
}

struct Request {
    QStringList settings;
    QString source; ///< of the document to start from; empty: a new one
    QString target;
};

/// \a path without the indexes in lists.
QString withoutIndexes(QString path)
{
    static const QRegularExpression index(QStringLiteral("\\[\\d+\\](?=\\.|$)"));
    return path.remove(index);
}

/// Warns of what \a document says, \a text does not, and nobody wanted to be changed.
void warnOfLosses(const FileDocument &document, const QString &source, const QByteArray &text,
                  const std::vector<FieldAssignment> &wanted)
{
    Findings losses = lossesIn(document, text);
    const auto isWanted = [&wanted](const FindingData &loss) {
        const QString path = withoutIndexes(fieldPathOf(loss.path));
        return std::any_of(wanted.begin(), wanted.end(), [&path](const FieldAssignment &assignment) {
            return isIn(path, withoutIndexes(assignment.path));
        });
    };
    losses.erase(std::remove_if(losses.begin(), losses.end(), isWanted), losses.end());
    complainAbout(source, document, u"warning", losses);
}

/// \throws DocumentError
ExitStatus make(const DocumentKind &kind, const Request &request, const TESSEL::ReadingLimits &limits)
{
    std::optional<FileDocument> document;
    if (!request.source.isEmpty())
        document = readDocument(request.source, limits, Unread::Complained, kind.rootElement.toString());
    const auto object = document ? std::move(document->object) : kind.create();
    const auto [wanted, errors] = assignAll(kind.fields(), request.settings, kind.variableAddress(*object));
    for (const QString &error : errors)
        Console::complain(QStringLiteral("kormak new: ") + PathEncoding::shown(error));
    if (!errors.isEmpty())
        return Failed;
    const auto text = readableForm(kind, *object);
    if (!text) {
        complainAboutTexts(kind, *object);
        return Faulty;
    }
    if (document)
        warnOfLosses(*document, request.source, *text, wanted);
    return isGood(kind, *object, *text, wanted) ? writeOutput(*text, request.target) : Faulty;
}

ExitStatus run(const QCommandLineParser &parser)
{
    const DocumentKind &kind = kindNamed(parser.positionalArguments().constFirst());
    const QString output = onlyValue(parser, OutputOption).value_or(QString());
    const Request request{parser.values(SetOption.toString()),
                          onlyValue(parser, TemplateOption).value_or(QString()),
                          output.isEmpty() ? StandardStream.toString() : output};
    const OutputFormat format = outputFormat(parser);
    const TESSEL::ReadingLimits limits = limitsOf(parser);
    if (!parser.isSet(ListOption.toString())) {
        if (format != OutputFormat::Text)
            throw UsageError{QStringLiteral("--format json needs --list-fields")};
        return onFile(request.source, [&] { return make(kind, request, limits); });
    }
    if (!request.settings.isEmpty() || !output.isEmpty() || !request.source.isEmpty())
        throw UsageError{QStringLiteral("--list-fields takes only --format")};
    format == OutputFormat::Json ? Console::print(settableFieldsJson(kind)) : listFields(kind);
    return Good;
}

} // namespace

const Command newCommand{
    u"new",
    u"make a document from the fields you give",
    u"Makes a document of the given KIND, or changes a copy of one. What is not set has the library's "
    u"default. The document goes to standard output, unless told otherwise, in the form that is read back as "
    u"it was set; 'kormak check' accepts it. When something is wrong, is missing or would not be read back, "
    u"nothing is written, and standard error tells all of it.\n"
    u"\n"
    u"--list-fields lists the fields. They are called as 'kormak show --format json' calls them:\n"
    u"  JobHeader.Author=Keller            Author in the object JobHeader\n"
    u"  Area.Coordinate[0].Latitude=52.1   of the first element of a list\n"
    u"  Area.Coordinate=52.1,13.4          adds an element, all its values at once\n"
    u"  Parameter[Gain].DisplayName=Gain   of a parameter, by its unique name\n"
    u"In a unique name, write \\] for ] and \\\\ for \\. The order of the --set does not matter, but for "
    u"elements that are added to a list.\n"
    u"\n"
    u"With --template, what the document in FILE says and the new one would not say is named on standard "
    u"error.",
    {u"the document is written", u"the document is not complete, or something would be lost",
     u"there is no such kind, field or value, or a file cannot be read or written"},
    u"kormak new GenericReceiver -o receiver.xml \\\n"
    u"    --set 'Parameter[Gain].ParameterType=Integer' \\\n"
    u"    --set 'Parameter[Gain].ValueType=ValueNumericInt' \\\n"
    u"    --set 'Parameter[Gain].RepresentationName=rx.gain' \\\n"
    u"    --set 'Parameter[Gain].Integer.Minimum=0' \\\n"
    u"    --set 'Parameter[Gain].Integer.Maximum=40'",
    {KindName, KindName, 1, 1},
    options,
    run,
};
