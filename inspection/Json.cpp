#include "inspection/Json_p.h"

#include <inspection/NameLists_p.h>
#include <inspection/QuotedText_p.h>
#include <objectbase/Converters.h>
#include <objectbase/Text_p.h>

#include <cmath>
#include <type_traits>

namespace KORMAK::Inspection {

namespace {

constexpr qsizetype IndentWidth = 2;

bool isSpecial(QChar c)
{
    return c == QLatin1Char('"') || c == QLatin1Char('\\');
}

template <class Value>
QString jsonOf(const TextType &type, const Value &value)
{
    if constexpr (std::is_same_v<Value, std::monostate>) {
        return QStringLiteral("null");
    } else if constexpr (std::is_same_v<Value, bool>) {
        return jsonBool(value);
    } else if constexpr (std::is_same_v<Value, qint64>) {
        return type.names && type.names().isValid(static_cast<qint32>(value))
            ? jsonText(nameOrNumber(type.names(), value))
            : QString::number(value);
    } else if constexpr (std::is_same_v<Value, QString>) {
        return jsonText(value);
    } else if constexpr (std::is_same_v<Value, QDateTime>) {
        return jsonText(TESSEL::Converters::ToString(value));
    } else {
        if (std::isnan(value))
            return QStringLiteral("null");
        return std::isinf(value) ? jsonText(TESSEL::shortestText(value)) : TESSEL::shortestText(value);
    }
}

} // namespace

void JsonWriter::key(QStringView name)
{
    separate();
    json += jsonText(name) + QStringLiteral(": ");
    isBehindKey = true;
}

void JsonWriter::value(const QString &text)
{
    separate();
    json += text;
}

void JsonWriter::member(QStringView name, const QString &text)
{
    key(name);
    value(text);
}

void JsonWriter::array(const QStringList &texts)
{
    beginArray();
    for (const QString &text : texts)
        value(jsonText(text));
    endArray();
}

void JsonWriter::fields(const FieldTable &table, const void *object)
{
    beginObject();
    rowsOf(table, object);
    endObject();
}

void JsonWriter::rowsOf(const FieldTable &table, const void *object)
{
    for (const FieldRow &row : table) {
        if (!row.existsIn(object))
            continue;
        key(row.key);
        if (row.parts)
            partsOf(*row.parts, object);
        else
            value(jsonValue(row.type, row.get(object)));
    }
}

void JsonWriter::partsOf(const FieldParts &parts, const void *object)
{
    using Kind = FieldParts::Kind;
    if (parts.kind == Kind::List)
        beginArray();
    else if (parts.kind == Kind::Map)
        beginObject();
    for (const FieldPart &part : parts.all(object)) {
        if (parts.kind == Kind::Map)
            key(part.key);
        if (parts.table.isPlain())
            value(jsonValue(parts.table.rows.front().type, parts.table.rows.front().get(part.object)));
        else
            fields(parts.table, part.object);
    }
    if (parts.kind == Kind::List)
        endArray();
    else if (parts.kind == Kind::Map)
        endObject();
}

void JsonWriter::begin(QChar bracket)
{
    separate();
    json += bracket;
    ++depth;
    isFirst = true;
}

void JsonWriter::end(QChar bracket)
{
    --depth;
    if (!isFirst)
        breakLine();
    json += bracket;
    isFirst = false;
}

/// Puts what belongs between the value before and the one that follows.
void JsonWriter::separate()
{
    if (isBehindKey) {
        isBehindKey = false;
        return;
    }
    if (!isFirst)
        json += layout == Layout::OneLine ? QStringLiteral(", ") : QStringLiteral(",");
    if (depth > 0)
        breakLine();
    isFirst = false;
}

void JsonWriter::breakLine()
{
    if (layout == Layout::Indented)
        json += QLatin1Char('\n') + QString(depth * IndentWidth, QLatin1Char(' '));
}

QString jsonText(QStringView text)
{
    QString quoted(QLatin1Char('"'));
    quoted.reserve(static_cast<int>(text.size()) + 2);
    for (qsizetype i = 0; i < text.size(); ++i) {
        const QChar c = text[i];
        const bool isPair = c.isHighSurrogate() && i + 1 < text.size() && text[i + 1].isLowSurrogate();
        if (isPair) {
            quoted += c;
            quoted += text[++i];
        } else if (isSpecial(c)) {
            quoted += QLatin1Char('\\');
            quoted += c;
        } else if (KORMAK::Inspection::isHarmless(c) && !c.isSurrogate()) {
            quoted += c;
        } else {
            quoted += KORMAK::Inspection::escaped(c);
        }
    }
    return quoted + QLatin1Char('"');
}

QString jsonTextOrNull(const QString &text)
{
    return text.isEmpty() ? QStringLiteral("null") : jsonText(text);
}

QString jsonBool(bool value)
{
    return value ? QStringLiteral("true") : QStringLiteral("false");
}

QString jsonValue(const TextType &type, const FieldValue &value)
{
    return std::visit([&type](const auto &held) { return jsonOf(type, held); }, value);
}

QString jsonObject(const FieldTable &table, const void *object)
{
    JsonWriter writer(JsonWriter::Layout::OneLine);
    writer.fields(table, object);
    return writer.text();
}

} // namespace KORMAK::Inspection
