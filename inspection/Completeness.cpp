#include "inspection/Completeness_p.h"

#include <inspection/Advice_p.h>
#include <inspection/FieldTable_p.h>
#include <kormak/AutomaticWorkflow.h>
#include <kormak/GenericReceiver.h>
#include <objectbase/Messages_p.h>
#include <objectbase/TesselException.h>

#include <algorithm>

namespace KORMAK::Inspection {

namespace {

constexpr QStringView ModeName = u"Mode";

/// The field whose setter gives the handler what it lacks to hold data.
QString missingInHandler(const Parameter &parameter)
{
    if (parameter.IsEnum())
        return QStringLiteral("Enum.EnumValue");
    if (parameter.IsString())
        return QStringLiteral("String.Value");
    const bool isDouble = parameter.IsDouble() || parameter.IsDoubleList();
    if (isDouble && parameter.GetDoubleHandler().IsDoubleList())
        return QStringLiteral("Double.MaxDoubleListLength");
    return QStringLiteral("Double.Value");
}

} // namespace

std::optional<QString> complaintOf(const TESSEL::ITesselObject &object)
{
    try {
        object.Check();
    } catch (const TESSEL::TesselException &exception) {
        return exception.GetErrorMessage();
    }
    return std::nullopt;
}

std::optional<QString> whyIncomplete(const TESSEL::ITesselObject &object)
{
    if (object.HasData())
        return std::nullopt;
    return complaintOf(object).value_or(
        QStringLiteral("the library accepts it but would write nothing for it"));
}

QStringList missingBeyondCheck(const TESSEL::ObjectTable &table, const void *object)
{
    QStringList missing;
    table.inOrder([&](const TESSEL::Row &row) {
        if (!row.isComplete || !row.isApplicableTo(object) || row.isComplete(object))
            return;
        const QString name = table.name.toString();
        const QStringView advice = adviceFor(table.name, row.name).missing;
        if (row.part)
            missing += missingBeyondCheck(row.part->table(), row.part->all(object).front().object);
        else
            missing += advice.isEmpty() ? TESSEL::Messages::pleaseSet(name, row.name)
                                        : TESSEL::Messages::about(name, advice);
    });
    return missing;
}

QStringList missingBeyondCheck(const Parameter &parameter)
{
    return {TESSEL::Messages::pleaseSet(QStringLiteral("Parameter"), missingInHandler(parameter))};
}

QStringList missingBeyondCheck(const GenericReceiver &receiver)
{
    QStringList missing;
    for (const FieldRow &row : fieldsOf(TESSEL::DocumentTables::of<GenericReceiver>())) {
        for (const FieldPart &part : row.parts ? row.parts->all(&receiver) : std::vector<FieldPart>()) {
            const auto &parameter = *static_cast<const Parameter *>(part.object);
            if (parameter.HasData())
                continue;
            const QString name = bracketed(*row.parts, parameter.GetUniqueParameterName());
            const QString reason =
                complaintOf(parameter).value_or(missingBeyondCheck(parameter).join(QString()));
            missing += QStringLiteral("Parameter") + name + reason.mid(reason.indexOf(QLatin1Char(':')));
        }
    }
    return missing;
}

Findings modeNotReadBack(const AutomaticWorkflow &workflow, const XmlTree &tree)
{
    const XmlTree::Index child = tree.findChild(XmlTree::Root, ModeName);
    if (child != XmlTree::None && workflow.HasData()) {
        return {{tree.offset(child),
                 QStringLiteral(
                     "the mode would be written as the attribute \"Mode\", but it is read only from an "
                     "element \"Mode\": the rewritten document would not be complete"),
                 tree.path(child)}};
    }
    if (child == XmlTree::None && tree.attribute(XmlTree::Root, ModeName)) {
        return {
            {tree.offset(XmlTree::Root),
             QStringLiteral("the mode stands in the attribute \"Mode\", but it is read only from an element "
                            "\"Mode\": the document is not complete"),
             tree.path(XmlTree::Root)}};
    }
    return {};
}

Findings incompleteParameters(const std::vector<ParameterElement> &parameters)
{
    Findings findings;
    for (const ParameterElement &element : parameters) {
        if (element.parameter.HasData())
            continue;
        const QString reason =
            complaintOf(element.parameter).value_or(QStringLiteral("its handler holds no data"));
        findings.push_back(element.finding(element.index, QStringLiteral("not complete: ") + reason));
    }
    std::sort(findings.begin(), findings.end(),
              [](const FindingData &a, const FindingData &b) { return a.offset < b.offset; });
    return findings;
}

} // namespace KORMAK::Inspection
