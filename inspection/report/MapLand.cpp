#include "inspection/report/MapLand_p.h"

#include <inspection/report/Coastlines_p.h>

#include <algorithm>
#include <cmath>
#include <utility>
#include <vector>

namespace KORMAK::Inspection {

namespace {

/// The outline of \a piece in the frame; empty when all of it is beyond the edge.
FrameLine outlineIn(const LandView &view, const LandPiece &piece)
{
    FrameLine polygon;
    polygon.reserve(piece.outline.size());
    bool isWithin = false;
    for (const LandPiece::Point &point : piece.outline) {
        const auto projected = view.projection.project(point.latitude(), point.longitude());
        if (!projected) // a piece on the far side of the earth
            return {};
        const double radius = std::hypot(projected->x, projected->y);
        const double pull = radius > view.farthest ? view.farthest / radius : 1;
        isWithin = isWithin || pull == 1;
        polygon.push_back(view.frame.place({projected->x * pull, projected->y * pull}));
    }
    return isWithin ? polygon : FrameLine();
}

/// On a map of all of the earth, put \a shift degrees eastwards.
FrameLine outlineOnCylinder(const LandView &view, const LandPiece &piece, double shift)
{
    FrameLine polygon;
    polygon.reserve(piece.outline.size());
    for (const LandPiece::Point &point : piece.outline)
        polygon.push_back(
            view.frame.place(view.projection.onCylinder(point.latitude(), point.longitude() + shift)));
    return polygon;
}

void addPiece(LandShapes &shapes, const LandView &view, const LandPiece &piece, FrameLine polygon)
{
    std::vector<FrameLine> coasts(1);
    for (std::size_t i = 0; i < polygon.size(); ++i) {
        const std::size_t next = (i + 1) % polygon.size();
        if (coasts.back().empty())
            coasts.back().push_back(polygon[i]);
        if (!piece.isBorder(piece.outline[i], piece.outline[next]))
            coasts.back().push_back(polygon[next]);
        else
            coasts.emplace_back();
    }
    for (const FrameLine &coast : coasts) {
        for (FrameLine &part : view.frame.clippedLine(coast))
            shapes.coasts.push_back(std::move(part));
    }
    FrameLine land = view.frame.clippedPolygon(std::move(polygon));
    if (!land.empty())
        shapes.land.push_back(std::move(land));
}

LandShapes landOnCylinder(const LandView &view)
{
    constexpr double HalfTurn = 180;
    LandShapes shapes;
    for (const LandPiece &piece : landPieces()) {
        const double east = piece.centralLongitude() - view.projection.centralLongitude();
        for (const double shift : {-2 * HalfTurn, 0.0, 2 * HalfTurn}) {
            if (std::abs(east + shift) <= HalfTurn + LandCellSize)
                addPiece(shapes, view, piece, outlineOnCylinder(view, piece, shift));
        }
    }
    return shapes;
}

} // namespace

LandShapes landIn(const LandView &view)
{
    if (view.projection.kind() == MapProjection::Kind::Cylindrical)
        return landOnCylinder(view);
    constexpr double HalfDiagonal = LandCellSize * 0.75; // of a cell
    const double farthest =
        MapProjection::distanceAt(std::min(view.frame.reach(), view.farthest)) + HalfDiagonal;
    LandShapes shapes;
    for (const LandPiece &piece : landPieces()) {
        if (view.projection.distance(piece.centralLatitude(), piece.centralLongitude()) <= farthest)
            addPiece(shapes, view, piece, outlineIn(view, piece));
    }
    return shapes;
}

} // namespace KORMAK::Inspection
