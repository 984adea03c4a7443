#ifndef KORMAK_INSPECTION_REPORT_H
#define KORMAK_INSPECTION_REPORT_H

#include <inspection/Document.h>
#include <inspection/inspection_export.h>

#include <QByteArray>
#include <QDateTime>
#include <QString>

#include <memory>

namespace KORMAK {

/// A page that tells people what a document says and what is wrong with it: who wants what when and where,
/// areas on a map, ranges on axes, the parameters of a receiver as a data sheet, findings beside what they
/// are about, and the source with the numbers of its lines.
///
/// \snippet docs/InspectionSnippetsTest.cpp Report
///
/// A value; copies share their data.
class INSPECTION_EXPORT Report {
public:
    /// The report on no document.
    Report();
    /// \a name is what the page calls the document, such as the name of its file. \a source is the text that
    /// the document was made of, for the page to show; when it is empty, it shows none.
    explicit Report(const Document &document, const QString &name = {}, const QByteArray &source = {});

    /// What the page is called: "Surveillance MC HF", "Receiver".
    [[nodiscard]] QString GetTitle() const;

    /// The page, in UTF-8: one file that needs no other, runs no script and asks nobody for anything. Texts
    /// of the document are text in it and nothing else.
    [[nodiscard]] QByteArray GetHtml() const;

private:
    struct Private;

    std::shared_ptr<const Private> d; // null: on no document
};

} // namespace KORMAK

#endif
