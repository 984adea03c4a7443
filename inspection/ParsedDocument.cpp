#include "inspection/ParsedDocument_p.h"

#include <inspection/Ascii_p.h>
#include <inspection/Completeness_p.h>
#include <inspection/Remedy_p.h>
#include <inspection/TextEncoding_p.h>
#include <inspection/XmlPlaces_p.h>
#include <objectbase/QtCompat_p.h>
#include <objectbase/ReadingBounds_p.h>
#include <objectbase/TesselException.h>

#include <utility>

namespace KORMAK::Inspection {

namespace {

[[noreturn]] void throwAt(const QByteArray &text, qsizetype offset, const QString &message,
                          QStringView id = FindingId::Refused, const QStringList &allowed = {},
                          ReadingLimit limit = ReadingLimit::None)
{
    throw DocumentError{message, TextPositions(text).at(offset), id, allowed, limit, offset};
}

/// The length of the character in UTF-8 at \a bytes, of which there are \a size; 0 when there is none.
qsizetype characterLength(const uchar *bytes, qsizetype size)
{
    constexpr uint FirstOf3 = 0x800; // less fits into fewer bytes
    constexpr uint FirstOf4 = 0x10000;
    const uint lead = *bytes;
    if (lead < 0x80)
        return 1;
    const int length = lead < 0xC2 || lead > 0xF4 ? 0 : lead < 0xE0 ? 2 : lead < 0xF0 ? 3 : 4;
    if (length == 0 || length > size)
        return 0;
    uint code = lead & (0x7FU >> length);
    for (int i = 1; i < length; ++i) {
        if ((bytes[i] & 0xC0U) != 0x80)
            return 0;
        code = code << 6U | (bytes[i] & 0x3FU);
    }
    const bool isOverlong = (length == 3 && code < FirstOf3) || (length == 4 && code < FirstOf4);
    return isOverlong || QChar::isSurrogate(code) || code > QChar::LastValidCodePoint ? 0 : length;
}

/// Whether the library would read anything of a text. It reads nothing where a namespace is declared twice in
/// one element, of which the tree tells more.
/// \throws DocumentError for a text that could take much more memory or time than it has characters
bool isReadWithin(const QByteArray &text, const TESSEL::ReadingLimits &limits)
{
    using TESSEL::RefusedText;
    if (!TESSEL::mayBeRefused({text.constData(), static_cast<std::size_t>(text.size())}, limits))
        return true;
    const QString characters = QString::fromUtf8(text);
    const auto refused = TESSEL::refusalOf(characters, limits);
    if (!refused)
        return true;
    if (refused->reason == RefusedText::NamespaceDeclaredTwice)
        return false;
    const ReadingLimit limit = refused->reason == RefusedText::Attributes ? ReadingLimit::Attributes
        : refused->reason == RefusedText::Depth                           ? ReadingLimit::Depth
                                                                          : ReadingLimit::Entities;
    const qsizetype offset =
        QStringView(characters).left(static_cast<TESSEL::TextSize>(refused->offset)).toUtf8().size();
    throwAt(text, offset, refused->message, FindingId::BeyondLimit, {}, limit);
}

[[noreturn]] void throwUnknownKind(const QByteArray &text, const XmlTree &tree)
{
    const QString name = localName(tree.name(XmlTree::Root)).toString();
    const QStringList kinds = documentKindNames();
    const qsizetype offset = tree.offset(XmlTree::Root);
    DocumentError error{QStringLiteral("unknown kind of document '%1'").arg(name)
                            + question(guessOf(name, kinds).names),
                        TextPositions(text).at(offset), FindingId::UnknownKind, kinds};
    error.offset = offset;
    error.otherName = nameInOtherCase(name, kinds);
    throw DocumentError(std::move(error));
}

} // namespace

qsizetype firstByteOutsideUtf8(const QByteArray &bytes)
{
    const auto *const data = reinterpret_cast<const uchar *>(bytes.constData());
    qsizetype at = 0;
    while (at < bytes.size()) {
        at += asciiLength(bytes, at, bytes.size());
        if (at == bytes.size())
            break;
        const qsizetype length = characterLength(data + at, bytes.size() - at);
        if (length == 0)
            break;
        at += length;
    }
    return at;
}

qsizetype byteOrderMarkSize(const QByteArray &bytes)
{
    constexpr char ByteOrderMark[] = "\xEF\xBB\xBF";
    constexpr qsizetype Size = sizeof ByteOrderMark - 1;
    return bytes.startsWith(ByteOrderMark) ? Size : 0;
}

QByteArray checkedText(QByteArray bytes, Findings *findings)
{
    bytes.remove(0, static_cast<TESSEL::TextSize>(byteOrderMarkSize(bytes)));
    const qsizetype end = firstByteOutsideUtf8(bytes);
    if (const qsizetype nul = bytes.indexOf('\0'); nul >= 0 && nul < end)
        throwAt(bytes, nul, QStringLiteral("the text holds a NUL byte") + likelyEncoding(bytes, nul),
                FindingId::Encoding);
    if (end < bytes.size()) {
        throwAt(bytes, end,
                QStringLiteral("byte 0x%1 is not UTF-8")
                        .arg(static_cast<uchar>(bytes.constData()[end]), 2, 16, QLatin1Char('0'))
                    + likelyEncoding(bytes, end),
                FindingId::Encoding);
    }
    if (const auto other = findings ? otherEncodingDeclared(bytes) : std::nullopt)
        findings->push_back(*other);
    return withoutEncoding(std::move(bytes));
}

ParsedDocument documentOf(const QByteArray &text, const TESSEL::ReadingLimits &limits,
                          const QString &expectedKind)
{
    const bool isRead = isReadWithin(text, limits);
    ParsedDocument document;
    document.text = text;
    document.tree = XmlTree(text, limits.GetDepth());
    const XmlTree &tree = document.tree;
    if (!tree.hasRoot())
        throwAt(text, tree.broken()->offset, tree.broken()->message, FindingId::NotWellFormed);
    const QStringView rootElement = localName(tree.name(XmlTree::Root));
    document.kind = findDocumentKind(rootElement);
    if (!document.kind)
        throwUnknownKind(text, tree);
    if (!expectedKind.isEmpty() && rootElement != expectedKind) {
        throwAt(text, tree.offset(XmlTree::Root),
                QStringLiteral("is a document of kind %1, not %2").arg(rootElement.toString(), expectedKind),
                FindingId::OtherKind);
    }
    document.object = document.kind->create();
    document.object->SetReadingLimits(limits);
    WalkOutcome outcome = walk(tree, document.kind->table(), document.kind->variableAddress(*document.object),
                               *document.object);
    document.findings = std::move(outcome.findings);
    document.rejection = std::move(outcome.rejection);
    document.isComplete = isRead && outcome.isComplete;
    if (const auto &broken = tree.broken(); broken && !document.rejection)
        document.rejection = Rejection{broken->message, broken->offset};
    return document;
}

std::optional<Rejection> checkObject(const ParsedDocument &document)
{
    const auto complaint = complaintOf(*document.object);
    if (!complaint)
        return std::nullopt;
    const QString objectName = complaint->section(QLatin1Char(':'), 0, 0);
    return Rejection{*complaint, document.tree.offset(elementNamed(document.tree, objectName))};
}

void throwRejection(const Rejection &rejection, const QByteArray &text)
{
    throwAt(text, rejection.offset, rejection.message, rejection.id, {}, rejection.limit);
}

QString stateOf(const DocumentKind &kind, const TESSEL::ITesselObject &object)
{
    const auto reason = whyIncomplete(object);
    return kind.rootElement.toString()
        + (reason ? QStringLiteral(", not complete: ") + *reason : QStringLiteral(", complete"));
}

} // namespace KORMAK::Inspection
