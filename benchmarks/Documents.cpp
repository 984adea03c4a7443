#include "Documents.h"

#include <QRegularExpression>
#include <QStringList>

#include <algorithm>
#include <cstring>

namespace Documents {

namespace {

QString declared(const QString &element)
{
    return "<?xml version=\"1.0\"?>\n" + element;
}

QString line(int depth, const QString &markup)
{
    return QString(4 * depth, ' ') + markup + '\n';
}

QString textLine(int depth, const char *tag, const char *text)
{
    return text ? line(depth, QString("<%1>%2</%1>").arg(tag, QString::fromUtf8(text))) : QString();
}

QString block(const char *tag, const QString &lines)
{
    return line(2, QString("<%1>").arg(tag)) + lines + line(2, QString("</%1>").arg(tag));
}

QString limits(const char *tag, const char *minimum, const char *maximum, const char *standard,
               const char *precision = nullptr, const char *maximumLength = nullptr)
{
    return block(tag,
                 textLine(3, "Minimum", minimum) + textLine(3, "Maximum", maximum)
                     + textLine(3, "Default", standard) + textLine(3, "Precision", precision)
                     + textLine(3, "MaxDoubleListLength", maximumLength));
}

QString entries(const QStringList &attributes)
{
    QString lines;
    for (const QString &entry : attributes)
        lines += line(3, "<EnumValue " + entry + "/>");
    return block("Enum", lines);
}

/// Absent texts are null.
struct Kind {
    const char *type;
    const char *name;
    const char *representation;
    const char *display;
    const char *toolTip;
    const char *valueType;
    const char *controlType;
    const char *suffix;
    const char *multiplier;
    const char *enable;
    QString block;
};

/// The parameters of a channel, of all types.
const QVector<Kind> &kinds()
{
    static const QVector<Kind> all{
        {"Boolean", "AfcEnable", "afc.on", "AFC", nullptr, "ValueBoolean", nullptr, nullptr, nullptr, "true",
         textLine(2, "Boolean", "true")},
        {"Long", "Frequency", "rx.frequency", "Frequency", "Centre frequency of the receive channel",
         "ValueFrequency", "VCFrequency", "Hz", nullptr, "true",
         limits("Long", "100000", "30000000", "7100000")},
        {"Integer", "Attenuation", "rx.attenuation", "Attenuation", nullptr, "ValueNumericInt", "VCLineEdit",
         "dB", nullptr, "true", limits("Integer", "0", "40", "0")},
        {"String", "StationName", "station.name", "Station", "Sent with every recording", "ValueString",
         nullptr, nullptr, nullptr, "true",
         block("String", textLine(3, "Default", "Monitoring station North"))},
        {"Double", "Bandwidth", "rx.bandwidth", "Bandwidth", nullptr, "ValueFrequency", "VCLineEditFrequency",
         "MHz", "1000000.00", "true",
         limits("Double", "10000.000000", "20000000.000000", "10000000.000000", "0")},
        {"DoubleList", "ScanList", "scan.list", "Scan list", "Frequencies of a memory scan", "ValueFloatList",
         nullptr, "Hz", nullptr, "true",
         limits("Double", "100000.000000", "30000000.000000", "0.000000", "0", "400")},
        {"Float", "Level", "rx.level", "Level", nullptr, "ValueNumericFloat", nullptr, "dBµV", nullptr,
         "false", limits("Float", "-20.000000", "120.000000", "0.000000", "1")},
        {"Enum", "Agc", "rx.agc", "AGC", "Automatic gain control; the value is the hang time in seconds",
         "ValueSelection", nullptr, "s", nullptr, "true",
         entries({R"(Key="0" Name="Off" Identifier="off" Value="0.00")",
                  R"(Key="1" Name="Fast" Identifier="fast" Value="0.10")",
                  R"(Key="2" Name="Medium" Identifier="medium" Value="0.50" Default="true")",
                  R"(Key="3" Name="Slow" Identifier="slow" Value="2.50")"})},
        {"TimeStamp", "Watchdog", "rx.watchdog", "Switch off at", nullptr, "ValueNumericInt64", "VCTimeEdit",
         "ms", nullptr, "true", limits("TimeStamp", "0", "253402300799999", "0")},

        {"Boolean", "Mute", "audio.mute", "Mute", nullptr, "ValueBoolean", nullptr, nullptr, nullptr, "true",
         textLine(2, "Boolean", "false")},
        {"Long", "AudioRate", "audio.rate", "Audio sample rate", nullptr, "ValueNumericInt", nullptr, "S/s",
         nullptr, "true", limits("Long", "8000", "192000", "48000")},
        {"Integer", "AudioBalance", "audio.balance", "Balance", nullptr, "ValueNumericInt", nullptr, "%",
         nullptr, "true", limits("Integer", "-100", "100", "0")},
        {"String", "Operator", "station.operator", "Operator", nullptr, "ValueString", nullptr, nullptr,
         nullptr, "true", block("String", textLine(3, "Default", "Operator &amp; supervisor"))},
        {"Double", "BfoOffset", "demod.bfo", "BFO", "Beat-frequency oscillator offset", "ValueNumericFloat",
         nullptr, "Hz", nullptr, "true", limits("Double", "-8000.000000", "8000.000000", "800.000000", "1")},
        {"DoubleList", "Notches", "demod.notches", "Notches", nullptr, "ValueFloatList", nullptr, "Hz",
         nullptr, "true", limits("Double", "-10000.000000", "10000.000000", "0.000000", "0", "8")},
        {"Float", "Squelch", "rx.squelch", "Squelch", nullptr, "ValueNumericFloat", nullptr, "dBµV", nullptr,
         "true", limits("Float", "-30.000000", "130.000000", "12.500000", "1")},
        {"Enum", "AntennaInput", "rx.antenna", "Antenna input", nullptr, "ValueSelection", nullptr, nullptr,
         nullptr, "true",
         entries({R"(Key="0" Name="Antenna 1" Value="0.00" Default="true")",
                  R"(Key="1" Name="Antenna 2" Value="1.00")", R"(Key="2" Name="Antenna 3" Value="2.00")"})},
        {"TimeStamp", "Started", "status.started", "Running since", nullptr, "ValueNumericInt64", nullptr,
         "ms", nullptr, "false", limits("TimeStamp", "0", "253402300799999", "1765000000000")},

        {"Boolean", "Preselector", "rx.preselector", "Preselector", nullptr, "ValueBoolean", nullptr, nullptr,
         nullptr, "true", textLine(2, "Boolean", "true")},
        {"Long", "Step", "rx.step", "Step", "Tuning step of the wheel", "ValueFrequency", nullptr, "Hz",
         nullptr, "true", limits("Long", "1", "1000000", "100")},
        {"Integer", "PassbandTuning", "rx.pbt", "Passband tuning", nullptr, "ValueNumericInt", "VCLineEdit",
         "Hz", nullptr, "true", limits("Integer", "-5000", "5000", "0")},
        {"String", "Remark", "station.remark", "Remark", nullptr, "ValueString", nullptr, nullptr, nullptr,
         "true", block("String", textLine(3, "Default", "none"))},
        {"Double", "GainCorrection", "rx.correction", "Correction", nullptr, "ValueNumericFloat", nullptr,
         "dB", nullptr, "true", limits("Double", "-40.000000", "40.000000", "-2.500000", "2")},
        {"DoubleList", "Blanked", "scan.blanked", "Blanked", nullptr, "ValueFloatList", nullptr, "Hz",
         nullptr, "true", limits("Double", "100000.000000", "30000000.000000", "0.000000", "0", "64")},
        {"Float", "Supply", "status.supply", "Supply", nullptr, "ValueNumericFloat", nullptr, "V", nullptr,
         "false", limits("Float", "0.000000", "32.000000", "0.000000", "2")},
        {"Enum", "SquelchMode", "rx.squelch.mode", "Squelch mode", nullptr, "ValueSelection", nullptr,
         nullptr, nullptr, "true",
         entries({R"(Key="0" Name="Off" Value="0.00" Default="true")", R"(Key="1" Name="Level" Value="1.00")",
                  R"(Key="2" Name="Signal-to-noise" Value="2.00")"})},
        {"TimeStamp", "RecordUntil", "recorder.until", "Record until", "0: endless", "ValueNumericInt64",
         "VCTimeEdit", "ms", nullptr, "true", limits("TimeStamp", "0", "253402300799999", "0")},
    };
    return all;
}

/// The parameters of a channel in the order of their names, as they are written.
QVector<Kind> sortedKinds()
{
    QVector<Kind> sorted = kinds();
    std::sort(sorted.begin(), sorted.end(),
              [](const Kind &one, const Kind &other) { return std::strcmp(one.name, other.name) < 0; });
    return sorted;
}

/// What stands before and behind the names that number the channels, made once for each kind.
struct Pieces {
    QString beforeName;
    QString name;
    QString beforeRepresentation;
    QString rest;
};

Pieces piecesOf(const Kind &kind)
{
    return {
        QString("    <Parameter Version=\"1.0\" UniqueName=\"Channel"),
        '.' + QString(kind.name) + "\">\n        <RepresentationName>channel",
        '.' + QString(kind.representation) + "</RepresentationName>\n",
        textLine(2, "DisplayName", kind.display) + textLine(2, "ToolTip", kind.toolTip)
            + textLine(2, "ValueType", kind.valueType) + textLine(2, "ControlType", kind.controlType)
            + textLine(2, "DisplaySuffix", kind.suffix) + textLine(2, "Multiplier", kind.multiplier)
            + textLine(2, "Enable", kind.enable) + textLine(2, "ParameterType", kind.type) + kind.block
            + line(1, "</Parameter>"),
    };
}

QString receiverWith(const QString &content)
{
    return declared("<GenericReceiver Version=\"1.0\">\n" + content + "</GenericReceiver>\n");
}

} // namespace

QString receiver(int parameters)
{
    QVector<Pieces> pieces;
    for (const Kind &kind : sortedKinds())
        pieces << piecesOf(kind);

    QString content;
    for (int i = 0; i < parameters; ++i) {
        const Pieces &piece = pieces[i % pieces.size()];
        const QString channel = QString("%1").arg(i / pieces.size(), 5, 10, QChar('0'));
        content +=
            piece.beforeName + channel + piece.name + channel + piece.beforeRepresentation + piece.rest;
    }
    return receiverWith(content);
}

QString receiverOfUniqueTexts(int parameters)
{
    static const QRegularExpression texts(
        R"((<DisplayName>|<ToolTip>|<DisplaySuffix>|Name="|Identifier=")(?!Channel))");
    const QStringList elements = receiver(parameters).split("    <Parameter ");
    QString document = elements.first();
    for (int i = 1; i < elements.size(); ++i)
        document += "    <Parameter " + QString(elements[i]).replace(texts, QString("\\1%1 ").arg(i));
    return document;
}

QString enumeration(int entryCount)
{
    QStringList attributes;
    for (int i = 0; i < entryCount; ++i)
        attributes << QString(R"(Key="%1" Name="Filter %1" Value="%1.00")").arg(i);
    Kind kind = kinds()[7];
    kind.block = entries(attributes);
    const Pieces piece = piecesOf(kind);
    return receiverWith(piece.beforeName + piece.name + piece.beforeRepresentation + piece.rest);
}

QString unknownElements(int elements)
{
    QString unknown;
    for (int i = 0; i < elements; ++i)
        unknown += line(3, QString("<Hint Number=\"%1\">see <Page>%1</Page></Hint>").arg(i));
    Kind kind = kinds()[2];
    kind.block = block("Integer", unknown + textLine(3, "Minimum", "0"));
    const Pieces piece = piecesOf(kind);
    return receiverWith(piece.beforeName + piece.name + piece.beforeRepresentation + piece.rest
                        + line(1, "<Script>") + unknown + line(1, "</Script>"));
}

QString area(int coordinates)
{
    QString content = line(1, "<Name>German Bight</Name>");
    for (int i = 0; i < coordinates; ++i) {
        content += line(1, "<Coordinate>")
            + line(2, QString("<Latitude>53.%1</Latitude>").arg(i % 1000, 3, 10, QChar('0')))
            + line(2, QString("<Longitude>7.%1</Longitude>").arg(i % 997, 3, 10, QChar('0')))
            + line(1, "</Coordinate>");
    }
    return declared("<Area Version=\"1.0\">\n" + content + "</Area>\n");
}

QString job()
{
    return declared(QStringLiteral(R"(<Job Version="1.0">
    <JobHeader Version="1.0">
        <JobType>Surveillance MC HF</JobType>
        <Author>M. Keller</Author>
        <Creation>2026-03-15T22:00:00,000Z</Creation>
        <ShowJDH>true</ShowJDH>
    </JobHeader>
    <ResourceType>Antenna</ResourceType>
    <AntennaData Version="1.0">
        <Name>Log-periodic North</Name>
        <MinimumFrequency>1500000</MinimumFrequency>
        <MaximumFrequency>30000000</MaximumFrequency>
        <Azimuth>0</Azimuth>
        <Polarization>Horizontal</Polarization>
    </AntennaData>
</Job>
)"));
}

QString jobHeader()
{
    return declared(QStringLiteral(R"(<JobHeader Version="1.0">
    <JobType>Surveillance MC HF</JobType>
    <Author>M. Keller</Author>
    <Description>Night watch of the coast stations</Description>
    <Creation>2026-03-15T22:00:00,000Z</Creation>
    <ShowJDH>true</ShowJDH>
</JobHeader>
)"));
}

QString antennaData()
{
    return declared(QStringLiteral(R"(<AntennaData Version="1.0">
    <Name>Log-periodic North</Name>
    <MinimumFrequency>1500000</MinimumFrequency>
    <MaximumFrequency>30000000</MaximumFrequency>
    <Azimuth>0</Azimuth>
    <Polarization>Horizontal</Polarization>
</AntennaData>
)"));
}

QString automaticWorkflow()
{
    return declared(QStringLiteral(R"(<AutomaticWorkflow Version="1.0">
    <Mode>AutomaticMode</Mode>
    <Classifiers>8</Classifiers>
    <ClassificationTime>25</ClassificationTime>
    <ClassificationResult>3</ClassificationResult>
    <SearchStrategy>ShortestSignalsFirst</SearchStrategy>
    <BitstreamClassification>false</BitstreamClassification>
    <Area Version="1.0">
        <Name>German Bight</Name>
        <Coordinate>
            <Latitude>53.55</Latitude>
            <Longitude>7.1</Longitude>
        </Coordinate>
        <Coordinate>
            <Latitude>55.0625</Latitude>
            <Longitude>6.4</Longitude>
        </Coordinate>
        <Coordinate>
            <Latitude>54.9</Latitude>
            <Longitude>8.3</Longitude>
        </Coordinate>
    </Area>
</AutomaticWorkflow>
)"));
}

QString activityGeneration()
{
    return declared(QStringLiteral(R"(<ActivityGeneration Version="2.2" Autostart="true">
    <Mode>AGED</Mode>
    <EnergyChannel>DDem</EnergyChannel>
    <LevelMinBurstDuration>0.2</LevelMinBurstDuration>
    <LevelMaxBreakDuration>1.5</LevelMaxBreakDuration>
    <DDemActiveCriteria>Demodulator and Decoder Locked</DDemActiveCriteria>
    <DDemMinBurstDuration>0.75</DDemMinBurstDuration>
    <DDemMaxBreakDuration>2.5</DDemMaxBreakDuration>
    <DDemMorseQualityThreshold>65</DDemMorseQualityThreshold>
    <ClassIntermScore>2</ClassIntermScore>
    <ClassFinalScore>5</ClassFinalScore>
    <ClassStartScore>4</ClassStartScore>
    <ClassStopScore>1</ClassStopScore>
    <ClassMinConfidence>60</ClassMinConfidence>
    <DetConvMinBurstDuration>0.05</DetConvMinBurstDuration>
    <DbWriteEnergy>false</DbWriteEnergy>
    <DbWriteDDem>Always</DbWriteDDem>
    <DbWriteClass>On Energy Detection</DbWriteClass>
    <CutAtLocations>false</CutAtLocations>
    <SessionCloseTime>30</SessionCloseTime>
    <RestartAttachmentsOnSessionClose>true</RestartAttachmentsOnSessionClose>
</ActivityGeneration>
)"));
}

QString parameter()
{
    const QString whole = receiver(2); // the second is of a type that can be read back
    const auto start = whole.lastIndexOf("    <Parameter ");
    const auto end = whole.lastIndexOf("</GenericReceiver>");
    return declared(whole.mid(start, end - start));
}

} // namespace Documents
