#include "models/FindingIndex_p.h"

#include <algorithm>
#include <iterator>

namespace KORMAK {

bool isPathOrWithin(const QString &path, const QString &whole)
{
    if (!path.startsWith(whole))
        return false;
    return path.size() == whole.size() || whole.isEmpty() || path.at(whole.size()) == QLatin1Char('.')
        || path.at(whole.size()) == QLatin1Char('[');
}

FindingIndex::FindingIndex(const QVector<Finding> &findings)
{
    for (const Finding &finding : findings)
        byPath.emplace(finding.GetFieldPath(), finding);
}

QVector<Finding> FindingIndex::at(const QString &path) const
{
    QVector<Finding> found;
    for (auto entry = byPath.lower_bound(path); entry != byPath.end() && entry->first.startsWith(path);
         ++entry) {
        if (isPathOrWithin(entry->first, path))
            found.push_back(entry->second);
    }
    return found;
}

QStringList FindingIndex::differences(const FindingIndex &other) const
{
    QStringList paths;
    auto a = byPath.begin();
    auto b = other.byPath.begin();
    const auto addPathOf = [&paths](auto &entry) {
        if (paths.isEmpty() || paths.constLast() != entry->first)
            paths += entry->first;
        ++entry;
    };
    while (a != byPath.end() || b != other.byPath.end()) {
        if (b == other.byPath.end() || (a != byPath.end() && a->first < b->first)) {
            addPathOf(a);
        } else if (a == byPath.end() || b->first < a->first) {
            addPathOf(b);
        } else {
            if (!isSameFinding(a->second, b->second))
                addPathOf(a);
            else
                ++a;
            ++b;
        }
    }
    return paths;
}

bool isSameFinding(const Finding &a, const Finding &b)
{
    return a.GetId() == b.GetId() && a.GetPath() == b.GetPath() && a.GetMessage() == b.GetMessage()
        && a.GetSeverity() == b.GetSeverity();
}

QStringList messagesOf(const QVector<Finding> &findings)
{
    QStringList messages;
    std::transform(findings.begin(), findings.end(), std::back_inserter(messages),
                   [](const Finding &finding) { return finding.GetMessage(); });
    return messages;
}

qint32 severityOf(const QVector<Finding> &findings)
{
    qint32 greatest = -1;
    for (const Finding &finding : findings)
        greatest = std::max(greatest, static_cast<qint32>(finding.GetSeverity()));
    return greatest;
}

} // namespace KORMAK
