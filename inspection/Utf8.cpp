#include "inspection/Utf8_p.h"

#include <algorithm>
#include <iterator>

namespace KORMAK::Inspection {

namespace {

/// How a character begins, how long it is and where its second byte lies; the bytes behind that lie from 0x80
/// to 0xBF. The narrower limits of the second byte keep out overlong forms, surrogates and what is beyond
/// U+10FFFF.
constexpr struct {
    uchar firstMin, firstMax;
    int length;
    uchar secondMin, secondMax;
} Forms[] = {
    {0x00, 0x7F, 1, 0x00, 0x00}, {0xC2, 0xDF, 2, 0x80, 0xBF}, {0xE0, 0xE0, 3, 0xA0, 0xBF},
    {0xE1, 0xEC, 3, 0x80, 0xBF}, {0xED, 0xED, 3, 0x80, 0x9F}, {0xEE, 0xEF, 3, 0x80, 0xBF},
    {0xF0, 0xF0, 4, 0x90, 0xBF}, {0xF1, 0xF3, 4, 0x80, 0xBF}, {0xF4, 0xF4, 4, 0x80, 0x8F},
};

bool isWithin(uchar byte, uchar least, uchar most)
{
    return least <= byte && byte <= most;
}

/// The length of the character at \a begin, or 0 when there is none.
qsizetype characterLength(const uchar *begin, const uchar *end)
{
    const auto form = std::find_if(std::begin(Forms), std::end(Forms), [begin](const auto &candidate) {
        return isWithin(*begin, candidate.firstMin, candidate.firstMax);
    });
    if (form == std::end(Forms) || end - begin < form->length)
        return 0;
    if (form->length == 1)
        return 1;
    const bool isWhole = isWithin(begin[1], form->secondMin, form->secondMax)
        && std::all_of(begin + 2, begin + form->length,
                       [](uchar byte) { return isWithin(byte, 0x80, 0xBF); });
    return isWhole ? form->length : 0;
}

} // namespace

qsizetype firstByteOutsideUtf8(const QByteArray &bytes)
{
    const auto *const begin = reinterpret_cast<const uchar *>(bytes.constData());
    const uchar *const end = begin + bytes.size();
    const uchar *at = begin;
    while (at != end) {
        const qsizetype length = characterLength(at, end);
        if (length == 0)
            break;
        at += length;
    }
    return at - begin;
}

} // namespace KORMAK::Inspection
