// The text of a document with the numbers of its lines.
#ifndef KORMAK_INSPECTION_REPORT_SOURCELISTING_P_H
#define KORMAK_INSPECTION_REPORT_SOURCELISTING_P_H

#include <inspection/report/Html_p.h>

#include <QByteArray>

#include <vector>

namespace KORMAK::Inspection {

/// The lines in \a marked, which are sorted, stand out and can be linked to as "L" with their number. Bytes
/// that are not UTF-8 are shown as replacement characters.
void writeSource(Html &html, const QByteArray &source, const std::vector<qint64> &marked);

} // namespace KORMAK::Inspection

#endif
