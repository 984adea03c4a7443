#include <inspection/DocumentJson_p.h>
#include <inspection/DocumentSays_p.h>
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

QString stateOf(const FileDocument &document)
{
    return document.rejection
        ? document.kind->rootElement.toString() + QStringLiteral(", at fault: ") + document.rejection->message
        : stateOf(*document.kind, *document.object);
}

void printText(const FileDocument &document, const DocumentSays &says)
{
    Console::print(oneLine(stateOf(document)));
    const QStringList lines =
        fieldLines(document.kind->fields(), document.kind->address(*document.object), says);
    for (const QString &line : lines)
        Console::print(line);
}

ExitStatus run(const QCommandLineParser &parser)
{
    const OutputFormat format = outputFormat(parser);
    const auto show = [format](const FileDocument &document) {
        const DocumentSays says(*document.kind, *document.object, document.tree);
        const auto &rejection = document.rejection;
        if (format == OutputFormat::Json) {
            Console::print(fieldsJson(*document.kind, *document.object, says,
                                      rejection ? std::optional(rejection->message) : std::nullopt));
        } else {
            printText(document, says);
        }
        if (rejection)
            throwRejection(*rejection, document.text);
        return Good;
    };
    return onDocument(parser.positionalArguments().constFirst(), limitsOf(parser), show, Unread::Used);
}

} // namespace

const Command showCommand{
    u"show",
    u"show what a document holds",
    u"Tells whether the document is complete and, if not, why; then what it holds: labels, values and their "
    u"units. Where the document says something else than what is understood, that stands beside it, as in 0 "
    u"Hz "
    u"(document says \"1.5 MHz\"). A document that is not complete is shown, too, and of one that is not "
    u"read to its end what can be read; standard error tells what it is refused for.\n"
    u"\n"
    u"JSON holds every field, called as the commands new and diff call it, and null for what is not set. "
    u"documentSays, if there is something to tell, has what the document says instead, by the path of the "
    u"field.",
    {u"the document is shown", u"the document is not read to its end", u"FILE cannot be read"},
    u"kormak show --format json job.xml",
    OneFile,
    [] { return withLimitOptions(listOf<QList<QCommandLineOption>>(formatOption())); },
    run,
};
