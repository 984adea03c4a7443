#include <inspection/AreaGeoJson_p.h>
#include <inspection/DocumentJson_p.h>
#include <inspection/DocumentSays_p.h>
#include <inspection/QuotedText_p.h>
#include <inspection/Remedy_p.h>
#include <kormak/GenericReceiver.h>
#include <tools/Command.h>
#include <tools/Console.h>
#include <tools/DocumentFile.h>
#include <tools/FieldLines.h>
#include <tools/LimitOptions.h>
#include <tools/Options.h>
#include <tools/OutputFormat.h>
#include <tools/Terminal.h>

#include <QCommandLineParser>

#include <memory>
#include <optional>

using namespace KORMAK::Inspection;

namespace {

constexpr QStringView ParameterOption = u"parameter";
constexpr QStringView WideOption = u"wide";
constexpr OutputFormat Formats[] = {OutputFormat::Text, OutputFormat::Json, OutputFormat::GeoJson};

QList<QCommandLineOption> options()
{
    return withLimitOptions(listOf<QList<QCommandLineOption>>(
        optionCalled(ParameterOption,
                     QStringLiteral("Show this parameter of a receiver in full (repeatable)."),
                     ParameterName),
        optionCalled(WideOption, QStringLiteral("Show tables as wide as they are, also on a terminal.")),
        formatOption(Formats)));
}

QString stateOf(const FileDocument &document)
{
    return document.rejection
        ? document.kind->rootElement.toString() + QStringLiteral(", at fault: ") + document.rejection->message
        : stateOf(*document.kind, *document.object);
}

void print(const QStringList &lines)
{
    for (const QString &line : lines)
        Console::print(line);
}

void printText(const FileDocument &document, const DocumentSays &says, std::optional<int> width)
{
    Console::print(oneLine(stateOf(document)));
    print(fieldLines(document.kind->fields(), document.kind->address(*document.object), says, width));
}

/// The receiver \a document with no other parameters than those called \a names. \throws UsageError
std::unique_ptr<KORMAK::GenericReceiver> withOnly(const FileDocument &document, const QStringList &names)
{
    const auto *const all = dynamic_cast<const KORMAK::GenericReceiver *>(document.object.get());
    if (!all)
        throw UsageError{QStringLiteral("--parameter is for receivers, not for a document of kind %1")
                             .arg(document.kind->rootElement.toString())};
    const auto &parameters = all->GetParameterList();
    auto result = std::make_unique<KORMAK::GenericReceiver>(*all);
    result->GetParameterList().clear();
    for (const QString &name : names) {
        const auto parameter = parameters.constFind(name);
        if (parameter == parameters.constEnd()) {
            throw UsageError{QStringLiteral("there is no parameter '%1'%2")
                                 .arg(name, question(guessOf(name, parameters.keys()).names))};
        }
        result->AddParameter(*parameter);
    }
    return result;
}

/// One below the other, in the order of \a names.
void printParameters(const KORMAK::GenericReceiver &receiver, const QStringList &names,
                     const DocumentSays &says)
{
    const DocumentKind &kind = *findDocumentKind(u"Parameter");
    for (const QString &name : names) {
        if (name != names.constFirst())
            Console::print(QString());
        print(fieldLines(kind.fields(), kind.address(*receiver.GetParameterList().constFind(name)), says));
    }
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
        return fail(noAreaIn(kind));
    try {
        Console::print(areaGeoJson(*area, kind));
        return Good;
    } catch (const FieldError &error) {
        return fail(QStringLiteral("there is no map of the area: ") + error.message);
    }
}

ExitStatus run(const QCommandLineParser &parser)
{
    const OutputFormat format = outputFormat(parser, Formats);
    const QString path = parser.positionalArguments().constFirst();
    QStringList names = parser.values(ParameterOption.toString());
    names.removeDuplicates();
    const auto width = parser.isSet(WideOption.toString()) ? std::nullopt : Terminal::outputWidth();
    const auto show = [&](const FileDocument &document) {
        const auto &rejection = document.rejection;
        if (format == OutputFormat::GeoJson && rejection)
            throwRejection(*rejection, document.text);
        if (format == OutputFormat::GeoJson)
            return printGeoJson(path, document);
        const auto receiver = names.isEmpty() ? nullptr : withOnly(document, names);
        const TESSEL::ITesselObject &shown = receiver ? *receiver : *document.object;
        const DocumentSays says(*document.kind, shown, document.tree);
        if (format == OutputFormat::Json) {
            Console::print(fieldsJson(*document.kind, *document.object, says,
                                      rejection ? std::optional(rejection->message) : std::nullopt,
                                      receiver.get()));
        } else if (receiver) {
            printParameters(*receiver, names, says);
        } else {
            printText(document, says, width);
        }
        if (rejection)
            throwRejection(*rejection, document.text);
        return Good;
    };
    const TESSEL::ReadingLimits limits = limitsOf(parser);
    return onFile(path, [&] { return show(readDocument(path, limits, Unread::Used)); });
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
    u"The parameters of a receiver are a table. On a terminal it is no wider than that, and what has no room "
    u"in a row stands beneath it; COLUMNS may tell another width. --parameter shows single parameters in "
    u"full, "
    u"a field in a line.\n"
    u"\n"
    u"JSON holds every field, called as the commands new and diff call it, and null for what is not set. "
    u"documentSays, if there is something to tell, has what the document says instead, by the path of the "
    u"field.\n"
    u"\n"
    u"GeoJSON (RFC 7946) holds the area that a workflow is limited to: a polygon, which is cut where it "
    u"crosses 180 degrees; a line for two coordinates, a point for one.",
    {u"the document is shown", u"the document is not read to its end, or has no area to show on a map",
     u"FILE cannot be read"},
    u"kormak show --format json job.xml\n"
    u"kormak show --parameter Gain --parameter Level receiver.xml",
    OneFile,
    options,
    run,
    Formats,
};
