#include "inspection/AreaChanges_p.h"

#include <inspection/report/AreaParts_p.h>
#include <objectbase/Text_p.h>

#include <algorithm>
#include <iterator>

namespace KORMAK::Inspection {

namespace {

using Action = DocumentEdit::Change::Action;
using Coordinates = QVector<TESSEL::Coordinate>;
using Size = Coordinates::size_type;

bool haveSameOutline(const Coordinates &a, const Coordinates &b)
{
    const AreaOutline first(a);
    const AreaOutline second(b);
    return first.error().isEmpty() && AreaParts::of(first).isSame(AreaParts::of(second));
}

/// How many coordinates two lists share at their beginnings and, behind those, at their ends.
struct Shared {
    Size first;
    Size last;

    Shared(const Coordinates &a, const Coordinates &b)
        : first(sizeOf(a.begin(), std::mismatch(a.begin(), a.end(), b.begin(), b.end()).first)),
          last(sizeOf(a.rbegin(),
                      std::mismatch(a.rbegin(), a.rend() - first, b.rbegin(), b.rend() - first).first))
    {
    }
    template <class Iterator>
    static Size sizeOf(Iterator begin, Iterator end)
    {
        return static_cast<Size>(std::distance(begin, end));
    }
    [[nodiscard]] Size count() const { return first + last; }
};

/// The outline \a wanted, begun and led round so that it shares as much as can be with \a former.
Coordinates alignedTo(const Coordinates &former, const Coordinates &wanted)
{
    Coordinates best = wanted;
    if (former.isEmpty())
        return best;
    const bool isClosed = former.size() > 1 && former.constFirst() == former.constLast();
    Coordinates turned = wanted;
    std::reverse(turned.begin(), turned.end());
    for (const Coordinates &way : {wanted, turned}) {
        const auto begin = std::find(way.begin(), way.end(), former.constFirst());
        const auto last =
            std::find(way.begin(), way.end(), isClosed ? former.at(former.size() - 2) : former.constLast());
        for (const auto start : {begin, last == way.end() ? last : std::next(last)}) {
            Coordinates candidate = way;
            std::rotate(candidate.begin(), candidate.begin() + std::distance(way.begin(), start),
                        candidate.end());
            if (Shared(former, candidate).count() > Shared(former, best).count())
                best = candidate;
        }
    }
    if (isClosed && best.size() > 2)
        best.append(best.constFirst());
    return best;
}

} // namespace

QVector<DocumentEdit::Change> coordinateChanges(const QString &path, const Coordinates &former,
                                                const Coordinates &wanted)
{
    QVector<DocumentEdit::Change> changes;
    if (haveSameOutline(former, wanted))
        return changes;
    const Coordinates outline = alignedTo(former, wanted);
    const Shared shared(former, outline);
    // Nothing can be put between two that stay, so those behind move up.
    const Size kept = outline.size() > former.size() ? 0 : shared.last;
    const auto at = [&path](Size index) { return path + QStringLiteral("[%1]").arg(index); };
    for (Size i = shared.first; i < outline.size() - kept; ++i) {
        const QString latitude = TESSEL::shortestText(outline.at(i).GetLatitude());
        const QString longitude = TESSEL::shortestText(outline.at(i).GetLongitude());
        if (i >= former.size()) {
            changes += {Action::Set, path, latitude + QLatin1Char(',') + longitude};
            continue;
        }
        if (former.at(i).GetLatitude() != outline.at(i).GetLatitude())
            changes += {Action::Set, at(i) + QStringLiteral(".Latitude"), latitude};
        if (former.at(i).GetLongitude() != outline.at(i).GetLongitude())
            changes += {Action::Set, at(i) + QStringLiteral(".Longitude"), longitude};
    }
    for (Size i = outline.size() - kept; i < former.size() - kept; ++i)
        changes += {Action::Unset, at(i)};
    return changes;
}

} // namespace KORMAK::Inspection
