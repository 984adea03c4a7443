// The lines in which two texts differ, as patch and people read them.
#ifndef KORMAK_TOOLS_UNIFIEDDIFF_H
#define KORMAK_TOOLS_UNIFIEDDIFF_H

#include <QByteArray>
#include <QString>

/// From \a before to \a after, which the file called \a path holds; empty when they are the same.
[[nodiscard]] QByteArray unifiedDiff(const QString &path, const QByteArray &before, const QByteArray &after);

#endif
