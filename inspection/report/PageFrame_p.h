// The frame of every page: what stands in its head, and its end.
#ifndef KORMAK_INSPECTION_REPORT_PAGEFRAME_P_H
#define KORMAK_INSPECTION_REPORT_PAGEFRAME_P_H

#include <inspection/report/Html_p.h>

#include <QByteArray>
#include <QString>

namespace KORMAK::Inspection {

/// Up to the start of the body.
void openPage(Html &html, const QString &title);
/// The page with its end, in UTF-8.
[[nodiscard]] QByteArray closedPage(Html &html);

} // namespace KORMAK::Inspection

#endif
