#include <tests/support/ToolSupport.h>

#include <QFileInfo>
#include <QRegularExpression>
#include <QStandardPaths>

using namespace ToolSupport;

/// The tool in repositories of Git, as the README says.
class GitTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void textconv_data();
    void textconv();
    void preCommit();
    void preCommitFormats();
};

namespace {

bool isMissing(const char *program)
{
    return QStandardPaths::findExecutable(program).isEmpty();
}

/// A repository, and programs that work in it with the tool in their path and no settings of the user.
class Repository : public Folder {
public:
    Repository()
    {
        environment.insert("PATH", QFileInfo(KORMAK_TOOL).path() + ':' + environment.value("PATH"));
        environment.insert("HOME", home.path());
        environment.insert("PRE_COMMIT_HOME", home.filePath("pre-commit"));
        environment.insert("GIT_CONFIG_NOSYSTEM", "1");
        for (const char *variable : {"GIT_DIR", "GIT_INDEX_FILE", "GIT_WORK_TREE", "XDG_CONFIG_HOME"})
            environment.remove(variable);
        git({"init", "--quiet"});
        git({"config", "user.name", "Mara Lind"});
        git({"config", "user.email", "mara@localhost"});
    }

    Run call(const QString &program, const QStringList &arguments) const
    {
        QProcess process;
        process.setWorkingDirectory(path("."));
        process.setProcessEnvironment(environment);
        process.start(program, arguments);
        return ended(process);
    }
    Run git(const QStringList &arguments) const { return call("git", arguments); }
    Run commitAll() const
    {
        git({"add", "--all"});
        return git({"commit", "--quiet", "--message", "Some documents"});
    }

private:
    QTemporaryDir home;
};

/// What the README says of \a what: the lines of the code block that holds it.
QString blockInReadme(const QString &what)
{
    QFile readme(SOURCE_DIR "/README.md");
    if (!readme.open(QIODevice::ReadOnly))
        return {};
    const QString text = QString::fromUtf8(readme.readAll());
    const QStringList blocks = text.split("```");
    for (int i = 1; i < blocks.size(); i += 2) {
        if (blocks[i].contains(what))
            return blocks[i].section('\n', 1);
    }
    return {};
}

/// A repository with the hooks of this project, and another one that uses them as the README says.
class Hooks {
public:
    Hooks()
    {
        QFile file(SOURCE_DIR "/.pre-commit-hooks.yaml");
        if (file.open(QIODevice::ReadOnly))
            project.write(".pre-commit-hooks.yaml", file.readAll());
        project.commitAll();
        const QString revision = project.git({"rev-parse", "HEAD"}).out.trimmed();
        QString settings = blockInReadme("repo:");
        settings.replace("https://example.org/kormak.git", project.path(".")).replace("v1.0.0", revision);
        repository.write(".pre-commit-config.yaml", settings.toUtf8());
        installation = repository.call("pre-commit", {"install"});
        QDir(repository.path(".")).mkpath("jobs");
    }

    Repository project;
    Repository repository;
    Run installation;
};

} // namespace

void GitTest::textconv_data()
{
    QTest::addColumn<QByteArray>("before");
    QTest::addColumn<QByteArray>("after");
    QTest::addColumn<QStringList>("lines");

    QTest::newRow("complete") << completeJob() << jobWith("Mara Lind", "Nils Aas").replace("    ", "\t")
                              << QStringList{"- Author: Mara Lind", "+ Author: Nils Aas"};
    QTest::newRow("at fault") << completeJob() << QByteArray("<Job><Foo></Job>")
                              << QStringList{"+<Job><Foo></Job>"};
}

void GitTest::textconv()
{
    QFETCH(QByteArray, before);
    QFETCH(QByteArray, after);
    QFETCH(QStringList, lines);
    if (isMissing("git")) {
        skip("there is no git");
        return;
    }

    const Repository repository;
    QDir(repository.path(".")).mkpath("jobs");
    const QString setUp = blockInReadme("textconv");
    QVERIFY(!setUp.isEmpty());
    const Run set = repository.call("/bin/sh", {"-ec", setUp});
    QVERIFY2(set.status == 0, qPrintable(set.err));
    repository.write("jobs/a.xml", before);
    QCOMPARE(repository.commitAll().status, 0);
    repository.write("jobs/a.xml", after);
    const Run diff = repository.git({"diff"});
    QCOMPARE(diff.err, QString());
    QCOMPARE(diff.status, 0);
    QStringList shown;
    for (const QString &line : diff.out.split('\n'))
        shown << line.simplified();
    for (const QString &line : lines)
        QVERIFY2(shown.contains(line), qPrintable(diff.out));
    if (lines.size() == 2)
        QVERIFY2(!diff.out.contains("<Author>"), qPrintable(diff.out));
}

void GitTest::preCommit()
{
    if (isMissing("git") || isMissing("pre-commit")) {
        skip("there is no git or no pre-commit");
        return;
    }
    const Hooks hooks;
    QVERIFY2(hooks.installation.status == 0, qPrintable(hooks.installation.out + hooks.installation.err));
    const Repository &repository = hooks.repository;

    repository.write("jobs/a.xml", completeJob());
    const Run good = repository.commitAll();
    QVERIFY2(good.status == 0, qPrintable(good.out + good.err));
    QVERIFY2(good.err.contains(QRegularExpression("kormak check\\.+Passed")), qPrintable(good.err));

    repository.write("jobs/b.xml", jobWithoutAuthor());
    repository.write("notes.xml", "<notes/>"); // elsewhere
    const Run bad = repository.commitAll();
    QCOMPARE(bad.status, 1);
    QVERIFY2(bad.err.contains("jobs/b.xml:3:5: error: Job/JobHeader/Author: missing"), qPrintable(bad.err));
    QVERIFY2(!bad.err.contains("notes.xml"), qPrintable(bad.err));
    QCOMPARE(repository.git({"rev-list", "--count", "HEAD"}).out, QString("1\n"));

    repository.write("jobs/b.xml", jobWith("Mara Lind", "Nils Aas"));
    QCOMPARE(repository.commitAll().status, 0);
    QCOMPARE(repository.git({"rev-list", "--count", "HEAD"}).out, QString("2\n"));
}

/// What is not as the library writes it is put right, and can then be committed.
void GitTest::preCommitFormats()
{
    if (isMissing("git") || isMissing("pre-commit")) {
        skip("there is no git or no pre-commit");
        return;
    }
    const Hooks hooks;
    const Repository &repository = hooks.repository;
    repository.write("jobs/a.xml", completeJob().replace("    ", "\t"));
    const Run untidy = repository.commitAll();
    QCOMPARE(untidy.status, 1);
    QVERIFY2(untidy.err.contains("files were modified by this hook"), qPrintable(untidy.err));
    QCOMPARE(repository.read("jobs/a.xml"), QString(completeJob()));
    QCOMPARE(repository.commitAll().status, 0);
}

QTEST_GUILESS_MAIN(GitTest)
#include "GitTest.moc"
