// docs/vocabularies.md says what the library and its headers say.

#include "Page.h"

#include <kormak/ActivityGenerationData.h>
#include <kormak/AutomaticWorkflow.h>
#include <kormak/ConnectableResourceType.h>
#include <kormak/JobType.h>
#include <kormak/Parameter.h>
#include <kormak/SubjobType.h>
#include <objectbase/AntennaData.h>
#include <objectbase/Logger.h>
#include <objectbase/ObjectTypes.h>
#include <objectbase/ResourceType.h>
#include <objectbase/TesselException.h>

#include <QtTest>

#include <functional>

using namespace KORMAK;
using namespace TESSEL;

namespace {

const QString ConversionThrows = "the conversion throws";

struct Vocabulary {
    QString header;
    QString enumeration;
    std::function<QString(int)> toName; ///< ConversionThrows where it does
    std::function<int(const QString &)> fromName; ///< empty where there is no such function
};

template <class Enum, class ToName, class FromName>
Vocabulary vocabulary(const QString &header, const QString &enumeration, ToName toName, FromName fromName)
{
    const auto name = [toName](int value) -> QString {
        try {
            return toName(static_cast<Enum>(value));
        } catch (const TesselException &) {
            return ConversionThrows;
        }
    };
    if constexpr (std::is_same_v<FromName, std::nullptr_t>)
        return {header, enumeration, name, nullptr};
    else
        return {header, enumeration, name,
                [fromName](const QString &text) { return static_cast<int>(fromName(text)); }};
}

/// A vocabulary whose conversions are members of \a Document.
template <class Enum, class Document, class ToName, class FromName>
Vocabulary member(const QString &header, const QString &enumeration, ToName toName, FromName fromName)
{
    return vocabulary<Enum>(
        header, enumeration, [toName](Enum value) -> QString { return (Document().*toName)(value); },
        [fromName](const QString &name) { return (Document().*fromName)(name); });
}

/// By the anchor of the section on the page.
QMap<QString, Vocabulary> vocabularies()
{
    using Activity = ActivityGenerationData;
    using Workflow = AutomaticWorkflow;
    const QString activity = "kormak/ActivityGenerationData.h";
    return {
        {"vocabulary_job_type",
         vocabulary<JobType::JobTypeValue>("kormak/JobType.h", "JobTypeValue", JobType::JobTypeToName,
                                           JobType::NameToJobType)},
        {"vocabulary_connectable_resource",
         vocabulary<ConnectableResourceType::ConnectableResourceTypeValue>(
             "kormak/ConnectableResourceType.h", "ConnectableResourceTypeValue",
             ConnectableResourceType::ConnectableResourceTypeToName,
             ConnectableResourceType::NameToConnectableResourceType)},
        {"vocabulary_subjob_type",
         vocabulary<SubjobType::SubjobTypeValue>("kormak/SubjobType.h", "SubjobTypeValue",
                                                 SubjobType::SubjobTypeToName, SubjobType::NameToSubjobType)},
        {"vocabulary_resource_type",
         vocabulary<ResourceType::ResourceTypeValue>("objectbase/ResourceType.h", "ResourceTypeValue",
                                                     ResourceType::ResourceTypeToName,
                                                     ResourceType::NameToResourceType)},
        {"vocabulary_polarization",
         vocabulary<AntennaData::Polarization>("objectbase/AntennaData.h", "Polarization",
                                               AntennaData::PolarizationToName,
                                               AntennaData::NameToPolarization)},
        {"vocabulary_workflow_mode",
         vocabulary<Workflow::WorkflowMode>("kormak/AutomaticWorkflow.h", "WorkflowMode",
                                            Workflow::WorkflowModeToName, Workflow::NameToWorkflowMode)},
        {"vocabulary_search_strategy",
         vocabulary<Workflow::SearchStrategy>("kormak/AutomaticWorkflow.h", "SearchStrategy",
                                              Workflow::SearchStrategyToName,
                                              Workflow::NameToSearchStrategy)},
        {"vocabulary_activity_generation_mode",
         member<Activity::ActivityGenerationMode, Activity>(activity, "ActivityGenerationMode",
                                                            &Activity::ActivityGenerationModeToName,
                                                            &Activity::NameToActivityGenerationMode)},
        {"vocabulary_energy_channel",
         member<Activity::EnergyActivityGenerationChannel, Activity>(
             activity, "EnergyActivityGenerationChannel", &Activity::EnergyActivityGenerationChannelToName,
             &Activity::NameToEnergyActivityGenerationChannel)},
        {"vocabulary_write_mode",
         member<Activity::ActivityGenerationDataBaseWriteMode, Activity>(
             activity, "ActivityGenerationDataBaseWriteMode",
             &Activity::ActivityGenerationDataBaseWriteModeToName,
             &Activity::NameToActivityGenerationDataBaseWriteMode)},
        {"vocabulary_criteria",
         member<Activity::DDemActiveCriteria, Activity>(activity, "DDemActiveCriteria",
                                                        &Activity::DDemActiveCriteriaToName,
                                                        &Activity::NameToDDemActiveCriteria)},
        {"vocabulary_parameter_type",
         vocabulary<ParameterType>("kormak/Parameter.h", "ParameterType", ParameterTypeToName,
                                   NameToParameterType)},
        {"vocabulary_value_type",
         member<Parameter::ValueType, Parameter>("kormak/Parameter.h", "ValueType",
                                                 &Parameter::ValueTypeToName, &Parameter::NameToValueType)},
        {"vocabulary_control_type",
         member<Parameter::ControlType, Parameter>("kormak/Parameter.h", "ControlType",
                                                   &Parameter::ControlTypeToName,
                                                   &Parameter::NameToControlType)},
        {"vocabulary_object_type",
         vocabulary<ObjectTypes>("objectbase/ObjectTypes.h", "ObjectTypes", ObjectTypeToName,
                                 NameToObjectType)},
        {"vocabulary_level",
         vocabulary<Logger::Level>("objectbase/Logger.h", "Level", Logger::LevelToName, nullptr)},
    };
}

/// The enumerations of a header: their names, and what stands between their braces.
QMap<QString, QString> enumerationsIn(const QString &header)
{
    QMap<QString, QString> enumerations;
    static const QRegularExpression definition("enum (?:class )?(\\w+) : qint32 \\{([^}]*)\\}");
    auto found = definition.globalMatch(Page::contentOf(header));
    while (found.hasNext()) {
        const auto match = found.next();
        enumerations.insert(match.captured(1), match.captured(2));
    }
    return enumerations;
}

/// The enumerators of an enumeration and their values, without the one that means "not set".
QList<std::pair<int, QString>> enumeratorsOf(const Vocabulary &vocabulary)
{
    QList<std::pair<int, QString>> enumerators;
    int value = -1;
    const QStringList items = enumerationsIn(vocabulary.header).value(vocabulary.enumeration).split(',');
    for (const QString &item : items) {
        if (item.trimmed().isEmpty())
            continue;
        value = item.contains('=') ? item.section('=', 1).trimmed().toInt() : value + 1;
        if (value >= 0)
            enumerators += {value, item.section('=', 0, 0).trimmed()};
    }
    return enumerators;
}

const QString PagePath = "docs/vocabularies.md";

} // namespace

class VocabulariesPageTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void everyVocabularyHasASection();
    void everyEnumerationIsAVocabulary();
    void section_data();
    void section();
};

void VocabulariesPageTest::everyVocabularyHasASection()
{
    QStringList anchors;
    const auto sections = Page::sectionsOf(PagePath);
    for (const auto &section : sections)
        anchors += section.anchor;
    anchors.sort();
    QCOMPARE(anchors, QStringList(vocabularies().keys()));
}

void VocabulariesPageTest::everyEnumerationIsAVocabulary()
{
    QStringList described;
    const auto known = vocabularies();
    for (const Vocabulary &vocabulary : known)
        described += vocabulary.header + ' ' + vocabulary.enumeration;
    QStringList declared;
    for (const char *folder : {"objectbase", "kormak"}) {
        const QStringList headers = Page::pathsIn(folder, {"*.h"});
        for (const QString &header : headers) {
            const QStringList enumerations = enumerationsIn(header).keys();
            for (const QString &enumeration : enumerations)
                declared += header + ' ' + enumeration;
        }
    }
    described.sort();
    declared.sort();
    QCOMPARE(described, declared);
}

void VocabulariesPageTest::section_data()
{
    QTest::addColumn<QString>("anchor");
    const QStringList anchors = vocabularies().keys();
    for (const QString &anchor : anchors)
        QTest::newRow(qPrintable(anchor)) << anchor;
}

void VocabulariesPageTest::section()
{
    QFETCH(QString, anchor);
    const Vocabulary vocabulary = vocabularies().value(anchor);
    Page::Section section;
    const auto sections = Page::sectionsOf(PagePath);
    for (const auto &candidate : sections) {
        if (candidate.anchor == anchor)
            section = candidate;
    }

    const auto enumerators = enumeratorsOf(vocabulary);
    QVERIFY(!enumerators.isEmpty());
    QCOMPARE(section.rows.size(), enumerators.size());
    for (int i = 0; i < enumerators.size(); ++i) {
        const auto [value, enumerator] = enumerators[i];
        const QStringList &row = section.rows[i];
        QCOMPARE(row[0], QString::number(value));
        QCOMPARE(row[1], '`' + enumerator + '`');
        const QString name = Page::codeIn(row[2]).value(0);
        if (vocabulary.fromName)
            QCOMPARE(vocabulary.fromName(name), value);
        QCOMPARE(vocabulary.toName(value), row.size() > 3 ? Page::codeIn(row[3]).value(0) : name);
    }

    const QString nameOfOthers = vocabulary.toName(-1);
    QCOMPARE(vocabulary.toName(enumerators.last().first + 1), nameOfOthers);
    const QString others = section.text.section("The name of any other value: ", 1).section(".\n", 0, 0);
    if (nameOfOthers.isEmpty())
        QCOMPARE(others, QString("none, an empty text"));
    else if (nameOfOthers == ConversionThrows)
        QCOMPARE(others, QString("none, \\ref messages_parameter \"the conversion throws\""));
    else
        QCOMPARE(others, '`' + nameOfOthers + '`');
}

QTEST_GUILESS_MAIN(VocabulariesPageTest)

#include "VocabulariesPageTest.moc"
