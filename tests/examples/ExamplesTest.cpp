// The tool on the documents of examples/, compared with what examples/README.md says of them.

#include <tests/support/Files.h>
#include <tests/support/ToolSupport.h>

#include <QRegularExpression>
#include <QtTest>

namespace {

/// Runs the tool in the folder of the examples.
ToolSupport::Run runTool(const QStringList &arguments)
{
    return ToolSupport::runTool(EXAMPLES_DIR, arguments);
}

QString contentOf(const QString &path)
{
    return TestSupport::textOf(QDir(EXAMPLES_DIR).filePath(path));
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
    return TestSupport::namesIn(QDir(EXAMPLES_DIR).filePath(folder));
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
    return text.remove(QRegularExpression(QStringLiteral(" \\(all(owed| names): [^)]*\\)")));
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
    const ToolSupport::Run check = runTool({QStringLiteral("check"), file});
    const QRegularExpression oneWarning(
        QStringLiteral("^%1:\\d+:\\d+: warning: [^\n]+\n$").arg(QRegularExpression::escape(file)));
    QVERIFY2(complete ? check.err.isEmpty() : oneWarning.match(check.err).hasMatch(), qPrintable(check.err));
    QCOMPARE(check.out, file + QStringLiteral(": ") + state + QLatin1Char('\n'));
    QCOMPARE(check.status, 0);

    const ToolSupport::Run format = runTool({QStringLiteral("format"), file});
    QCOMPARE(format.out, complete ? contentOf(file) : QString());
    QCOMPARE(format.status, complete ? 0 : 1);
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
    const ToolSupport::Run check = runTool({QStringLiteral("check"), file});
    const QString line =
        file + (isFaulty ? QStringLiteral(":") : QStringLiteral(": ")) + saying + QLatin1Char('\n');
    if (isFaulty)
        QCOMPARE(withoutNames(check.err).section(QLatin1Char('\n'), -2), line); // behind a warning
    QCOMPARE(check.out, isFaulty ? QString() : line);
    QCOMPARE(check.status, isFaulty ? 1 : 0);

    const ToolSupport::Run format = runTool({QStringLiteral("format"), file});
    QCOMPARE(format.out, isKept ? contentOf(file) : QString());
    QCOMPARE(format.err.isEmpty(), isKept);
    QCOMPARE(format.status, isKept ? 0 : 1);
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
    const ToolSupport::Run check = runTool({QStringLiteral("check"), file});
    QCOMPARE(withoutNames(check.err), errors);
    QCOMPARE(check.out, QString());
    QCOMPARE(check.status, 1);
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

    const ToolSupport::Run check = runTool({QStringLiteral("check"), file});
    const QRegularExpression oneMessage(
        QStringLiteral("^%1:%2: error: [^\n]+\n$")
            .arg(QRegularExpression::escape(file), QRegularExpression::escape(place)));
    QVERIFY2(oneMessage.match(check.err).hasMatch(), qPrintable(check.err));
    QCOMPARE(check.out, QString());
    QCOMPARE(check.status, 1);
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
