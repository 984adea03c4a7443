#include <tools/Command.h>
#include <tools/Console.h>
#include <tools/DocumentFile.h>
#include <tools/FieldLines.h>
#include <tools/Json.h>
#include <tools/Obstacles.h>
#include <tools/OutputFormat.h>

#include <QCommandLineParser>

namespace {

QString jsonOf(const Document &document)
{
    const auto reason = whyIncomplete(*document.object);
    JsonWriter json(JsonWriter::Layout::Indented);
    json.beginObject();
    json.key(u"kind");
    json.value(jsonText(document.kind->rootElement));
    json.key(u"complete");
    json.value(jsonBool(!reason));
    json.key(u"reason");
    json.value(reason ? jsonText(*reason) : QStringLiteral("null"));
    json.key(u"fields");
    json.fields(*document.kind->fields, document.kind->address(*document.object));
    json.endObject();
    return json.text();
}

void printText(const Document &document)
{
    Console::print(stateOf(document));
    const QStringList lines = fieldLines(*document.kind->fields, document.kind->address(*document.object));
    for (const QString &line : lines)
        Console::print(line);
}

ExitStatus run(const QCommandLineParser &parser)
{
    const OutputFormat format = outputFormat(parser);
    return onDocument(parser.positionalArguments().constFirst(), [format](const Document &document) {
        if (format == OutputFormat::Json)
            Console::print(jsonOf(document));
        else
            printText(document);
        return Good;
    });
}

} // namespace

const Command showCommand{
    u"show",
    u"show what a document holds",
    u"Shows what the document holds, complete or not: labels, values and their units, and whether it is\n"
    u"complete and, if not, why. JSON holds every field under the keys that 'new' and 'diff' call it by,\n"
    u"what is not set as null.\n"
    u"Exit status: 0 it is shown, 1 the document is at fault, 2 the file cannot be read.",
    u"kormak show --format json job.xml",
    OneFile,
    [] { return QList<QCommandLineOption>{formatOption()}; },
    run,
};
