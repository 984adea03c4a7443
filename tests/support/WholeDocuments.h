// Documents in which every element and attribute occurs that is read, one of each kind, on one line.
#ifndef KORMAK_WHOLEDOCUMENTS_H
#define KORMAK_WHOLEDOCUMENTS_H

#include <QMap>
#include <QString>
#include <QStringList>

namespace TestSupport {

/// The names of the parameter types, in order of value.
inline QStringList typeNames()
{
    return {"Boolean", "Long", "Integer", "String", "Double", "DoubleList", "Float", "Enum", "TimeStamp"};
}

inline constexpr int TypeCount = 9;

inline QString wholeAntennaData()
{
    return "<AntennaData Version=\"1.5\"><Name>East</Name><MinimumFrequency>1500000.5"
           "</MinimumFrequency><MaximumFrequency>3e7</MaximumFrequency>"
           "<Azimuth>270</Azimuth><Polarization>Slant</Polarization></AntennaData>";
}

inline QString wholeJobHeader()
{
    return "<JobHeader Version=\"1.2\"><JobType>Antenna</JobType><Author>Mara Lind</Author>"
           "<Creation>2026-03-29T00:59:59,250Z</Creation><ShowJDH>perhaps</ShowJDH>"
           "<Description>first</Description></JobHeader>";
}

inline QString wholeJob()
{
    return "<Job Version=\"1.1\">" + wholeJobHeader() + "<ResourceType>Antenna</ResourceType>"
        + wholeAntennaData() + "</Job>";
}

inline QString wholeArea()
{
    return "<Area Version=\"1.3\"><Name>North</Name>"
           "<Coordinate><Latitude>53.55</Latitude><Longitude>-7.1</Longitude></Coordinate>"
           "<Coordinate><Longitude>8</Longitude><Latitude>54</Latitude></Coordinate></Area>";
}

inline QString wholeAutomaticWorkflow()
{
    return "<AutomaticWorkflow Version=\"1.4\" Mode=\"ManualMode\"><Mode>AutomaticMode</Mode>"
           "<Classifiers>8</Classifiers><ClassificationTime>25</ClassificationTime>"
           "<ClassificationResult>4</ClassificationResult><SearchStrategy>LowestLevelFirst</SearchStrategy>"
           "<BitstreamClassification>true</BitstreamClassification>"
        + wholeArea() + "</AutomaticWorkflow>";
}

inline QString wholeActivityGeneration()
{
    return "<ActivityGeneration Version=\"2.1\" Autostart=\"true\"><Mode>AGED</Mode>"
           "<EnergyChannel>DDem</EnergyChannel><LevelMinBurstDuration>0.2</LevelMinBurstDuration>"
           "<LevelMaxBreakDuration>1.5</LevelMaxBreakDuration>"
           "<DDemActiveCriteria>Signal Detection</DDemActiveCriteria>"
           "<DDemMinBurstDuration>0.75</DDemMinBurstDuration><DDemMaxBreakDuration>2.5</DDemMaxBreakDuration>"
           "<DDemMorseQualityThreshold>65</DDemMorseQualityThreshold><ClassIntermScore>2</ClassIntermScore>"
           "<ClassFinalScore>5</ClassFinalScore><ClassStartScore>4</ClassStartScore>"
           "<ClassStopScore>1</ClassStopScore><ClassMinConfidence>60</ClassMinConfidence>"
           "<DetConvMinBurstDuration>0.05</DetConvMinBurstDuration><DbWriteEnergy>false</DbWriteEnergy>"
           "<DbWriteLevel>true</DbWriteLevel><DbWriteDc>true</DbWriteDc>"
           "<DbWriteDDem>Always</DbWriteDDem><DbWriteClass>On Energy Detection</DbWriteClass>"
           "<CutAtLocations>false</CutAtLocations><SessionCloseTime>30</SessionCloseTime>"
           "<RestartAttachmentsOnSessionClose>true</RestartAttachmentsOnSessionClose></ActivityGeneration>";
}

/// What limits a number, in the block of any type of numbers.
inline QString wholeLimits()
{
    return "<Minimum>-20</Minimum><Maximum>120</Maximum><Default>7</Default>";
}

/// A parameter of the type called \a type.
inline QString wholeParameterOf(const QString &type, const QString &name)
{
    const QString limits = wholeLimits();
    const QMap<QString, QString> blocks{
        {"Boolean", "<Boolean>true</Boolean>"},
        {"Long", "<Long>" + limits + "</Long>"},
        {"Integer", "<Integer>" + limits + "</Integer>"},
        {"String", "<String><Default>west</Default></String>"},
        {"Double", "<Double>" + limits + "<Precision>3</Precision></Double>"},
        {"DoubleList",
         "<Double>" + limits
             + "<Precision>3</Precision><MaxDoubleListLength>4</MaxDoubleListLength></Double>"},
        {"Float", "<Float>" + limits + "<Precision>1</Precision></Float>"},
        {"Enum",
         "<Enum><EnumValue Key=\"1\" Name=\"Low\" Value=\"0.5\"></EnumValue>"
         "<EnumValue Key=\"2\" Name=\"High\" Identifier=\"HI\" Value=\"1.5\" Default=\"true\"></EnumValue>"
         "</Enum>"},
        {"TimeStamp", "<TimeStamp>" + limits + "</TimeStamp>"},
    };
    return "<Parameter Version=\"1.6\" UniqueName=\"" + name + "\">"
        + "<RepresentationName>rx.gain</RepresentationName><DisplayName>Gain</DisplayName>"
          "<ToolTip>of the input</ToolTip><ValueType>ValueNumericInt</ValueType>"
          "<ControlType>VCLineEdit</ControlType><DisplaySuffix>dB</DisplaySuffix>"
          "<Multiplier>2.5</Multiplier><Enable>false</Enable><ParameterType>"
        + type + "</ParameterType>" + blocks[type] + "</Parameter>";
}

inline QString wholeParameter()
{
    return wholeParameterOf("Enum", "Enum");
}

inline QString wholeGenericReceiver()
{
    return "<GenericReceiver Version=\"1.7\">" + wholeParameterOf("Enum", "b") + "<Script><a>b</a></Script>"
        + wholeParameterOf("Integer", "a") + "</GenericReceiver>";
}

} // namespace TestSupport

#endif
