#include <objectbase/ITesselObject.h>
#include <objectbase/TesselException.h>
#include <tools/Command.h>
#include <tools/Console.h>
#include <tools/DocumentKind.h>
#include <tools/FieldAssignment.h>
#include <tools/FieldDiff.h>
#include <tools/Obstacles.h>
#include <tools/Output.h>

#include <QCommandLineParser>

#include <algorithm>

namespace {

using TESSEL::ITesselObject;

constexpr QStringView SetOption = u"set";
constexpr QStringView OutputOption = u"o";
constexpr QStringView ListOption = u"list-fields";

/// A field lacks something.
struct Incomplete {
    QStringList complaints;
};

QList<QCommandLineOption> options()
{
    return {
        {SetOption.toString(), QStringLiteral("Set a field; can be given many times."),
         QStringLiteral("FIELD=VALUE")},
        {OutputOption.toString(), QStringLiteral("Write to the file OUT."), QStringLiteral("OUT")},
        {ListOption.toString(), QStringLiteral("List the fields of KIND and what they can be set to.")},
    };
}

const DocumentKind &kindNamed(const QString &name)
{
    const DocumentKind *kind = findDocumentKind(name);
    if (!kind) {
        throw UsageError{QStringLiteral("Unknown kind of document '%1'. Allowed: %2")
                             .arg(name, documentKindNames().join(QStringLiteral(", ")))};
    }
    return *kind;
}

void listFields(const DocumentKind &kind)
{
    const std::vector<SettableField> fields = settableFields(*kind.fields);
    int width = 0;
    for (const SettableField &field : fields)
        width = std::max(width, static_cast<int>(field.path.size()));
    for (const SettableField &field : fields)
        Console::print(field.path.leftJustified(width) + QStringLiteral("  ") + field.allowed);
}

void *addressIn(const DocumentKind &kind, ITesselObject &object)
{
    return const_cast<void *>(kind.address(object)); // the object is ours
}

/// \throws Incomplete
QString textOf(const DocumentKind &kind, const ITesselObject &object)
{
    if (const auto complaint = complaintOf(object))
        throw Incomplete{{*complaint}};
    if (!object.HasData())
        throw Incomplete{kind.missing(object)};
    try {
        return object.GetXmlString();
    } catch (const TESSEL::TesselException &exception) {
        throw Incomplete{{exception.GetErrorMessage()}};
    }
}

/// Whether \a path is that of a field in \a whole, or \a whole itself.
bool isIn(const QString &path, const QString &whole)
{
    return path.startsWith(whole)
        && (path.size() == whole.size() || path[whole.size()] == QLatin1Char('.')
            || path[whole.size()] == QLatin1Char('['));
}

/// Warns of fields that were set and are not read from the document as they were set.
void warnOfLosses(const DocumentKind &kind, const ITesselObject &object, const QString &text,
                  const std::vector<FieldAssignment> &wanted)
{
    const auto readBack = kind.create();
    (void)readBack->SetXmlString(text, true);
    for (const FieldDifference &difference :
         differences(*kind.fields, kind.address(object), kind.address(*readBack))) {
        const bool wasSet = std::any_of(wanted.begin(), wanted.end(), [&difference](const auto &assignment) {
            return isIn(assignment.path, difference.path) || isIn(difference.path, assignment.path);
        });
        if (wasSet) {
            Console::complain(QStringLiteral("kormak new: warning: not read back as it was set: ")
                              + difference.toLine());
        }
    }
}

ExitStatus make(const DocumentKind &kind, const QStringList &settings, const QString &target)
{
    const auto object = kind.create();
    std::vector<FieldAssignment> wanted;
    try {
        wanted = assignments(*kind.fields, settings);
        for (const FieldAssignment &assignment : wanted)
            assign(assignment, addressIn(kind, *object));
    } catch (const FieldError &error) {
        throw UsageError{error.message};
    }
    QString text;
    try {
        text = textOf(kind, *object);
    } catch (const Incomplete &incomplete) {
        for (const QString &complaint : incomplete.complaints)
            Console::complain(QStringLiteral("kormak new: error: ") + Console::oneLine(complaint));
        return Faulty;
    }
    const ExitStatus status = writeOutput(text, target);
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
    u"make a document with the given fields",
    u"Makes a document of the given KIND: Job, AutomaticWorkflow, ActivityGeneration, GenericReceiver or\n"
    u"Parameter. What is not set has the library's default. The document is checked, then written to\n"
    u"standard output unless told otherwise; when something is missing, nothing is written.\n"
    u"Fields are called as 'show --format json' calls them. An element of a list has its index in brackets,\n"
    u"a parameter of a receiver its unique name (there \\] is a ] and \\\\ a \\); a list without an index "
    u"takes\n"
    u"another element, its fields separated by commas. The order of the options does not matter but there.\n"
    u"What the library writes but does not read again as it was set, a warning tells.\n"
    u"Exit status: 0 it is written, 1 it is not complete, 2 there is no such kind, field or value, or the\n"
    u"file cannot be written.",
    u"kormak new GenericReceiver --set 'Parameter[Gain].ParameterType=Integer' \\\n"
    u"    --set 'Parameter[Gain].ValueType=ValueNumericInt' --set "
    u"'Parameter[Gain].RepresentationName=rx.gain' \\\n"
    u"    --set 'Parameter[Gain].Integer.Minimum=0' --set 'Parameter[Gain].Integer.Maximum=40' -o "
    u"receiver.xml",
    {u"KIND", u"KIND", 1, 1},
    options,
    run,
};
