#include <inspection/Json_p.h>
#include <inspection/NameLists_p.h>
#include <inspection/Vocabulary.h>
#include <tools/Command.h>
#include <tools/Console.h>
#include <tools/Options.h>
#include <tools/OutputFormat.h>
#include <tools/TextLayout.h>
#include <tools/Usage.h>

#include <QCommandLineParser>

#include <vector>

using namespace KORMAK;
using namespace KORMAK::Inspection;

namespace {

Vocabulary vocabularyCalled(const QString &name)
{
    const Vocabulary vocabulary = FindVocabulary(name);
    if (vocabulary.IsNull())
        throw Usage::unknown(QStringLiteral("vocabulary"), name, nameListNames());
    return vocabulary;
}

void printVocabularies()
{
    std::vector<TextLayout::Row> rows;
    const QVector<Vocabulary> all = GetVocabularies();
    for (const Vocabulary &vocabulary : all)
        rows.push_back({vocabulary.GetName(), vocabulary.GetDescription()});
    Console::write(TextLayout::twoColumns(rows));
}

void printVocabulariesAsJson()
{
    JsonWriter json(JsonWriter::Layout::Indented);
    json.array(nameListNames());
    Console::print(json.text());
}

void print(const Vocabulary &vocabulary)
{
    constexpr int NumberWidth = 2;
    const QVector<Vocabulary::Entry> entries = vocabulary.GetEntries();
    for (const auto &[value, name, written] : entries)
        Console::print(QString::number(value).rightJustified(NumberWidth) + QStringLiteral("  ") + name
                       + writtenDifference(name, written));
}

ExitStatus run(const QCommandLineParser &parser)
{
    const bool isJson = outputFormat(parser) == OutputFormat::Json;
    const QStringList names = parser.positionalArguments();
    if (names.isEmpty()) {
        isJson ? printVocabulariesAsJson() : printVocabularies();
        return Good;
    }
    const Vocabulary vocabulary = vocabularyCalled(names.constFirst());
    isJson ? Console::print(QString::fromUtf8(vocabulary.GetJson())) : print(vocabulary);
    return Good;
}

} // namespace

const Command listCommand{
    u"list",
    u"list the names that fields can hold",
    u"Some fields hold one of several names, such as the type of a job. Without an argument, lists these "
    u"vocabularies. With one of them, lists its names, each behind its number.\n"
    u"\n"
    u"Where the library writes another name than the one that it reads, that stands behind the name.",
    {u"the names are listed", {}, u"there is no such vocabulary"},
    u"kormak list JobType",
    {u"VOCABULARY", u"[VOCABULARY]", 0, 1},
    [] { return listOf<QList<QCommandLineOption>>(formatOption()); },
    run,
};
