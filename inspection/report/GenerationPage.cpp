#include <inspection/FieldText_p.h>
#include <inspection/report/BarAxis_p.h>
#include <inspection/report/Page_p.h>
#include <kormak/ActivityGenerationData.h>

#include <QStringList>

namespace KORMAK::Inspection {

namespace {

using Data = ActivityGenerationData;

QString nameOr(const QString &name, const QString &otherwise)
{
    return name.isEmpty() ? otherwise : name;
}

Bar bar(const QString &name, float value)
{
    return {name, static_cast<double>(value), numberText(value)};
}

Bar bar(const QString &name, int value)
{
    return {name, static_cast<double>(value), numberText(value)};
}

QString writeModeText(const Data &data, Data::ActivityGenerationDataBaseWriteMode mode)
{
    return nameOr(data.ActivityGenerationDataBaseWriteModeToName(mode), QStringLiteral("not set"));
}

QStringList sentences(const Data &data)
{
    QStringList texts;
    const QString mode = data.ActivityGenerationModeToName(data.GetActivtyGenerationMode());
    texts += (mode.isEmpty() ? QStringLiteral("The mode is not set")
                             : QStringLiteral("Activities are generated in the mode %1").arg(mode))
        + (data.GetAutoStartOn() ? QStringLiteral("; generation starts by itself.")
                                 : QStringLiteral("; generation does not start by itself."));
    texts +=
        QStringLiteral("Energy is looked for in the channel %1.")
            .arg(nameOr(data.EnergyActivityGenerationChannelToName(data.GetEnergyActivityGenerationChannel()),
                        QStringLiteral("that is not set")));
    QString criteria = QStringLiteral("A demodulated signal counts as active by this: %1")
                           .arg(nameOr(data.DDemActiveCriteriaToName(data.GetDDemActiveCriteria()),
                                       QStringLiteral("not set")));
    if (data.GetDDemActiveCriteria() == Data::MorseQualityOverThreshold)
        criteria += QStringLiteral(", %1").arg(data.GetDDemMorseQualityThreshold());
    texts += criteria + QLatin1Char('.');
    texts += data.GetCutAtLocations() ? QStringLiteral("Activities are cut at locations.")
                                      : QStringLiteral("Activities are not cut at locations.");
    texts += QStringLiteral("A session is closed after %1; attachments are %2 then.")
                 .arg(numberText(data.GetSessionCloseTime()),
                      data.GetRestartAttachmentsOnSessionClose() ? QStringLiteral("restarted")
                                                                 : QStringLiteral("not restarted"));
    return texts;
}

void writeDatabase(Html &html, const Data &data)
{
    const struct {
        QString what;
        QString when;
    } Rows[] = {
        {QStringLiteral("Energy detections"),
         data.GetDbWriteEnergy() ? QStringLiteral("Always") : QStringLiteral("Never")},
        {QStringLiteral("Results of the demodulator"), writeModeText(data, data.GetDbWriteDDem())},
        {QStringLiteral("Results of the classifier"), writeModeText(data, data.GetDbWriteClass())},
    };
    openTable(html, QStringLiteral("Written to the database"), {u"What", u"When"});
    for (const auto &row : Rows) {
        html.open(u"tr")
            .element(u"th", row.what, {{u"scope", QStringLiteral("row")}})
            .element(u"td", row.when)
            .close();
    }
    html.close().close();
}

} // namespace

void writeGeneration(const Page &page, const ActivityGenerationData &data)
{
    Html &html = page.html;
    openSection(html, QStringLiteral("What will happen"));
    for (const QString &sentence : sentences(data))
        html.element(u"p", sentence);
    writeDatabase(html, data);
    html.close();
    openSection(html, QStringLiteral("Durations"));
    writeBars(
        html,
        {
            bar(QStringLiteral("Level: minimum burst"), data.GetLevelMinBurstDuration()),
            bar(QStringLiteral("Level: maximum break"), data.GetLevelMaxBreakDuration()),
            bar(QStringLiteral("Demodulator: minimum burst"), data.GetDDemMinBurstDuration()),
            bar(QStringLiteral("Demodulator: maximum break"), data.GetDDemMaxBreakDuration()),
            bar(QStringLiteral("Detection converter: minimum burst"), data.GetDetConvMinBurstDuration()),
            bar(QStringLiteral("Session is closed after"), data.GetSessionCloseTime()),
        },
        QStringLiteral("In the unit of the processing chain."), Scale::Fitting);
    html.close();
    openSection(html, QStringLiteral("Classification"));
    writeBars(html,
              {
                  bar(QStringLiteral("Intermediate score"), data.GetClassIntermScore()),
                  bar(QStringLiteral("Final score"), data.GetClassFinalScore()),
                  bar(QStringLiteral("Start score"), data.GetClassStartScore()),
                  bar(QStringLiteral("Stop score"), data.GetClassStopScore()),
              },
              QStringLiteral("Scores of the classifier, on the scale of the processing chain."),
              Scale::Linear);
    writeBars(html,
              {
                  bar(QStringLiteral("Minimum confidence of the classifier"), data.GetClassMinConfidence()),
                  bar(QStringLiteral("Threshold of Morse quality"), data.GetDDemMorseQualityThreshold()),
              },
              QStringLiteral("Quality, on the scale of the processing chain."), Scale::Linear);
    html.close();
    writeAllFields(page);
}

} // namespace KORMAK::Inspection
