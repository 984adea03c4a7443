// Complete objects of every kind, and the documents that they write, with random values: texts with markup
// and from many scripts, numbers up to the limits of their types and beyond.
#ifndef KORMAK_RANDOMDOCUMENTS_H
#define KORMAK_RANDOMDOCUMENTS_H

#include <tests/support/DocumentKinds.h>

#include <QRandomGenerator>

#include <cstring>
#include <limits>

namespace TestSupport {

class RandomDocuments {
public:
    explicit RandomDocuments(quint32 seed) : random(seed) { }

    /// The number \a index of a row of complete documents; the index sees to it that each type occurs.
    QString document(const QString &kindName, int index)
    {
        QString text;
        forKind(kindName,
                [&](auto kind) { text = object<typename decltype(kind)::Document>(index).GetXmlString(); });
        return text;
    }

    template <class Document>
    Document object(int index)
    {
        Document document;
        make(document, index);
        return document;
    }

    int below(int end) { return random.bounded(end); }

private:
    bool maybe() { return below(2) == 0; }

    template <class Number>
    Number randomBits()
    {
        const quint64 bits = random.generate64();
        Number number;
        std::memcpy(&number, &bits, sizeof number);
        return number;
    }

    template <class Number>
    Number number()
    {
        using Limits = std::numeric_limits<Number>;
        switch (below(8)) {
        case 0:
            return Limits::lowest();
        case 1:
            return Limits::max();
        case 2:
            return Limits::has_infinity ? Limits::infinity() : Number(0);
        case 3:
            return Limits::has_infinity ? -Limits::infinity() : Number(-1);
        case 4:
            return Limits::has_quiet_NaN ? Limits::quiet_NaN() : Number(1);
        case 5:
            return Limits::is_integer ? Number(below(1000)) : Limits::denorm_min();
        case 6:
            return Limits::is_integer ? Number(-below(1000)) : Number(below(1000)) / Number(-16);
        default:
            return randomBits<Number>();
        }
    }

    /// Never empty.
    QString text()
    {
        static const QStringList pieces{"a",  "Z",       "0",      " ",      "  ",   "<",  ">",     "&",
                                        "\"", "'",       "]]>",    "\t",     "\n",   "%1", "&amp;", "<!--",
                                        "ß",  "Ω",       "Жуков",  "東京",   "عربى", "µV", "–",     "𝄞",
                                        "😀",  "e\u0301", "\u00a0", "\u2028", "\r"};
        QString text;
        for (int i = below(12); i >= 0; --i)
            text += pieces.at(below(static_cast<int>(pieces.size())));
        return text;
    }

    template <class Object>
    void read(Object &object, const QString &attributes, const QString &content = {})
    {
        const QString name = object.GetObjectName();
        if (!object.SetXmlString('<' + name + attributes + '>' + content + "</" + name + '>', true))
            throw std::runtime_error(content.toStdString());
    }

    /// For what has no setter.
    static QString attribute(const QString &name, const QString &value)
    {
        QString escaped = value.toHtmlEscaped();
        escaped.replace('\n', "&#10;").replace('\r', "&#13;").replace('\t', "&#9;");
        return ' ' + name + "=\"" + escaped + '"';
    }
    static QString element(const QString &name, const QString &value)
    {
        QString escaped = value.toHtmlEscaped();
        escaped.replace('\r', "&#13;");
        return '<' + name + '>' + escaped + "</" + name + '>';
    }
    QString version() { return maybe() ? attribute("Version", text()) : QString(); }
    QString boolean() { return maybe() ? "true" : "false"; }

    // Complete objects, which are new before.

    void make(TESSEL::Area &area, int /*index*/)
    {
        read(area, version());
        area.SetName(text());
        for (int i = below(4); i > 0; --i)
            area.AddCoordinate({number<double>(), number<double>()});
    }

    void make(TESSEL::AntennaData &antenna, int /*index*/)
    {
        read(antenna, version());
        antenna.SetName(text());
        do {
            antenna.SetMinimumFrequency(number<double>());
            antenna.SetMaximumFrequency(number<double>());
        } while (!antenna.HasData());
        antenna.SetAzimuth(number<double>());
        antenna.SetPolarization(static_cast<TESSEL::AntennaData::Polarization>(below(7) - 1));
    }

    void make(KORMAK::JobHeader &header, int index)
    {
        constexpr int JobTypes = 22;
        header.SetJobType(static_cast<KORMAK::JobType::JobTypeValue>(index % JobTypes));
        if (KORMAK::JobType::IsSearchMC(header.GetJobType()))
            header.SetJobType(KORMAK::JobType::Antenna); // a header of those types is never complete
        read(header, version(), maybe() ? element("ShowJDH", text()) : element("ShowJDH", boolean()));
        header.SetAuthor(text());
        constexpr qint64 Year = 31'556'952'000;
        const qint64 milliseconds = qint64(random.generate64() % quint64(20'000 * Year)) - 5'000 * Year;
        header.SetCreation(QDateTime::fromMSecsSinceEpoch(milliseconds, Qt::UTC));
        if (maybe())
            header.SetDescription(text());
    }

    void make(KORMAK::Job &job, int index)
    {
        read(job, version());
        job.SetJobHeader(object<KORMAK::JobHeader>(index));
        job.SetResourceType(TESSEL::ResourceType::Antenna);
        job.SetAntennaData(object<TESSEL::AntennaData>(index));
    }

    void make(KORMAK::AutomaticWorkflow &workflow, int index)
    {
        read(workflow, version());
        workflow.SetNumberClassifiers(1U + static_cast<unsigned int>(below(23)));
        workflow.SetClassificationTime(1U + static_cast<unsigned int>(below(999)));
        workflow.SetClassificationResults(1U + static_cast<unsigned int>(below(10)));
        workflow.SetSearchStrategy(static_cast<KORMAK::AutomaticWorkflow::SearchStrategy>(index % 7));
        workflow.SetWorkflowMode(index % 5 == 0 ? KORMAK::AutomaticWorkflow::ManualMode
                                                : KORMAK::AutomaticWorkflow::AutomaticMode);
        workflow.SetHFBitstreamClassification(maybe());
        if (maybe())
            make(workflow.GetArea(), index);
    }

    void make(KORMAK::ActivityGenerationData &data, int index)
    {
        using Data = KORMAK::ActivityGenerationData;
        data.SetActivtyGenerationMode(static_cast<Data::ActivityGenerationMode>(index % 3));
        data.SetAutoStartOn(maybe());
        data.SetEnergyActivityGenerationChannel(static_cast<Data::EnergyActivityGenerationChannel>(below(2)));
        data.SetDDemActiveCriteria(static_cast<Data::DDemActiveCriteria>(below(4)));
        data.SetDbWriteDDem(static_cast<Data::ActivityGenerationDataBaseWriteMode>(below(3)));
        data.SetDbWriteClass(static_cast<Data::ActivityGenerationDataBaseWriteMode>(below(3)));
        for (const auto setter : {&Data::SetLevelMinBurstDuration, &Data::SetLevelMaxBreakDuration,
                                  &Data::SetDDemMinBurstDuration, &Data::SetDDemMaxBreakDuration,
                                  &Data::SetDetConvMinBurstDuration, &Data::SetSessionCloseTime})
            (data.*setter)(number<float>());
        for (const auto setter :
             {&Data::SetDDemMorseQualityThreshold, &Data::SetClassIntermScore, &Data::SetClassFinalScore,
              &Data::SetClassStartScore, &Data::SetClassStopScore, &Data::SetClassMinConfidence})
            (data.*setter)(number<int>());
        for (const auto setter :
             {&Data::SetDbWriteEnergy, &Data::SetCutAtLocations, &Data::SetRestartAttachmentsOnSessionClose})
            (data.*setter)(maybe());
        for (const char *name : {"EnergyChannel", "DDemActiveCriteria", "DbWriteDDem", "DbWriteClass"}) {
            if (below(4) == 0)
                read(data, version(), element(name, text())); // becomes "not set"
        }
    }

    KORMAK::EnumHandler::EnumValue enumValue()
    {
        KORMAK::EnumHandler::EnumValue entry;
        entry.Key = number<qint32>();
        entry.Name = maybe() ? text() : QString();
        entry.Identifier = maybe() ? text() : QString();
        entry.Value = number<double>();
        entry.Default = maybe() ? boolean() : text();
        return entry;
    }

    template <class Handler>
    void fill(Handler &handler)
    {
        using Number = std::decay_t<decltype(handler.GetValue())>;
        handler.SetMinimum(number<Number>());
        handler.SetMaximum(number<Number>());
        handler.SetDefault(number<Number>());
        handler.SetValue(number<Number>());
    }

    void make(KORMAK::Parameter &parameter, int index)
    {
        read(parameter, version(),
             element("Enable", boolean()) + element("DisplaySuffix", maybe() ? text() : ""));
        parameter.SetParameterType(static_cast<KORMAK::ParameterType>(index % TypeCount));
        parameter.SetUniqueParameterName(text());
        parameter.SetRepresenationName(text());
        parameter.SetDisplayName(maybe() ? text() : QString());
        parameter.SetToolTip(maybe() ? text() : QString());
        parameter.SetMultiplier(maybe() ? number<double>() : 1.0);
        parameter.SetValueType(static_cast<KORMAK::Parameter::ValueType>(below(9))); // 8 is out of range
        parameter.SetControlType(static_cast<KORMAK::Parameter::ControlType>(below(6) - 1));
        parameter.GetBooleanHandler().SetValue(maybe());
        fill(parameter.GetIntegerHandler());
        fill(parameter.GetLongHandler());
        fill(parameter.GetTimeStampHandler());
        fill(parameter.GetFloatHandler());
        parameter.GetFloatHandler().SetPrecision(number<int>());
        fill(parameter.GetDoubleHandler());
        parameter.GetDoubleHandler().SetPrecision(number<int>());
        parameter.GetDoubleHandler().SetMaxDoubleListLength(number<int>());
        parameter.GetStringHandler().SetValue(text());
        parameter.GetStringHandler().SetDefault(maybe() ? text() : QString());
        for (int i = below(4); i >= 0; --i)
            parameter.GetEnumHandler().AppendEnumValue(enumValue());
    }

    void make(KORMAK::GenericReceiver &receiver, int index)
    {
        read(receiver, version());
        for (int i = below(6); i > 0; --i)
            receiver.AddParameter(object<KORMAK::Parameter>(index + i));
    }

    QRandomGenerator random;
};

} // namespace TestSupport

#endif
