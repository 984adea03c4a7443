// What the tests share: the message of an exception, reading, writing, and XML documents to compare with.
#ifndef KORMAK_TESTSUPPORT_H
#define KORMAK_TESTSUPPORT_H

#include <objectbase/ITesselObject.h>
#include <objectbase/TesselException.h>

#include <QString>
#include <QtTest>
#include <QXmlStreamReader>
#include <QXmlStreamWriter>

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

/// A document as GetXmlString() frames it.
inline QString document(const QString &elements)
{
    return QStringLiteral("<?xml version=\"1.0\"?>\n") + elements;
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
