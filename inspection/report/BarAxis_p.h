// Durations and scores as bars on a common axis.
#ifndef KORMAK_INSPECTION_REPORT_BARAXIS_P_H
#define KORMAK_INSPECTION_REPORT_BARAXIS_P_H

#include <inspection/report/Html_p.h>

#include <QString>

#include <vector>

namespace KORMAK::Inspection {

struct Bar {
    QString name;
    double value;
    QString text; ///< of the value
};

enum class Scale {
    Linear,
    Fitting, ///< logarithmic where short bars would be too short to be told apart
};

/// Bars begin at 0; one below it leads to the left.
void writeBars(Html &html, const std::vector<Bar> &bars, const QString &caption, Scale scale);

} // namespace KORMAK::Inspection

#endif
