#include "tools/XmlPlaces.h"

#include <QRegularExpression>

#include <algorithm>
#include <string_view>

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

} // namespace

PlacedReader::PlacedReader(const QByteArray &utf8)
    : text(utf8), begin(viewOf(text).substr(0, ByteOrderMark.size()) == ByteOrderMark
                            ? static_cast<qsizetype>(ByteOrderMark.size())
                            : 0),
      place(begin)
{
    if (text.size() < FewestBytesOfDevice) {
        reader.addData(QString::fromUtf8(text));
        return;
    }
    device.setData(text);
    device.open(QIODevice::ReadOnly | QIODevice::Unbuffered);
    reader.setDevice(&device);
}

qsizetype PlacedReader::offset()
{
    const qint64 wanted = reader.characterOffset();
    if (wanted < units) {
        units = 0;
        place = begin;
    }
    const char *const bytes = text.constData();
    for (const qsizetype end = text.size(); units < wanted && place < end;) {
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
    const auto found = unseen.rfind(opening(reader.tokenType()));
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

QByteArray withoutEncoding(QByteArray utf8)
{
    constexpr int LongestDeclaration = 1000;
    static const QRegularExpression declaration(
        QStringLiteral("^<\\?xml[ \\t\\r\\n]+version[ \\t\\r\\n]*=[ \\t\\r\\n]*(?:\"[^\"]*\"|'[^']*')"
                       "([ \\t\\r\\n]+encoding[ \\t\\r\\n]*=[ \\t\\r\\n]*"
                       "(?:\"[A-Za-z][A-Za-z0-9._-]*\"|'[A-Za-z][A-Za-z0-9._-]*'))"));
    const auto match = declaration.match(QString::fromLatin1(utf8.left(LongestDeclaration)));
    if (match.hasMatch())
        std::fill_n(utf8.data() + match.capturedStart(1), match.capturedLength(1), ' ');
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
