// The land of the earth, coarse enough for maps of some 100 km and more. scripts/coastlines tells where it
// comes from and how it is kept.
#ifndef KORMAK_INSPECTION_REPORT_COASTLINES_P_H
#define KORMAK_INSPECTION_REPORT_COASTLINES_P_H

#include <cstdint>
#include <vector>

namespace KORMAK::Inspection {

/// A piece of land within a cell of the grid.
struct LandPiece {
    struct Point {
        std::int32_t x; ///< east of 180 W, in steps
        std::int32_t y; ///< north of 90 S, in steps

        [[nodiscard]] double longitude() const noexcept;
        [[nodiscard]] double latitude() const noexcept;
    };

    int column;
    int row;
    std::vector<Point> outline; ///< not closed; along the border of its cell where the land goes on behind it

    /// Whether the outline from \a a to \a b is no coast but the border of the cell.
    [[nodiscard]] bool isBorder(const Point &a, const Point &b) const noexcept;
    [[nodiscard]] double centralLongitude() const noexcept;
    [[nodiscard]] double centralLatitude() const noexcept;
};

/// The width and height of a cell in degrees.
inline constexpr int LandCellSize = 10;

/// All pieces, read when they are first asked for.
[[nodiscard]] const std::vector<LandPiece> &landPieces();

} // namespace KORMAK::Inspection

#endif
