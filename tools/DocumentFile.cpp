#include "tools/DocumentFile.h"

#include <objectbase/TesselException.h>
#include <tools/Console.h>
#include <tools/Obstacles.h>
#include <tools/Utf8.h>
#include <tools/XmlPlaces.h>

#include <QByteArray>
#include <QFile>
#include <QFileInfo>
#include <QXmlStreamReader>

#include <cstdio>

namespace {

constexpr QStringView StandardInput = u"-";

[[noreturn]] void throwAt(const QString &text, qsizetype offset, const QString &message)
{
    throw DocumentError{message, TextPositions(text).at(offset)};
}

[[noreturn]] void throwUnreadable(const QString &reason)
{
    throw DocumentError{QStringLiteral("cannot be read: ") + reason};
}

QByteArray readBytes(const QString &path)
{
    QFile file(path);
    const bool isStandardInput = path == StandardInput;
    if (!isStandardInput && QFileInfo(path).isDir())
        throwUnreadable(QStringLiteral("it is a folder"));
    if (!(isStandardInput ? file.open(stdin, QIODevice::ReadOnly) : file.open(QIODevice::ReadOnly)))
        throwUnreadable(file.errorString());
    QByteArray bytes = file.readAll();
    if (file.error() != QFileDevice::NoError)
        throwUnreadable(file.errorString());
    return bytes;
}

/// The text without its byte-order mark. \throws DocumentError for anything that Qt would replace or stop at
/// without a word
QString decoded(const QByteArray &bytes)
{
    const qsizetype end = firstByteOutsideUtf8(bytes);
    QString text = QString::fromUtf8(bytes.constData(), static_cast<int>(end));
    if (const auto nul = text.indexOf(QChar(QChar::Null)); nul >= 0)
        throwAt(text, nul, QStringLiteral("the text holds a NUL byte"));
    if (end < bytes.size()) {
        throwAt(text, text.size(),
                QStringLiteral("byte 0x%1 is not UTF-8")
                    .arg(static_cast<uchar>(bytes.at(static_cast<int>(end))), 2, 16, QLatin1Char('0')));
    }
    return text;
}

[[noreturn]] void throwError(const QXmlStreamReader &reader, const QString &text)
{
    throwAt(text, placeOfError(reader, text), reader.errorString());
}

const DocumentKind &kindOf(const QXmlStreamReader &reader, const QString &text)
{
    const DocumentKind *kind = findDocumentKind(reader.name());
    if (!kind) {
        throwAt(text, startOfToken(reader, text),
                QStringLiteral("unknown kind of document '%1' (known: %2)")
                    .arg(reader.name().toString(), documentKindNames().join(QStringLiteral(", "))));
    }
    return *kind;
}

void readInto(TESSEL::ITesselObject &object, QXmlStreamReader &reader, const QString &text)
{
    try {
        object.ProcessXml(reader);
    } catch (const TESSEL::TesselException &exception) {
        if (reader.hasError())
            throwError(reader, text);
        throwAt(text, elementReadAt(text, reader.characterOffset()), exception.GetErrorMessage());
    }
    while (!reader.atEnd())
        reader.readNext();
    if (reader.hasError())
        throwError(reader, text);
}

} // namespace

Document readDocument(const QString &path)
{
    Document document{decoded(readBytes(path)), nullptr, nullptr};
    QXmlStreamReader reader(document.text);
    if (!reader.readNextStartElement())
        throwError(reader, document.text);
    document.kind = &kindOf(reader, document.text);
    document.object = document.kind->create();
    readInto(*document.object, reader, document.text);
    return document;
}

void checkDocument(const Document &document)
{
    const auto complaint = complaintOf(*document.object);
    if (!complaint)
        return;
    const QString objectName = complaint->section(QLatin1Char(':'), 0, 0);
    throwAt(document.text, elementNamed(document.text, objectName), *complaint);
}

void throwAtRoot(const Document &document, const QString &message)
{
    throwAt(document.text, elementNamed(document.text, document.kind->rootElement), message);
}

QString stateOf(const Document &document)
{
    const QString kind = document.kind->rootElement.toString();
    const auto reason = whyIncomplete(*document.object);
    return kind + (reason ? QStringLiteral(", not complete: ") + *reason : QStringLiteral(", complete"));
}

ExitStatus onDocument(const QString &path, const std::function<ExitStatus(const Document &)> &work)
{
    try {
        return work(readDocument(path));
    } catch (const DocumentError &error) {
        complainAbout(path, error);
        return error.position ? Faulty : Failed;
    }
}

void complainAbout(const QString &path, const Document &document, QStringView severity,
                   const Findings &findings)
{
    if (findings.empty())
        return;
    const TextPositions positions(document.text);
    for (const Finding &finding : findings) {
        Console::complain(QStringLiteral("%1:%2: %3: %4")
                              .arg(path, toText(positions.at(finding.offset)), severity.toString(),
                                   Console::oneLine(finding.message)));
    }
}

void complainAbout(const QString &path, const DocumentError &error)
{
    QString line = path;
    if (error.position)
        line += QLatin1Char(':') + toText(*error.position);
    Console::complain(line + QStringLiteral(": error: ") + Console::oneLine(error.message));
}
