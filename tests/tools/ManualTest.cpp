#include "tools/Manual.h"

#include <tools/Tool.h>
#include <tools/Usage.h>

#include <QFile>
#include <QProcess>
#include <QRegularExpression>
#include <QStandardPaths>
#include <QtTest>

/// The manual page as the build has made it.
class ManualTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void sections();
    void commandsAndOptions();
    void requests();
    void format();
    void folders();

private:
    QString page;
};

namespace {

const QString Path = KORMAK_TEXTS "/kormak.1";

QString inManual(QString text)
{
    return text.replace('\\', "\\e").replace('-', "\\-").replace('\'', "\\(aq");
}

} // namespace

void ManualTest::initTestCase()
{
    QFile file(Path);
    QVERIFY2(file.open(QIODevice::ReadOnly), qPrintable(file.errorString()));
    page = QString::fromUtf8(file.readAll());
}

void ManualTest::sections()
{
    QStringList names;
    const QStringList lines = page.split('\n');
    for (const QString &line : lines) {
        if (line.startsWith(".SH "))
            names << line.mid(4);
    }
    QCOMPARE(names,
             (QStringList{"NAME", "SYNOPSIS", "DESCRIPTION", "OPTIONS", "COMMANDS", "EXIT STATUS",
                          "ENVIRONMENT", "FILES", "EXAMPLES"}));
    // Nothing that another build would write otherwise.
    QCOMPARE(lines.first(), QString(".TH KORMAK 1 \"\" \"Kormak " KORMAK_VERSION "\" \"User Commands\""));
}

void ManualTest::commandsAndOptions()
{
    for (const QCommandLineOption &option : Tool::options())
        QVERIFY(page.contains("\n.B " + inManual(Usage::nameOf(option)) + '\n'));
    for (const Command *command : Tool::commands()) {
        const QString call = inManual(Usage::callOf(*command));
        QVERIFY(page.contains("\n.B kormak " + call + '\n'));
        const QString heading = "\n.SS " + call + '\n';
        QCOMPARE(page.count(heading), 1);
        const QString section =
            page.mid(page.indexOf(heading) + heading.size()).section(QRegularExpression("\n\\.S[SH] "), 0, 0);
        for (const QCommandLineOption &option : Tool::optionsOf(*command)) {
            const QString entry =
                "\n.B " + inManual(Usage::nameOf(option)) + '\n' + inManual(option.description()) + '\n';
            QVERIFY2(section.contains(entry), qPrintable(entry));
        }
        for (const QStringView status : command->exitStatus)
            QVERIFY(status.isEmpty() || section.contains('\n' + inManual(status.toString()) + '\n'));
        const QStringList description = command->description.toString().split('\n', Qt::SkipEmptyParts);
        for (const QString &line : description)
            QVERIFY2(section.contains('\n' + inManual(line.startsWith(' ') ? line.mid(2) : line) + '\n'),
                     qPrintable(line));
        QVERIFY(section.contains(inManual(command->example.toString())));
    }
}

void ManualTest::requests()
{
    const QStringList known{".TH", ".SH", ".SS", ".PP", ".TP", ".B", ".br",
                            ".RS", ".RE", ".nf", ".fi", ".nh", ".ad"};
    const QStringList lines = page.split('\n');
    for (const QString &line : lines) {
        if (line.startsWith('.'))
            QVERIFY2(known.contains(line.section(' ', 0, 0)), qPrintable(line));
        QVERIFY2(!line.startsWith('\''), qPrintable(line));
        QVERIFY2(!line.contains(QRegularExpression("[^\\\\]\\\\(?![-e&(])")), qPrintable(line));
    }
    QCOMPARE(page.count(".RS\n"), page.count(".RE\n"));
    QCOMPARE(page.count(".nf\n"), page.count(".fi\n"));
}

void ManualTest::format()
{
    const QString groff = QStandardPaths::findExecutable("groff");
    if (groff.isEmpty()) {
        QTest::qSkip("there is no groff", __FILE__, __LINE__);
        return;
    }
    QProcess process;
    process.start(groff, {"-man", "-ww", "-Tascii", "-P-c", "-P-b", "-P-u", Path});
    QVERIFY(process.waitForFinished());
    QCOMPARE(QString::fromUtf8(process.readAllStandardError()), QString());
    QCOMPARE(process.exitCode(), 0);
    const QString text = QString::fromUtf8(process.readAllStandardOutput());
    QVERIFY2(text.contains("\n       kormak check [OPTIONS] PATH...\n"), qPrintable(text.left(2000)));
    QVERIFY2(text.contains("\n       kormak help [OPTIONS] [COMMAND]\n"), qPrintable(text.left(2000)));
    QVERIFY2(text.contains("\n       -v, -V, --version\n"), qPrintable(text.left(4000)));
    QVERIFY2(text.contains("In a unique name, write \\] for ] and \\\\ for \\."), qPrintable(text));
    QVERIFY2(text.contains("    --set 'Parameter[Gain].ParameterType=Integer' \\\n"), qPrintable(text));
}

void ManualTest::folders()
{
    QVERIFY(manualPage("2.0.0", "share").contains("\n.B PREFIX/share/kormak/schemas/*.xsd\n"));
    QVERIFY(manualPage("2.0.0", "/srv/data").contains("\n.B /srv/data/kormak/schemas/*.xsd\n"));
    QVERIFY(manualPage("2.0.0", "share").startsWith(".TH KORMAK 1 \"\" \"Kormak 2.0.0\""));
}

QTEST_GUILESS_MAIN(ManualTest)
#include "ManualTest.moc"
