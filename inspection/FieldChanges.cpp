#include "inspection/FieldChanges_p.h"

#include <inspection/Document.h>
#include <inspection/FieldTable_p.h>
#include <inspection/FieldText_p.h>
#include <inspection/HeldFields_p.h>
#include <objectbase/TesselException.h>

#include <QHash>
#include <QJsonArray>

#include <algorithm>
#include <cmath>

namespace KORMAK::Inspection {

namespace {

using Action = DocumentEdit::Change::Action;

/// Reads JSON as fields.
class ChangesReader {
public:
    QVector<DocumentEdit::Change> changes;

    explicit ChangesReader(const Document &read)
    {
        const QVector<Field> fields = read.GetFields();
        for (const Field &field : fields)
            known.insert(field.GetPath(), field);
    }

    void read(const QJsonObject &object, const FieldTable &table, const QString &prefix)
    {
        for (auto member = object.begin(); member != object.end(); ++member) {
            const FieldRow *const row = table.find(member.key());
            const QString path = prefix + member.key();
            if (!row)
                fail(path, QStringLiteral("there is no such field"));
            row->parts ? readParts(member.value(), *row->parts, path) : readValue(member.value(), path);
        }
    }

private:
    [[noreturn]] static void fail(const QString &path, const QString &message)
    {
        throw TESSEL::TesselException(path + QStringLiteral(": ") + message);
    }

    void readParts(const QJsonValue &value, const FieldParts &parts, const QString &path)
    {
        using Kind = FieldParts::Kind;
        if (value.isNull() && parts.kind == Kind::One) {
            if (isKnown(path))
                changes.push_back({Action::Unset, path});
            return;
        }
        if (parts.kind == Kind::List ? !value.isArray() : !value.isObject())
            fail(path,
                 parts.kind == Kind::List ? QStringLiteral("is no array") : QStringLiteral("is no object"));
        if (parts.kind == Kind::One) {
            read(value.toObject(), parts.table, path + QLatin1Char('.'));
        } else if (parts.kind == Kind::Map) {
            const QJsonObject all = value.toObject();
            for (auto part = all.begin(); part != all.end(); ++part)
                readPart(part.value(), parts, path + bracketed(parts, part.key()));
        } else {
            const QJsonArray all = value.toArray();
            for (int i = 0; i < all.size(); ++i)
                readPart(all.at(i), parts, path + QStringLiteral("[%1]").arg(i));
        }
    }

    void readPart(const QJsonValue &value, const FieldParts &parts, const QString &path)
    {
        if (value.isNull())
            changes.push_back({Action::Unset, path});
        else if (parts.table.isPlain())
            readValue(value, path);
        else if (value.isObject())
            read(value.toObject(), parts.table, path + QLatin1Char('.'));
        else
            fail(path, QStringLiteral("is no object"));
    }

    void readValue(const QJsonValue &value, const QString &path)
    {
        const auto field = known.constFind(path);
        const bool isThere = field != known.constEnd();
        if (value.isNull()) {
            if (isThere && field->IsSet())
                changes.push_back({Action::Unset, path});
            return;
        }
        const QString text = textOf(value, path);
        if (!isThere || !isSame(*field, value, text))
            changes.push_back({Action::Set, path, text});
    }

    static QString textOf(const QJsonValue &value, const QString &path)
    {
        constexpr double MostExact = 9007199254740992.0; // longer ones are texts
        if (value.isString())
            return value.toString();
        if (value.isBool())
            return value.toBool() ? QStringLiteral("true") : QStringLiteral("false");
        if (!value.isDouble())
            fail(path, QStringLiteral("is no value"));
        const double number = value.toDouble();
        const bool isWhole = number == std::floor(number) && std::abs(number) < MostExact;
        return isWhole ? QString::number(static_cast<qint64>(number)) : numberText(number);
    }

    static bool isSame(const Field &field, const QJsonValue &value, const QString &text)
    {
        const QVariant held = field.GetValue();
        if (field.GetType() == Field::Type::Float && value.isDouble())
            return static_cast<float>(value.toDouble()) == held.toFloat();
        return held.isValid()
            && (field.GetText() == text
                || (value.isDouble() && held.toDouble() == value.toDouble()
                    && field.GetType() == Field::Type::Double));
    }

    [[nodiscard]] bool isKnown(const QString &path) const
    {
        return std::any_of(known.keyBegin(), known.keyEnd(),
                           [&path](const QString &field) { return isBelow(field, path); });
    }

    QHash<QString, Field> known;
};

} // namespace

QVector<DocumentEdit::Change> fieldChanges(const QJsonObject &fields, const FieldTable &table,
                                           const Document &document)
{
    ChangesReader reader(document);
    reader.read(fields, table, {});
    return reader.changes;
}

} // namespace KORMAK::Inspection
