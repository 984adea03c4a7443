// Writes JSON, object by object, in the order in which it is told. QJsonDocument would sort the keys, and
// with Qt 5 it has no whole numbers beyond 53 bits.
#ifndef KORMAK_INSPECTION_JSON_P_H
#define KORMAK_INSPECTION_JSON_P_H

#include <inspection/FieldTable_p.h>

#include <QString>
#include <QStringList>
#include <QStringView>

namespace KORMAK::Inspection {

class JsonWriter {
public:
    enum class Layout { OneLine, Indented };

    explicit JsonWriter(Layout layoutOfText) : layout(layoutOfText) { }

    void beginObject() { begin(QLatin1Char('{')); }
    void endObject() { end(QLatin1Char('}')); }
    void beginArray() { begin(QLatin1Char('[')); }
    void endArray() { end(QLatin1Char(']')); }

    /// The name of the value or object that is written next.
    void key(QStringView name);
    /// \a text is a value that is written already.
    void value(const QString &text);
    void member(QStringView name, const QString &text);
    void array(const QStringList &texts);

    /// An object with the fields of \a object.
    void fields(const FieldTable &table, const void *object);

    [[nodiscard]] const QString &text() const noexcept { return json; }

private:
    void begin(QChar bracket);
    void end(QChar bracket);
    void separate();
    void breakLine();
    void rowsOf(const FieldTable &table, const void *object);
    void partsOf(const FieldParts &parts, const void *object);

    QString json;
    Layout layout;
    int depth = 0;
    bool isFirst = true; ///< nothing stands before the next value in its object or array
    bool isBehindKey = false;
};

/// A text in quotes. Characters that could steer a terminal are escaped.
[[nodiscard]] QString jsonText(QStringView text);
[[nodiscard]] QString jsonTextOrNull(const QString &text); ///< null for an empty one
[[nodiscard]] QString jsonBool(bool value);
/// Numbers as numbers, exactly; the name of a value in a vocabulary; dates as documents say them; null for
/// what is not set and for NaN; "inf" and "-inf", which are no numbers in JSON.
[[nodiscard]] QString jsonValue(const TextType &type, const FieldValue &value);

/// \a object with its fields, in one line.
[[nodiscard]] QString jsonObject(const FieldTable &table, const void *object);

} // namespace KORMAK::Inspection

#endif
