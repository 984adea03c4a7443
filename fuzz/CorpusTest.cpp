// Repeats what the fuzzers found, one file a row. The first argument names the target.
#include <fuzz/Targets.h>

#include <QDir>
#include <QFile>
#include <QtTest>

#include <cstdio>
#include <exception>

class CorpusTest : public QObject {
    Q_OBJECT

public:
    explicit CorpusTest(const QString &targetName)
        : folder(QDir(CORPUS_DIR).filePath(targetName)), check(Fuzz::findTarget(targetName))
    {
    }

private Q_SLOTS:
    void propertiesHold_data();
    void propertiesHold();

private:
    QDir folder;
    Fuzz::Check check;
};

void CorpusTest::propertiesHold_data()
{
    QTest::addColumn<QString>("path");

    const QStringList names = folder.entryList(QDir::Files, QDir::Name);
    QVERIFY2(!names.isEmpty(), qPrintable(folder.path() + " holds no inputs"));
    for (const QString &name : names)
        QTest::newRow(qPrintable(name)) << folder.filePath(name);
}

void CorpusTest::propertiesHold()
{
    QFETCH(QString, path);

    QFile file(path);
    QVERIFY(file.open(QIODevice::ReadOnly));
    const QByteArray input = file.readAll();
    try {
        check(input);
    } catch (const std::exception &exception) {
        QFAIL(exception.what());
    }
}

int main(int argc, char *argv[])
{
    QCoreApplication application(argc, argv);
    QStringList arguments = application.arguments();
    if (arguments.size() < 2 || !Fuzz::targetNames().contains(arguments.at(1))) {
        std::fprintf(stderr, "The first argument must be one of %s.\n",
                     qPrintable(Fuzz::targetNames().join(", ")));
        return 2;
    }
    CorpusTest test(arguments.takeAt(1));
    return QTest::qExec(&test, arguments);
}

#include "CorpusTest.moc"
