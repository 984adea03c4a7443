// What the tests of the schemas share: validation by xmllint.
#ifndef KORMAK_SCHEMASUPPORT_H
#define KORMAK_SCHEMASUPPORT_H

#include <tests/support/DocumentKinds.h>
#include <tests/support/Files.h>

#include <QProcess>
#include <QRegularExpression>
#include <QStandardPaths>
#include <QTemporaryDir>

#include <stdexcept>

namespace SchemaSupport {

using TestSupport::kinds;
using TestSupport::newObject;

inline QString schemaPath(const QString &file)
{
    return QDir(SCHEMAS_DIR).filePath(file);
}

/// Why a test cannot run; empty when it can.
inline QByteArray obstacle()
{
    return QStandardPaths::findExecutable("xmllint").isEmpty()
        ? QByteArray("xmllint, a part of libxml2, is needed to test the schemas")
        : QByteArray();
}

/// What xmllint says of each document under the schema of \a kind: nothing when it validates. It is called
/// once for all of them.
inline QStringList complaints(const QString &kind, const QList<QByteArray> &documents)
{
    const QTemporaryDir folder;
    QStringList names;
    for (const QByteArray &document : documents) {
        names << QString::number(names.size()) + ".xml";
        TestSupport::writtenFile(folder.filePath(names.last()), document);
    }

    QProcess xmllint;
    xmllint.setWorkingDirectory(folder.path());
    xmllint.start("xmllint",
                  QStringList{"--noout", "--nonet", "--schema", schemaPath(kind + ".xsd")} + names);
    constexpr int Milliseconds = 120'000;
    if (!xmllint.waitForFinished(Milliseconds) || xmllint.exitStatus() != QProcess::NormalExit)
        throw std::runtime_error(xmllint.errorString().toStdString());
    const QString output = QString::fromUtf8(xmllint.readAllStandardError());
    const QStringList lines = output.split('\n');

    QStringList complaints;
    for (const QString &name : names) {
        const QStringList verdict = lines.filter(QRegularExpression('^' + name + "[ :]"));
        if (verdict.isEmpty())
            throw std::runtime_error(output.toStdString());
        complaints << (verdict == QStringList(name + " validates") ? QString() : verdict.join('\n'));
    }
    return complaints;
}

} // namespace SchemaSupport

#endif
