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

ExitStatus run(const QCommandLineParser &parser)
{
    const OutputFormat format = outputFormat(parser);
    const auto show = [format](const FileDocument &document) {
        if (format == OutputFormat::Json)
            Console::print(fieldsJson(*document.kind, *document.object));
        else
            printText(document);
        return Good;
    };
    return onDocument(parser.positionalArguments().constFirst(), limitsOf(parser), show);
}

} // namespace

const Command showCommand{
    u"show",
    u"show what a document holds",
    u"Tells whether the document is complete and, if not, why; then what it holds: labels, values and their "
    u"units. A document that is not complete is shown, too.\n"
    u"\n"
    u"JSON holds every field, called as the commands new and diff call it, and null for what is not set.",
    {u"the document is shown", u"the document is at fault", u"FILE cannot be read"},
    u"kormak show --format json job.xml",
    OneFile,
    [] { return withLimitOptions(listOf<QList<QCommandLineOption>>(formatOption())); },
    run,
};
