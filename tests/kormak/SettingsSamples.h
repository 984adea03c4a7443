// What the tests of the settings documents share.
#ifndef KORMAK_SETTINGSSAMPLES_H
#define KORMAK_SETTINGSSAMPLES_H

#include <QDir>
#include <QFile>
#include <QString>
#include <QStringList>
#include <QtTest>

#include <algorithm>

namespace SettingsSamples {

/// \a fields ("Name=value"), but for \a changes, which are of the same form.
inline QStringList with(QStringList fields, const QStringList &changes)
{
    for (const QString &change : changes) {
        const QString start = change.section('=', 0, 0) + '=';
        const auto field = std::find_if(fields.begin(), fields.end(),
                                        [&start](const QString &f) { return f.startsWith(start); });
        if (field == fields.end())
            qFatal("There is no field %s", qPrintable(start));
        *field = change;
    }
    return fields;
}

/// The paths of the example documents whose file names match \a pattern.
inline QStringList examples(const QString &pattern)
{
    const QDir folder(QDir(EXAMPLES_DIR).filePath("settings"));
    QStringList paths;
    for (const QString &name : folder.entryList({pattern}, QDir::Files, QDir::Name))
        paths << folder.filePath(name);
    if (paths.isEmpty())
        qFatal("There are no examples %s", qPrintable(pattern));
    return paths;
}

inline QString contentOf(const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        qFatal("Cannot read %s", qPrintable(path));
    return QString::fromUtf8(file.readAll()).remove('\r'); // whatever line ends the checkout has
}

} // namespace SettingsSamples

#endif
