// How pages look: on screens of any width, light or dark as their users like it, and on paper.
#ifndef KORMAK_INSPECTION_REPORT_STYLESHEET_P_H
#define KORMAK_INSPECTION_REPORT_STYLESHEET_P_H

#include <QStringView>

namespace KORMAK::Inspection {

[[nodiscard]] QStringView stylesheet();

} // namespace KORMAK::Inspection

#endif
