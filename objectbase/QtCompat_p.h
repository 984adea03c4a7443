// Not installed. Where versions of Qt differ, the difference stands here.
#ifndef TESSEL_QTCOMPAT_P_H
#define TESSEL_QTCOMPAT_P_H

#include <QCalendar>
#include <QLibraryInfo>
#include <QString>
#include <QTextStream>
#include <QVersionNumber>

namespace TESSEL {

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
    return QString::fromUtf8(bytes.data(), static_cast<decltype(QString().size())>(bytes.size()));
}

/// Qt 6 before 6.5 writes to a QString slower than it could. Asked of the Qt that runs: later ones differ in
/// how they look for lone surrogates.
[[nodiscard]] inline bool isEarlyQt6()
{
    static const bool isEarly =
        QLibraryInfo::version() >= QVersionNumber(6) && QLibraryInfo::version() < QVersionNumber(6, 5);
    return isEarly;
}

/// Before dates become texts: Qt 5 makes its calendar when one is first asked for, and threads that do so at
/// the same time get none.
inline void prepareCalendar()
{
#if QT_VERSION < QT_VERSION_CHECK(6, 0, 0)
    static const QCalendar calendar;
    Q_UNUSED(calendar)
#endif
}

} // namespace TESSEL

#endif
