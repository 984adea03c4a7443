// Room for text on a map that is drawn as wide as the page allows: places are shares of the map, letters have
// pixels.
#ifndef KORMAK_INSPECTION_REPORT_MAPLABELS_P_H
#define KORMAK_INSPECTION_REPORT_MAPLABELS_P_H

#include <QString>

#include <vector>

namespace KORMAK::Inspection {

/// Part of the width or height of the map, and pixels from there.
struct MapDistance {
    double share;
    double pixels;
};

struct LabelBox {
    MapDistance left;
    MapDistance top;
    MapDistance right;
    MapDistance bottom;
};

enum class LabelAnchor { Start, Middle, End };

/// The box of \a text with its anchor and baseline there, about; letters are \a size pixels high.
[[nodiscard]] LabelBox boxOf(const QString &text, const MapDistance &x, const MapDistance &y,
                             LabelAnchor anchor, double size);

class MapLabels {
public:
    /// For what is drawn there in any case.
    void block(const LabelBox &box) { taken.push_back(box); }
    /// Whether there is room for the box, which it then takes: all of it on the map and nothing else there,
    /// however wide the map is drawn.
    [[nodiscard]] bool take(const LabelBox &box);

private:
    std::vector<LabelBox> taken;
};

} // namespace KORMAK::Inspection

#endif
