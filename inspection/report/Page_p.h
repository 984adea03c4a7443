// What the parts of a page about a document share, and the parts that the kinds of document have.
#ifndef KORMAK_INSPECTION_REPORT_PAGE_P_H
#define KORMAK_INSPECTION_REPORT_PAGE_P_H

#include <inspection/DocumentKind_p.h>
#include <inspection/report/FindingPlaces_p.h>
#include <inspection/report/Html_p.h>

#include <QString>
#include <QStringView>

#include <initializer_list>

namespace KORMAK {
class ActivityGenerationData;
class AutomaticWorkflow;
class GenericReceiver;
class Job;
class Parameter;
} // namespace KORMAK

namespace KORMAK::Inspection {

struct Page {
    Html &html;
    FindingPlaces &findings;
    const DocumentKind &kind;
    const TESSEL::ITesselObject &object;

    /// As findings call the root element.
    [[nodiscard]] QString rootPath() const;
};

/// What a page begins with.
struct Headline {
    QString kind; ///< "Job"
    QString title; ///< "Surveillance MC HF"
};
[[nodiscard]] Headline headlineOf(const DocumentKind &kind, const TESSEL::ITesselObject &object);

/// Everything between the headline and the findings: what the kind of the document is shown with, and all its
/// fields.
void writeContent(const Page &page);

/// \name The parts of one kind
/// @{
void writeJob(const Page &page, const Job &job);
void writeWorkflow(const Page &page, const AutomaticWorkflow &workflow);
void writeGeneration(const Page &page, const ActivityGenerationData &data);
void writeReceiver(const Page &page, const GenericReceiver &receiver);
void writeParameter(const Page &page, const Parameter &parameter);
/// @}

/// A heading with what belongs to it, ended by close().
Html &openSection(Html &html, const QString &heading, const QString &id = {});

/// A table with columns under \a headings, ended by two calls of close(): of its body and of itself.
void openTable(Html &html, const QString &caption, std::initializer_list<QStringView> headings,
               Html::Attributes attributes = {});

/// The fields of the document, in tables.
void writeFields(const Page &page);
/// The same under a heading.
void writeAllFields(const Page &page);

/// A text that may have several lines.
void writeProse(Html &html, const QString &text);

} // namespace KORMAK::Inspection

#endif
