#include "objectbase/Debug_p.h"

#include <objectbase/Constants_p.h>
#include <objectbase/Text_p.h>

#include <QStringList>

#include <type_traits>

namespace TESSEL {

namespace {

[[maybe_unused]] constexpr auto LogLevels = LogLevelNames;

QString nameText(const NameTable &names, qint32 value)
{
    const NamedValue *const row = names.find(value);
    return row == names.end() ? QString::number(value) : row->name.toString();
}

/// As QDebug quotes it, line ends and other characters that cannot be seen being escaped.
QString quoted(const QString &text)
{
    QString result;
    QDebug(&result).nospace() << text;
    return result;
}

QString valueText(const TextType &type, const FieldValue &field)
{
    return std::visit(
        [&type](const auto &value) -> QString {
            using Value = std::decay_t<decltype(value)>;
            if constexpr (std::is_same_v<Value, std::monostate>)
                return {};
            else if constexpr (std::is_same_v<Value, QString>)
                return quoted(value);
            else if constexpr (std::is_same_v<Value, qint64>)
                return type.names ? nameText(type.names(), static_cast<qint32>(value))
                                  : QString::number(value);
            else if constexpr (std::is_same_v<Value, float>)
                return std::isnan(value) ? QStringLiteral("nan") : shortestText(value);
            else
                return toText(value);
        },
        field);
}

QString inParentheses(const ObjectTable &table, const void *object);

QString partsText(const Row &row, const void *object)
{
    QStringList texts;
    for (const FieldPart &part : row.part->all(object)) {
        QString key;
        if (row.part->kind != Part::Kind::One)
            key = QLatin1Char('[') + (row.part->kind == Part::Kind::Map ? quoted(part.key) : part.key)
                + QLatin1Char(']');
        texts += row.name.toString() + key + inParentheses(row.part->table(), part.object);
    }
    return texts.join(QStringLiteral(", "));
}

/// Empty for what does not exist or is not set.
QString rowText(const ObjectTable &table, const Row &row, const void *object)
{
    if (row.isWritten && (table.isInner(row) || row.content == Row::Content::Block) && !row.isWritten(object))
        return {};
    if (row.part)
        return partsText(row, object);
    const FieldValue value = row.get ? row.get(object) : FieldValue();
    if (value.index() == 0 || (row.name == TagVersion && value == FieldValue(defaultVersion())))
        return {};
    return row.name.toString() + QLatin1Char('=') + valueText(row.type, value);
}

/// "(NAME=VALUE, ...)", or "=VALUE" for an object that is a plain value.
QString inParentheses(const ObjectTable &table, const void *object)
{
    QStringList texts;
    for (const auto &rows : {table.attributes, table.elements, table.fields}) {
        for (const Row &row : rows) {
            const QString text = table.isField(row) ? rowText(table, row, object) : QString();
            if (text.isEmpty())
                continue;
            if (row.name.isEmpty())
                return text;
            texts += text;
        }
    }
    return QLatin1Char('(') + texts.join(QStringLiteral(", ")) + QLatin1Char(')');
}

} // namespace

QDebug printText(QDebug debug, const QString &text)
{
    const QDebugStateSaver saver(debug);
    debug.nospace().noquote() << text;
    return debug;
}

QDebug printValue(QDebug debug, const NameTable &names, qint32 value)
{
    return printText(debug, nameText(names, value));
}

QString fieldsText(const QString &name, const ObjectTable &table, const void *object)
{
    return name + inParentheses(table, object);
}

} // namespace TESSEL
