#include <tools/PathEncoding.h>
#include <tools/UnifiedDiff.h>

#include <QProcess>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QtTest>

class UnifiedDiffTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void differences_data();
    void differences();
    void names_data();
    void names();
    void applied_data();
    void applied();
};

namespace {

/// Lines of a letter each.
QByteArray lines(const char *letters)
{
    QByteArray text;
    for (; *letters; ++letters)
        text += QByteArray(1, *letters) + '\n';
    return text;
}

} // namespace

void UnifiedDiffTest::differences_data()
{
    QTest::addColumn<QByteArray>("before");
    QTest::addColumn<QByteArray>("after");
    QTest::addColumn<QByteArray>("hunks"); // empty: there is no difference

    const auto add = [](const char *name, const QByteArray &before, const QByteArray &after,
                        const QByteArray &hunks) { QTest::newRow(name) << before << after << hunks; };
    add("same", "a\n", "a\n", "");
    add("empty", "", "", "");
    add("line changed", "a\n", "b\n", "@@ -1 +1 @@\n-a\n+b\n");
    add("all added", "", "a\nb\n", "@@ -0,0 +1,2 @@\n+a\n+b\n");
    add("all removed", "a\nb\n", "", "@@ -1,2 +0,0 @@\n-a\n-b\n");
    add("three lines around", lines("abcdefghi"), lines("abcdXfghi"),
        "@@ -2,7 +2,7 @@\n b\n c\n d\n-e\n+X\n f\n g\n h\n");
    add("added in the middle", lines("abcdefgh"), lines("abcdXefgh"),
        "@@ -2,6 +2,7 @@\n b\n c\n d\n+X\n e\n f\n g\n");
    add("two far apart", lines("Aabcdefghijk"), lines("Babcdefghijl"),
        "@@ -1,4 +1,4 @@\n-A\n+B\n a\n b\n c\n@@ -9,4 +9,4 @@\n h\n i\n j\n-k\n+l\n");
    add("two close together", lines("AabcdK"), lines("BabcdL"),
        "@@ -1,6 +1,6 @@\n-A\n+B\n a\n b\n c\n d\n-K\n+L\n");
    add("no line end", "a\nb", "a\nc",
        "@@ -1,2 +1,2 @@\n a\n-b\n\\ No newline at end of file\n+c\n"
        "\\ No newline at end of file\n");
    add("line end added", "a", "a\n", "@@ -1 +1 @@\n-a\n\\ No newline at end of file\n+a\n");
    add("carriage returns", "a\r\nb\r\n", "a\r\nc\r\n", "@@ -1,2 +1,2 @@\n a\r\n-b\r\n+c\r\n");
}

void UnifiedDiffTest::differences()
{
    QFETCH(QByteArray, before);
    QFETCH(QByteArray, after);
    QFETCH(QByteArray, hunks);
    QCOMPARE(unifiedDiff("x", before, after), hunks.isEmpty() ? hunks : "--- x\n+++ x\n" + hunks);
}

void UnifiedDiffTest::names_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<QByteArray>("name");

    const auto add = [](const char *name, const QString &path, const QByteArray &inHeader) {
        QTest::newRow(name) << path << inHeader;
    };
    add("plain", "jobs/a.xml", "jobs/a.xml");
    add("other letters", QStringLiteral("ä.xml"), "ä.xml");
    add("blank", "a b.xml", "a b.xml\t");
    add("blank at the start", " a", "\" a\"");
    add("blank at the end", "a ", "\"a \"");
    add("tab", "a\tb.xml", "\"a\\tb.xml\"");
    add("line feed", "a\nb c.xml", "\"a\\nb c.xml\"");
    add("quotes", "a\"b\".xml", "\"a\\\"b\\\".xml\"");
    add("backslash", "a\\b.xml", "\"a\\\\b.xml\"");
    add("escape", "a\x1b[1m", "\"a\\033[1m\"");
    add("character that hides others", QStringLiteral("a\u202eb"), "\"a\\342\\200\\256b\"");
    add("byte that is not UTF-8", PathEncoding::decoded("a\xfc"), "\"a\\374\"");
}

void UnifiedDiffTest::names()
{
    QFETCH(QString, path);
    QFETCH(QByteArray, name);
    QCOMPARE(unifiedDiff(path, "a\n", "b\n"), "--- " + name + "\n+++ " + name + "\n@@ -1 +1 @@\n-a\n+b\n");
}

void UnifiedDiffTest::applied_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<QString>("program");
    for (const QString &path : {QString("a.xml"), QString("a b.xml"), QString(" a b "), QString("a\tb.xml"),
                                QString("a\nb.xml"), QString("a \"b\".xml"), QString("a\\b.xml"),
                                QStringLiteral("ä ö.xml"), QStringLiteral("a\u202eb")}) {
        for (const QString &program : {QString("patch"), QString("git")})
            QTest::newRow(qPrintable(program + ' ' + PathEncoding::shown(path))) << path << program;
    }
}

/// By the programs that people have.
void UnifiedDiffTest::applied()
{
    QFETCH(QString, path);
    QFETCH(QString, program);
    if (QStandardPaths::findExecutable(program).isEmpty())
        QSKIP("it is not installed", "");

    const QByteArray before = "a\nb\r\n\tc";
    const QByteArray after = "a\nB\r\n\tc\nd";
    QTemporaryDir folder;
    QFile file(folder.filePath(path));
    QVERIFY(file.open(QFile::WriteOnly) && file.write(before) == before.size());
    file.close();
    QProcess process;
    process.setWorkingDirectory(folder.path());
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert("GIT_CEILING_DIRECTORIES", QFileInfo(folder.path()).path());
    process.setProcessEnvironment(environment);
    process.start(program,
                  program == "git" ? QStringList{"apply", "-p0", "--whitespace=nowarn"}
                                   : QStringList{"-s", "-p0", "--binary"});
    process.write(unifiedDiff(path, before, after));
    process.closeWriteChannel();
    QVERIFY(process.waitForFinished());
    QVERIFY2(process.exitCode() == 0, process.readAllStandardError() + process.readAllStandardOutput());
    QVERIFY(file.open(QFile::ReadOnly));
    QCOMPARE(file.readAll(), after);
}

QTEST_GUILESS_MAIN(UnifiedDiffTest)
#include "UnifiedDiffTest.moc"
