// What tests and fuzzers ask of any object: the message of an exception, what it writes, how it reads.
#ifndef KORMAK_OBJECTS_H
#define KORMAK_OBJECTS_H

#include <objectbase/ITesselObject.h>
#include <objectbase/TesselException.h>

#include <QString>
#include <QStringList>
#include <QXmlStreamReader>
#include <QXmlStreamWriter>

#include <algorithm>
#include <stdexcept>

namespace TestSupport {

/// The message of the TesselException that \a call throws; a null text when it throws none.
template <class Call>
QString messageOf(Call call)
{
    try {
        call();
    } catch (const TESSEL::TesselException &exception) {
        return exception.GetErrorMessage();
    }
    return {};
}

/// The result of GetXml() alone: no declaration, no check, no indentation.
inline QString elementOf(const TESSEL::ITesselObject &object)
{
    QString text;
    QXmlStreamWriter writer(&text);
    object.GetXml(writer);
    return text;
}

/// Reads \a element (a whole XML element) through ProcessXml() and returns where the reader stopped.
inline QXmlStreamReader::TokenType process(TESSEL::ITesselObject &object, const QString &element)
{
    QXmlStreamReader reader(element);
    reader.readNextStartElement();
    object.ProcessXml(reader);
    return reader.tokenType();
}

/// A new object that \a element was read into.
template <class Document>
Document objectFrom(const QString &element)
{
    Document object;
    process(object, element);
    return object;
}

/// A document as GetXmlString() frames it.
inline QString document(const QString &elements)
{
    return QStringLiteral("<?xml version=\"1.0\"?>\n") + elements;
}

/// The name of the root element of \a document; a null text when there is none.
inline QString rootOf(const QString &document)
{
    QXmlStreamReader reader(document);
    return reader.readNextStartElement() ? reader.name().toString() : QString();
}

/// What Qt's reader says of \a document by itself; an empty text for a document that is well-formed.
inline QString errorOfReader(const QString &document)
{
    QXmlStreamReader reader(document);
    while (!reader.atEnd())
        reader.readNext();
    return reader.errorString();
}

/// \a fields ("Name=value"), but for \a changes, which are of the same form.
/// \throws std::invalid_argument when there is no field of that name.
inline QStringList with(QStringList fields, const QStringList &changes)
{
    for (const QString &change : changes) {
        const QString start = change.section('=', 0, 0) + '=';
        const auto field = std::find_if(fields.begin(), fields.end(),
                                        [&start](const QString &f) { return f.startsWith(start); });
        if (field == fields.end())
            throw std::invalid_argument(start.toStdString());
        *field = change;
    }
    return fields;
}

/// A document object that bears another name, or can be given one. What is protected there is open here.
template <class Document>
class Renamed : public Document {
public:
    Renamed() = default;
    explicit Renamed(const QString &otherName, const Document &other = Document()) : Document(other)
    {
        this->SetObjectName(otherName);
    }
    using Document::ProcessXmlStartElement;
    using Document::SetObjectName;
};

} // namespace TestSupport

#endif
