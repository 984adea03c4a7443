// How much findings matter where users or a kormak.ini say otherwise.
#ifndef KORMAK_TOOLS_SEVERITYSETTINGS_H
#define KORMAK_TOOLS_SEVERITYSETTINGS_H

#include <inspection/DocumentCheck_p.h>

#include <QByteArray>
#include <QCommandLineOption>
#include <QString>
#include <QStringList>

#include <map>
#include <memory>
#include <mutex>

QT_BEGIN_NAMESPACE
class QCommandLineParser;
QT_END_NAMESPACE

class SeveritySettings {
public:
    enum class Setting { Error, Warning, Off };
    using Settings = std::map<QString, Setting>; ///< by the ids of findings

    /// What a kormak.ini says.
    struct SettingsFile {
        Settings settings;
        QByteArray complaints; ///< what is wrong with it, in lines
    };

    /// Those of the option. \throws UsageError
    explicit SeveritySettings(const QCommandLineParser &parser);

    /// What the kormak.ini says that is the next one above the document in the file \a path; null when there
    /// is none. Several threads may ask.
    [[nodiscard]] std::shared_ptr<const SettingsFile> fileFor(const QString &path) const;

    /// Changes how much the findings of \a check matter, those of a document that is accepted. What the
    /// library refuses a document for stays an error, and says so. \a file: may be null.
    void apply(KORMAK::Inspection::DocumentCheck &check, const SettingsFile *file) const;

    [[nodiscard]] static QCommandLineOption option();
    /// What the option takes: "bad-value=error".
    [[nodiscard]] static QStringList optionValues();

private:
    [[nodiscard]] std::shared_ptr<const SettingsFile> fileAbove(const QString &path) const;

    Settings ofCall;
    mutable std::mutex mutex; ///< of what follows
    mutable std::map<QString, std::shared_ptr<const SettingsFile>> files; ///< by the folder of the document
    mutable std::map<QString, std::shared_ptr<const SettingsFile>> asGiven; ///< by the folder as it is given
};

#endif
