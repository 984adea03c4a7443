// The libraries are usable when the process ends, by the destructors of a program's own objects that run
// behind those of the libraries' constants.
#include <QProcess>
#include <QtTest>

class AfterMainTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void isAsBefore_data();
    void isAsBefore();
};

namespace {

/// What the program prints, and null when it does not end well.
QByteArray printed(const QString &when)
{
    QProcess program;
    program.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    program.start(ENDING_PROGRAM, {when});
    const bool isWell =
        program.waitForFinished() && program.exitStatus() == QProcess::NormalExit && program.exitCode() == 0;
    return isWell ? program.readAllStandardOutput() : QByteArray();
}

} // namespace

void AfterMainTest::isAsBefore_data()
{
    QTest::addColumn<QString>("when");
    QTest::newRow("for the first time") << "end";
    QTest::newRow("once more") << "again";
}

void AfterMainTest::isAsBefore()
{
    QFETCH(QString, when);
    const QByteArray inMain = printed("main");
    QVERIFY(inMain.contains("JobHeader: "));
    QVERIFY(!inMain.contains(" not read"));
    QCOMPARE(printed(when), inMain);
}

QTEST_GUILESS_MAIN(AfterMainTest)
#include "AfterMainTest.moc"
