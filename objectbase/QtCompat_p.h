// Not installed. Where versions of Qt differ, the difference stands here.
#ifndef TESSEL_QTCOMPAT_P_H
#define TESSEL_QTCOMPAT_P_H

#include <QLibraryInfo>
#include <QString>
#if QT_VERSION < QT_VERSION_CHECK(6, 0, 0)
#include <QTextCodec>
#endif
#include <QTextStream>
#include <QVersionNumber>

#include <limits>
#include <optional>
#include <string_view>

namespace TESSEL {

/// What Qt counts bytes and characters with: 32 bits with Qt 5.
using TextSize = decltype(QString().size());

/// The longest QByteArray whose text is sure to fit into a QString.
inline constexpr qint64 MostBytes = std::numeric_limits<TextSize>::max() / 2 - 64;

/// Qt 5 destroys its codecs when the process ends, and no XML can be written then. What is made before the
/// objects of a program is destroyed after them.
inline bool makeCodecs()
{
#if QT_VERSION < QT_VERSION_CHECK(6, 0, 0)
    return QTextCodec::codecForName("UTF-8") != nullptr;
#else
    return true;
#endif
}

/// Texts in UTF-8; Qt 6 does so by itself.
inline void useUtf8([[maybe_unused]] QTextStream &stream)
{
#if QT_VERSION < QT_VERSION_CHECK(6, 0, 0)
    stream.setCodec("UTF-8");
#endif
}

/// All of \a bytes, a QByteArray or a std::string; Qt 5 by itself stops at a NUL.
template <class Bytes>
[[nodiscard]] QString decodeUtf8(const Bytes &bytes)
{
    return QString::fromUtf8(bytes.data(), static_cast<TextSize>(bytes.size()));
}

/// Nothing for a text that is too long for the bytes that Qt takes for it at first.
[[nodiscard]] inline std::optional<QByteArray> encodeUtf8(const QString &text)
{
    constexpr auto MostCharacters = std::numeric_limits<TextSize>::max() / 3 - 64;
    return text.size() <= MostCharacters ? std::optional(text.toUtf8()) : std::nullopt;
}

/// Whether the reader takes a declaration of the encoding \a name in a text, where it means nothing. Qt 6
/// takes any.
[[nodiscard]] inline bool isKnownEncoding([[maybe_unused]] std::string_view name)
{
#if QT_VERSION < QT_VERSION_CHECK(6, 0, 0)
    return QTextCodec::codecForName(QByteArray(name.data(), static_cast<int>(name.size())));
#else
    return true;
#endif
}

/// Qt 6 before 6.5 writes to a QString slower than it could. Asked of the Qt that runs: later ones differ in
/// how they look for lone surrogates.
[[nodiscard]] inline bool isEarlyQt6()
{
    static const bool isEarly =
        QLibraryInfo::version() >= QVersionNumber(6) && QLibraryInfo::version() < QVersionNumber(6, 5);
    return isEarly;
}

} // namespace TESSEL

#endif
