#include "tools/Baseline.h"

#include <inspection/Json_p.h>
#include <tools/Command.h>
#include <tools/InputFile.h>
#include <tools/PathEncoding.h>

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <filesystem>
#include <system_error>
#include <utility>
#include <vector>

using namespace KORMAK::Inspection;

namespace {

namespace fs = std::filesystem;

constexpr int Version = 1;

/// As it is called from the root, without links being followed.
fs::path fullPath(const QString &path)
{
    std::error_code error;
    const fs::path native = PathEncoding::toNative(path);
    const fs::path full = fs::absolute(native, error);
    return (error ? native : full).lexically_normal();
}

} // namespace

Baseline::Baseline(const QString &path) : folder(PathEncoding::fromNative(fullPath(path).parent_path())) { }

Baseline Baseline::read(const QString &path)
{
    const auto fail = [&path](const QString &reason) {
        return UsageError{QStringLiteral("the baseline '%1' ").arg(path) + reason};
    };
    QByteArray bytes;
    try {
        bytes = InputFile::read(path).bytes;
    } catch (const InputFile::Error &error) {
        throw fail(QStringLiteral("cannot be read: ") + error.reason);
    }
    QJsonParseError error{};
    const QJsonObject object = QJsonDocument::fromJson(bytes, &error).object();
    if (error.error != QJsonParseError::NoError)
        throw fail(QStringLiteral("is not JSON: ") + error.errorString());
    if (object.value(QLatin1String("version")).toInt() != Version
        || !object.value(QLatin1String("findings")).isArray())
        throw fail(QStringLiteral("is none that --write-baseline of this version writes"));
    Baseline baseline(path);
    const QJsonArray findings = object.value(QLatin1String("findings")).toArray();
    for (const auto &value : findings) {
        const QJsonObject finding = value.toObject();
        const QString file = finding.value(QLatin1String("file")).toString();
        const QString id = finding.value(QLatin1String("id")).toString();
        const int count = finding.value(QLatin1String("count")).toInt();
        if (file.isEmpty() || id.isEmpty() || count < 1 || !finding.value(QLatin1String("path")).isString())
            throw fail(QStringLiteral("has a finding without file, id, path or count"));
        baseline.counts[{file, id, finding.value(QLatin1String("path")).toString()}] += count;
    }
    return baseline;
}

QByteArray Baseline::text() const
{
    QByteArray lines;
    for (const auto &[key, count] : counts) {
        const auto &[file, id, path] = key;
        JsonWriter json(JsonWriter::Layout::OneLine);
        json.beginObject();
        json.member(u"file", jsonText(file));
        json.member(u"id", jsonText(id));
        json.member(u"path", jsonText(path));
        json.member(u"count", QString::number(count));
        json.endObject();
        lines += (lines.isEmpty() ? "\n" : ",\n") + json.text().toUtf8();
    }
    return "{\"version\": " + QByteArray::number(Version) + ", \"findings\": [" + lines + "\n]}\n";
}

QString Baseline::nameOf(const QString &path) const
{
    if (path == StandardStream)
        return path;
    const fs::path relative = fullPath(path).lexically_relative(PathEncoding::toNative(folder));
    const QString name = PathEncoding::fromNative(relative.generic_string());
    return PathEncoding::isUtf8(name) ? name : QString();
}

void Baseline::add(const QString &name, const std::vector<DocumentCheck::PlacedFinding> &findings)
{
    for (const auto &[finding, position] : findings)
        ++counts[{name, finding.id.toString(), finding.path}];
}

void Baseline::add(const Baseline &other)
{
    for (const auto &[key, count] : other.counts)
        counts[key] += count;
}

int Baseline::takeKnown(const QString &name, std::vector<DocumentCheck::PlacedFinding> &findings) const
{
    std::map<Key, int> met;
    std::vector<DocumentCheck::PlacedFinding> unknown;
    for (DocumentCheck::PlacedFinding &placed : findings) {
        const Key key{name, placed.finding.id.toString(), placed.finding.path};
        const auto known = counts.find(key);
        if (known == counts.end() || ++met[key] > known->second)
            unknown.push_back(std::move(placed));
    }
    const auto taken = static_cast<int>(findings.size() - unknown.size());
    findings = std::move(unknown);
    return taken;
}
