#include "tools/DocumentFile.h"

#include <objectbase/Nesting_p.h>
#include <objectbase/QtCompat_p.h>
#include <objectbase/ReadingBounds_p.h>
#include <objectbase/TesselException.h>
#include <objectbase/XmlForm_p.h>
#include <tools/Console.h>
#include <tools/LimitOptions.h>
#include <tools/Obstacles.h>
#include <tools/Terminal.h>
#include <tools/Utf8.h>
#include <tools/XmlPlaces.h>

#include <QXmlStreamReader>

#include <new>
#include <utility>

namespace {

[[noreturn]] void throwAt(const QByteArray &text, qsizetype offset, const QString &message,
                          QStringView id = FindingId::Refused, const QStringList &allowed = {})
{
    throw DocumentError{message, TextPositions(text).at(offset), id, allowed};
}

InputFile::Content readBytes(const QString &path)
{
    try {
        return InputFile::read(path);
    } catch (const InputFile::Error &error) {
        throw DocumentError{QStringLiteral("cannot be read: ") + error.reason};
    }
}

/// \throws DocumentError for anything that Qt would replace or stop at without a word
QByteArray checkedText(QByteArray bytes)
{
    constexpr char ByteOrderMark[] = "\xEF\xBB\xBF";
    if (bytes.startsWith(ByteOrderMark))
        bytes.remove(0, sizeof ByteOrderMark - 1);
    const qsizetype end = firstByteOutsideUtf8(bytes);
    if (const qsizetype nul = bytes.indexOf('\0'); nul >= 0 && nul < end)
        throwAt(bytes, nul, QStringLiteral("the text holds a NUL byte"), FindingId::Encoding);
    if (end < bytes.size()) {
        throwAt(bytes, end,
                QStringLiteral("byte 0x%1 is not UTF-8")
                    .arg(static_cast<uchar>(bytes.constData()[end]), 2, 16, QLatin1Char('0')),
                FindingId::Encoding);
    }
    return withoutEncoding(std::move(bytes));
}

[[noreturn]] void throwRejection(const Rejection &rejection, const QByteArray &text)
{
    throwAt(text, rejection.offset, rejection.message, rejection.id);
}

/// \throws DocumentError for a text that could take much more memory or time than it has characters
void checkLimits(const QByteArray &text, const TESSEL::ReadingLimits &limits)
{
    using TESSEL::RefusedText;
    const QString characters = QString::fromUtf8(text);
    const auto refused = TESSEL::refusalOf(characters, limits);
    if (!refused || refused->reason == RefusedText::NamespaceDeclaredTwice) // of which the tree tells more
        return;
    const QStringView option = refused->reason == RefusedText::Attributes ? AttributesLimit
        : refused->reason == RefusedText::Depth                           ? DepthLimit
                                                                          : EntitiesLimit;
    const qsizetype offset =
        QStringView(characters).left(static_cast<TESSEL::TextSize>(refused->offset)).toUtf8().size();
    throwAt(text, offset, withOption(refused->message, option), FindingId::BeyondLimit);
}

/// Whether a namespace may be declared twice in an element, which nothing but the whole tree would tell.
bool mayRepeatDeclarations(const QByteArray &text)
{
    const char declaration[] = "xmlns";
    const auto first = text.indexOf(declaration);
    return (first >= 0 && text.indexOf(declaration, first + 1) >= 0) || text.contains("<!ENTITY");
}

std::optional<Rejection> readInto(TESSEL::ITesselObject &object, const QByteArray &text)
{
    PlacedReader placed(text);
    QXmlStreamReader &reader = placed.xml();
    (void)TESSEL::readToRoot(reader);
    try {
        object.ProcessXml(reader);
    } catch (const TESSEL::TesselException &exception) {
        if (!reader.hasError())
            return Rejection{exception.GetErrorMessage(), elementReadAt(text, placed.offset())};
    }
    while (!reader.atEnd())
        reader.readNext();
    if (!reader.hasError())
        return std::nullopt;
    if (reader.errorString() == TESSEL::depthMessage(object.GetReadingLimits().GetDepth()))
        return Rejection{withOption(reader.errorString(), DepthLimit), placed.placeOfError(),
                         FindingId::BeyondLimit};
    return Rejection{reader.errorString(), placed.placeOfError()};
}

} // namespace

SourceText readText(const QString &path)
{
    InputFile::Content content = readBytes(path);
    return {checkedText(std::move(content.bytes)), content.state};
}

Document documentOf(const SourceText &source, XmlTree::Extent extent, const TESSEL::ReadingLimits &limits)
{
    const QByteArray &text = source.text;
    checkLimits(text, limits);
    if (mayRepeatDeclarations(text))
        extent = XmlTree::Extent::Whole;
    Document document{text, XmlTree(text, extent), nullptr, nullptr, source.source};
    const XmlTree &tree = document.tree;
    if (!tree.hasRoot())
        throwAt(text, tree.broken()->offset, tree.broken()->message, FindingId::NotWellFormed);
    const QStringView rootElement = localName(tree.name(XmlTree::Root));
    document.kind = findDocumentKind(rootElement);
    if (!document.kind) {
        throwAt(text, tree.offset(XmlTree::Root),
                QStringLiteral("unknown kind of document '%1'").arg(rootElement.toString()),
                FindingId::UnknownKind, documentKindNames());
    }
    document.object = document.kind->create();
    document.object->SetReadingLimits(limits);
    return document;
}

std::optional<Rejection> readObject(Document &document)
{
    auto rejection = readInto(*document.object, document.text);
    if (const auto &broken = document.tree.broken(); broken && !rejection)
        rejection = Rejection{broken->message, broken->offset};
    return rejection;
}

std::optional<Rejection> checkObject(const Document &document)
{
    const auto complaint = complaintOf(*document.object);
    if (!complaint)
        return std::nullopt;
    const QString objectName = complaint->section(QLatin1Char(':'), 0, 0);
    return Rejection{*complaint, document.tree.offset(elementNamed(document.tree, objectName))};
}

Document readDocument(const QString &path, XmlTree::Extent extent, const TESSEL::ReadingLimits &limits)
{
    Document document = documentOf(readText(path), extent, limits);
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
    throwAt(document.text, document.tree.offset(XmlTree::Root), message);
}

QString stateOf(const Document &document)
{
    const QString kind = document.kind->rootElement.toString();
    const auto reason = whyIncomplete(*document.object);
    return kind + (reason ? QStringLiteral(", not complete: ") + *reason : QStringLiteral(", complete"));
}

ExitStatus onDocument(const QString &path, XmlTree::Extent extent, const TESSEL::ReadingLimits &limits,
                      const std::function<ExitStatus(Document &)> &work)
{
    try {
        Document document = readDocument(path, extent, limits);
        return work(document);
    } catch (const DocumentError &error) {
        complainAbout(path, error);
        return error.position ? Faulty : Failed;
    } catch (const std::bad_alloc &) {
        complainAbout(path, {NotEnoughMemory.toString()});
        return Failed;
    }
}

void complainAbout(const QString &path, const Document &document, QStringView severity,
                   const Findings &findings)
{
    if (findings.empty())
        return;
    TextPositions positions(document.text);
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
