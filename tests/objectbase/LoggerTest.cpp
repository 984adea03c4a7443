#include <objectbase/Logger.h>

#include <QtTest>

#include <utility>

using namespace TESSEL;

namespace {

class ListLogger : public Logger {
public:
    QVector<std::pair<Level, QString>> lines;

protected:
    void Write(Level level, const QString &message) override { lines.append({level, message}); }
};

} // namespace

Q_DECLARE_METATYPE(QtMsgType)

class LoggerTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void levelNames();
    void messagesGoToQt_data();
    void messagesGoToQt();
    void derivedLoggerTakesTheMessages();
};

void LoggerTest::levelNames()
{
    QCOMPARE(Logger::LevelToName(Logger::Level::Info), QString("INFO"));
    QCOMPARE(Logger::LevelToName(Logger::Level::Warning), QString("WARNING"));
    QCOMPARE(Logger::LevelToName(Logger::Level::Error), QString("ERROR"));
    QCOMPARE(Logger::LevelToName(Logger::Level::Invalid), QString());
    QCOMPARE(Logger::LevelToName(static_cast<Logger::Level>(3)), QString());
}

void LoggerTest::messagesGoToQt_data()
{
    QTest::addColumn<int>("level");
    QTest::addColumn<QtMsgType>("type");
    QTest::addColumn<QString>("line");

    QTest::newRow("information") << static_cast<int>(Logger::Level::Info) << QtInfoMsg
                                 << "INFO: a \"quoted\" text";
    QTest::newRow("warning") << static_cast<int>(Logger::Level::Warning) << QtWarningMsg
                             << "WARNING: a \"quoted\" text";
    QTest::newRow("error") << static_cast<int>(Logger::Level::Error) << QtCriticalMsg
                           << "ERROR: a \"quoted\" text";
}

void LoggerTest::messagesGoToQt()
{
    QFETCH(int, level);
    QFETCH(QtMsgType, type);
    QFETCH(QString, line);

    static int received;
    static QtMsgType receivedType;
    static QString receivedLine;
    received = 0;
    const QtMessageHandler former =
        qInstallMessageHandler([](QtMsgType messageType, const QMessageLogContext &, const QString &text) {
            ++received;
            receivedType = messageType;
            receivedLine = text;
        });
    Logger().Log(static_cast<Logger::Level>(level), "a \"quoted\" text");
    qInstallMessageHandler(former);

    QCOMPARE(received, 1);
    QCOMPARE(static_cast<int>(receivedType), static_cast<int>(type));
    QCOMPARE(receivedLine, line);
}

void LoggerTest::derivedLoggerTakesTheMessages()
{
    ListLogger logger;
    logger.Info("first");
    logger.Warning("second");
    logger.Error("third");
    logger.Log(Logger::Level::Warning, "fourth");

    const QVector<std::pair<Logger::Level, QString>> expected{
        {Logger::Level::Info, "first"},
        {Logger::Level::Warning, "second"},
        {Logger::Level::Error, "third"},
        {Logger::Level::Warning, "fourth"},
    };
    QVERIFY(logger.lines == expected);
}

QTEST_GUILESS_MAIN(LoggerTest)
#include "LoggerTest.moc"
