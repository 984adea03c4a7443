// Not installed. Where Qt 5 and Qt 6 differ, the difference stands here.
#ifndef TESSEL_QTCOMPAT_P_H
#define TESSEL_QTCOMPAT_P_H

#include <QByteArray>
#include <QCalendar>
#include <QString>
#include <QTextStream>

namespace TESSEL {

/// Texts in UTF-8; Qt 6 does so by itself.
inline void useUtf8([[maybe_unused]] QTextStream &stream)
{
#if QT_VERSION < QT_VERSION_CHECK(6, 0, 0)
    stream.setCodec("UTF-8");
#endif
}

/// All of \a bytes; Qt 5 by itself stops at a NUL.
[[nodiscard]] inline QString decodeUtf8(const QByteArray &bytes)
{
    return QString::fromUtf8(bytes.constData(), static_cast<int>(bytes.size()));
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
