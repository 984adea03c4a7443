#include "inspection/Vocabulary.h"

#include <inspection/Json_p.h>
#include <inspection/NameLists_p.h>
#include <objectbase/Debug_p.h>

#include <algorithm>

namespace KORMAK {

using namespace Inspection;

QString Vocabulary::GetName() const
{
    return list ? list->name.toString() : QString();
}

QString Vocabulary::GetDescription() const
{
    return list ? list->holds.toString() : QString();
}

QVector<Vocabulary::Entry> Vocabulary::GetEntries() const
{
    QVector<Entry> entries;
    if (!list)
        return entries;
    for (const TESSEL::NamedValue &row : list->table())
        entries.push_back({row.value, row.name.toString(), row.writtenAs.toString()});
    return entries;
}

QStringList Vocabulary::GetNames() const
{
    return list ? list->table().names() : QStringList();
}

QByteArray Vocabulary::GetJson() const
{
    JsonWriter json(JsonWriter::Layout::Indented);
    json.beginArray();
    const QVector<Entry> entries = GetEntries();
    for (const Entry &entry : entries) {
        json.beginObject();
        json.member(u"value", QString::number(entry.value));
        json.member(u"name", jsonText(entry.name));
        json.member(u"written", jsonTextOrNull(entry.written));
        json.endObject();
    }
    json.endArray();
    return json.text().toUtf8();
}

Vocabulary VocabularyMaker::made(const NameList *list)
{
    Vocabulary vocabulary;
    vocabulary.list = list;
    return vocabulary;
}

QVector<Vocabulary> GetVocabularies()
{
    QVector<Vocabulary> all;
    for (const NameList &list : allNameLists())
        all.push_back(VocabularyMaker::made(&list));
    return all;
}

Vocabulary FindVocabulary(const QString &name)
{
    const auto &all = allNameLists();
    const auto found =
        std::find_if(all.begin(), all.end(), [&name](const NameList &list) { return list.name == name; });
    return found == all.end() ? Vocabulary() : VocabularyMaker::made(&*found);
}

QDebug operator<<(QDebug debug, const Vocabulary &vocabulary)
{
    return TESSEL::printText(debug, QStringLiteral("Vocabulary(") + vocabulary.GetName() + QLatin1Char(')'));
}

} // namespace KORMAK
