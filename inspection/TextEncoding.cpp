#include "inspection/TextEncoding_p.h"

#include <inspection/XmlPlaces_p.h>

#include <algorithm>
#include <array>
#include <string_view>

namespace KORMAK::Inspection {

namespace {

using namespace std::string_view_literals;

struct WideForm {
    std::string_view start; ///< of a text; x: what a document may begin with, y: any character
    QStringView encoding; ///< as iconv calls it
};

/// Longer ones before those that they begin with.
constexpr std::array WideForms{
    WideForm{"\xFF\xFE\0\0"sv, u"UTF-32"}, WideForm{"\0\0\xFE\xFF"sv, u"UTF-32"},
    WideForm{"\xFF\xFE"sv, u"UTF-16"},     WideForm{"\xFE\xFF"sv, u"UTF-16"},
    WideForm{"x\0\0\0"sv, u"UTF-32LE"},    WideForm{"\0\0\0x"sv, u"UTF-32BE"},
    WideForm{"x\0y\0"sv, u"UTF-16LE"},     WideForm{"\0x\0y"sv, u"UTF-16BE"},
};

bool canBegin(char c)
{
    return "< \t\r\n"sv.find(c) != std::string_view::npos;
}

bool beginsLike(const QByteArray &bytes, std::string_view start)
{
    if (bytes.size() < static_cast<int>(start.size()))
        return false;
    return std::equal(start.begin(), start.end(), bytes.begin(), [](char wanted, char c) {
        return wanted == 'x' ? canBegin(c) : wanted == 'y' ? c != '\0' : wanted == c;
    });
}

QString wideEncoding(const QByteArray &bytes)
{
    const auto *const form = std::find_if(WideForms.begin(), WideForms.end(), [&bytes](const WideForm &one) {
        return beginsLike(bytes, one.start);
    });
    return form == WideForms.end() ? QString() : form->encoding.toString();
}

bool isLayout(char c)
{
    return c == '\t' || c == '\r' || c == '\n';
}

/// A document with characters of one byte, as far as one can see.
bool isNarrow(const QByteArray &bytes)
{
    constexpr char Delete = 0x7F;
    const auto *const first =
        std::find_if(bytes.begin(), bytes.end(), [](char c) { return c != ' ' && !isLayout(c); });
    const bool hasControls = std::any_of(bytes.begin(), bytes.end(), [](char c) {
        return (static_cast<uchar>(c) < static_cast<uchar>(' ') && !isLayout(c)) || c == Delete;
    });
    return first != bytes.end() && *first == '<' && !hasControls;
}

bool isAscii(const QByteArray &bytes, qsizetype size)
{
    return std::none_of(bytes.begin(), bytes.begin() + size,
                        [](char c) { return static_cast<signed char>(c) < 0; });
}

/// Windows has characters where ISO 8859 has controls that no document needs.
bool usesWindowsCharacters(const QByteArray &bytes)
{
    constexpr uchar First = 0x80;
    constexpr uchar Last = 0x9F;
    return std::any_of(bytes.begin(), bytes.end(), [](char c) {
        return static_cast<uchar>(c) >= First && static_cast<uchar>(c) <= Last;
    });
}

bool isCalled(const QString &encoding, QStringView start)
{
    return encoding.startsWith(start.toString(), Qt::CaseInsensitive);
}

bool isUtf8(const QString &encoding)
{
    return isCalled(encoding, u"UTF-8") || isCalled(encoding, u"UTF8");
}

/// Its characters have several bytes each.
bool isWide(const QString &encoding)
{
    return isCalled(encoding, u"UTF") || isCalled(encoding, u"UCS") || isCalled(encoding, u"ISO-10646");
}

/// A character of several bytes begins there, as no text in another encoding is likely to say.
bool hasFurtherByte(const QByteArray &bytes, qsizetype at)
{
    const auto byte = [&bytes](qsizetype place) { return static_cast<uchar>(bytes.constData()[place]); };
    return byte(at) >= 0xC0U && at + 1 < bytes.size() && (byte(at + 1) & 0xC0U) == 0x80U;
}

QString advice(const QString &words, const QString &encoding)
{
    return QStringLiteral("; %1 %2: \"iconv -f %2 -t UTF-8 FILE > NEWFILE\" converts it")
        .arg(words, encoding);
}

} // namespace

QString likelyEncoding(const QByteArray &bytes, qsizetype at)
{
    if (const QString wide = wideEncoding(bytes); !wide.isEmpty())
        return advice(QStringLiteral("it is"), wide);
    const bool isFaultyUtf8 = !isAscii(bytes, at) || hasFurtherByte(bytes, at);
    if (isFaultyUtf8 || !isNarrow(bytes))
        return {};
    const auto declared = declaredEncoding(bytes);
    const QString name = declared ? QString::fromLatin1(declared->name) : QString();
    if (!name.isEmpty() && !isWide(name))
        return advice(QStringLiteral("it says that it is"), name);
    return advice(QStringLiteral("it may be"),
                  usesWindowsCharacters(bytes) ? QStringLiteral("WINDOWS-1252")
                                               : QStringLiteral("ISO-8859-1"));
}

std::optional<FindingData> otherEncodingDeclared(const QByteArray &utf8)
{
    const auto declared = declaredEncoding(utf8);
    if (!declared)
        return std::nullopt;
    const QString name = QString::fromLatin1(declared->name);
    if (isUtf8(name) || (!isWide(name) && isAscii(utf8, utf8.size())))
        return std::nullopt;
    FindingData finding{
        declared->place,
        QStringLiteral("the encoding %1 is declared, but the text is read as UTF-8").arg(name),
        {},
        FindingId::DeclaredEncoding};
    finding.found = name;
    return finding;
}

} // namespace KORMAK::Inspection
