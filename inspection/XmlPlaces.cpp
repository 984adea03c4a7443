#include "inspection/XmlPlaces_p.h"

#include <inspection/Ascii_p.h>
#include <objectbase/QtCompat_p.h>

#include <algorithm>
#include <optional>
#include <string_view>
#include <utility>

namespace KORMAK::Inspection {

namespace {

constexpr int FewestBytesOfDevice = 4; // Qt tells no encoding of less
constexpr std::string_view ByteOrderMark = "\xEF\xBB\xBF";
constexpr std::string_view Blanks = " \t\r\n";

std::string_view opening(QXmlStreamReader::TokenType token)
{
    switch (token) {
    case QXmlStreamReader::Comment:
        return "<!--";
    case QXmlStreamReader::ProcessingInstruction:
        return "<?";
    case QXmlStreamReader::DTD:
        return "<!DOCTYPE";
    default:
        return "<";
    }
}

std::string_view viewOf(const QByteArray &bytes)
{
    return {bytes.constData(), static_cast<std::size_t>(bytes.size())};
}

bool isAsciiOnly(const QByteArray &bytes)
{
    const auto end = bytes.cend();
    const auto rest = bytes.cbegin() + static_cast<TESSEL::TextSize>(asciiLength(bytes, 0, bytes.size()));
    return std::all_of(rest, end, [](char c) { return static_cast<signed char>(c) >= 0; });
}

bool isFurtherByte(char c)
{
    constexpr int UpperBits = 0xC0;
    constexpr int FurtherByte = 0x80;
    return (c & UpperBits) == FurtherByte;
}

/// Of the character in UTF-16 whose first byte is \a c.
int unitsOf(char c)
{
    constexpr auto FirstOfFour = static_cast<uchar>(0xF0);
    return static_cast<uchar>(c) >= FirstOfFour ? 2 : 1;
}

void skipBlanks(std::string_view &text)
{
    text.remove_prefix(std::min(text.find_first_not_of(Blanks), text.size()));
}

bool take(std::string_view &text, std::string_view what)
{
    const bool isThere = text.substr(0, what.size()) == what;
    text.remove_prefix(isThere ? what.size() : 0);
    return isThere;
}

/// The value of the attribute that \a text begins with, behind blanks; nothing when it is another one.
std::optional<std::string_view> takeAttribute(std::string_view &text, std::string_view name)
{
    std::string_view rest = text;
    skipBlanks(rest);
    const bool hasBlanks = rest.size() < text.size();
    if (!hasBlanks || !take(rest, name))
        return std::nullopt;
    skipBlanks(rest);
    if (!take(rest, "="))
        return std::nullopt;
    skipBlanks(rest);
    const auto end =
        rest.empty() || (rest[0] != '"' && rest[0] != '\'') ? std::string_view::npos : rest.find(rest[0], 1);
    if (end == std::string_view::npos)
        return std::nullopt;
    const std::string_view value = rest.substr(1, end - 1);
    text = rest.substr(end + 1);
    return value;
}

bool isEncodingName(std::string_view name)
{
    const auto isLetter = [](char c) { return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z'); };
    const auto isAllowed = [&isLetter](char c) {
        return isLetter(c) || (c >= '0' && c <= '9') || c == '.' || c == '_' || c == '-';
    };
    return !name.empty() && isLetter(name[0]) && std::all_of(name.begin(), name.end(), isAllowed);
}

} // namespace

PlacedReader::PlacedReader(QByteArray utf8)
    : text(std::move(utf8)), reader(text.size() < FewestBytesOfDevice ? QString::fromUtf8(text) : QString()),
      begin(viewOf(text).substr(0, ByteOrderMark.size()) == ByteOrderMark
                ? static_cast<qsizetype>(ByteOrderMark.size())
                : 0),
      isAscii(isAsciiOnly(text)), place(begin)
{
    if (text.size() < FewestBytesOfDevice)
        return;
    device.setData(text);
    device.open(QIODevice::ReadOnly | QIODevice::Unbuffered);
    reader.setDevice(&device);
}

qsizetype PlacedReader::offset()
{
    const qint64 wanted = reader.characterOffset();
    if (isAscii)
        return static_cast<qsizetype>(std::min<qint64>(wanted, text.size()));
    if (wanted < units) {
        units = 0;
        place = begin;
    }
    const char *const bytes = text.constData();
    for (const qsizetype end = text.size(); units < wanted && place < end;) {
        const qsizetype narrow =
            asciiLength(text, place, place + std::min<qsizetype>(end - place, wanted - units));
        if (narrow > 0) {
            units += narrow;
            place += narrow;
            continue;
        }
        units += unitsOf(bytes[place++]);
        while (place < end && isFurtherByte(bytes[place]))
            ++place;
    }
    return place;
}

qsizetype PlacedReader::startOfToken()
{
    const qsizetype end = offset();
    const qsizetype from = std::min(lastEnd, end);
    const std::string_view unseen =
        viewOf(text).substr(static_cast<std::size_t>(from), static_cast<std::size_t>(end - from));
    const std::string_view opened = opening(reader.tokenType());
    const auto found = opened.size() == 1 ? unseen.rfind(opened.front()) : unseen.rfind(opened);
    lastEnd = end;
    if (found != std::string_view::npos) // else it stands in the entity that the token before it stands in
        lastStart = from + static_cast<qsizetype>(found);
    return lastStart;
}

qsizetype PlacedReader::placeOfError()
{
    qsizetype error = offset();
    switch (reader.error()) {
    case QXmlStreamReader::UnexpectedElementError:
    case QXmlStreamReader::CustomError:
        return elementReadAt(text, error);
    case QXmlStreamReader::PrematureEndOfDocumentError:
        return error;
    default: // the last character that it read
        error = std::max<qsizetype>(error - 1, 0);
        while (error > 0 && error < text.size() && isFurtherByte(text.constData()[error]))
            --error;
        return error;
    }
}

std::vector<PlacedReader::NamePlace> PlacedReader::attributesInTag()
{
    const qsizetype start = startOfToken();
    const std::string_view tag =
        viewOf(text).substr(static_cast<std::size_t>(start), static_cast<std::size_t>(offset() - start));
    const QByteArray opened = '<' + reader.qualifiedName().toUtf8();
    if (tag.substr(0, static_cast<std::size_t>(opened.size())) != viewOf(opened))
        return {};
    std::vector<NamePlace> names;
    for (auto at = tag.find_first_of(Blanks); at != std::string_view::npos;) {
        const auto name = tag.find_first_not_of(Blanks, at);
        const auto nameEnd = tag.find_first_of(" \t\r\n=", name);
        const auto quote = tag.find_first_of("\"'", nameEnd);
        if (quote == std::string_view::npos)
            break;
        names.push_back({QString::fromUtf8(tag.data() + name, static_cast<int>(nameEnd - name)),
                         start + static_cast<qsizetype>(name)});
        const auto end = tag.find(tag[quote], quote + 1);
        at = end == std::string_view::npos ? end : end + 1;
    }
    return names;
}

std::optional<DeclaredEncoding> declaredEncoding(const QByteArray &text)
{
    std::string_view rest = viewOf(text);
    (void)take(rest, ByteOrderMark); // a second one, which readers pass over, too
    if (!take(rest, "<?xml") || !takeAttribute(rest, "version"))
        return std::nullopt;
    const auto begin = text.size() - static_cast<qsizetype>(rest.size());
    const auto name = takeAttribute(rest, "encoding");
    if (!name || !isEncodingName(*name) || !TESSEL::isKnownEncoding(*name))
        return std::nullopt;
    const auto end = text.size() - static_cast<qsizetype>(rest.size());
    return DeclaredEncoding{begin, end, QByteArray(name->data(), static_cast<int>(name->size())),
                            name->data() - text.constData()};
}

QByteArray withoutEncoding(QByteArray utf8)
{
    if (const auto declared = declaredEncoding(utf8))
        std::fill_n(utf8.data() + declared->begin, declared->end - declared->begin, ' ');
    return utf8;
}

qsizetype elementReadAt(const QByteArray &utf8, qsizetype offset)
{
    std::vector<qsizetype> open;
    PlacedReader reader(utf8);
    while (!reader.xml().atEnd()) {
        reader.xml().readNext();
        if (reader.xml().isStartElement())
            open.push_back(reader.startOfToken());
        if (reader.offset() >= offset && !open.empty())
            return open.back();
        if (reader.xml().isEndElement())
            open.pop_back();
    }
    return 0;
}

} // namespace KORMAK::Inspection
