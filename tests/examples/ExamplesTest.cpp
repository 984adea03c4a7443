// The tool on the documents of examples/, compared with what examples/README.md says of them.

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QRegularExpression>
#include <QtTest>

namespace {

struct Outcome {
    int exitCode;
    QString output;
    QString errors;
};

/// Runs the tool in the folder of the examples.
Outcome runTool(const QStringList &arguments)
{
    QProcess tool;
    tool.setWorkingDirectory(QStringLiteral(EXAMPLES_DIR));
    tool.start(QStringLiteral(KORMAK_TOOL), arguments, QIODevice::ReadOnly);
    if (!tool.waitForFinished() || tool.exitStatus() != QProcess::NormalExit)
        return {-1, {}, tool.errorString()};
    return {tool.exitCode(), QString::fromUtf8(tool.readAllStandardOutput()),
            QString::fromUtf8(tool.readAllStandardError())};
}

QString contentOf(const QString &path)
{
    QFile file(QDir(QStringLiteral(EXAMPLES_DIR)).filePath(path));
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

/// The part of the README under a heading, up to the next one.
QString section(const QString &heading)
{
    const QString readme = contentOf(QStringLiteral("README.md"));
    const auto begin = readme.indexOf(QLatin1Char('\n') + heading + QLatin1Char('\n'));
    const auto end = readme.indexOf(QStringLiteral("\n#"), begin + 1);
    return begin < 0 ? QString() : readme.mid(begin, end < 0 ? -1 : end - begin);
}

/// The cells of the table rows that begin with the name of a file; code marks are taken off.
QList<QStringList> rowsOf(const QString &text)
{
    QList<QStringList> rows;
    const QStringList lines = text.split(QLatin1Char('\n'));
    for (const QString &line : lines) {
        if (!line.startsWith(QStringLiteral("| `")))
            continue;
        QStringList cells = line.mid(2, line.size() - 4).split(QStringLiteral(" | "));
        for (QString &cell : cells) {
            if (cell.startsWith(QLatin1Char('`')) && cell.endsWith(QLatin1Char('`')))
                cell = cell.mid(1, cell.size() - 2);
        }
        rows += cells;
    }
    return rows;
}

QStringList filesIn(const QString &folder)
{
    return QDir(QDir(QStringLiteral(EXAMPLES_DIR)).filePath(folder)).entryList(QDir::Files, QDir::Name);
}

QStringList filesOf(const QList<QStringList> &rows)
{
    QStringList files;
    for (const QStringList &row : rows)
        files += row.first();
    files.removeDuplicates();
    files.sort();
    return files;
}

/// What the tool says, without the names that are allowed.
QString withoutNames(QString text)
{
    return text.remove(QRegularExpression(QStringLiteral(" \\(allowed: [^)]*\\)")));
}

const QString JobsHeading = QStringLiteral("## Jobs");
const QString SettingsHeading = QStringLiteral("## Settings");
const QString ReceiversHeading = QStringLiteral("## Receivers");
const QString FaultyHeading = QStringLiteral("## Faulty documents");
const QString MalformedHeading = QStringLiteral("### Not well-formed");

} // namespace

class ExamplesTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void everyFileIsDescribed();
    void jobs_data();
    void jobs();
    void settingsAndReceivers_data();
    void settingsAndReceivers();
    void faulty_data();
    void faulty();
    void malformed_data();
    void malformed();
    void readmeShowsTheProgram();
};

void ExamplesTest::everyFileIsDescribed()
{
    QCOMPARE(filesOf(rowsOf(section(JobsHeading))), filesIn(QStringLiteral("jobs")));
    QCOMPARE(filesOf(rowsOf(section(SettingsHeading))), filesIn(QStringLiteral("settings")));
    QCOMPARE(filesOf(rowsOf(section(ReceiversHeading))), filesIn(QStringLiteral("receivers")));
    QCOMPARE(filesOf(rowsOf(section(FaultyHeading)) + rowsOf(section(MalformedHeading))),
             filesIn(QStringLiteral("faulty")));
}

void ExamplesTest::jobs_data()
{
    QTest::addColumn<QString>("file");
    QTest::addColumn<bool>("complete");

    const QString text = section(JobsHeading);
    const auto incomplete = text.indexOf(QStringLiteral("These pass every check, but"));
    QVERIFY(incomplete > 0);
    const auto add = [](const QString &part, bool complete) {
        const auto rows = rowsOf(part);
        for (const QStringList &row : rows)
            QTest::newRow(qPrintable(row.first())) << QStringLiteral("jobs/") + row.first() << complete;
    };
    add(text.left(incomplete), true);
    add(text.mid(incomplete), false);
}

void ExamplesTest::jobs()
{
    QFETCH(QString, file);
    QFETCH(bool, complete);

    const QString state = complete
        ? QStringLiteral("Job, complete")
        : QStringLiteral("Job, not complete: the library accepts it but would write nothing for it");
    const Outcome check = runTool({QStringLiteral("check"), file});
    const QRegularExpression oneWarning(
        QStringLiteral("^%1:\\d+:\\d+: warning: [^\n]+\n$").arg(QRegularExpression::escape(file)));
    QVERIFY2(complete ? check.errors.isEmpty() : oneWarning.match(check.errors).hasMatch(),
             qPrintable(check.errors));
    QCOMPARE(check.output, file + QStringLiteral(": ") + state + QLatin1Char('\n'));
    QCOMPARE(check.exitCode, 0);

    const Outcome format = runTool({QStringLiteral("format"), file});
    QCOMPARE(format.output, complete ? contentOf(file) : QString());
    QCOMPARE(format.exitCode, complete ? 0 : 1);
}

void ExamplesTest::settingsAndReceivers_data()
{
    QTest::addColumn<QString>("file");
    QTest::addColumn<QString>("saying");
    QTest::addColumn<bool>("isKept");

    const auto add = [](const QString &heading, const QString &folder) {
        const auto rows = rowsOf(section(heading));
        for (const QStringList &row : rows) {
            QCOMPARE(row.size(), 4);
            QTest::newRow(qPrintable(row.first()))
                << folder + row.first() << row.at(2) << (row.at(3) == QStringLiteral("keeps it as it is"));
        }
    };
    add(SettingsHeading, QStringLiteral("settings/"));
    add(ReceiversHeading, QStringLiteral("receivers/"));
}

void ExamplesTest::settingsAndReceivers()
{
    QFETCH(QString, file);
    QFETCH(QString, saying);
    QFETCH(bool, isKept);

    const bool isFaulty = saying.contains(QStringLiteral(": error: "));
    const Outcome check = runTool({QStringLiteral("check"), file});
    const QString line =
        file + (isFaulty ? QStringLiteral(":") : QStringLiteral(": ")) + saying + QLatin1Char('\n');
    if (isFaulty)
        QCOMPARE(withoutNames(check.errors).section(QLatin1Char('\n'), -2), line); // behind a warning
    QCOMPARE(check.output, isFaulty ? QString() : line);
    QCOMPARE(check.exitCode, isFaulty ? 1 : 0);

    const Outcome format = runTool({QStringLiteral("format"), file});
    QCOMPARE(format.output, isKept ? contentOf(file) : QString());
    QCOMPARE(format.errors.isEmpty(), isKept);
    QCOMPARE(format.exitCode, isKept ? 0 : 1);
}

void ExamplesTest::faulty_data()
{
    QTest::addColumn<QString>("file");
    QTest::addColumn<QStringList>("complaints");

    const auto rows = rowsOf(section(FaultyHeading));
    for (const QString &name : filesOf(rows)) {
        QStringList complaints;
        for (const QStringList &row : rows) {
            QCOMPARE(row.size(), 4);
            if (row.first() == name)
                complaints += row.at(2) + QStringLiteral(": error: ") + row.at(3);
        }
        QTest::newRow(qPrintable(name)) << QStringLiteral("faulty/") + name << complaints;
    }
}

void ExamplesTest::faulty()
{
    QFETCH(QString, file);
    QFETCH(QStringList, complaints);

    QString errors;
    for (const QString &complaint : complaints)
        errors += file + QLatin1Char(':') + complaint + QLatin1Char('\n');
    const Outcome check = runTool({QStringLiteral("check"), file});
    QCOMPARE(withoutNames(check.errors), errors);
    QCOMPARE(check.output, QString());
    QCOMPARE(check.exitCode, 1);
}

void ExamplesTest::malformed_data()
{
    QTest::addColumn<QString>("file");
    QTest::addColumn<QString>("place");

    const auto rows = rowsOf(section(MalformedHeading));
    for (const QStringList &row : rows) {
        QCOMPARE(row.size(), 4);
        QTest::newRow(qPrintable(row.first())) << QStringLiteral("faulty/") + row.first() << row.at(2);
    }
}

void ExamplesTest::malformed()
{
    QFETCH(QString, file);
    QFETCH(QString, place);

    const Outcome check = runTool({QStringLiteral("check"), file});
    const QRegularExpression oneMessage(
        QStringLiteral("^%1:%2: error: [^\n]+\n$")
            .arg(QRegularExpression::escape(file), QRegularExpression::escape(place)));
    QVERIFY2(oneMessage.match(check.errors).hasMatch(), qPrintable(check.errors));
    QCOMPARE(check.output, QString());
    QCOMPARE(check.exitCode, 1);
}

void ExamplesTest::readmeShowsTheProgram()
{
    const QString readme = contentOf(QStringLiteral("../README.md"));
    const QString program = contentOf(QStringLiteral("embedding/main.cpp"));
    const QStringList lines = readme.section(QStringLiteral("```cpp\n"), 1, 1)
                                  .section(QStringLiteral("```"), 0, 0)
                                  .split(QLatin1Char('\n'), Qt::SkipEmptyParts);
    QVERIFY(lines.size() > 10);
    for (const QString &line : lines)
        QVERIFY2(program.contains(line.trimmed()), qPrintable(line));
}

QTEST_GUILESS_MAIN(ExamplesTest)

#include "ExamplesTest.moc"
