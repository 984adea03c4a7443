#include "objectbase/ITesselObject.h"

#include <objectbase/BinaryForm_p.h>
#include <objectbase/Constants_p.h>
#include <objectbase/DocumentWriter_p.h>
#include <objectbase/DocumentXml_p.h>
#include <objectbase/FileContent_p.h>
#include <objectbase/Messages_p.h>
#include <objectbase/Nesting_p.h>
#include <objectbase/NoDestructor_p.h>
#include <objectbase/QtCompat_p.h>
#include <objectbase/ReadingBounds_p.h>

#include <QByteArray>
#include <QDataStream>
#include <QDateTime>
#include <QFile>
#include <QScopeGuard>
#include <QXmlStreamReader>

#include <algorithm>
#include <cmath>
#include <limits>
#include <optional>
#include <utility>

namespace TESSEL {

namespace {

[[maybe_unused]] constexpr auto LogLevels = LogLevelNames;

[[maybe_unused]] const bool hasCodecs = makeCodecs();

constexpr int Uncompressed = 0;
constexpr int UsualCompression = -1;

/// \a open elements stand around what is read next.
bool readToEnd(const ITesselObject &object, QXmlStreamReader &reader, int open)
{
    Nesting nesting(object, reader, open);
    while (!reader.atEnd())
        nesting.count(reader.readNext());
    return !reader.hasError();
}

bool isDocumentOf(const ITesselObject &object, const QString &text)
{
    if (refusalOf(text, object.GetReadingLimits()))
        return false;
    QXmlStreamReader reader(text);
    return readToRoot(reader) && reader.name() == object.GetObjectName() && readToEnd(object, reader, 1);
}

/// What the object hands on: its document, or nothing when it writes no element.
std::optional<QString> documentOf(const ITesselObject &object)
{
    QString text = object.GetXmlString();
    return object.HasData() ? std::optional(std::move(text)) : std::nullopt;
}

std::optional<QByteArray> binaryFormOf(const ITesselObject &object, int level)
{
    const auto xml = documentOf(object);
    return xml ? BinaryForm::pack(object.GetObjectName(), *xml, level) : std::nullopt;
}

bool writeWhole(QDataStream &stream, const QByteArray &bytes)
{
    constexpr TextSize Step = 1 << 20; // one call takes no more bytes than an int counts
    for (TextSize written = 0; written < bytes.size(); written += Step) {
        const int wanted = static_cast<int>(std::min(Step, bytes.size() - written));
        if (stream.writeRawData(bytes.constData() + written, wanted) != wanted)
            return false;
    }
    return true;
}

bool writeBinary(const ITesselObject &object, QDataStream &stream, int level)
{
    const auto bytes = binaryFormOf(object, level);
    return bytes && writeWhole(stream, *bytes) && stream.status() == QDataStream::Ok;
}

/// The content of \a file from its position when it is open, else from its start.
std::optional<QByteArray> readAll(QFile *file)
{
    if (!file)
        return std::nullopt;
    const bool wasOpen = file->isOpen();
    if (!wasOpen && !file->open(QIODevice::ReadOnly))
        return std::nullopt;
    auto content = contentOf(*file);
    if (!wasOpen)
        file->close();
    return content;
}

} // namespace

struct ITesselObject::SharedLimits : QSharedData {
    explicit SharedLimits(const ReadingLimits &readingLimits) : limits(readingLimits) { }
    ReadingLimits limits;
};

ITesselObject::ITesselObject() = default;

ITesselObject::ITesselObject(ObjectTypes type) : objectName(ObjectTypeToName(type)), objectType(type) { }

ITesselObject::ITesselObject(const ITesselObject &other) = default;

ITesselObject &ITesselObject::operator=(const ITesselObject &other) = default;

ITesselObject::~ITesselObject() = default;

void ITesselObject::Check(bool validate) const
{
    if (validate)
        Check();
}

bool ITesselObject::IsValid(float value) const
{
    return !std::isnan(value);
}

bool ITesselObject::IsValid(bool /*value*/) const
{
    return true;
}

bool ITesselObject::IsValid(unsigned int value) const
{
    return value != std::numeric_limits<unsigned int>::max();
}

bool ITesselObject::IsValid(long long value) const
{
    return value != std::numeric_limits<long long>::min();
}

bool ITesselObject::IsValid(const QDateTime &value) const
{
    return value.isValid();
}

bool ITesselObject::IsValid(const QString &value) const
{
    return !value.isEmpty();
}

bool ITesselObject::IsValid(double value) const
{
    return !std::isnan(value);
}

bool ITesselObject::IsValid(int value) const
{
    return value != std::numeric_limits<int>::min();
}

void ITesselObject::SetInvalid(float &value) const
{
    value = std::numeric_limits<float>::quiet_NaN();
}

void ITesselObject::SetInvalid(unsigned int &value) const
{
    value = std::numeric_limits<unsigned int>::max();
}

void ITesselObject::SetInvalid(long long &value) const
{
    value = std::numeric_limits<long long>::min();
}

void ITesselObject::SetInvalid(QString &value) const
{
    value.clear();
}

void ITesselObject::SetInvalid(double &value) const
{
    value = std::numeric_limits<double>::quiet_NaN();
}

void ITesselObject::SetInvalid(int &value) const
{
    value = std::numeric_limits<int>::min();
}

bool ITesselObject::GetBinary(QDataStream &stream, int /*version*/, bool compress) const
{
    return writeBinary(*this, stream, compress ? UsualCompression : Uncompressed);
}

void ITesselObject::SetBinary(QDataStream &stream, int /*version*/)
{
    if (!SetBinaryRepresentation(stream)) {
        stream.resetStatus(); // an earlier status, such as reading past the end, would stay
        stream.setStatus(QDataStream::ReadCorruptData);
    }
}

bool ITesselObject::SetXmlString(const QString &text, bool validate)
{
    if (refusalOf(text, GetReadingLimits()))
        return false;
    QXmlStreamReader reader(text);
    if (!readToRoot(reader) || GetReadingLimits().GetDepth() < 1
        || (validate && reader.name() != GetObjectName()))
        return false;
    ProcessXml(reader);
    return readToEnd(*this, reader, 0);
}

bool ITesselObject::SetBinaryRepresentation(QByteArray &data)
{
    QDataStream stream(&data, QIODevice::ReadOnly);
    const auto xml = BinaryForm::unpack(stream, GetObjectName(), GetReadingLimits());
    return xml && stream.atEnd() && isDocumentOf(*this, *xml) && SetXmlString(*xml, true);
}

bool ITesselObject::SetBinaryRepresentation(QDataStream &stream)
{
    const auto xml = BinaryForm::unpack(stream, GetObjectName(), GetReadingLimits());
    return xml && isDocumentOf(*this, *xml) && SetXmlString(*xml, true);
}

bool ITesselObject::MergeTesselObject(const ITesselObject &other)
{
    if (other.GetObjectName() != GetObjectName())
        return false;
    const auto xml = documentOf(other);
    if (!xml)
        return false;
    if (&other == this)
        return true;
    merging.isSet = true;
    const auto ending = qScopeGuard([this] { merging.isSet = false; });
    return SetXmlString(*xml, true);
}

ObjectTypes ITesselObject::GetObjectType() const
{
    return objectType;
}

const QString &ITesselObject::GetObjectName() const
{
    return objectName;
}

void ITesselObject::ProcessXml(QXmlStreamReader &reader)
{
    // A child may be read up to an end element deeper than its own, so ours is told by its name.
    // It is nearly always the name that the object has anyway.
    const QString ownName =
        reader.qualifiedName() == objectName ? objectName : reader.qualifiedName().toString();
    while (!reader.atEnd()) {
        const auto token = reader.readNext();
        if (token == QXmlStreamReader::EndElement && reader.qualifiedName() == ownName)
            return;
        if (token == QXmlStreamReader::StartElement) {
            Nesting nesting(*this, reader, 1);
            nesting.count(token);
            if (reader.hasError())
                return;
            ProcessXmlStartElement(reader);
            if (reader.isStartElement())
                nesting.skipElement();
        }
    }
}

QString ITesselObject::GetXmlString() const
{
    Check();
    DocumentWriter writer;
    GetXml(writer.xml());
    const auto text = writer.finish();
    if (!text)
        fail(Messages::notRepresentable(GetObjectName()));
    return *text;
}

void ITesselObject::GetBinaryRepresentation(QDataStream &stream) const
{
    writeBinary(*this, stream, Uncompressed);
}

QByteArray ITesselObject::GetBinaryRepresentationAsQByteArray()
{
    return binaryFormOf(*this, Uncompressed).value_or(QByteArray());
}

void ITesselObject::GetCompressedBinaryRepresentation(QDataStream &stream, int level) const
{
    writeBinary(*this, stream, level);
}

QByteArray ITesselObject::GetCompressedBinaryRepresentationAsQByteArray(int level)
{
    return binaryFormOf(*this, level).value_or(QByteArray());
}

bool ITesselObject::LoadXml(const QString &path)
{
    QFile file(path);
    return LoadXml(&file);
}

bool ITesselObject::LoadXml(QFile *file)
{
    const auto content = readAll(file);
    return content && SetXmlString(decodeUtf8(*content), true);
}

bool ITesselObject::LoadBinary(QFile *file)
{
    auto content = readAll(file);
    return content && SetBinaryRepresentation(*content);
}

bool ITesselObject::SaveXml(const QString &path) const
{
    const auto text = documentOf(*this);
    return text && !failureToSave(*text, path);
}

void ITesselObject::SetValidate(bool validate) const
{
    validateFlag = validate;
}

bool ITesselObject::GetValidate() const
{
    return validateFlag;
}

void ITesselObject::SetLogger(std::shared_ptr<Logger> newLogger) const
{
    logger = std::move(newLogger);
}

void ITesselObject::ResetLogger() const
{
    logger.reset();
}

const QString &ITesselObject::GetVersion() const
{
    static const NoDestructor<QString> version(DefaultVersion.toString());
    return *version;
}

void ITesselObject::SetReadingLimits(const ReadingLimits &limits)
{
    ownLimits = limits == ReadingLimits() ? nullptr : new SharedLimits(limits);
}

ReadingLimits ITesselObject::GetReadingLimits() const
{
    return ownLimits.constData() ? ownLimits->limits : ReadingLimits();
}

void ITesselObject::SetObjectType(ObjectTypes type)
{
    objectType = type;
}

void ITesselObject::SetObjectName(const QString &name)
{
    objectName = name;
}

void ITesselObject::ProcessXmlStartElement(QXmlStreamReader & /*reader*/) { }

QString ITesselObject::GetTextValue(QXmlStreamReader &reader)
{
    return elementText(reader);
}

OwnedReading::OwnedReading(const ITesselObject &owner, ITesselObject &owned)
    : object(owned), ownLimits(owner.ownLimits), outerElements(owned.outerElements)
{
    object.ownLimits.swap(ownLimits);
    object.outerElements = static_cast<quint16>(owner.outerElements + 1);
}

OwnedReading::~OwnedReading()
{
    object.ownLimits.swap(ownLimits);
    object.outerElements = outerElements;
}

} // namespace TESSEL
