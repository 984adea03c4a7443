#ifndef KORMAK_AUTOMATICWORKFLOW_H
#define KORMAK_AUTOMATICWORKFLOW_H

#include <kormak/kormak_export.h>
#include <objectbase/Area.h>
#include <objectbase/ITesselObject.h>

#include <QString>

namespace KORMAK {

/// How a job takes up the signals that it finds: by hand, or automatically with a number of classifiers, in
/// an order, within an area.
///
/// \snippet docs/KormakSnippetsTest.cpp AutomaticWorkflow
///
/// The workflow mode is written as the attribute "Mode", but read from a child element "Mode" only: a
/// document that was written leaves the mode as it was when it is read. Documents for this reader carry the
/// mode as an element.
class KORMAK_EXPORT AutomaticWorkflow : public TESSEL::ITesselObject {
public:
    /// The names are in \ref vocabulary_workflow_mode.
    enum WorkflowMode : qint32 {
        InvalidWorkflowMode = -1,
        ManualMode,
        AutomaticMode,
    };

    /// The order in which detected signals are taken up. The names are in \ref vocabulary_search_strategy.
    enum SearchStrategy : qint32 {
        InvalidSearchStrategy = -1,
        LowestIdFirst,
        HighestIdFirst,
        SmallestBandwidthFirst,
        LowestLevelFirst,
        HighestLevelFirst,
        LatestActiveFirst,
        ShortestSignalsFirst,
    };

    AutomaticWorkflow();
    AutomaticWorkflow(const AutomaticWorkflow &other);
    AutomaticWorkflow &operator=(const AutomaticWorkflow &other);
    ~AutomaticWorkflow() override;

    /// Mandatory.
    [[nodiscard]] WorkflowMode GetWorkflowMode() const noexcept { return workflowMode; }
    /// \throws TesselException "...: Invalid WorkflowMode '...'"; the mode is then unchanged. The other
    /// checking setters do alike.
    void SetWorkflowMode(WorkflowMode value);

    /// Number of classifiers to run, 1 to 23.
    [[nodiscard]] unsigned int GetNumberClassifiers() const noexcept { return numberClassifiers; }
    void SetNumberClassifiers(unsigned int value);

    /// Classification time per signal, 1 to 999, in the unit of the system that carries out the workflow.
    [[nodiscard]] unsigned int GetClassificationTime() const noexcept { return classificationTime; }
    void SetClassificationTime(unsigned int value);

    /// Number of classification results that are kept, 1 to 10.
    [[nodiscard]] unsigned int GetClassificationResults() const noexcept { return classificationResults; }
    void SetClassificationResults(unsigned int value);

    /// Mandatory in automatic mode.
    [[nodiscard]] SearchStrategy GetSearchStrategy() const noexcept { return searchStrategy; }
    void SetSearchStrategy(SearchStrategy value);

    /// Written in automatic mode only.
    [[nodiscard]] bool GetHFBitstreamClassification() const noexcept { return hfBitstreamClassification; }
    void SetHFBitstreamClassification(bool on);

    /// The area that the automatic workflow is limited to. Written when it has a name; never required.
    [[nodiscard]] TESSEL::Area &GetArea() noexcept { return area; }
    [[nodiscard]] const TESSEL::Area &GetArea() const noexcept { return area; }

    /// \name Names
    /// A value outside its vocabulary is called "undefined"; an unknown name (case-sensitive) is -1.
    /// @{
    [[nodiscard]] static QString WorkflowModeToName(WorkflowMode value);
    [[nodiscard]] static WorkflowMode NameToWorkflowMode(const QString &name);
    [[nodiscard]] static WorkflowMode GetInvalidWorkflow();
    [[nodiscard]] static QString SearchStrategyToName(SearchStrategy value);
    [[nodiscard]] static SearchStrategy NameToSearchStrategy(const QString &name);
    [[nodiscard]] static SearchStrategy GetInvalidSearchStrategy();
    /// @}

    /// \name Valid values
    /// What HasData() and the checking setters ask.
    /// @{
    [[nodiscard]] bool IsValidWorkflowMode(WorkflowMode value) const;
    [[nodiscard]] bool IsValidSearchStrategy(SearchStrategy value) const;
    [[nodiscard]] bool IsValidNumberClassifers(unsigned int value) const;
    [[nodiscard]] bool IsValidClassificationTime(unsigned int value) const;
    [[nodiscard]] bool IsValidClassificationResults(unsigned int value) const;
    /// @}

    /// Compares all settings and the name and coordinates of the area. The version is not compared.
    [[nodiscard]] bool operator==(const AutomaticWorkflow &other) const;
    [[nodiscard]] bool operator!=(const AutomaticWorkflow &other) const { return !(*this == other); }

    /// The mode is manual, or it is automatic and counts and search strategy are valid.
    [[nodiscard]] bool HasData() const override;
    /// True when at least one setting is valid; the counts of a new object are, so this is true for it, too.
    [[nodiscard]] bool AnyData() const;
    void Reset() override;
    using ITesselObject::Check;
    /// In automatic mode nothing is reported. Otherwise:
    /// \throws TesselException "...: Please set WorkflowMode" when it is not set; for a mode outside its
    /// vocabulary as TESSEL::Area::Check(), then "...: Please set " followed by NumberClassifers,
    /// ClassificationTime, ClassificationResults or SearchStrategy
    void Check() const override;
    [[nodiscard]] const QString &GetVersion() const override;

    /// \cond
    void GetXml(QXmlStreamWriter &writer) const override;
    void ProcessXml(QXmlStreamReader &reader) override;
    [[nodiscard]] QString GetXmlString() const override;

protected:
    void ProcessXmlStartElement(QXmlStreamReader &reader) override;
    /// \endcond

private:
    friend class TESSEL::DocumentTables;
    struct KORMAK_NO_EXPORT Xml;

    [[nodiscard]] static const TESSEL::ObjectTable &table();

    QString version;
    WorkflowMode workflowMode;
    unsigned int numberClassifiers;
    unsigned int classificationTime;
    unsigned int classificationResults;
    SearchStrategy searchStrategy;
    bool hfBitstreamClassification;
    TESSEL::Area area;
};

/// Writes the name of \a value, or its number when it has none.
KORMAK_EXPORT QDebug operator<<(QDebug debug, AutomaticWorkflow::WorkflowMode value);

/// Writes the name of \a value, or its number when it has none.
KORMAK_EXPORT QDebug operator<<(QDebug debug, AutomaticWorkflow::SearchStrategy value);

/// Writes the name of the object and all of its fields that are set, in a line.
KORMAK_EXPORT QDebug operator<<(QDebug debug, const AutomaticWorkflow &object);

} // namespace KORMAK

#endif
