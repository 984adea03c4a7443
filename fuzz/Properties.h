// What holds whatever is read. The functions throw a Violation where it does not; any other exception than a
// TesselException, which no reader may throw, passes through.
#ifndef KORMAK_FUZZ_PROPERTIES_H
#define KORMAK_FUZZ_PROPERTIES_H

#include <fuzz/Kinds.h>
#include <tests/support/DocumentKinds.h>

#include <QXmlStreamReader>

#include <stdexcept>

namespace Fuzz {

using TestSupport::elementOf;
using TestSupport::rootOf;

class Violation : public std::logic_error {
public:
    explicit Violation(const QString &message) : std::logic_error(message.toStdString()) { }
};

inline void demand(bool holds, const QString &property)
{
    if (!holds)
        throw Violation(property);
}

inline void demandEqual(const QString &actual, const QString &expected, const QString &property)
{
    if (actual != expected)
        throw Violation(property + "\n--- expected\n" + expected + "\n--- actual\n" + actual);
}

/// How a reading operation ended.
struct Reading {
    enum Outcome { Taken, NotTaken, Refused } outcome;
    QString message; ///< of the exception that refused

    [[nodiscard]] QString toString() const
    {
        return outcome == Taken ? "taken" : outcome == NotTaken ? "not taken" : "refused: " + message;
    }
};

/// The result of \a read, which answers true, false or throws a TesselException.
template <class Read>
Reading readingOf(Read read)
{
    try {
        return {read() ? Reading::Taken : Reading::NotTaken, {}};
    } catch (const TESSEL::TesselException &exception) {
        return {Reading::Refused, exception.GetErrorMessage()};
    }
}

inline void demandEqual(const Reading &actual, const Reading &expected, const QString &property)
{
    demandEqual(actual.toString(), expected.toString(), property);
}

/// Without namespaces, declarations count as attributes, which an element bears once.
inline bool isWellFormed(const QString &text, bool hasNamespaces = true)
{
    QXmlStreamReader reader(text);
    reader.setNamespaceProcessing(hasNamespaces);
    while (!reader.atEnd())
        reader.readNext();
    return !reader.hasError();
}

/// A complete object.
template <class Document>
const Document &sampleOf()
{
    static const Document sample = [] {
        Document document;
        const QString text = TestSupport::wholeDocument(document.GetObjectName());
        demand(document.SetXmlString(text, true) && document.HasData(), "the sample is complete");
        return document;
    }();
    return sample;
}

template <class Document>
void demandUntouched(const Document &object, const QString &property)
{
    const auto &sample = sampleOf<Document>();
    demandEqual(elementOf(object), elementOf(sample), property);
    demand(object == sample, property);
}

template <class Document>
void checkCopy(const Document &copy, const Document &document)
{
    demandEqual(elementOf(copy), elementOf(document), "a copy is written as the original");
    demand((copy == document) == Kind<Document>::equalsItself(document), "a copy equals the original");
    demand((copy != document) != (copy == document), "unequal is the opposite of equal");
}

/// \a back was filled with what \a document writes, \a text.
template <class Document>
void checkReadBack(Document &back, const Document &document, const QString &text)
{
    Kind<Document>::restoreUnread(back, document);
    demandEqual(back.GetXmlString(), text, "what was read back is written as before");
    if (Kind<Document>::isReadBackWhole(document))
        demand((back == document) == Kind<Document>::equalsItself(document), "what was read back is equal");
}

/// What holds for every object that a text was read into, whatever came of it.
template <class Document>
void checkObject(const Document &document)
{
    const bool isComplete = document.HasData();
    const Reading check = readingOf([&] {
        document.Check();
        return isComplete;
    });
    demand(!isComplete || check.outcome == Reading::Taken, "a complete object has nothing to complain of");

    QString text;
    const Reading writing = readingOf([&] {
        text = document.GetXmlString();
        return rootOf(text) == document.GetObjectName();
    });
    demandEqual(writing, check, "an object is written when it is complete and passes its check");

    checkCopy(Document(document), document);
    Document assigned;
    assigned = document;
    checkCopy(assigned, document);

    Document merged;
    demandEqual(readingOf([&] { return merged.MergeTesselObject(document); }), check,
                "an object is merged when it is written");
    if (!isComplete)
        return;
    checkReadBack(merged, document, text);
    Document back;
    demand(back.SetXmlString(text, true), "what was written is read");
    checkReadBack(back, document, text);
}

/// The text that \a bytes hold, read as a document of one kind.
template <class Document>
void checkXml(const QByteArray &bytes)
{
    const QString text = QString::fromUtf8(bytes);
    Document document;
    const Reading reading = readingOf([&] { return document.SetXmlString(text, false); });
    demand(reading.outcome != Reading::Taken || (isWellFormed(text) && isWellFormed(text, false)),
           "only well-formed documents are taken");

    Document validated = sampleOf<Document>();
    const Reading validation = readingOf([&] { return validated.SetXmlString(text, true); });
    if (rootOf(text) == document.GetObjectName()) {
        demandEqual(validation, reading, "the right root element changes nothing");
    } else {
        demand(validation.outcome == Reading::NotTaken, "another root element is not taken");
        demandUntouched(validated, "another root element leaves the object as it was");
    }
    checkObject(document);
    checkObject(validated);
}

} // namespace Fuzz

#endif
