#ifndef KORMAK_INSPECTION_UTF8_P_H
#define KORMAK_INSPECTION_UTF8_P_H

#include <QByteArray>

namespace KORMAK::Inspection {

/// The index of the first byte in \a bytes that does not belong to a character in UTF-8, or its size when all
/// do. Qt itself would put a replacement character there and say nothing.
[[nodiscard]] qsizetype firstByteOutsideUtf8(const QByteArray &bytes);

} // namespace KORMAK::Inspection

#endif
