// Texts that came from the libraries are read when the libraries are gone: a program that unloads a plugin
// keeps them.
#include <QFile>
#include <QtTest>

#include <dlfcn.h>

class UnloadTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void textsOutliveTheLibraries();
};

namespace {

bool isLoaded()
{
    QFile maps(QStringLiteral("/proc/self/maps"));
    return maps.open(QIODevice::ReadOnly) && maps.readAll().contains("libkormak-qt");
}

} // namespace

void UnloadTest::textsOutliveTheLibraries()
{
    QStringList texts;
    QStringList copies; // with characters of their own
    {
        void *library = dlopen(UNLOADED_LIBRARY, RTLD_NOW | RTLD_LOCAL);
        QVERIFY2(library, dlerror());
        QVERIFY(isLoaded());
        const auto collect = reinterpret_cast<void (*)(QStringList *)>(dlsym(library, "collectTexts"));
        QVERIFY(collect);
        collect(&texts);
        for (const QString &text : std::as_const(texts))
            copies << QString(text.constData(), text.size());
        QCOMPARE(dlclose(library), 0);
    }
    QVERIFY(!isLoaded());
    QCOMPARE(texts, copies);
    for (const char *text : {"Production SC HF", "Antenna", "undefined", "ValueFrequency", "2.2", "1.0",
                             "JobHeader: Please set Author", "JobHeader", "Expected character data.",
                             "2026-03-14T06:30:00,000Z", "JobHeader: Invalid JobType '99'", "false"})
        QVERIFY2(texts.contains(QString(text)), text);
}

QTEST_GUILESS_MAIN(UnloadTest)
#include "UnloadTest.moc"
