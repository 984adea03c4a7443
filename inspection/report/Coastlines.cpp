#include "inspection/report/Coastlines_p.h"

#include <objectbase/NoDestructor_p.h>

#include <QByteArray>
#include <QFile>
#include <QtGlobal>

#include <algorithm>

// Where the library is static, the resource is otherwise left out. The macro must stand outside namespaces.
static void initialiseResource()
{
    Q_INIT_RESOURCE(kormak_land);
}

namespace KORMAK::Inspection {

namespace {

constexpr int StepsPerDegree = 250;
constexpr std::int32_t CellSteps = LandCellSize * StepsPerDegree;
constexpr double West = -180;
constexpr double South = -90;

class NumberReader {
public:
    explicit NumberReader(QByteArray bytes) : content(std::move(bytes)) { }

    std::uint32_t readUnsigned()
    {
        constexpr unsigned BitsOfByte = 7;
        constexpr unsigned MoreFollow = 0x80;
        std::uint32_t value = 0;
        for (unsigned shift = 0;; shift += BitsOfByte) {
            const auto byte = static_cast<unsigned char>(content.at(place++));
            value |= (byte & (MoreFollow - 1U)) << shift;
            if (byte < MoreFollow)
                return value;
        }
    }
    std::int32_t readSigned()
    {
        const std::uint32_t zigzag = readUnsigned();
        const auto half = static_cast<std::int32_t>(zigzag / 2);
        return zigzag % 2 == 0 ? half : -half - 1;
    }

private:
    QByteArray content;
    int place = 0;
};

/// Borders are bent on most maps: with points at the same places in the cells on both sides, no gap shows
/// between them.
std::vector<LandPiece::Point> withBentBorders(const LandPiece &piece)
{
    constexpr std::int32_t Spacing = StepsPerDegree / 2;
    const auto next = [](std::int32_t from, std::int32_t to) {
        if (from == to)
            return from;
        const std::int32_t ahead =
            from < to ? (from / Spacing + 1) * Spacing : ((from - 1) / Spacing) * Spacing;
        return from < to ? std::min(ahead, to) : std::max(ahead, to);
    };
    std::vector<LandPiece::Point> points;
    for (std::size_t i = 0; i < piece.outline.size(); ++i) {
        LandPiece::Point point = piece.outline[i];
        const LandPiece::Point &end = piece.outline[(i + 1) % piece.outline.size()];
        points.push_back(point);
        if (!piece.isBorder(point, end))
            continue;
        for (;;) {
            point = {next(point.x, end.x), next(point.y, end.y)};
            if (point.x == end.x && point.y == end.y)
                break;
            points.push_back(point);
        }
    }
    return points;
}

LandPiece readPiece(NumberReader &reader)
{
    LandPiece piece{};
    piece.column = static_cast<int>(reader.readUnsigned());
    piece.row = static_cast<int>(reader.readUnsigned());
    piece.outline.resize(reader.readUnsigned());
    LandPiece::Point point{piece.column * CellSteps, piece.row * CellSteps};
    for (LandPiece::Point &one : piece.outline) {
        point.x += reader.readSigned();
        point.y += reader.readSigned();
        one = point;
    }
    piece.outline = withBentBorders(piece);
    return piece;
}

std::vector<LandPiece> readPieces()
{
    initialiseResource();
    QFile file(QStringLiteral(":/kormak/inspection/land.bin"));
    if (!file.open(QIODevice::ReadOnly))
        qFatal("The coastlines are missing in the library");
    NumberReader reader(qUncompress(file.readAll()));
    std::vector<LandPiece> pieces(reader.readUnsigned());
    for (LandPiece &piece : pieces)
        piece = readPiece(reader);
    return pieces;
}

} // namespace

double LandPiece::Point::longitude() const noexcept
{
    return West + static_cast<double>(x) / StepsPerDegree;
}

double LandPiece::Point::latitude() const noexcept
{
    return South + static_cast<double>(y) / StepsPerDegree;
}

bool LandPiece::isBorder(const Point &a, const Point &b) const noexcept
{
    return (a.x == b.x && a.x % CellSteps == 0) || (a.y == b.y && a.y % CellSteps == 0);
}

double LandPiece::centralLongitude() const noexcept
{
    return West + LandCellSize * (column + 1 / 2.0);
}

double LandPiece::centralLatitude() const noexcept
{
    return South + LandCellSize * (row + 1 / 2.0);
}

const std::vector<LandPiece> &landPieces()
{
    static const TESSEL::NoDestructor<std::vector<LandPiece>> pieces(readPieces());
    return *pieces;
}

} // namespace KORMAK::Inspection
