// The page of every public class opens with code, which a test runs.

#include "Page.h"

#include <QtTest>

namespace {

struct ClassComment {
    QString header;
    QString name;
    QStringList paragraphs;
};

QStringList libraryFolders()
{
    QStringList folders = QDir(SOURCE_DIR).entryList(QDir::Dirs | QDir::NoDotAndDotDot);
    const auto isNone = [](const QString &folder) {
        const QString lists = folder + "/CMakeLists.txt";
        return !QFile::exists(QDir(SOURCE_DIR).filePath(lists))
            || !Page::contentOf(lists).contains("kormak_add_library(");
    };
    folders.erase(std::remove_if(folders.begin(), folders.end(), isNone), folders.end());
    return folders;
}

QStringList publicHeaders()
{
    QStringList headers;
    for (const QString &folder : libraryFolders()) {
        const QStringList paths = Page::pathsIn(folder, {"*.h"});
        for (const QString &path : paths) {
            if (!path.endsWith("_p.h"))
                headers += path;
        }
    }
    return headers;
}

/// The comments of the classes and namespaces of a header that have a page.
QList<ClassComment> classComments(const QString &header)
{
    QList<ClassComment> comments;
    static const QRegularExpression definition(
        R"(^ *(?:class|struct|namespace) (?:[A-Z]+_EXPORT )?(\w+)[^;:]*(?: : [^;]*)?\{$)");
    static const QRegularExpression access("^ *(public|protected|private):$");
    QStringList comment;
    bool isPublic = true;
    const QStringList lines = Page::contentOf(header).split('\n');
    for (const QString &line : lines) {
        const QString text = line.trimmed();
        const auto defined = definition.match(line);
        if (const auto found = access.match(line); found.hasMatch())
            isPublic = found.captured(1) == "public";
        else if (line == "};")
            isPublic = true;
        if (text.startsWith("///")) {
            comment += text.mid(4);
            continue;
        }
        if (defined.hasMatch() && isPublic && !comment.isEmpty() && !comment.contains("\\cond"))
            comments += {header, defined.captured(1), comment.join('\n').split("\n\n")};
        if (!text.startsWith("template <"))
            comment.clear();
    }
    return comments;
}

/// The lines between the marks of a snippet; null unless there are two marks.
QString snippet(const QString &source, const QString &name)
{
    const QStringList parts = source.split(QRegularExpression(
        " *//! \\[" + QRegularExpression::escape(name) + "\\]\\n", QRegularExpression::MultilineOption));
    return parts.size() == 3 ? parts[1] : QString();
}

QStringList snippetSources()
{
    return Page::pathsIn("tests/docs", {"*SnippetsTest.cpp"});
}

} // namespace

class SnippetsTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void pageOpensWithCode_data();
    void pageOpensWithCode();
    void codeIsShown_data();
    void codeIsShown();
    void codeIsRun();
};

void SnippetsTest::pageOpensWithCode_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QStringList>("paragraphs");

    QStringList names;
    for (const QString &header : publicHeaders()) {
        const auto comments = classComments(header);
        for (const ClassComment &comment : comments) {
            names += comment.name;
            QTest::newRow(qPrintable(header + ' ' + comment.name)) << comment.name << comment.paragraphs;
        }
    }
    for (const char *name : {"Job", "EnumValue", "NumericHandler", "Document", "ReadingLimits", "JobType"})
        QVERIFY2(names.contains(name), name);
    for (const char *name : {"Passing", "Private", "HandlerSlot", "Xml"})
        QVERIFY2(!names.contains(name), name);
}

void SnippetsTest::pageOpensWithCode()
{
    QFETCH(QString, name);
    QFETCH(QStringList, paragraphs);
    static const QRegularExpression command(R"(^\\snippet (docs/\w+SnippetsTest\.cpp) (.+)$)");
    const auto shown = command.match(paragraphs.value(1));
    QVERIFY2(shown.hasMatch(),
             qPrintable("behind the first paragraph stands no \\snippet: " + paragraphs.value(1)));
    QCOMPARE(shown.captured(2), name);
    QVERIFY(!snippet(Page::contentOf("tests/" + shown.captured(1)), name).trimmed().isEmpty());
}

void SnippetsTest::codeIsShown_data()
{
    QTest::addColumn<QString>("command");

    static const QRegularExpression mark("//! \\[([^\\]]+)\\]");
    for (const QString &path : snippetSources()) {
        auto found = mark.globalMatch(Page::contentOf(path));
        QSet<QString> names;
        while (found.hasNext())
            names += found.next().captured(1);
        for (const QString &name : names)
            QTest::newRow(qPrintable(name)) << "\\snippet " + path.mid(6) + ' ' + name;
    }
}

void SnippetsTest::codeIsShown()
{
    QFETCH(QString, command);
    bool isShown = false;
    for (const QString &path : publicHeaders() + Page::pathsIn("docs", {"*.md"}))
        isShown = isShown || (Page::contentOf(path) + '\n').contains(command + '\n');
    QVERIFY2(isShown, qPrintable("no page has " + command));
}

void SnippetsTest::codeIsRun()
{
    const QString lists = Page::contentOf("tests/CMakeLists.txt");
    for (const QString &path : snippetSources()) {
        const QString test = QFileInfo(path).completeBaseName().section("Test", 0, 0);
        QVERIFY2(lists.contains(QRegularExpression("kormak_add_(?:widget_)?tests\\(docs [^)]*\\b" + test + "\\b")),
                 qPrintable(path));
    }
}

QTEST_GUILESS_MAIN(SnippetsTest)

#include "SnippetsTest.moc"
