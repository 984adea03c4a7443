#include <tools/UnifiedDiff.h>

#include <QtTest>

class UnifiedDiffTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void differences_data();
    void differences();
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

QTEST_GUILESS_MAIN(UnifiedDiffTest)
#include "UnifiedDiffTest.moc"
