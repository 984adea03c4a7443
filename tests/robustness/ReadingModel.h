// What a reader must make of a document, told without the library's tables: the steps of reading as the
// documents of the formats describe them, carried out on the events of a document and a map of texts. Names
// of vocabularies and dates are looked up in the library, since their own tests tell what they are.
#ifndef KORMAK_ROBUSTNESS_READINGMODEL_H
#define KORMAK_ROBUSTNESS_READINGMODEL_H

#include "XmlTree.h"

#include <objectbase/Converters.h>
#include <tests/support/ObjectStates.h>

#include <limits>

namespace Robustness {

using TestSupport::State;

/// Stands for the message of Qt's reader, whatever it is.
inline const QString MessageOfReader = "(the reader's)";

struct Answer {
    enum Result {
        Taken, ///< true
        Refused, ///< false
        Thrown, ///< a TesselException with the message
    };

    Result result = Taken;
    QString message;
    State state; ///< afterwards
    bool isComplete = false;
    QString complaint; ///< of Check(); null: none
};

class ReadingModel {
public:
    explicit ReadingModel(const QString &kindOfObject) : kind(kindOfObject)
    {
        if (kind == "GenericReceiver")
            work = newState("Parameter");
        state = newState(kind);
    }

    /// Reads \a document. Where it is cut off or faulty behind a text, the reader may have handed out that
    /// text
    /// (\a givesCutText) or not.
    Answer read(const Document &document, bool givesCutText)
    {
        events = document.events;
        at = -1;
        hasError = false;
        isCutTextGiven = givesCutText;
        Answer answer;
        if (!next() || event().kind != Event::Start || localName() != kind) {
            answer.result = Answer::Refused;
        } else {
            try {
                readObject(kind, "", state);
                while (next()) { }
                answer.result = hasError ? Answer::Refused : Answer::Taken;
            } catch (const QString &message) {
                answer.result = Answer::Thrown;
                answer.message = message;
            }
        }
        answer.state = visible();
        answer.isComplete = hasData(kind, "");
        answer.complaint = complaint(kind, "");
        return answer;
    }

private:
    // Events

    /// False at the end of the document and at a fault.
    bool next()
    {
        if (hasError || at + 1 >= events.size())
            return false;
        ++at;
        hasError = event().kind == Event::Fault;
        return !hasError;
    }
    const Event &event() const { return events[at]; }
    bool isEndOf(const QString &name) const { return event().kind == Event::End && event().name == name; }
    QString localName() const { return event().name.section(':', -1); }

    QString text()
    {
        QString result;
        QString last;
        while (next()) {
            if (event().kind == Event::End)
                return result + last;
            if (event().kind == Event::Start || event().kind == Event::DocumentType) {
                hasError = true;
                return result + last;
            }
            result += last;
            last = event().text;
        }
        return isCutTextGiven ? result + last : result;
    }

    void skip()
    {
        for (int depth = 1; depth > 0 && next();)
            depth += event().kind == Event::Start ? 1 : event().kind == Event::End ? -1 : 0;
    }

    static QString attribute(const Event &event, const QString &name)
    {
        for (const auto &candidate : event.attributes) {
            if (candidate.first == name)
                return candidate.second;
        }
        return {};
    }

    // Values

    template <class Number>
    static QString numberText(const QString &text, Number (QString::*convert)(bool *) const)
    {
        bool ok = false;
        const Number number = (text.*convert)(&ok);
        return TestSupport::Detail::stateText(ok ? number : Number(0));
    }
    static QString doubleText(const QString &text) { return numberText(text, &QString::toDouble); }
    static QString floatText(const QString &text) { return numberText(text, &QString::toFloat); }
    static QString wholeText(const QString &text)
    {
        bool ok = false;
        const int number = text.toInt(&ok);
        return QString::number(ok ? number : 0);
    }
    static QString longText(const QString &text)
    {
        bool ok = false;
        const long long number = text.toLongLong(&ok);
        return QString::number(ok ? number : 0);
    }
    static QString booleanText(const QString &text) { return text == "true" ? "true" : "false"; }
    template <class Enum>
    static QString valueText(Enum value)
    {
        return QString::number(static_cast<qint32>(value));
    }

    static const KORMAK::ActivityGenerationData &activityNames()
    {
        static const KORMAK::ActivityGenerationData data;
        return data;
    }

    // Reading

    [[noreturn]] static void throwUnknownTag(const QString &tag, const QString &object)
    {
        throw QString("Unknown Tag '" + tag + "' in '" + object + "'.");
    }

    void readObject(const QString &object, const QString &prefix, State &into)
    {
        const QString ownName = event().name;
        into[prefix + (object == "Parameter" ? "(Version)" : "Version")] = attribute(event(), "Version");
        if (object == "Area")
            into[prefix + "Coordinates"] = "";
        if (object == "Parameter")
            setUniqueName(attribute(event(), "UniqueName"), into);
        if (object == "ActivityGeneration") {
            into["Autostart"] = booleanText(attribute(event(), "Autostart"));
            if (into["Version"] == "1.0") {
                into["Mode"] = valueText(activityNames().NameToActivityGenerationMode(text()));
                return;
            }
        }
        while (next()) {
            if (isEndOf(ownName))
                return;
            if (event().kind != Event::Start)
                continue;
            const int child = at;
            readChild(object, prefix, into);
            if (at == child && !hasError)
                skip();
        }
    }

    void readChild(const QString &object, const QString &prefix, State &into)
    {
        const QString tag = localName();
        const QString key = prefix + tag;
        using namespace KORMAK;
        if (object == "Job" && (tag == "JobHeader" || tag == "AntennaData"))
            readObject(tag, key + '.', into);
        else if (object == "Job" && tag == "ResourceType")
            into[key] = valueText(TESSEL::ResourceType::NameToResourceType(text()));
        else if (object == "JobHeader" && (tag == "Author" || tag == "Description"))
            into[key] = text();
        else if (object == "JobHeader" && tag == "Creation")
            into[key] = TestSupport::stateText(TESSEL::Converters::ToDateTime(text()));
        else if (object == "JobHeader" && tag == "ShowJDH")
            into[key] = booleanText(into[prefix + "(ShowJDH)"] = text());
        else if (object == "JobHeader" && tag == "JobType")
            into[key] = valueText(JobType::NameToJobType(text()));
        else if ((object == "AntennaData" || object == "Area") && tag == "Name")
            into[key] = text();
        else if (object == "AntennaData"
                 && QStringList{"MinimumFrequency", "MaximumFrequency", "Azimuth"}.contains(tag))
            into[key] = doubleText(text());
        else if (object == "AntennaData" && tag == "Polarization")
            into[key] = valueText(TESSEL::AntennaData::NameToPolarization(text()));
        else if (object == "Area" && tag == "Coordinate")
            readCoordinate(into[prefix + "Coordinates"]);
        else if (object == "AutomaticWorkflow")
            readWorkflowChild(tag, into);
        else if (object == "ActivityGeneration")
            readActivityChild(tag, into);
        else if (object == "GenericReceiver" && tag == "Parameter")
            readParameterOfReceiver(into);
        else if (object == "GenericReceiver" && tag == "Script")
            return;
        else if (object == "Parameter")
            readParameterChild(tag, into);
        else
            throwUnknownTag(tag, object);
    }

    void readCoordinate(QString &coordinates)
    {
        QString latitude = "0";
        QString longitude = "0";
        while (next() && event().kind != Event::End) {
            if (event().kind != Event::Start)
                continue;
            if (localName() == "Latitude")
                latitude = doubleText(text());
            else if (localName() == "Longitude")
                longitude = doubleText(text());
            else
                throwUnknownTag(localName(), "Area");
        }
        coordinates += (coordinates.isEmpty() ? "" : " ") + latitude + '/' + longitude;
    }

    void readWorkflowChild(const QString &tag, State &into)
    {
        using KORMAK::AutomaticWorkflow;
        const auto readCount = [&](const char *field, unsigned int most) {
            bool ok = false;
            const unsigned int number = text().toUInt(&ok);
            const unsigned int count = ok ? number : 0;
            if (count < 1 || count > most)
                throw QString("AutomaticWorkflow: Invalid %1 '%2'").arg(field).arg(count);
            into[tag] = QString::number(count);
        };
        if (tag == "Mode")
            into[tag] = valueText(AutomaticWorkflow::NameToWorkflowMode(text()));
        else if (tag == "Classifiers")
            readCount("NumberClassifiers", 23);
        else if (tag == "ClassificationTime")
            readCount("ClassificationTime", 999);
        else if (tag == "ClassificationResult")
            readCount("ClassificationResults", 10);
        else if (tag == "SearchStrategy") {
            const auto strategy = AutomaticWorkflow::NameToSearchStrategy(text());
            if (strategy == AutomaticWorkflow::GetInvalidSearchStrategy())
                throw QString("AutomaticWorkflow: Invalid SearchStrategy '-1'");
            into[tag] = valueText(strategy);
        } else if (tag == "BitstreamClassification")
            into[tag] = booleanText(text());
        else if (tag == "Area")
            readObject("Area", "Area.", into);
        else
            throwUnknownTag(tag, "AutomaticWorkflow");
    }

    void readActivityChild(const QString &tag, State &into)
    {
        if (tag == "Mode")
            into[tag] = valueText(activityNames().NameToActivityGenerationMode(text()));
        else if (tag == "EnergyChannel")
            into[tag] = valueText(activityNames().NameToEnergyActivityGenerationChannel(text()));
        else if (tag == "DDemActiveCriteria")
            into[tag] = valueText(activityNames().NameToDDemActiveCriteria(text()));
        else if (tag == "DbWriteDDem" || tag == "DbWriteClass")
            into[tag] = valueText(activityNames().NameToActivityGenerationDataBaseWriteMode(text()));
        else if (QStringList{"LevelMinBurstDuration", "LevelMaxBreakDuration", "DDemMinBurstDuration",
                             "DDemMaxBreakDuration", "DetConvMinBurstDuration", "SessionCloseTime"}
                     .contains(tag))
            into[tag] = floatText(text());
        else if (QStringList{"DDemMorseQualityThreshold", "ClassIntermScore", "ClassFinalScore",
                             "ClassStartScore", "ClassStopScore", "ClassMinConfidence"}
                     .contains(tag))
            into[tag] = wholeText(text());
        else if (QStringList{"DbWriteEnergy", "CutAtLocations", "RestartAttachmentsOnSessionClose"}.contains(
                     tag))
            into[tag] = booleanText(text());
    }

    void readParameterOfReceiver(State &into)
    {
        resetParameter(work);
        readObject("Parameter", "", work);
        TestSupport::addState(into, '[' + work["UniqueName"] + "].", work);
    }

    static void resetParameter(State &parameter)
    {
        const State fresh = newState("Parameter");
        const QStringList kept{"Integer.Value", "Long.Value", "Double.MaxLength", "Enum.Default",
                               "Enum.Selected"};
        for (auto entry = fresh.begin(); entry != fresh.end(); ++entry) {
            const bool isName =
                entry.key().endsWith(".UniqueName") || entry.key().endsWith(".RepresentationName");
            if (!kept.contains(entry.key()) && (!isName || entry.key().startsWith("String.")))
                parameter[entry.key()] = entry.value();
        }
    }

    /// The handler of the parameter's type; null: none.
    static QString activeHandler(const State &parameter)
    {
        const int type = parameter["ParameterType"].toInt();
        if (type < 0 || type >= TestSupport::TypeCount)
            return {};
        const QString name = TestSupport::typeNames()[type];
        return name == "DoubleList" ? "Double" : name;
    }

    static void setUniqueName(const QString &name, State &parameter)
    {
        parameter["UniqueName"] = name;
        if (const QString handler = activeHandler(parameter); !handler.isNull())
            parameter[handler + ".UniqueName"] = name;
    }

    void readParameterChild(const QString &tag, State &into)
    {
        const auto indexOf = [](const QStringList &names, const QString &name) {
            return QString::number(names.indexOf(name));
        };
        const QString handler = activeHandler(into);
        if (tag == "RepresentationName") {
            into[tag] = text();
            if (!handler.isNull())
                into[handler + ".RepresentationName"] = into[tag];
        } else if (tag == "ParameterType") {
            const int type = static_cast<int>(TestSupport::typeNames().indexOf(text()));
            if (type >= 0)
                into[tag] = QString::number(type);
        } else if (tag == "DisplayName" || tag == "ToolTip" || tag == "DisplaySuffix")
            into[tag] = text();
        else if (tag == "ValueType")
            into[tag] = indexOf({"ValueSelection", "ValueBoolean", "ValueNumericInt", "ValueNumericFloat",
                                 "ValueString", "ValueNumericInt64", "ValueFrequency", "ValueFloatList"},
                                text());
        else if (tag == "ControlType")
            into[tag] = indexOf({"VCFrequency", "VCLineEdit", "VCLineEditFrequency", "VCTimeEdit"}, text());
        else if (tag == "Multiplier") {
            into[tag] = doubleText(text());
            if (!QStringList{"", "Boolean", "String", "Enum"}.contains(handler))
                into[handler + ".Multiplier"] = into[tag];
        } else if (tag == "Enable")
            into[tag] = booleanText(text());
        else if (tag == "Boolean") {
            into["Boolean.Value"] = booleanText(text());
            nameHandler("Boolean", into);
        } else if (QStringList{"Enum", "Double", "DoubleList", "Integer", "Long", "Float", "String",
                               "TimeStamp"}
                       .contains(tag))
            readBlock(tag == "DoubleList" ? "Double" : tag, into);
        else
            throwUnknownTag(tag, "Parameter");
    }

    static void nameHandler(const QString &handler, State &into)
    {
        into[handler + ".UniqueName"] = into["UniqueName"];
        into[handler + ".RepresentationName"] = into["RepresentationName"];
    }

    void readBlock(const QString &block, State &into)
    {
        if (block == "Double")
            into["Double.IsList"] = into["ParameterType"] == "5" ? "true" : "false";
        nameHandler(block, into);
        while (next()) {
            if (isEndOf(block))
                break;
            if (event().kind == Event::Start)
                readBlockChild(block, localName(), into);
        }
        if (hasError)
            throw MessageOfReader;
    }

    void readBlockChild(const QString &block, const QString &tag, State &into)
    {
        const bool isFloating = block == "Double" || block == "Float";
        const auto valueOf = [&](const QString &text) {
            if (block == "String")
                return text;
            if (block == "Double")
                return doubleText(text);
            if (block == "Float")
                return floatText(text);
            return block == "TimeStamp" ? longText(text) : wholeText(text);
        };
        if (block == "Enum") {
            if (tag == "EnumValue")
                readEnumValue(into);
        } else if (tag == "Default") {
            into[block + ".Default"] = into[block + ".Value"] = valueOf(text());
        } else if (block != "String" && (tag == "Minimum" || tag == "Maximum")) {
            into[block + '.' + tag] = valueOf(text());
        } else if (isFloating && tag == "Precision") {
            into[block + ".Precision"] = wholeText(text());
        } else if (block == "Double" && tag == "MaxDoubleListLength") {
            into["Double.MaxLength"] = wholeText(text());
        }
    }

    void readEnumValue(State &into)
    {
        const QString isDefault = booleanText(attribute(event(), "Default"));
        const QString entry = wholeText(attribute(event(), "Key")) + '|' + attribute(event(), "Name") + '|'
            + attribute(event(), "Identifier") + '|' + doubleText(attribute(event(), "Value")) + '|'
            + isDefault;
        QString &list = into["Enum.List"];
        if (isDefault == "true" || list.isEmpty())
            into["Enum.Default"] = into["Enum.Selected"] = entry;
        list += (list.isEmpty() ? "" : " ") + entry;
    }

    // What holds afterwards

    static State newState(const QString &kind)
    {
        static QMap<QString, State> states;
        State &state = states[kind];
        if (!state.isEmpty())
            return state;
        state = TestSupport::stateOf(*TestSupport::newObject(kind));
        if (kind == "JobHeader")
            state["(ShowJDH)"] = "true";
        if (kind == "Job")
            state["JobHeader.(ShowJDH)"] = "true";
        return state;
    }

    /// Without the names in parentheses, which cannot be seen.
    State visible() const
    {
        State seen;
        for (auto entry = state.begin(); entry != state.end(); ++entry) {
            if (!entry.key().contains('('))
                seen.insert(entry.key(), entry.value());
        }
        return seen;
    }

    bool isIn(const QString &key, int most) const
    {
        const long long number = state[key].toLongLong();
        return number >= 0 && number <= most;
    }
    bool isCount(const QString &key, int most) const { return state[key] != "0" && isIn(key, most); }
    bool isSearchJob(const QString &p) const
    {
        return state[p + "JobType"] == "10" || state[p + "JobType"] == "11";
    }

    bool hasData(const QString &object, const QString &p) const
    {
        if (object == "Job") {
            return hasData("JobHeader", "JobHeader.") && state["ResourceType"] == "49"
                && hasData("AntennaData", "AntennaData.");
        }
        if (object == "JobHeader") {
            return !state[p + "Author"].isEmpty() && state[p + "Creation"] != "invalid"
                && !state[p + "(ShowJDH)"].isEmpty() && isIn(p + "JobType", 21) && !isSearchJob(p);
        }
        if (object == "AntennaData")
            return complaint(object, p).isNull();
        if (object == "Area")
            return !state[p + "Name"].isEmpty();
        if (object == "AutomaticWorkflow") {
            return state["Mode"] == "0"
                || (state["Mode"] == "1" && isCount("Classifiers", 23) && isCount("ClassificationTime", 999)
                    && isCount("ClassificationResult", 10) && isIn("SearchStrategy", 6));
        }
        if (object == "ActivityGeneration")
            return isIn("Mode", 2);
        if (object == "GenericReceiver") {
            bool allHaveData = true;
            for (auto entry = state.begin(); entry != state.end(); ++entry) {
                if (entry.key().endsWith("].ObjectName"))
                    allHaveData =
                        allHaveData && hasData("Parameter", QString(entry.key()).remove("ObjectName"));
            }
            return allHaveData;
        }
        return complaint(object, p).isNull() && hasHandlerData(p);
    }

    bool hasHandlerData(const QString &p) const
    {
        const QString type = state[p + "ParameterType"];
        if (type == "3")
            return !state[p + "String.Value"].isEmpty();
        if (type == "7")
            return !state[p + "Enum.List"].isEmpty();
        if ((type == "4" || type == "5") && state[p + "Double.IsList"] == "true")
            return state[p + "Double.MaxLength"].toInt() > 0 || !state[p + "Double.List"].isEmpty();
        if (type == "4" || type == "5")
            return state[p + "Double.Value"].toDouble() != -111111.11;
        return isIn(p + "ParameterType", 8);
    }

    QString complaint(const QString &object, const QString &p) const
    {
        const auto pleaseSet = [&object](const char *field) {
            return QString(object + ": Please set " + field);
        };
        if (object == "Job") {
            const QString ofHeader = complaint("JobHeader", "JobHeader.");
            if (!ofHeader.isNull())
                return ofHeader;
            if (state["ResourceType"] == "-1")
                return pleaseSet("ResourceType");
            return state["ResourceType"] == "49" ? complaint("AntennaData", "AntennaData.") : QString();
        }
        if (object == "JobHeader") {
            if (state[p + "Author"].isEmpty())
                return pleaseSet("Author");
            if (state[p + "Creation"] == "invalid")
                return pleaseSet("Creation");
            if (!isIn(p + "JobType", 21))
                return pleaseSet("JobType");
            return isSearchJob(p) ? pleaseSet("ConnectableRessource") : QString();
        }
        if (object == "AntennaData") {
            const double least = state[p + "MinimumFrequency"].toDouble();
            if (state[p + "Name"].isEmpty())
                return pleaseSet("Name");
            if (!(least >= 0)) // nor NaN
                return pleaseSet("MinimumFrequency");
            return state[p + "MaximumFrequency"].toDouble() > least ? QString()
                                                                    : pleaseSet("MaximumFrequency");
        }
        if (object == "Area")
            return state[p + "Name"].isEmpty() ? pleaseSet("Name") : QString();
        if (object == "AutomaticWorkflow")
            return state["Mode"] == "-1" ? pleaseSet("WorkflowMode") : QString();
        if (object == "ActivityGeneration")
            return state["Mode"] == "-1" ? pleaseSet("ActivityGenerationMode") : QString();
        if (object == "GenericReceiver")
            return {};
        if (state[p + "ParameterType"] == "-1")
            return pleaseSet("ParameterType");
        if (state[p + "ValueType"] == "-1")
            return pleaseSet("ValueType");
        if (state[p + "UniqueName"].isEmpty())
            return pleaseSet("UniqueName attribute");
        return state[p + "RepresentationName"].isEmpty() ? pleaseSet("RepresentationName") : QString();
    }

    QString kind;
    State state;
    State work; ///< the receiver's work parameter
    Events events;
    int at = -1;
    bool hasError = false;
    bool isCutTextGiven = false;
};

} // namespace Robustness

#endif
