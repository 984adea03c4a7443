// What documents may say, but hardly mean: places that are not on Earth, jobs of tomorrow. A new rule is a
// row of the table, with the function that objects.
#ifndef KORMAK_INSPECTION_PLAUSIBILITY_P_H
#define KORMAK_INSPECTION_PLAUSIBILITY_P_H

#include <inspection/DocumentKind_p.h>
#include <inspection/FindingData_p.h>
#include <inspection/XmlTree_p.h>

#include <QDateTime>

namespace KORMAK::Inspection {

/// Warnings about what \a object of \a kind holds, at the places of \a tree, which it was read from. \a now:
/// creations from a day behind it on are in the future.
[[nodiscard]] Findings implausible(const DocumentKind &kind, const TESSEL::ITesselObject &object,
                                   const XmlTree &tree,
                                   const QDateTime &now = QDateTime::currentDateTimeUtc());

} // namespace KORMAK::Inspection

#endif
