// What holds whatever is read as a binary form.
#ifndef KORMAK_FUZZ_BINARYPROPERTIES_H
#define KORMAK_FUZZ_BINARYPROPERTIES_H

#include <fuzz/Properties.h>
#include <objectbase/QtCompat_p.h>
#include <tests/support/BinaryParts.h>

#include <QDataStream>
#include <QTemporaryFile>

namespace Fuzz {

using TestSupport::BinaryParts;

/// A sample that a binary form was read into by one of the operations, and what came of it.
template <class Document>
struct BinaryReading {
    Document document = sampleOf<Document>();
    Reading reading;

    template <class Read>
    explicit BinaryReading(Read read) : reading(readingOf([&] { return read(document); }))
    {
    }
};

/// The document of \a objectName in the form that \a bytes begin with; nothing for what is not exactly such a
/// form.
inline std::optional<QString> documentIn(const QByteArray &bytes, const QString &objectName)
{
    const auto parts = BinaryParts::of(bytes);
    if (!parts || !bytes.startsWith(BinaryParts::firstVersion())
        || quint8(parts->start.back()) > BinaryParts::Compressed || !bytes.startsWith(parts->sealed())
        || parts->name != objectName.toUtf8())
        return std::nullopt;
    const auto text = parts->text();
    const QString document = text ? TESSEL::decodeUtf8(*text) : QString();
    return rootOf(document) == objectName && isWellFormed(document) ? std::optional(document) : std::nullopt;
}

/// What an object writes in the form with compression \a level is read back, and not with one bit flipped.
template <class Document>
void checkOwnForm(Document document, int level, int bit)
{
    QByteArray bytes = document.GetCompressedBinaryRepresentationAsQByteArray(level);
    Document back;
    demand(back.SetBinaryRepresentation(bytes), "what was written is read");
    checkReadBack(back, document, document.GetXmlString());

    bit %= static_cast<int>(bytes.size()) * 8;
    bytes[bit / 8] = static_cast<char>(bytes.at(bit / 8) ^ (1 << (bit % 8)));
    Document untouched = sampleOf<Document>();
    demand(!untouched.SetBinaryRepresentation(bytes), "a damaged form is not taken");
    demandUntouched(untouched, "a damaged form leaves the object as it was");
}

template <class Document>
void checkBinary(const QByteArray &bytes)
{
    const auto xml = documentIn(bytes, sampleOf<Document>().GetObjectName());
    const BinaryReading<Document> asXml(
        [&xml](Document &document) { return xml && document.SetXmlString(*xml, true); });
    const auto demandAsXml = [&asXml](const BinaryReading<Document> &read) {
        demandEqual(read.reading, asXml.reading, "a form is read as its XML");
        demandEqual(elementOf(read.document), elementOf(asXml.document), "a form is read as its XML");
    };

    QDataStream stream(bytes);
    demandAsXml(BinaryReading<Document>(
        [&](Document &document) { return document.SetBinaryRepresentation(stream); }));
    const bool isFilled = stream.atEnd();
    demandAsXml(BinaryReading<Document>([&bytes](Document &document) {
        QDataStream streamWithStatus(bytes);
        document.SetBinary(streamWithStatus, 1);
        demand(streamWithStatus.status() == QDataStream::Ok
                   || streamWithStatus.status() == QDataStream::ReadCorruptData,
               "the status tells whether the form was taken");
        return streamWithStatus.status() == QDataStream::Ok;
    }));

    const BinaryReading<Document> fromBytes(
        [copy = bytes](Document &document) mutable { return document.SetBinaryRepresentation(copy); });
    const BinaryReading<Document> fromFile([&bytes](Document &document) {
        static QTemporaryFile file;
        demand((file.isOpen() || file.open()) && file.resize(0) && file.seek(0)
                   && file.write(bytes) == bytes.size() && file.seek(0),
               "there is room for temporary files");
        return document.LoadBinary(&file);
    });
    for (const auto *read : {&fromBytes, &fromFile}) {
        if (isFilled) {
            demandAsXml(*read);
        } else {
            demand(read->reading.outcome == Reading::NotTaken, "bytes are taken when the form fills them");
            demandUntouched(read->document, "what is not taken leaves the object as it was");
        }
    }

    if (!xml)
        return;
    checkObject(asXml.document);
    if (asXml.reading.outcome == Reading::Taken && asXml.document.HasData()) {
        constexpr int Levels = 11; // -1 to 9
        const int choice = qFromBigEndian<quint16>(bytes.constData() + BinaryParts::NumbersSize);
        checkOwnForm(asXml.document, choice % Levels - 1, choice);
    }
}

} // namespace Fuzz

#endif
