#include <inspection/Completeness_p.h>
#include <inspection/DocumentKind_p.h>
#include <inspection/FieldAssignment_p.h>
#include <inspection/FieldDiff_p.h>
#include <inspection/QuotedText_p.h>
#include <objectbase/ITesselObject.h>
#include <objectbase/TesselException.h>
#include <tools/Command.h>
#include <tools/Console.h>
#include <tools/ListOf.h>
#include <tools/Output.h>
#include <tools/Terminal.h>
#include <tools/TextLayout.h>
#include <tools/Usage.h>

#include <QCommandLineParser>

#include <algorithm>

using namespace KORMAK::Inspection;

namespace {

using TESSEL::ITesselObject;

constexpr QStringView SetOption = u"set";
constexpr QStringView ListOption = u"list-fields";

/// A field lacks something.
struct Incomplete {
    QStringList complaints;
};

QList<QCommandLineOption> options()
{
    return listOf<QList<QCommandLineOption>>(
        QCommandLineOption(listOf<QStringList>(SetOption.toString()),
                           QStringLiteral("Set a field; can be given many times."),
                           QStringLiteral("FIELD=VALUE")),
        outputOption(),
        QCommandLineOption(listOf<QStringList>(ListOption.toString()),
                           QStringLiteral("List the fields of KIND and what they can be set to.")));
}

const DocumentKind &kindNamed(const QString &name)
{
    const DocumentKind *kind = findDocumentKind(name);
    if (!kind)
        throw Usage::unknown(QStringLiteral("kind of document"), name, documentKindNames());
    return *kind;
}

void listFields(const DocumentKind &kind)
{
    std::vector<TextLayout::Row> rows;
    for (const SettableField &field : settableFields(kind.fields()))
        rows.push_back({field.path, field.allowed});
    Console::write(TextLayout::twoColumns(rows));
}

/// \throws Incomplete
QString textOf(const DocumentKind &kind, const ITesselObject &object)
{
    if (const auto complaint = complaintOf(object))
        throw Incomplete{listOf<QStringList>(*complaint)};
    if (!object.HasData())
        throw Incomplete{kind.missing(object)};
    try {
        return object.GetXmlString();
    } catch (const TESSEL::TesselException &exception) {
        throw Incomplete{listOf<QStringList>(exception.GetErrorMessage())};
    }
}

/// Whether \a path is that of a field in \a whole, or \a whole itself.
bool isIn(const QString &path, const QString &whole)
{
    return path.startsWith(whole)
        && (path.size() == whole.size() || path[whole.size()] == QLatin1Char('.')
            || path[whole.size()] == QLatin1Char('['));
}

QString start(QStringView severity)
{
    return QStringLiteral("kormak new: ") + Terminal::coloured(severity) + QStringLiteral(": ");
}

/// Warns of fields that were set and are not read from the document as they were set.
void warnOfLosses(const DocumentKind &kind, const ITesselObject &object, const QString &text,
                  const std::vector<FieldAssignment> &wanted)
{
    const auto readBack = kind.create();
    (void)readBack->SetXmlString(text, true);
    for (const FieldDifference &difference :
         differences(kind.fields(), kind.address(object), kind.address(*readBack))) {
        const bool wasSet = std::any_of(wanted.begin(), wanted.end(), [&difference](const auto &assignment) {
            return isIn(assignment.path, difference.path) || isIn(difference.path, assignment.path);
        });
        if (wasSet) {
            Console::complain(start(u"warning") + QStringLiteral("not read back as it was set: ")
                              + oneLine(difference.toLine()));
        }
    }
}

ExitStatus make(const DocumentKind &kind, const QStringList &settings, const QString &target)
{
    const auto object = kind.create();
    std::vector<FieldAssignment> wanted;
    try {
        wanted = assignments(kind.fields(), settings);
        for (const FieldAssignment &assignment : wanted)
            assign(assignment, kind.variableAddress(*object));
    } catch (const FieldError &error) {
        throw UsageError{error.message};
    }
    QString text;
    try {
        text = textOf(kind, *object);
    } catch (const Incomplete &incomplete) {
        for (const QString &complaint : incomplete.complaints)
            Console::complain(start(u"error") + oneLine(complaint));
        return Faulty;
    }
    const ExitStatus status = writeOutput(text.toUtf8(), target);
    if (status == Good)
        warnOfLosses(kind, *object, text, wanted);
    return status;
}

ExitStatus run(const QCommandLineParser &parser)
{
    const DocumentKind &kind = kindNamed(parser.positionalArguments().constFirst());
    const QStringList settings = parser.values(SetOption.toString());
    const QStringList outputs = parser.values(OutputOption.toString());
    if (outputs.size() > 1)
        throw UsageError{QStringLiteral("-o can be given only once")};
    if (!parser.isSet(ListOption.toString()))
        return make(kind, settings, outputs.isEmpty() ? StandardStream.toString() : outputs.constFirst());
    if (!settings.isEmpty() || !outputs.isEmpty())
        throw UsageError{QStringLiteral("--list-fields stands alone")};
    listFields(kind);
    return Good;
}

} // namespace

const Command newCommand{
    u"new",
    u"make a document from the fields you give",
    u"Makes a document of the given KIND. What is not set has the library's default. The document goes to "
    u"standard output, unless told otherwise. When something is missing, nothing is written, and standard "
    u"error tells what it is.\n"
    u"\n"
    u"--list-fields lists the fields. They are called as 'kormak show --format json' calls them:\n"
    u"  JobHeader.Author=Keller            Author in the object JobHeader\n"
    u"  Area.Coordinate[0].Latitude=52.1   of the first element of a list\n"
    u"  Area.Coordinate=52.1,13.4          adds an element, all its values at once\n"
    u"  Parameter[Gain].DisplayName=Gain   of a parameter, by its unique name\n"
    u"In a unique name, write \\] for ] and \\\\ for \\. The order of the --set does not matter, but for "
    u"elements that are added to a list.\n"
    u"\n"
    u"A warning tells of a field that the library writes, but would not read again as it was set.",
    {u"the document is written", u"the document is not complete",
     u"there is no such kind, field or value, or OUT cannot be written"},
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
