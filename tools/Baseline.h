// Findings that are known already: a file with how many there are of each id at each path of each document.
#ifndef KORMAK_TOOLS_BASELINE_H
#define KORMAK_TOOLS_BASELINE_H

#include <inspection/DocumentCheck_p.h>

#include <QByteArray>
#include <QString>

#include <map>
#include <tuple>

class Baseline {
public:
    Baseline() = default;
    /// For a file \a path, to which the names of documents in it are relative.
    explicit Baseline(const QString &path);

    /// \throws UsageError when there is no such file, or no baseline in it
    [[nodiscard]] static Baseline read(const QString &path);
    /// What read() reads.
    [[nodiscard]] QByteArray text() const;

    /// What the document in the file \a path is called in the baseline; empty when it has no name in UTF-8.
    [[nodiscard]] QString nameOf(const QString &path) const;

    /// Adds all \a findings of the document called \a name.
    void add(const QString &name,
             const std::vector<KORMAK::Inspection::DocumentCheck::PlacedFinding> &findings);
    void add(const Baseline &other);
    /// Takes the known ones out of the findings of the document called \a name, of each id and path as many
    /// as there are here. \return how many
    int takeKnown(const QString &name,
                  std::vector<KORMAK::Inspection::DocumentCheck::PlacedFinding> &findings) const;

private:
    using Key = std::tuple<QString, QString, QString>; ///< the name of a document, id, path

    QString folder;
    std::map<Key, int> counts;
};

#endif
