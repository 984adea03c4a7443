#include <inspection/AreaGeoJson_p.h>
#include <inspection/DocumentJson_p.h>
#include <inspection/QuotedText_p.h>
#include <tools/Command.h>
#include <tools/Console.h>
#include <tools/DocumentFile.h>
#include <tools/FieldLines.h>
#include <tools/LimitOptions.h>
#include <tools/ListOf.h>
#include <tools/OutputFormat.h>

#include <QCommandLineParser>

using namespace KORMAK::Inspection;

namespace {

void printText(const FileDocument &document)
{
    Console::print(oneLine(stateOf(*document.kind, *document.object)));
    const QStringList lines = fieldLines(document.kind->fields(), document.kind->address(*document.object));
    for (const QString &line : lines)
        Console::print(line);
}

ExitStatus printGeoJson(const QString &path, const FileDocument &document)
{
    const QString kind = document.kind->rootElement.toString();
    const TESSEL::Area *const area = areaOf(*document.object);
    const auto fail = [&path](const QString &reason) {
        Console::complain(complaintLine(path, std::nullopt, u"error", reason));
        return Faulty;
    };
    if (!area)
        return fail(QStringLiteral("a document of the kind %1 has no area").arg(kind));
    try {
        Console::print(areaGeoJson(*area, kind));
        return Good;
    } catch (const FieldError &error) {
        return fail(QStringLiteral("there is no map of the area: ") + error.message);
    }
}

ExitStatus run(const QCommandLineParser &parser)
{
    const OutputFormat format = outputFormat(parser, FormatChoice::WithGeoJson);
    const QString path = parser.positionalArguments().constFirst();
    const auto show = [format, &path](const FileDocument &document) {
        if (format == OutputFormat::GeoJson)
            return printGeoJson(path, document);
        if (format == OutputFormat::Json)
            Console::print(fieldsJson(*document.kind, *document.object));
        else
            printText(document);
        return Good;
    };
    return onDocument(path, limitsOf(parser), show);
}

} // namespace

const Command showCommand{
    u"show",
    u"show what a document holds",
    u"Tells whether the document is complete and, if not, why; then what it holds: labels, values and their "
    u"units. A document that is not complete is shown, too.\n"
    u"\n"
    u"JSON holds every field, called as the commands new and diff call it, and null for what is not set.\n"
    u"\n"
    u"GeoJSON (RFC 7946) holds the area that a workflow is limited to: a polygon, which is cut where it "
    u"crosses 180 degrees; a line for two coordinates, a point for one.",
    {u"the document is shown", u"the document is at fault, or has no area to show on a map",
     u"FILE cannot be read"},
    u"kormak show --format json job.xml",
    OneFile,
    [] {
        return withLimitOptions(listOf<QList<QCommandLineOption>>(formatOption(FormatChoice::WithGeoJson)));
    },
    run,
};
