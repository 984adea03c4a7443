// The changes of a document that give its area another outline.
#ifndef KORMAK_INSPECTION_AREACHANGES_P_H
#define KORMAK_INSPECTION_AREACHANGES_P_H

#include <inspection/DocumentEdit.h>
#include <objectbase/Coordinate.h>

#include <QString>
#include <QVector>

namespace KORMAK::Inspection {

/// What makes of the coordinates \a former, a list at \a path, the \a wanted ones. None where both have the
/// same outline, wherever they begin and whichever way they lead; else as few as can be, so that coordinates
/// that stay are left alone.
[[nodiscard]] QVector<DocumentEdit::Change> coordinateChanges(const QString &path,
                                                              const QVector<TESSEL::Coordinate> &former,
                                                              const QVector<TESSEL::Coordinate> &wanted);

} // namespace KORMAK::Inspection

#endif
