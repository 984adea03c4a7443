// Not installed. The binary form of a document: magic, version, flags, checksum, the name of the object and
// its XML in UTF-8, compressed or not. pack() makes one, unpack() takes the next one off a stream; anything
// that is not exactly what pack() made is refused.
#ifndef TESSEL_BINARYFORM_P_H
#define TESSEL_BINARYFORM_P_H

#include <objectbase/ReadingLimits.h>

#include <QByteArray>
#include <QString>

#include <optional>

QT_BEGIN_NAMESPACE
class QDataStream;
QT_END_NAMESPACE

namespace TESSEL::BinaryForm {

/// \a level: compression from 0 (none at all) to 9, or -1 for zlib's usual one.
/// Not compressed either when it would become more than what a reader takes by default.
/// Nothing when the document is too large for the form.
[[nodiscard]] std::optional<QByteArray> pack(const QString &objectName, const QString &xml, int level);

/// The XML of the next binary form in \a stream, if it is intact, has the name \a objectName and is within \a
/// limits.
[[nodiscard]] std::optional<QString> unpack(QDataStream &stream, const QString &objectName,
                                            const ReadingLimits &limits);

} // namespace TESSEL::BinaryForm

#endif
