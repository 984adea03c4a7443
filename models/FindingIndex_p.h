// The findings of a document by what they are about.
#ifndef KORMAK_MODELS_FINDINGINDEX_P_H
#define KORMAK_MODELS_FINDINGINDEX_P_H

#include <inspection/Finding.h>

#include <QString>
#include <QStringList>
#include <QVariant>
#include <QVector>

#include <map>

namespace KORMAK {

/// Whether \a path is \a whole or something in it.
[[nodiscard]] bool isPathOrWithin(const QString &path, const QString &whole);

class FindingIndex {
public:
    FindingIndex() = default;
    explicit FindingIndex(const QVector<Finding> &findings);

    [[nodiscard]] bool isEmpty() const noexcept { return byPath.empty(); }
    /// Those about \a path, as Finding::GetFieldPath() calls it, or about what is in it.
    [[nodiscard]] QVector<Finding> at(const QString &path) const;
    /// The paths about which \a other tells something else, wherever it stands in the text.
    [[nodiscard]] QStringList differences(const FindingIndex &other) const;

private:
    std::multimap<QString, Finding> byPath;
};

/// It tells the same, whatever stands before it in the text.
[[nodiscard]] bool isSameFinding(const Finding &a, const Finding &b);

[[nodiscard]] QStringList messagesOf(const QVector<Finding> &findings);
/// The greatest Finding::Severity among them as a number; -1: there are none.
[[nodiscard]] qint32 severityOf(const QVector<Finding> &findings);

} // namespace KORMAK

#endif
