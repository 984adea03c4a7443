// Names of files as texts. Where a system lets names be any bytes, those that are not UTF-8 are kept.
#ifndef KORMAK_TOOLS_PATHENCODING_H
#define KORMAK_TOOLS_PATHENCODING_H

#include <QByteArray>
#include <QString>

#include <filesystem>

namespace PathEncoding {

/// The text for \a bytes, which may be anything. A byte that is not UTF-8 becomes one of U+DC80 to U+DCFF,
/// which by themselves stand in no text that is UTF-8.
[[nodiscard]] QString decoded(const QByteArray &bytes);
/// The bytes that \a path was decoded from.
[[nodiscard]] QByteArray encoded(const QString &path);

/// Whether all of \a path is UTF-8.
[[nodiscard]] bool isUtf8(const QString &path);

/// \a text, which may hold paths, as people see it: on one line, with escapes for what cannot be printed,
/// which for bytes that are not UTF-8 look like "\xfc".
[[nodiscard]] QString shown(const QString &text);

/// \a path for the standard library.
[[nodiscard]] std::filesystem::path toNative(const QString &path);
[[nodiscard]] QString fromNative(const std::filesystem::path &path);

} // namespace PathEncoding

#endif
