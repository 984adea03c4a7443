#include <inspection/DocumentJson_p.h>
#include <inspection/FieldDiff_p.h>
#include <inspection/QuotedText_p.h>
#include <tools/Command.h>
#include <tools/Console.h>
#include <tools/DocumentFile.h>
#include <tools/LimitOptions.h>
#include <tools/Options.h>
#include <tools/Output.h>
#include <tools/OutputFormat.h>

#include <QCommandLineParser>

using namespace KORMAK::Inspection;

namespace {

/// \a areEqualToLibrary: by the operator of the class.
void printText(const std::vector<FieldDifference> &found, bool areEqualToLibrary)
{
    const bool areSame = found.empty();
    for (const FieldDifference &difference : found)
        Console::print(oneLine(difference.toLine()));
    if (areSame == areEqualToLibrary)
        return;
    Console::print(areSame
                       ? QStringLiteral("The library's own comparison calls the documents different, though "
                                        "no field differs.")
                       : QStringLiteral("The library's own comparison calls the documents equal, though "
                                        "fields differ."));
}

ExitStatus compareFiles(const QStringList &paths, OutputFormat format, const TESSEL::ReadingLimits &limits)
{
    // Both are read, so that both complaints are seen.
    FileDocument documents[2];
    ExitStatus status = Good;
    for (int i = 0; i < 2; ++i) {
        const auto read = [&] {
            documents[i] = readDocument(paths.at(i), limits);
            return Good;
        };
        if (onFile(paths.at(i), read) != Good)
            status = Failed;
    }
    if (status != Good)
        return status;
    const auto &[a, b] = documents;
    if (a.kind != b.kind) {
        complainAbout(
            paths.at(1),
            {QStringLiteral("is of kind %1, but %2 is of kind %3: they cannot be compared")
                 .arg(b.kind->rootElement.toString(), paths.at(0), a.kind->rootElement.toString())});
        return Failed;
    }
    const DocumentKind &kind = *a.kind;
    const auto found = differences(kind.fields(), kind.address(*a.object), kind.address(*b.object));
    const bool areEqualToLibrary = kind.areEqual(*a.object, *b.object);
    if (format == OutputFormat::Json)
        Console::print(differencesJson(kind, found, areEqualToLibrary));
    else
        printText(found, areEqualToLibrary);
    return found.empty() ? Good : Faulty;
}

ExitStatus run(const QCommandLineParser &parser)
{
    const OutputFormat format = outputFormat(parser);
    const QStringList paths = parser.positionalArguments();
    if (paths.at(0) == StandardStream && paths.at(1) == StandardStream)
        throw UsageError{QStringLiteral("only one of the files can be standard input")};
    return compareFiles(paths, format, limitsOf(parser));
}

} // namespace

const Command diffCommand{
    u"diff",
    u"tell in which fields two documents differ",
    u"Compares what two documents of one kind hold, however they are written, and tells of each field that "
    u"differs in a line:\n"
    u"  FIELD: BEFORE -> AFTER\n"
    u"Parameters are matched by their unique names, elements of lists by their places. What only one of the "
    u"documents has is said to be removed or added. NaN is taken to equal NaN.\n"
    u"\n"
    u"Programs that compare documents with the library may get another result, since it leaves out some "
    u"fields, and NaN equals nothing there. If they do, a last line says so.",
    {u"no field differs", u"some fields differ",
     u"a document cannot be read, or the documents are of different kinds"},
    u"kormak diff old.xml new.xml",
    {FileName, u"FILE FILE", 2, 2},
    [] { return withLimitOptions(listOf<QList<QCommandLineOption>>(formatOption())); },
    run,
};
