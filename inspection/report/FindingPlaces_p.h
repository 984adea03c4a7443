// Which findings a page has already shown beside what they are about. Each is shown there once; the list of
// all of them links to the place.
#ifndef KORMAK_INSPECTION_REPORT_FINDINGPLACES_P_H
#define KORMAK_INSPECTION_REPORT_FINDINGPLACES_P_H

#include <inspection/Finding.h>
#include <inspection/report/Html_p.h>

#include <QString>
#include <QVector>

#include <map>
#include <vector>

namespace KORMAK::Inspection {

class FindingPlaces {
public:
    explicit FindingPlaces(const QVector<Finding> &findings);

    /// Writes notes of the findings about \a path, as findings call it, or about what is in it or an
    /// attribute of it, unless they have been written before.
    void writeNotes(Html &html, const QString &path);
    /// All findings, each with links to its place in the page and to its line of the source, where \a
    /// hasSource.
    enum class Source { Absent, Shown };
    void writeList(Html &html, Source source) const;

    [[nodiscard]] int count(Finding::Severity severity) const;
    [[nodiscard]] bool isEmpty() const noexcept { return all.isEmpty(); }
    /// The lines that findings are about.
    [[nodiscard]] std::vector<qint64> lines() const;

private:
    /// \a within: where it is in the element that the note is about; empty: all of it.
    void writeNote(Html &html, int index, const QString &within);

    const QVector<Finding> all;
    std::multimap<QString, int> open; ///< by path, those that no note has been written of
    std::vector<bool> isNoted;
};

/// What follows a number: "1 error", "2 errors".
[[nodiscard]] QString counted(qint64 count, const QString &noun);

} // namespace KORMAK::Inspection

#endif
