// What show tells people of an object: labelled values, and a table of what bears names.
#ifndef KORMAK_TOOLS_FIELDLINES_H
#define KORMAK_TOOLS_FIELDLINES_H

#include <inspection/DocumentSays_p.h>
#include <inspection/FieldTable_p.h>

#include <QString>
#include <QStringList>

#include <optional>

/// One line per field that people need to see, aligned; the lines of texts that have several follow. What the
/// document \a says instead stands behind the value. Tables are no wider than \a width, where that is
/// possible; nothing: as wide as they are.
[[nodiscard]] QStringList fieldLines(const KORMAK::Inspection::FieldTable &table, const void *object,
                                     const KORMAK::Inspection::DocumentSays &says,
                                     std::optional<int> width = std::nullopt);

#endif
