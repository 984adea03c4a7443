#include <inspection/FieldText_p.h>
#include <inspection/report/CompassRose_p.h>
#include <inspection/report/FrequencyAxis_p.h>
#include <inspection/report/Page_p.h>
#include <kormak/Job.h>

#include <QLocale>

#include <cmath>

namespace KORMAK::Inspection {

namespace {

void writeTile(Html &html, const QString &label, const QString &text, const QString &detail = {})
{
    html.open(u"li").element(u"span", label).text(u" ").open(u"strong");
    if (text.isEmpty())
        html.element(u"span", QStringLiteral("not set"), {{u"class", QStringLiteral("muted")}});
    else
        html.text(text);
    html.close();
    if (!detail.isEmpty())
        html.text(u" ").element(u"small", detail);
    html.close();
}

/// Who wants what when, on what.
void writeOrder(Html &html, const Job &job)
{
    const JobHeader &header = job.GetJobHeader();
    const JobType::JobTypeValue type = header.GetJobType();
    const QDateTime creation = header.GetCreation().toUTC();
    const auto resource = job.GetResourceType();
    const QLocale words = QLocale::c();
    openSection(html, QStringLiteral("In short"));
    html.open(u"ul", {{u"class", QStringLiteral("tiles")}});
    writeTile(html, QStringLiteral("What"),
              JobType::IsValidJobType(type) ? JobType::JobTypeToName(type) : QString());
    writeTile(html, QStringLiteral("Who"), header.GetAuthor());
    writeTile(html, QStringLiteral("When"),
              creation.isValid() ? words.toString(creation, QStringLiteral("d MMMM yyyy, hh:mm 'UTC'"))
                                 : QString(),
              creation.isValid() ? words.toString(creation, QStringLiteral("dddd")) : QString());
    const bool isOnAntenna = resource == TESSEL::ResourceType::Antenna;
    writeTile(html, QStringLiteral("On which resource"),
              TESSEL::ResourceType::IsValidResourceType(resource)
                  ? TESSEL::ResourceType::ResourceTypeToName(resource)
                  : QString(),
              isOnAntenna ? job.GetAntennaData().GetName() : QString());
    html.close();
    if (!header.GetDescription().isEmpty()) {
        html.open(u"p", {{u"class", QStringLiteral("lead")}});
        writeProse(html, header.GetDescription());
        html.close();
    }
    html.close();
}

void writeAntenna(Html &html, const Job &job)
{
    const TESSEL::AntennaData &antenna = job.GetAntennaData();
    const bool hasRange =
        std::isfinite(antenna.GetMinimumFrequency()) && std::isfinite(antenna.GetMaximumFrequency());
    if (!hasRange && !std::isfinite(antenna.GetAzimuth()))
        return;
    openSection(html, QStringLiteral("Antenna"));
    if (job.GetResourceType() != TESSEL::ResourceType::Antenna)
        html.element(u"p",
                     QStringLiteral("The job is not on the antenna resource: its antenna does not count."),
                     {{u"class", QStringLiteral("missing")}});
    html.open(u"div", {{u"class", QStringLiteral("side-by-side")}});
    if (hasRange) {
        const QString name =
            antenna.GetName().isEmpty() ? QStringLiteral("Antenna without a name") : antenna.GetName();
        writeFrequencyAxis(html, {{name, antenna.GetMinimumFrequency(), antenna.GetMaximumFrequency()}},
                           QStringLiteral("The frequencies that the antenna is for."));
    }
    if (std::isfinite(antenna.GetAzimuth()))
        writeCompassRose(html, antenna.GetAzimuth(),
                         QStringLiteral("It looks %1: %2%3 from north.")
                             .arg(directionText(antenna.GetAzimuth()), numberText(antenna.GetAzimuth()),
                                  QString(QChar(0xB0))));
    html.close().close();
}

} // namespace

void writeJob(const Page &page, const Job &job)
{
    Html &html = page.html;
    writeOrder(html, job);
    writeAntenna(html, job);
    writeAllFields(page);
}

} // namespace KORMAK::Inspection
