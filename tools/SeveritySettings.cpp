#include "tools/SeveritySettings.h"

#include <objectbase/Vocabulary_p.h>
#include <tools/Command.h>
#include <tools/DocumentFile.h>
#include <tools/FindingRules.h>
#include <tools/Options.h>
#include <tools/PathEncoding.h>
#include <tools/Usage.h>

#include <QCommandLineParser>
#include <QFileInfo>
#include <QSettings>

#include <algorithm>
#include <filesystem>
#include <system_error>
#include <utility>
#include <vector>

using namespace KORMAK::Inspection;

namespace {

namespace fs = std::filesystem;

using Setting = SeveritySettings::Setting;

constexpr QStringView OptionName = u"severity";
constexpr QStringView Section = u"severity/";

constexpr TESSEL::VocabularyRow<Setting> SettingRows[] = {
    {Setting::Error, u"error"},
    {Setting::Warning, u"warning"},
    {Setting::Off, u"off"},
};
constexpr TESSEL::Vocabulary AllSettings{SettingRows};

/// \throws UsageError
void add(SeveritySettings::Settings &settings, const QString &id, const QString &name)
{
    if (FindingRules::indexOf(id) < 0)
        throw Usage::unknown(QStringLiteral("id"), id, FindingRules::ids());
    const Setting setting = AllSettings.valueOf(name);
    if (!AllSettings.isValid(setting))
        throw Usage::unknown(QStringLiteral("severity"), name, AllSettings.names());
    settings[id] = setting;
}

SeveritySettings::SettingsFile settingsIn(const QString &path)
{
    SeveritySettings::SettingsFile file;
    const auto complain = [&](const QString &message) {
        file.complaints +=
            (complaintLine(path, std::nullopt, u"error", message) + QLatin1Char('\n')).toUtf8();
    };
    if (!PathEncoding::isUtf8(path)) {
        complain(QStringLiteral("cannot be read: its name is not UTF-8"));
        return file;
    }
    if (!QFileInfo::exists(path)) { // which QSettings takes for an empty one
        complain(QStringLiteral("cannot be read: it is a link that leads nowhere"));
        return file;
    }
    const QSettings settings(path, QSettings::IniFormat);
    if (settings.status() != QSettings::NoError)
        complain(settings.status() == QSettings::AccessError
                     ? QStringLiteral("cannot be read")
                     : QStringLiteral("is not all sections and NAME=VALUE"));
    const QStringList keys = settings.allKeys();
    for (const QString &key : keys) {
        try {
            if (!key.startsWith(Section))
                throw UsageError{
                    QStringLiteral("'%1' is in no section that is known. Allowed: [severity]").arg(key)};
            add(file.settings, key.mid(static_cast<int>(Section.size())), settings.value(key).toString());
        } catch (const UsageError &error) {
            complain(error.message);
        }
    }
    return file;
}

/// Of the next one; empty when there is none.
fs::path settingsFileAbove(fs::path folder)
{
    for (std::error_code ignored;;) {
        fs::path file = folder / "kormak.ini";
        if (fs::exists(fs::symlink_status(file, ignored)))
            return file;
        if (folder == folder.parent_path())
            return {};
        folder = folder.parent_path();
    }
}

/// What stands before the name of the file, on whatever system; paths that begin alike are in one folder.
QString folderAsGiven(const QString &path)
{
    const auto isSeparator = [](QChar c) { return c == u'/' || c == u'\\' || c == u':'; };
    const auto name = std::find_if(path.rbegin(), path.rend(), isSeparator).base();
    return path.left(static_cast<int>(name - path.begin()));
}

} // namespace

SeveritySettings::SeveritySettings(const QCommandLineParser &parser)
{
    const QStringList values = parser.values(OptionName.toString());
    for (const QString &value : values) {
        const auto sign = static_cast<int>(value.indexOf(QLatin1Char('=')));
        if (sign < 0)
            throw UsageError{QStringLiteral("--severity takes ID=SEVERITY, not '%1'").arg(value)};
        add(ofCall, value.left(sign), value.mid(sign + 1));
    }
}

std::shared_ptr<const SeveritySettings::SettingsFile> SeveritySettings::fileFor(const QString &path) const
{
    const QString given = folderAsGiven(path);
    const std::lock_guard<std::mutex> lock(mutex);
    auto known = asGiven.find(given);
    if (known == asGiven.end())
        known = asGiven.emplace(given, fileAbove(path)).first;
    return known->second;
}

/// The mutex is locked.
std::shared_ptr<const SeveritySettings::SettingsFile> SeveritySettings::fileAbove(const QString &path) const
{
    std::error_code error;
    const fs::path document = fs::absolute(PathEncoding::toNative(path), error);
    if (error)
        return nullptr;
    const fs::path folder = document.lexically_normal().parent_path();
    const QString name = PathEncoding::fromNative(folder);
    const auto known = files.find(name);
    if (known != files.end())
        return known->second;
    const fs::path file = settingsFileAbove(folder);
    std::shared_ptr<const SettingsFile> settings;
    if (!file.empty()) {
        // One that is above several folders is read once.
        const QString fileName = PathEncoding::fromNative(file);
        auto &same = files[fileName];
        if (!same)
            same = std::make_shared<const SettingsFile>(settingsIn(fileName));
        settings = same;
    }
    files.emplace(name, settings);
    return settings;
}

void SeveritySettings::apply(DocumentCheck &check, const SettingsFile *file) const
{
    const auto settingOf = [&](const FindingData &finding) -> const Setting * {
        const QString id = finding.id.toString();
        for (const Settings *settings : {&ofCall, file ? &file->settings : nullptr}) {
            if (!settings)
                continue;
            const auto found = settings->find(id);
            if (found != settings->end())
                return &found->second;
        }
        return nullptr;
    };
    std::vector<DocumentCheck::PlacedFinding> told;
    for (DocumentCheck::PlacedFinding &placed : check.findings) {
        FindingData &finding = placed.finding;
        const Setting *const setting = settingOf(finding);
        if (setting && finding.severity == Severity::Error && *setting != Setting::Error)
            finding.message += QStringLiteral(" (stays an error: the library refuses the document for it)");
        else if (setting && *setting == Setting::Error)
            finding.severity = Severity::Error;
        else if (setting && *setting == Setting::Off)
            continue;
        told.push_back(std::move(placed));
    }
    check.findings = std::move(told);
}

QCommandLineOption SeveritySettings::option()
{
    return optionCalled(OptionName, QStringLiteral("How much findings with an id matter; can be repeated."),
                        SettingOfSeverity);
}

QStringList SeveritySettings::optionValues()
{
    QStringList values;
    const QStringList ids = FindingRules::ids();
    const QStringList names = AllSettings.names();
    for (const QString &id : ids) {
        for (const QString &name : names)
            values += id + QLatin1Char('=') + name;
    }
    return values;
}
