#include <tools/Command.h>
#include <tools/Console.h>
#include <tools/Json.h>
#include <tools/NameLists.h>
#include <tools/OutputFormat.h>

#include <QCommandLineParser>

#include <algorithm>

namespace {

QStringList listNames()
{
    QStringList names;
    for (const NameList *list : allNameLists())
        names += list->name.toString();
    return names;
}

const NameList &findList(const QString &name)
{
    const auto found = std::find_if(allNameLists().begin(), allNameLists().end(),
                                    [&name](const NameList *list) { return list->name == name; });
    if (found == allNameLists().end()) {
        throw UsageError{QStringLiteral("Unknown vocabulary '%1'. Allowed: %2")
                             .arg(name, listNames().join(QStringLiteral(", ")))};
    }
    return **found;
}

void printLists()
{
    const QStringList names = listNames();
    const auto longest = std::max_element(names.begin(), names.end(),
                                          [](const auto &a, const auto &b) { return a.size() < b.size(); });
    for (const NameList *list : allNameLists()) {
        Console::print(list->name.toString().leftJustified(static_cast<int>(longest->size()))
                       + QStringLiteral("  ") + list->holds.toString());
    }
}

void printListsAsJson()
{
    JsonWriter json(JsonWriter::Layout::Indented);
    json.beginArray();
    for (const NameList *list : allNameLists())
        json.value(jsonText(list->name));
    json.endArray();
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
        const QString written = list.writtenAs(value);
        json.beginObject();
        json.key(u"value");
        json.value(QString::number(value));
        json.key(u"name");
        json.value(jsonText(list.nameOf(value)));
        json.key(u"written");
        json.value(written.isEmpty() ? QStringLiteral("null") : jsonText(written));
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
    u"list the vocabularies, or the names in one of them",
    u"Without an argument, lists the vocabularies of the documents. With one, lists its names as documents\n"
    u"hold them, each behind its number. Where the library writes a value in another way than it reads it,\n"
    u"that is said behind the name.\n"
    u"Exit status: 0 it is listed, 2 there is no such vocabulary.",
    u"kormak list JobType",
    {u"VOCABULARY", u"[VOCABULARY]", 0, 1},
    [] { return QList<QCommandLineOption>{formatOption()}; },
    run,
};
