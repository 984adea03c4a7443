// The documents in examples/, and what the tool says of them.
#ifndef KORMAK_DOCUMENTSAMPLES_H
#define KORMAK_DOCUMENTSAMPLES_H

#include <inspection/Document.h>
#include <objectbase/TesselException.h>

#include <QDirIterator>
#include <QFile>
#include <QProcess>
#include <QtTest>

namespace DocumentSamples {

inline QByteArray contentOf(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("(no file)");
}

/// Paths in the order of their names.
inline QStringList examples()
{
    QStringList paths;
    QDirIterator found(EXAMPLES_DIR, {"*.xml"}, QDir::Files, QDirIterator::Subdirectories);
    while (found.hasNext())
        paths += found.next();
    paths.sort();
    return paths;
}

inline QString nameOf(const QString &path)
{
    return QDir(EXAMPLES_DIR).relativeFilePath(path);
}

/// A row for each example.
inline void addExamples()
{
    QTest::addColumn<QString>("path");

    for (const QString &path : examples())
        QTest::newRow(qPrintable(nameOf(path))) << path;
}

inline KORMAK::Document example(const QString &name)
{
    return KORMAK::Document(contentOf(QDir(EXAMPLES_DIR).filePath(name)));
}

#ifdef KORMAK_TOOL
/// What a run of the tool writes to standard output.
inline QByteArray toolOutput(const QStringList &arguments)
{
    constexpr int Patience = 240 * 1000;
    QProcess process;
    process.start(KORMAK_TOOL, arguments);
    return process.waitForFinished(Patience) ? process.readAllStandardOutput() : QByteArray("(no end)");
}
#endif

/// The message of the TesselException that \a call throws; a null text when it throws none.
template <class Call>
QString messageOf(Call call)
{
    try {
        call();
    } catch (const TESSEL::TesselException &exception) {
        return exception.GetErrorMessage();
    }
    return {};
}

inline QStringList linesOf(const QVector<KORMAK::Finding> &findings)
{
    QStringList lines;
    for (const KORMAK::Finding &finding : findings) {
        lines += QString("%1:%2 %3 %4 %5: %6")
                     .arg(finding.GetLine())
                     .arg(finding.GetColumn())
                     .arg(finding.GetSeverity() == KORMAK::Finding::Severity::Error ? "error" : "warning")
                     .arg(finding.GetId(), finding.GetPath(), finding.GetMessage());
    }
    return lines;
}

inline QStringList pathsOf(const QVector<KORMAK::Finding> &findings)
{
    QStringList paths;
    for (const KORMAK::Finding &finding : findings)
        paths += finding.GetPath();
    return paths;
}

} // namespace DocumentSamples

#endif
