#include "Limits.h"

#include <QSet>
#include <QXmlStreamReader>
#include <QXmlStreamWriter>

namespace Limits {

long readTokens(const QString &document)
{
    QXmlStreamReader reader(document);
    long tokens = 0;
    while (!reader.atEnd()) {
        reader.readNext();
        ++tokens;
    }
    return tokens;
}

long readTexts(const QString &document)
{
    QXmlStreamReader reader(document);
    QString text;
    long characters = 0;
    while (!reader.atEnd()) {
        switch (reader.readNext()) {
        case QXmlStreamReader::StartElement:
            text.clear();
            for (const QXmlStreamAttribute &attribute : reader.attributes())
                characters += attribute.value().toString().size();
            break;
        case QXmlStreamReader::Characters:
            if (!reader.isWhitespace())
                text += reader.text();
            break;
        case QXmlStreamReader::EndElement:
            characters += text.size();
            text.clear();
            break;
        default:
            break;
        }
    }
    return characters;
}

Calls::Calls(const QString &document)
{
    QXmlStreamReader reader(document);
    QSet<QString> names; // each is kept once, as a program has them
    const auto kept = [&names](const auto &name) { return *names.insert(name.toString()); };
    int startedAt = -1; // the element that has no children yet
    QString text;
    while (!reader.atEnd()) {
        switch (reader.readNext()) {
        case QXmlStreamReader::StartElement:
            startedAt = static_cast<int>(calls.size());
            text.clear();
            calls.append({StartElement, kept(reader.name()), {}});
            for (const QXmlStreamAttribute &attribute : reader.attributes())
                calls.append({Attribute, kept(attribute.name()), attribute.value().toString()});
            break;
        case QXmlStreamReader::Characters:
            text += reader.text();
            break;
        case QXmlStreamReader::EndElement:
            if (startedAt == calls.size() - 1 && !text.isEmpty())
                calls[startedAt] = {TextElement, calls[startedAt].name, text};
            else
                calls.append({EndElement, {}, {}});
            startedAt = -1;
            break;
        default:
            break;
        }
    }
}

QString Calls::replay() const
{
    QString text;
    QXmlStreamWriter writer(&text);
    writer.setAutoFormatting(true);
    writer.writeStartDocument();
    for (const Call &call : calls) {
        switch (call.kind) {
        case StartElement:
            writer.writeStartElement(call.name);
            break;
        case Attribute:
            writer.writeAttribute(call.name, call.text);
            break;
        case TextElement:
            writer.writeTextElement(call.name, call.text);
            break;
        case EndElement:
            writer.writeEndElement();
            break;
        }
    }
    writer.writeEndDocument();
    return text;
}

} // namespace Limits
