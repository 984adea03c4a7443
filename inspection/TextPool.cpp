#include "inspection/TextPool_p.h"

#include <algorithm>
#include <cstring>
#include <new>

namespace KORMAK::Inspection {

namespace {

// An id is the place of a text in the chunks, from 1, or with the upper bit the place in the list of long
// texts. In a chunk there is a byte that tells length and width, then the characters, of one byte each if
// they fit.
constexpr std::size_t ChunkSize = 65536;
constexpr TextPool::Id LongText = 0x80000000;
constexpr std::size_t FewRecent = 128; ///< enough for a document that is no longer than most are
constexpr std::size_t MostRecent = 4096;
constexpr std::size_t BytesOfFew = 2048;
constexpr unsigned Wide = 1;

/// Texts that are meant to clash only lose the sharing of ids.
std::size_t hashOf(QStringView text)
{
    constexpr std::size_t Factor = 31;
    std::size_t hash = 0;
    for (const QChar c : text)
        hash = hash * Factor + c.unicode();
    return hash;
}

bool isLatin1(QStringView text)
{
    constexpr ushort LastOfLatin1 = 0xFF;
    return std::all_of(text.begin(), text.end(), [](QChar c) { return c.unicode() <= LastOfLatin1; });
}

} // namespace

char *TextPool::place(std::size_t size)
{
    std::size_t left = chunks.size() * ChunkSize - used;
    if (left < size) {
        if ((chunks.size() + 1) * ChunkSize >= LongText)
            throw std::bad_alloc();
        chunks.push_back(std::unique_ptr<char[]>(new char[ChunkSize]));
        used += left;
        left = ChunkSize;
    }
    char *const result = chunks.back().get() + (ChunkSize - left);
    used += size;
    return result;
}

TextPool::Id TextPool::put(QStringView text)
{
    if (text.isEmpty())
        return Empty;
    if (text.size() > LongestShort) {
        if (longTexts.size() >= LongText)
            throw std::bad_alloc();
        longTexts.push_back(text.toString());
        return LongText | static_cast<Id>(longTexts.size() - 1);
    }
    if (recent.size() < MostRecent && used >= BytesOfFew)
        recent.assign(MostRecent, Empty);
    else if (recent.empty())
        recent.assign(FewRecent, Empty);
    Id &known = recent[hashOf(text) % recent.size()];
    if (isText(known, text))
        return known;
    const auto length = static_cast<std::size_t>(text.size());
    const bool isWide = !isLatin1(text);
    char *const bytes = place(1 + (isWide ? length * sizeof(QChar) : length));
    bytes[0] = static_cast<char>(static_cast<unsigned>(length) << 1U | (isWide ? Wide : 0));
    if (isWide)
        std::memcpy(bytes + 1, text.data(), length * sizeof(QChar));
    else
        std::transform(text.begin(), text.end(), bytes + 1, [](QChar c) { return c.toLatin1(); });
    known = static_cast<Id>((chunks.size() - 1) * ChunkSize
                            + static_cast<std::size_t>(bytes - chunks.back().get()) + 1);
    return known;
}

QString TextPool::text(Id id) const
{
    if ((id & LongText) != 0)
        return longTexts[id & ~LongText];
    Room room;
    return text(id, room).toString();
}

QStringView TextPool::text(Id id, Room &room) const
{
    if (id == Empty)
        return {};
    if ((id & LongText) != 0)
        return longTexts[id & ~LongText];
    const char *const bytes = chunks[(id - 1) / ChunkSize].get() + (id - 1) % ChunkSize;
    const auto head = static_cast<unsigned char>(bytes[0]);
    const int length = head >> 1U;
    if ((head & Wide) == 0)
        std::transform(bytes + 1, bytes + 1 + length, room.units,
                       [](char c) { return static_cast<char16_t>(static_cast<uchar>(c)); });
    else
        std::memcpy(room.units, bytes + 1, static_cast<std::size_t>(length) * sizeof(QChar));
    return {room.units, length};
}

bool TextPool::isText(Id id, QStringView wanted) const
{
    if (id == Empty)
        return false;
    const char *const bytes = chunks[(id - 1) / ChunkSize].get() + (id - 1) % ChunkSize;
    const auto head = static_cast<unsigned char>(bytes[0]);
    if (static_cast<qsizetype>(head >> 1U) != wanted.size())
        return false;
    if ((head & Wide) != 0)
        return std::memcmp(bytes + 1, wanted.data(), static_cast<std::size_t>(wanted.size()) * sizeof(QChar))
            == 0;
    return std::equal(wanted.begin(), wanted.end(), bytes + 1,
                      [](QChar c, char byte) { return c.unicode() == static_cast<uchar>(byte); });
}

} // namespace KORMAK::Inspection
