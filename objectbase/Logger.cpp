#include "objectbase/Logger.h"

#include <objectbase/Constants_p.h>
#include <objectbase/Debug_p.h>
#include <objectbase/Vocabulary_p.h>

#include <QtDebug>

namespace TESSEL {

namespace {

constexpr VocabularyRow<Logger::Level> Rows[] = {
    {Logger::Level::Info, LogLevelNames[0]},
    {Logger::Level::Warning, LogLevelNames[1]},
    {Logger::Level::Error, LogLevelNames[2]},
};
constexpr Vocabulary Levels{Rows};

} // namespace

Logger::Logger() = default;

Logger::~Logger() = default;

void Logger::Log(Level level, const QString &message)
{
    Write(level, message);
}

QString Logger::LevelToName(Level level)
{
    return Levels.nameOf(level);
}

void Logger::Write(Level level, const QString &message)
{
    const QString line = LevelToName(level) + borrowed(u": ") + message;
    switch (level) {
    case Level::Error:
        qCritical().noquote() << line;
        break;
    case Level::Warning:
        qWarning().noquote() << line;
        break;
    default:
        qInfo().noquote() << line;
        break;
    }
}

QDebug operator<<(QDebug debug, Logger::Level value)
{
    return printName(debug, Levels.table(), value);
}

} // namespace TESSEL
