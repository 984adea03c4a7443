#include "inspection/NameLists_p.h"

#include <kormak/Vocabularies_p.h>
#include <objectbase/Vocabularies_p.h>

#include <algorithm>

namespace KORMAK::Inspection {

const std::vector<NameList> &allNameLists()
{
    static const std::vector<NameList> all{
        {u"JobType", u"what a job does", jobTypes},
        {u"SubjobType", u"a part that a job is carried out in; in no document", subjobTypes},
        {u"ConnectableResourceType", u"what a search job can connect to; written, never read",
         connectableResources},
        {u"ResourceType", u"what a job runs on", TESSEL::resourceTypes},
        {u"Polarization", u"of an antenna", TESSEL::polarizations},
        {u"WorkflowMode", u"how a job takes up signals", workflowModes},
        {u"SearchStrategy", u"the order in which signals are taken up", searchStrategies},
        {u"ActivityGenerationMode", u"how detections become activities", generationModes},
        {u"EnergyActivityGenerationChannel", u"the channel that drives energy-based generation",
         energyChannels},
        {u"ActivityGenerationDataBaseWriteMode", u"when results are written to the database",
         databaseWriteModes},
        {u"DDemActiveCriteria", u"what marks a demodulated signal as active", activeCriteria},
        {u"ParameterType", u"the kind of value of a parameter", parameterTypes},
        {u"ValueType", u"how a user interface presents a parameter", valueTypes},
        {u"ControlType", u"how a user interface edits a parameter", controlTypes},
        {u"ObjectTypes", u"objects that bear a name of their own", TESSEL::objectTypes},
    };
    return all;
}

QStringList nameListNames()
{
    QStringList names;
    for (const NameList &list : allNameLists())
        names += list.name.toString();
    return names;
}

const NameList *nameListOf(TESSEL::NameTable (*table)())
{
    const auto &all = allNameLists();
    const auto list =
        std::find_if(all.begin(), all.end(), [table](const auto &one) { return one.table == table; });
    return list == all.end() ? nullptr : &*list;
}

QString nameOrNumber(const TESSEL::NameTable &names, qint64 value)
{
    const TESSEL::NamedValue *const row = names.find(static_cast<qint32>(value));
    return row == names.end() ? QString::number(value) : row->name.toString();
}

QString writtenDifference(QStringView name, QStringView written)
{
    if (written.isEmpty())
        return QStringLiteral(" (never written)");
    return written == name ? QString() : QStringLiteral(" (written as \"%1\")").arg(written.toString());
}

} // namespace KORMAK::Inspection
