#ifndef KORMAK_CONNECTABLERESOURCETYPE_H
#define KORMAK_CONNECTABLERESOURCETYPE_H

#include <kormak/kormak_export.h>

#include <QString>

QT_BEGIN_NAMESPACE
class QDebug;
QT_END_NAMESPACE

namespace KORMAK {

/// The resources that a search job can connect to.
///
/// \snippet docs/KormakSnippetsTest.cpp ConnectableResourceType
namespace ConnectableResourceType {

/// The names are in \ref vocabulary_connectable_resource.
enum ConnectableResourceTypeValue : qint32 {
    Invalid = -1,
    DDCIPCVoiceHF,
    DDCIPCVoiceVUHF,
    DDCIPCDataTransmissionHF,
    DDCIPCDataTransmissionVUHF,
    DDCIPCClassifierHF,
    DDCIPCClassifierVUHF,
};

/// The name of \a value, or "undefined" when it is not valid.
[[nodiscard]] KORMAK_EXPORT QString ConnectableResourceTypeToName(ConnectableResourceTypeValue value);

/// The value whose name is exactly \a name (case-sensitive), or Invalid. "V/UHF" is written with a slash
/// here.
[[nodiscard]] KORMAK_EXPORT ConnectableResourceTypeValue NameToConnectableResourceType(const QString &name);

/// Invalid, -1: not set.
[[nodiscard]] KORMAK_EXPORT ConnectableResourceTypeValue GetInvalidConnectableResourceType();

/// True for 0 to 5.
[[nodiscard]] KORMAK_EXPORT bool IsValidConnectableResourceType(ConnectableResourceTypeValue value);

/// \name Bands
/// A value that is not valid belongs to neither.
/// @{
[[nodiscard]] KORMAK_EXPORT bool IsHFResource(const ConnectableResourceTypeValue &value);
[[nodiscard]] KORMAK_EXPORT bool IsVUHFResource(const ConnectableResourceTypeValue &value);
/// @}

/// Writes the name of \a value, or its number when it has none.
KORMAK_EXPORT QDebug operator<<(QDebug debug, ConnectableResourceTypeValue value);

} // namespace ConnectableResourceType

} // namespace KORMAK

#endif
