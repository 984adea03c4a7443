#include "inspection/report/Page_p.h"

#include <inspection/QuotedText_p.h>
#include <kormak/ActivityGenerationData.h>
#include <kormak/AutomaticWorkflow.h>
#include <kormak/GenericReceiver.h>
#include <kormak/Job.h>
#include <kormak/JobType.h>

#include <algorithm>
#include <iterator>

namespace KORMAK::Inspection {

namespace {

/// What the pages of a kind have of their own.
struct KindPage {
    QStringView kind;
    QStringView name;
    QString (*title)(const TESSEL::ITesselObject &object); ///< null: the name
    void (*write)(const Page &page);
};

template <class Document>
const Document &as(const TESSEL::ITesselObject &object)
{
    return static_cast<const Document &>(object);
}

QString titleOfJob(const TESSEL::ITesselObject &object)
{
    const JobType::JobTypeValue type = as<Job>(object).GetJobHeader().GetJobType();
    return JobType::IsValidJobType(type) ? JobType::JobTypeToName(type)
                                         : QStringLiteral("Job without a type");
}

QString titleOfParameter(const TESSEL::ITesselObject &object)
{
    const auto &parameter = as<Parameter>(object);
    const QString &name = parameter.GetDisplayName().isEmpty() ? parameter.GetUniqueParameterName()
                                                               : parameter.GetDisplayName();
    return name.isEmpty() ? QStringLiteral("Parameter without a name") : name;
}

constexpr KindPage Pages[] = {
    {u"Job", u"Job", titleOfJob, [](const Page &page) { writeJob(page, as<Job>(page.object)); }},
    {u"AutomaticWorkflow", u"Automatic workflow", nullptr,
     [](const Page &page) { writeWorkflow(page, as<AutomaticWorkflow>(page.object)); }},
    {u"ActivityGeneration", u"Activity generation", nullptr,
     [](const Page &page) { writeGeneration(page, as<ActivityGenerationData>(page.object)); }},
    {u"GenericReceiver", u"Receiver", nullptr,
     [](const Page &page) { writeReceiver(page, as<GenericReceiver>(page.object)); }},
    {u"Parameter", u"Receiver parameter", titleOfParameter,
     [](const Page &page) { writeParameter(page, as<Parameter>(page.object)); }},
};

/// Null when there is none.
const KindPage *pageOf(const DocumentKind &kind)
{
    const auto *const found = std::find_if(std::begin(Pages), std::end(Pages), [&kind](const KindPage &page) {
        return page.kind == kind.rootElement;
    });
    return found == std::end(Pages) ? nullptr : found;
}

} // namespace

QString Page::rootPath() const
{
    const auto *const parameter = dynamic_cast<const Parameter *>(&object);
    const QString root = kind.rootElement.toString();
    return parameter && !parameter->GetUniqueParameterName().isEmpty()
        ? QStringLiteral("%1[%2]").arg(root, shortened(parameter->GetUniqueParameterName()))
        : root;
}

Headline headlineOf(const DocumentKind &kind, const TESSEL::ITesselObject &object)
{
    const KindPage *const page = pageOf(kind);
    const QString name = (page ? page->name : kind.rootElement).toString();
    return {name, page && page->title ? page->title(object) : name};
}

void writeContent(const Page &page)
{
    if (const KindPage *const own = pageOf(page.kind))
        own->write(page);
    else
        writeFields(page);
}

Html &openSection(Html &html, const QString &heading, const QString &id)
{
    if (id.isEmpty())
        html.open(u"section");
    else
        html.open(u"section", {{u"id", id}});
    return html.element(u"h2", heading);
}

void openTable(Html &html, const QString &caption, std::initializer_list<QStringView> headings,
               Html::Attributes attributes)
{
    html.open(u"table", attributes).element(u"caption", caption).open(u"thead").open(u"tr");
    for (const QStringView heading : headings)
        html.element(u"th", heading.toString(), {{u"scope", QStringLiteral("col")}});
    html.close().close().open(u"tbody");
}

} // namespace KORMAK::Inspection
