// Drawings in pages. Those along an axis give places from left to right as shares of the width, so that they
// fit any page while texts and lines keep their size.
#ifndef KORMAK_INSPECTION_REPORT_SVG_P_H
#define KORMAK_INSPECTION_REPORT_SVG_P_H

#include <inspection/report/Html_p.h>

#include <QString>

namespace KORMAK::Inspection::Svg {

/// \a value as drawings need it, with two decimals at most.
[[nodiscard]] QString number(double value);
/// \a share of 1 in per cent.
[[nodiscard]] QString percent(double share);

/// A text at \a x, which is a number or a share, in the class \a look.
void text(Html &html, const QString &x, const QString &y, QStringView look, const QString &content,
          QStringView anchor = u"middle");
/// The text of a tick at \a share of the width: inside the drawing at both of its ends.
void tickLabel(Html &html, double share, const QString &content);
void line(Html &html, const QString &x1, const QString &y1, const QString &x2, const QString &y2,
          QStringView look);
void rectangle(Html &html, const QString &x, const QString &y, const QString &width, const QString &height,
               QStringView look);
void circle(Html &html, const QString &x, const QString &y, const QString &radius, QStringView look);

} // namespace KORMAK::Inspection::Svg

#endif
