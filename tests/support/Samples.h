// Complete objects, as tests make and change them.
#ifndef KORMAK_SAMPLES_H
#define KORMAK_SAMPLES_H

#include <kormak/Job.h>
#include <kormak/Parameter.h>
#include <objectbase/Converters.h>
#include <tests/support/Objects.h>
#include <tests/support/WholeDocuments.h>

#include <QStringList>
#include <QtTest>

namespace TestSupport {

/// A header with nothing missing and without a description.
inline KORMAK::JobHeader completeHeader(int jobType = 0)
{
    KORMAK::JobHeader header;
    header.SetJobType(static_cast<KORMAK::JobType::JobTypeValue>(jobType));
    header.SetAuthor("Mara Lind");
    header.SetCreation(TESSEL::Converters::ToDateTime("2026-03-29T00:59:59,250Z"));
    return header;
}

/// What completeHeader() writes.
inline QString completeHeaderElement()
{
    return "<JobHeader Version=\"1.0\"><JobType>Production SC HF</JobType><Author>Mara Lind</Author>"
           "<Creation>2026-03-29T00:59:59,250Z</Creation><ShowJDH>true</ShowJDH></JobHeader>";
}

/// A new header whose data-header flag holds \a text.
inline KORMAK::JobHeader headerWithShowJDH(const QString &text)
{
    return objectFrom<KORMAK::JobHeader>("<JobHeader Version=\"1.0\"><ShowJDH>" + text
                                         + "</ShowJDH></JobHeader>");
}

inline TESSEL::AntennaData completeAntenna()
{
    TESSEL::AntennaData antenna;
    antenna.SetName("Mast 3");
    antenna.SetMinimumFrequency(1500000);
    antenna.SetMaximumFrequency(30000000);
    return antenna;
}

/// What completeAntenna() writes.
inline QString completeAntennaElement()
{
    return "<AntennaData Version=\"1.0\"><Name>Mast 3</Name><MinimumFrequency>1500000</MinimumFrequency>"
           "<MaximumFrequency>30000000</MaximumFrequency></AntennaData>";
}

inline KORMAK::Job completeJob(int jobType = 0)
{
    KORMAK::Job job;
    job.SetJobHeader(completeHeader(jobType));
    job.SetResourceType(TESSEL::ResourceType::Antenna);
    job.SetAntennaData(completeAntenna());
    return job;
}

/// What completeJob() writes.
inline QString completeJobElement()
{
    return "<Job Version=\"1.0\">" + completeHeaderElement() + "<ResourceType>Antenna</ResourceType>"
        + completeAntennaElement() + "</Job>";
}

/// A parameter whose protected operations are open.
class OpenParameter : public KORMAK::Parameter {
public:
    using Parameter::Parameter;
    explicit OpenParameter(const Parameter &other) : Parameter(other) { }

    using Parameter::ProcessDoubleList;
    using Parameter::ProcessEnumList;
    using Parameter::ProcessFloatList;
    using Parameter::ProcessIntegerList;
    using Parameter::ProcessLongList;
    using Parameter::ProcessStringList;
    using Parameter::ProcessTimeStampList;
    using Parameter::ProcessXmlStartElement;
    using Parameter::SetObjectName;
    using Parameter::SetParameterType;
};

inline constexpr int NoType = -1;

inline KORMAK::ParameterType typeOf(int code)
{
    return static_cast<KORMAK::ParameterType>(code);
}

/// One row per parameter type: its code and the name of its handler.
inline void addTypes()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<QString>("handler");

    for (int type = 0; type < TypeCount; ++type) {
        const QString name = typeNames()[type];
        QTest::newRow(qPrintable(name)) << type << (name == "DoubleList" ? QString("Double") : name);
    }
}

inline KORMAK::EnumHandler::EnumValue enumValue(int key, const QString &name, double value,
                                                const QString &identifier = {},
                                                const QString &isDefault = "false")
{
    KORMAK::EnumHandler::EnumValue entry;
    entry.Key = key;
    entry.Name = name;
    entry.Identifier = identifier;
    entry.Value = value;
    entry.Default = isDefault;
    return entry;
}

/// A parameter of the type with nothing missing. Defaults and values are the same.
inline KORMAK::Parameter completeParameter(int type, const QString &uniqueName = "rx.gain",
                                           const QString &representationName = "Gain")
{
    KORMAK::Parameter parameter;
    parameter.SetParameterType(typeOf(type));
    parameter.SetValueType(KORMAK::Parameter::ValueNumericFloat);
    parameter.SetUniqueParameterName(uniqueName);
    parameter.SetRepresenationName(representationName);
    parameter.GetIntegerHandler().SetValue(0);
    parameter.GetLongHandler().SetValue(0);
    parameter.GetDoubleHandler().SetDefault(1.5);
    parameter.GetDoubleHandler().SetValue(1.5);
    if (parameter.IsDoubleList()) {
        parameter.GetDoubleHandler().SetUseAsList(true);
        parameter.GetDoubleHandler().SetMaxDoubleListLength(3);
    }
    parameter.GetStringHandler().SetDefault("text");
    parameter.GetStringHandler().SetValue("text");
    const auto first = enumValue(1, "Low", 0.5);
    const auto second = enumValue(2, "High", 1.5, "HI", "true");
    parameter.GetEnumHandler().AppendEnumValue(first);
    parameter.GetEnumHandler().AppendEnumValue(second);
    parameter.GetEnumHandler().SetDefaultValue(second);
    parameter.GetEnumHandler().SetSelectedEnumValue(second);
    return parameter;
}

} // namespace TestSupport

Q_DECLARE_METATYPE(KORMAK::JobHeader)
Q_DECLARE_METATYPE(TESSEL::AntennaData)

#endif
