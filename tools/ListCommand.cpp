#include <tools/Command.h>
#include <tools/Console.h>
#include <tools/Json.h>
#include <tools/ListOf.h>
#include <tools/NameLists.h>
#include <tools/OutputFormat.h>
#include <tools/TextLayout.h>
#include <tools/Usage.h>

#include <QCommandLineParser>

#include <algorithm>
#include <vector>

namespace {

const NameList &findList(const QString &name)
{
    const auto found = std::find_if(allNameLists().begin(), allNameLists().end(),
                                    [&name](const NameList *list) { return list->name == name; });
    if (found == allNameLists().end())
        throw Usage::unknown(QStringLiteral("vocabulary"), name, nameListNames());
    return **found;
}

void printLists()
{
    std::vector<TextLayout::Row> rows;
    for (const NameList *list : allNameLists())
        rows.push_back({list->name.toString(), list->holds.toString()});
    Console::write(TextLayout::twoColumns(rows));
}

void printListsAsJson()
{
    JsonWriter json(JsonWriter::Layout::Indented);
    json.array(nameListNames());
    Console::print(json.text());
}

void print(const NameList &list)
{
    constexpr int NumberWidth = 2;
    const QList<qint32> values = list.values();
    for (const qint32 value : values)
        Console::print(QString::number(value).rightJustified(NumberWidth) + QStringLiteral("  ")
                       + list.nameOf(value) + list.difference(value));
}

void printAsJson(const NameList &list)
{
    JsonWriter json(JsonWriter::Layout::Indented);
    json.beginArray();
    const QList<qint32> values = list.values();
    for (const qint32 value : values) {
        json.beginObject();
        json.member(u"value", QString::number(value));
        json.member(u"name", jsonText(list.nameOf(value)));
        json.member(u"written", jsonTextOrNull(list.writtenAs(value)));
        json.endObject();
    }
    json.endArray();
    Console::print(json.text());
}

ExitStatus run(const QCommandLineParser &parser)
{
    const bool isJson = outputFormat(parser) == OutputFormat::Json;
    const QStringList names = parser.positionalArguments();
    if (names.isEmpty()) {
        isJson ? printListsAsJson() : printLists();
        return Good;
    }
    const NameList &list = findList(names.constFirst());
    isJson ? printAsJson(list) : print(list);
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
