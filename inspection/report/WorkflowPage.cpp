#include <inspection/FieldText_p.h>
#include <inspection/report/AreaMap_p.h>
#include <inspection/report/Page_p.h>
#include <kormak/AutomaticWorkflow.h>

#include <QStringList>

#include <algorithm>
#include <iterator>

namespace KORMAK::Inspection {

namespace {

/// The order in which signals are taken up, within a sentence.
QString orderText(AutomaticWorkflow::SearchStrategy strategy)
{
    constexpr struct {
        AutomaticWorkflow::SearchStrategy strategy;
        QStringView text;
    } Orders[] = {
        {AutomaticWorkflow::LowestIdFirst, u"that with the lowest number first"},
        {AutomaticWorkflow::HighestIdFirst, u"that with the highest number first"},
        {AutomaticWorkflow::SmallestBandwidthFirst, u"that of the smallest bandwidth first"},
        {AutomaticWorkflow::LowestLevelFirst, u"that of the lowest level first"},
        {AutomaticWorkflow::HighestLevelFirst, u"that of the highest level first"},
        {AutomaticWorkflow::LatestActiveFirst, u"that which was active last first"},
        {AutomaticWorkflow::ShortestSignalsFirst, u"the shortest first"},
    };
    const auto *const found = std::find_if(std::begin(Orders), std::end(Orders),
                                           [strategy](const auto &row) { return row.strategy == strategy; });
    return found == std::end(Orders) ? QStringLiteral("in an order that is not set") : found->text.toString();
}

QStringList sentences(const AutomaticWorkflow &workflow)
{
    if (workflow.GetWorkflowMode() == AutomaticWorkflow::ManualMode)
        return {QStringLiteral("Signals that are found are taken up by hand: nothing happens by itself.")};
    QStringList texts;
    if (workflow.GetWorkflowMode() != AutomaticWorkflow::AutomaticMode)
        texts += QStringLiteral("The mode is not set. In automatic mode, this would hold:");
    texts += QStringLiteral("Signals that are found are taken up one after the other, %1.")
                 .arg(orderText(workflow.GetSearchStrategy()));
    const auto count = [](unsigned int number, QStringView one, QStringView several) {
        return number == 1 ? one.toString() : several.toString().arg(number);
    };
    texts +=
        QStringLiteral(
            "%1 on each signal for %2, in the unit of the system that carries out the workflow; %3.")
            .arg(count(workflow.GetNumberClassifiers(), u"1 classifier works", u"%1 classifiers work"),
                 QString::number(workflow.GetClassificationTime()),
                 count(workflow.GetClassificationResults(), u"1 result is kept", u"%1 results are kept"));
    texts += workflow.GetHFBitstreamClassification()
        ? QStringLiteral("The bit streams of HF signals are classified, too.")
        : QStringLiteral("The bit streams of HF signals are not classified.");
    texts += workflow.GetArea().AnyData()
        ? QStringLiteral("Only the area %1 counts.").arg(workflow.GetArea().GetName())
        : QStringLiteral("No area limits it.");
    return texts;
}

void writeCoordinates(const Page &page, const TESSEL::Area &area)
{
    Html &html = page.html;
    openTable(html, QStringLiteral("Coordinates"), {u"Number", u"Latitude", u"Longitude"});
    int number = 0;
    for (const TESSEL::Coordinate &coordinate : area.GetCoordinate()) {
        ++number;
        const QString degree(QChar(0xB0));
        html.open(u"tr")
            .element(u"th", QString::number(number), {{u"scope", QStringLiteral("row")}})
            .element(u"td", numberText(coordinate.GetLatitude()) + degree)
            .element(u"td", numberText(coordinate.GetLongitude()) + degree)
            .close();
    }
    html.close().close();
}

void writeArea(const Page &page, const TESSEL::Area &area)
{
    Html &html = page.html;
    openSection(html,
                area.GetName().isEmpty() ? QStringLiteral("Area without a name")
                                         : QStringLiteral("Area: ") + area.GetName());
    writeAreaMap(html, area);
    if (!area.GetCoordinate().isEmpty())
        writeCoordinates(page, area);
    page.findings.writeNotes(html, page.rootPath() + QStringLiteral("/Area/Coordinate"));
    html.close();
}

} // namespace

void writeWorkflow(const Page &page, const AutomaticWorkflow &workflow)
{
    Html &html = page.html;
    openSection(html, QStringLiteral("What will happen"));
    for (const QString &sentence : sentences(workflow))
        html.element(u"p", sentence);
    html.close();
    if (workflow.GetArea().AnyData())
        writeArea(page, workflow.GetArea());
    writeAllFields(page);
}

} // namespace KORMAK::Inspection
