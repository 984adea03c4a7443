#include "tools/DocumentFile.h"

#include <objectbase/TesselException.h>
#include <objectbase/XmlForm_p.h>
#include <tools/Console.h>
#include <tools/Obstacles.h>
#include <tools/Terminal.h>
#include <tools/Utf8.h>
#include <tools/XmlPlaces.h>

#include <QByteArray>
#include <QFile>
#include <QFileInfo>
#include <QXmlStreamReader>

#include <cstdio>

namespace {

[[noreturn]] void throwAt(const QString &text, qsizetype offset, const QString &message,
                          QStringView id = FindingId::Refused, const QStringList &allowed = {})
{
    throw DocumentError{message, TextPositions(text).at(offset), id, allowed};
}

[[noreturn]] void throwUnreadable(const QString &reason)
{
    throw DocumentError{QStringLiteral("cannot be read: ") + reason};
}

QByteArray readBytes(const QString &path)
{
    QFile file(path);
    const bool isStandardInput = path == StandardStream;
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
        throwAt(text, nul, QStringLiteral("the text holds a NUL byte"), FindingId::Encoding);
    if (end < bytes.size()) {
        throwAt(text, text.size(),
                QStringLiteral("byte 0x%1 is not UTF-8")
                    .arg(static_cast<uchar>(bytes.at(static_cast<int>(end))), 2, 16, QLatin1Char('0')),
                FindingId::Encoding);
    }
    return text;
}

Rejection errorOf(const QXmlStreamReader &reader, const QString &text)
{
    return {reader.errorString(), placeOfError(reader, text)};
}

[[noreturn]] void throwRejection(const Rejection &rejection, const QString &text)
{
    throwAt(text, rejection.offset, rejection.message);
}

} // namespace

QString readText(const QString &path)
{
    return decoded(readBytes(path));
}

const DocumentKind &kindOf(const QString &text)
{
    QXmlStreamReader reader(text);
    if (!TESSEL::readToRoot(reader)) {
        const Rejection error = errorOf(reader, text);
        throwAt(text, error.offset, error.message, FindingId::NotWellFormed);
    }
    const DocumentKind *kind = findDocumentKind(reader.name());
    if (!kind) {
        throwAt(text, startOfToken(reader, text),
                QStringLiteral("unknown kind of document '%1'").arg(reader.name().toString()),
                FindingId::UnknownKind, documentKindNames());
    }
    return *kind;
}

std::optional<Rejection> readObject(Document &document)
{
    QXmlStreamReader reader(document.text);
    (void)TESSEL::readToRoot(reader);
    try {
        document.object->ProcessXml(reader);
    } catch (const TESSEL::TesselException &exception) {
        if (!reader.hasError())
            return Rejection{exception.GetErrorMessage(),
                             elementReadAt(document.text, reader.characterOffset())};
    }
    while (!reader.atEnd())
        reader.readNext();
    return reader.hasError() ? std::optional(errorOf(reader, document.text)) : std::nullopt;
}

std::optional<Rejection> checkObject(const Document &document)
{
    const auto complaint = complaintOf(*document.object);
    if (!complaint)
        return std::nullopt;
    const QString objectName = complaint->section(QLatin1Char(':'), 0, 0);
    return Rejection{*complaint, elementNamed(document.text, objectName)};
}

Document readDocument(const QString &path)
{
    Document document{readText(path), nullptr, nullptr};
    document.kind = &kindOf(document.text);
    document.object = document.kind->create();
    if (const auto rejection = readObject(document))
        throwRejection(*rejection, document.text);
    return document;
}

void checkDocument(const Document &document)
{
    if (const auto rejection = checkObject(document))
        throwRejection(*rejection, document.text);
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
    for (const Finding &finding : findings)
        Console::complain(complaintLine(path, positions.at(finding.offset), severity, finding));
}

QString complaintLine(const QString &path, const std::optional<TextPosition> &position, QStringView severity,
                      const Finding &finding)
{
    const QString place = finding.path.isEmpty() ? QString() : finding.path + QStringLiteral(": ");
    return complaintLine(path, position, severity, place + finding.message, finding.allowed);
}

void complainAbout(const QString &path, const DocumentError &error)
{
    Console::complain(complaintLine(path, error.position, u"error", error.message, error.allowed));
}

QString complaintLine(const QString &path, const std::optional<TextPosition> &position, QStringView severity,
                      const QString &message, const QStringList &allowed)
{
    QString line = path;
    if (position)
        line += QLatin1Char(':') + toText(*position);
    line += QStringLiteral(": ") + Terminal::coloured(severity) + QStringLiteral(": ")
        + Console::oneLine(message);
    if (!allowed.isEmpty())
        line += QStringLiteral(" (allowed: ") + allowed.join(QStringLiteral(", ")) + QLatin1Char(')');
    return line;
}
