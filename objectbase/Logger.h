#ifndef TESSEL_LOGGER_H
#define TESSEL_LOGGER_H

#include <objectbase/objectbase_export.h>

#include <QString>

QT_BEGIN_NAMESPACE
class QDebug;
QT_END_NAMESPACE

namespace TESSEL {

/// Takes the log messages of an application's objects (see ITesselObject::SetLogger()). The library itself
/// logs nothing. Derive from it and override Write() to send messages elsewhere than to Qt's message handler.
///
/// \snippet docs/ObjectbaseSnippetsTest.cpp Logger
class OBJECTBASE_EXPORT Logger {
public:
    /// The names are in \ref vocabulary_level.
    enum class Level : qint32 {
        Invalid = -1,
        Info,
        Warning,
        Error,
    };

    Logger();
    Logger(const Logger &) = delete;
    Logger &operator=(const Logger &) = delete;
    virtual ~Logger();

    /// Hands \a message on to Write().
    void Log(Level level, const QString &message);
    void Info(const QString &message) { Log(Level::Info, message); }
    void Warning(const QString &message) { Log(Level::Warning, message); }
    void Error(const QString &message) { Log(Level::Error, message); }

    /// "INFO", "WARNING" or "ERROR"; empty for any other value.
    [[nodiscard]] static QString LevelToName(Level level);

protected:
    /// Writes "LEVEL: message" to Qt's message handler, with the message type that fits the level.
    virtual void Write(Level level, const QString &message);
};

/// Writes the name of \a value, or its number when it has none.
OBJECTBASE_EXPORT QDebug operator<<(QDebug debug, Logger::Level value);

} // namespace TESSEL

#endif
