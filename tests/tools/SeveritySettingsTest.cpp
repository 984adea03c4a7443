#include <tests/support/ToolSupport.h>

using namespace ToolSupport;

class SeveritySettingsTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void severities_data();
    void severities();
    void errorsStay();
    void settingsFile_data();
    void settingsFile();
    void nextFileAbove();
    void faultySettings_data();
    void faultySettings();
    void settingsThatLeadNowhere();
    void wrongCalls_data();
    void wrongCalls();
};

namespace {

const QString Warning = "a.xml:11:9: %1: Job/AntennaData/Name/@b: unknown attribute, which is passed over\n";

/// With one warning, an unknown attribute.
QByteArray dubiousJob()
{
    return jobWith("<Name>", "<Name b=''>");
}

} // namespace

void SeveritySettingsTest::severities_data()
{
    QTest::addColumn<QStringList>("options");
    QTest::addColumn<QString>("severity"); // empty: it is not told
    QTest::addColumn<int>("status");

    const auto add = [](const QStringList &options, const QString &severity, int status) {
        QTest::newRow(qPrintable(options.join(' '))) << options << severity << status;
    };
    add({}, "warning", 0);
    add({"--severity", "unknown-attribute=error"}, "error", 1);
    add({"--severity=unknown-attribute=error"}, "error", 1);
    add({"--severity", "unknown-attribute=warning"}, "warning", 0);
    add({"--severity", "unknown-attribute=off"}, "", 0);
    add({"--severity", "unknown-element=error"}, "warning", 0);
    add({"--severity", "unknown-element=off", "--severity", "unknown-attribute=error"}, "error", 1);
    add({"--severity", "unknown-attribute=error", "--severity", "unknown-attribute=off"}, "", 0);
    add({"--strict"}, "warning", 1);
    add({"--strict", "--severity", "unknown-attribute=off"}, "", 0);
}

void SeveritySettingsTest::severities()
{
    QFETCH(QStringList, options);
    QFETCH(QString, severity);
    QFETCH(int, status);

    const Folder folder;
    folder.write("a.xml", dubiousJob());
    const Run run = folder.run(QStringList{"check", "a.xml"} + options);
    QCOMPARE(run.err, severity.isEmpty() ? QString() : Warning.arg(severity));
    QCOMPARE(run.out, severity == "error" ? QString() : QString("a.xml: Job, complete\n"));
    QCOMPARE(run.status, status);

    const QList<QJsonObject> lines =
        jsonLines(folder.run(QStringList{"check", "--format", "json", "a.xml"} + options).out);
    QCOMPARE(lines.size(), severity.isEmpty() ? 2 : 3);
    if (!severity.isEmpty())
        QCOMPARE(lines[0]["severity"].toString(), severity);
    QCOMPARE(lines[lines.size() - 2]["status"].toString(), QString(severity == "error" ? "faulty" : "good"));
    QCOMPARE(lines.last()["faulty"].toInt(), severity == "error" ? 1 : 0);
}

/// Whatever is said of what the library refuses a document for, and it tells so.
void SeveritySettingsTest::errorsStay()
{
    const Folder folder;
    folder.write("a.xml", jobWithoutAuthor());
    const QString line = "a.xml:3:5: error: Job/JobHeader/Author: missing";
    for (const QString &severity : {QString("off"), QString("warning")}) {
        const Run run = folder.run({"check", "a.xml", "--severity", "missing-element=" + severity});
        QCOMPARE(run.err, line + " (stays an error: the library refuses the document for it)\n");
        QCOMPARE(run.status, 1);
    }
    const Run run = folder.run({"check", "a.xml", "--severity", "missing-element=error"});
    QCOMPARE(run.err, line + '\n');
    QCOMPARE(run.status, 1);
}

void SeveritySettingsTest::settingsFile_data()
{
    QTest::addColumn<QByteArray>("settings");
    QTest::addColumn<QStringList>("options");
    QTest::addColumn<QString>("severity"); // empty: it is not told

    QTest::newRow("off") << QByteArray("[severity]\nunknown-attribute=off\n") << QStringList() << "";
    QTest::newRow("error, with blanks and comments")
        << QByteArray("; what we agreed on\n[severity]\nunknown-attribute = error\nrepeated=off\n")
        << QStringList() << "error";
    QTest::newRow("another id") << QByteArray("[severity]\nrepeated=off\n") << QStringList() << "warning";
    QTest::newRow("empty") << QByteArray() << QStringList() << "warning";
    QTest::newRow("option over file") << QByteArray("[severity]\nunknown-attribute=off\n")
                                      << QStringList{"--severity", "unknown-attribute=error"} << "error";
    QTest::newRow("option for another id") << QByteArray("[severity]\nunknown-attribute=off\n")
                                           << QStringList{"--severity", "repeated=error"} << "";
}

void SeveritySettingsTest::settingsFile()
{
    QFETCH(QByteArray, settings);
    QFETCH(QStringList, options);
    QFETCH(QString, severity);

    const Folder folder;
    QVERIFY(QDir(folder.path(".")).mkpath("jobs/north"));
    folder.write("kormak.ini", settings);
    folder.write("a.xml", dubiousJob());
    folder.write("jobs/north/a.xml", dubiousJob());
    const QString line = severity.isEmpty() ? QString() : Warning.arg(severity);
    const Run run = folder.run(QStringList{"check", "a.xml"} + options);
    QCOMPARE(run.err, line);
    QCOMPARE(run.status, severity == "error" ? 1 : 0);
    const Run below = folder.run(QStringList{"check", "jobs/north/a.xml"} + options);
    QCOMPARE(below.err, severity.isEmpty() ? line : "jobs/north/" + line);
    const Run input = folder.run(QStringList{"check", "-"} + options, dubiousJob());
    QCOMPARE(input.err, QString(line).replace("a.xml", "-"));
    QCOMPARE(folder.read("kormak.ini"), QString(settings));
}

void SeveritySettingsTest::nextFileAbove()
{
    const Folder folder;
    QVERIFY(QDir(folder.path(".")).mkpath("own/deep"));
    QVERIFY(QDir(folder.path(".")).mkpath("other"));
    folder.write("kormak.ini", "[severity]\nunknown-attribute=error\n");
    folder.write("own/kormak.ini", "[severity]\nrepeated=off\n");
    for (const char *name : {"a.xml", "own/a.xml", "own/deep/a.xml", "other/a.xml"})
        folder.write(name, dubiousJob());
    const Run run = folder.run({"check", "-r", "."});
    QCOMPARE(run.err.split('\n', Qt::SkipEmptyParts).filter(" error: ").join("").count("Job/AntennaData"), 2);
    QVERIFY(run.err.contains("./a.xml:11:9: error: ") && run.err.contains("./other/a.xml:11:9: error: "));
    QVERIFY(run.err.contains("./own/a.xml:11:9: warning: "));
    QVERIFY(run.err.contains("./own/deep/a.xml:11:9: warning: "));
    QCOMPARE(run.status, 1);
}

void SeveritySettingsTest::faultySettings_data()
{
    QTest::addColumn<QByteArray>("settings");
    QTest::addColumn<QString>("complaint");

    QTest::newRow("unknown id")
        << QByteArray("[severity]\nunknown-atribute=off\n")
        << "Unknown id 'unknown-atribute'; did you mean \"unknown-attribute\"? Allowed: bad-value, ";
    QTest::newRow("unknown severity") << QByteArray("[severity]\nrepeated=none\n")
                                      << "Unknown severity 'none'. Allowed: error, warning, off";
    QTest::newRow("unknown section")
        << QByteArray("[severities]\nrepeated=off\n")
        << "'severities/repeated' is in no section that is known. Allowed: [severity]";
    QTest::newRow("no section") << QByteArray("repeated=off\n")
                                << "'repeated' is in no section that is known. Allowed: [severity]";
}

/// It is told once, and the documents are checked all the same.
void SeveritySettingsTest::faultySettings()
{
    QFETCH(QByteArray, settings);
    QFETCH(QString, complaint);

    const Folder folder;
    QVERIFY(QDir(folder.path(".")).mkpath("below"));
    folder.write("kormak.ini", settings);
    folder.write("a.xml", dubiousJob());
    folder.write("b.xml", completeJob());
    folder.write("below/c.xml", completeJob());
    const Run run = folder.run({"check", "-r", "."});
    QVERIFY2(run.err.contains("/kormak.ini: error: " + complaint), qPrintable(run.err));
    QCOMPARE(run.err.count("kormak.ini"), 1);
    QVERIFY(run.err.contains("a.xml:11:9: warning: "));
    QVERIFY(run.out.endsWith("3 files: 2 good, 1 with warnings\n"));
    QCOMPARE(run.status, 2);
}

/// A link to what is not there is no file that is missing.
void SeveritySettingsTest::settingsThatLeadNowhere()
{
    const Folder folder;
    QVERIFY(QFile::link("team.ini", folder.path("kormak.ini")));
    folder.write("a.xml", completeJob());
    const Run run = folder.run({"check", "a.xml"});
    QVERIFY2(run.err.contains("/kormak.ini: error: cannot be read: it is a link that leads nowhere"),
             qPrintable(run.err));
    QCOMPARE(run.status, 2);
}

void SeveritySettingsTest::wrongCalls_data()
{
    QTest::addColumn<QString>("value");
    QTest::addColumn<QString>("message");

    QTest::newRow("no severity") << "repeated"
                                 << "--severity takes ID=SEVERITY, not 'repeated'";
    QTest::newRow("unknown id") << "lost=off"
                                << "Unknown id 'lost'. Allowed: bad-value, ";
    QTest::newRow("unknown severity")
        << "repeated=Off"
        << "Unknown severity 'Off'; did you mean \"off\"? Allowed: error, warning, off";
}

void SeveritySettingsTest::wrongCalls()
{
    QFETCH(QString, value);
    QFETCH(QString, message);

    const Run run = Folder().run({"check", "a.xml", "--severity", value});
    QVERIFY2(run.err.startsWith("kormak check: " + message), qPrintable(run.err));
    QCOMPARE(run.status, 2);
}

QTEST_GUILESS_MAIN(SeveritySettingsTest)
#include "SeveritySettingsTest.moc"
