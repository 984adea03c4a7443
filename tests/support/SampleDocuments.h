// Small documents to test the base class with.
#ifndef KORMAK_SAMPLEDOCUMENTS_H
#define KORMAK_SAMPLEDOCUMENTS_H

#include <objectbase/ITesselObject.h>
#include <objectbase/TesselException.h>

#include <QString>
#include <QStringList>
#include <QXmlStreamReader>
#include <QXmlStreamWriter>

namespace SampleDocuments {

/// A version, a label (an attribute), a mandatory title and an optional body. Refuses unknown children.
class Note : public TESSEL::ITesselObject {
public:
    Note() { SetObjectName("Note"); }
    explicit Note(const QString &text, const QString &bodyText = {}) : title(text), body(bodyText)
    {
        SetObjectName("Note");
    }

    using ITesselObject::Check;
    using ITesselObject::GetTextValue;
    using ITesselObject::SetObjectName;
    using ITesselObject::SetObjectType;

    bool HasData() const override { return !title.isEmpty(); }

    void Reset() override
    {
        version = "1.0";
        label.clear();
        title.clear();
        body.clear();
    }

    void Check() const override
    {
        if (!HasData())
            throw TESSEL::TesselException(GetObjectName() + ": Please set Title");
    }

    void GetXml(QXmlStreamWriter &writer) const override
    {
        if (!HasData())
            return;
        writer.writeStartElement(GetObjectName());
        writer.writeAttribute("Version", version);
        if (!label.isEmpty())
            writer.writeAttribute("Label", label);
        writer.writeTextElement("Title", title);
        if (!body.isEmpty())
            writer.writeTextElement("Body", body);
        writer.writeEndElement();
    }

    void ProcessXml(QXmlStreamReader &reader) override
    {
        const QXmlStreamAttributes attributes = reader.attributes();
        version = attributes.value("Version").toString();
        if (attributes.hasAttribute("Label"))
            label = attributes.value("Label").toString();
        ITesselObject::ProcessXml(reader);
    }

    /// All fields, to see that nothing has changed.
    QStringList fields() const { return {version, label, title, body}; }

    QString version = "1.0";
    QString label;
    QString title;
    QString body;

protected:
    void ProcessXmlStartElement(QXmlStreamReader &reader) override
    {
        const QString name = reader.name().toString();
        if (name == "Title")
            title = GetTextValue(reader);
        else if (name == "Body")
            body = GetTextValue(reader);
        else
            throw TESSEL::TesselException(QString("Unknown Tag '%1' in '%2'.").arg(name, GetObjectName()));
    }
};

/// A note whose Check() lets it pass although it is not complete.
class DraftNote : public Note {
public:
    using Note::Check;
    using Note::Note;
    void Check() const override { }
};

/// Reads "Title" and leaves every other child untouched. Remembers what the base handed over.
class LenientNote : public Note {
public:
    using Note::Note;

    QStringList children; ///< names, in order
    bool allOnStartElement = true;

protected:
    void ProcessXmlStartElement(QXmlStreamReader &reader) override
    {
        allOnStartElement = allOnStartElement && reader.isStartElement();
        children.append(reader.name().toString());
        if (reader.name() == QLatin1String("Title"))
            Note::ProcessXmlStartElement(reader);
    }
};

/// Reads a child no further than to the first end element in it, however deep that is.
class HastyNote : public LenientNote {
public:
    using LenientNote::LenientNote;

protected:
    void ProcessXmlStartElement(QXmlStreamReader &reader) override
    {
        LenientNote::ProcessXmlStartElement(reader);
        while (!reader.atEnd() && !reader.isEndElement())
            reader.readNext();
    }
};

/// A title and a note, an object of its own.
class Binder : public Note {
public:
    Binder() { SetObjectName("Binder"); }

    Note note;

    void GetXml(QXmlStreamWriter &writer) const override
    {
        if (!HasData())
            return;
        writer.writeStartElement(GetObjectName());
        writer.writeAttribute("Version", version);
        writer.writeTextElement("Title", title);
        note.GetXml(writer);
        writer.writeEndElement();
    }

protected:
    void ProcessXmlStartElement(QXmlStreamReader &reader) override
    {
        if (reader.name() == note.GetObjectName())
            note.ProcessXml(reader);
        else
            Note::ProcessXmlStartElement(reader);
    }
};

/// Only what a class must state; everything else is the base's.
class BareDocument : public TESSEL::ITesselObject {
public:
    BareDocument() = default;
    explicit BareDocument(TESSEL::ObjectTypes type) : ITesselObject(type) { }

    using ITesselObject::Check;
    using ITesselObject::SetObjectName;
    using ITesselObject::SetObjectType;

    bool HasData() const override { return true; }
    void Reset() override { }
    void Check() const override { calls.append("Check"); }
    void GetXml(QXmlStreamWriter &writer) const override
    {
        calls.append("GetXml");
        writer.writeStartElement("Bare");
        writer.writeEndElement();
    }

    mutable QStringList calls;
};

} // namespace SampleDocuments

#endif
