#ifndef KORMAK_INSPECTION_REPORTINDEX_H
#define KORMAK_INSPECTION_REPORTINDEX_H

#include <inspection/Document.h>
#include <inspection/inspection_export.h>

#include <QByteArray>
#include <QDateTime>
#include <QString>
#include <QVector>

namespace KORMAK {

/// A page that lists documents, with links to a Report on each.
///
/// \snippet docs/InspectionSnippetsTest.cpp ReportIndex
class INSPECTION_EXPORT ReportIndex {
public:
    /// What the page tells of a document.
    ///
    /// \snippet docs/PageSnippetsTest.cpp Entry
    struct Entry {
        QString name; ///< what the page calls it, such as the name of its file
        QString link; ///< to its page, relative and encoded as addresses are; empty: none
        QString kind; ///< as GetDocumentKinds() call it; empty: not known
        QString title; ///< as Report::GetTitle()
        bool isAccepted = false; ///< as Document::IsAccepted()
        bool isComplete = false; ///< as Document::IsComplete()
        int errors = 0; ///< how many findings are errors
        int warnings = 0; ///< how many are warnings
        QString author; ///< of a job
        QDateTime creation; ///< of a job
        QString resource; ///< of a job, by its name
    };

    /// What stands before what. Documents that are the same in this follow in the order of their names, and
    /// those that do not have it come last.
    enum class Order : qint32 {
        Name,
        Kind,
        State, ///< the refused first, then those that are not complete
        Findings, ///< the most first; errors count before warnings
        Author,
        Time, ///< the latest first
        Resource,
    };

    /// \a link is that of the entry.
    [[nodiscard]] static Entry EntryOf(const Document &document, const QString &name, const QString &link);

    /// Adds it behind all others.
    void Add(const Entry &entry);
    /// Puts all that have been added in that order.
    void Sort(Order order);
    /// In the order of the page.
    [[nodiscard]] const QVector<Entry> &GetEntries() const noexcept { return entries; }

    /// The page, in UTF-8; it is made as those of Report::GetHtml() are.
    [[nodiscard]] QByteArray GetHtml() const;

private:
    QVector<Entry> entries;
};

} // namespace KORMAK

#endif
