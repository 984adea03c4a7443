#include "inspection/DocumentEdit.h"

#include <inspection/AreaChanges_p.h>
#include <inspection/AreaGeoJson_p.h>
#include <inspection/Document.h>
#include <inspection/DocumentCheck_p.h>
#include <inspection/DocumentTexts_p.h>
#include <inspection/EditPlan_p.h>
#include <inspection/FieldChanges_p.h>
#include <inspection/GeoJsonArea_p.h>
#include <inspection/JsonObject_p.h>
#include <inspection/NewFindings_p.h>
#include <inspection/TextFix_p.h>
#include <objectbase/Area.h>
#include <objectbase/ITesselObject.h>
#include <objectbase/QtCompat_p.h>
#include <objectbase/TesselException.h>

#include <algorithm>
#include <utility>

namespace KORMAK {

using namespace Inspection;

struct DocumentEdit::Private {
    QByteArray text;
    QVector<Place> places;
    QVector<Finding> findings;
    QVector<Finding> corrected;
    bool isDone = false;

    INSPECTION_NO_EXPORT void edit(const QByteArray &checked, qsizetype skipped,
                                   const QVector<Change> &changes, NewFindings newFindings,
                                   const TESSEL::ReadingLimits &limits);
};

namespace {

using Action = DocumentEdit::Change::Action;

QVector<DocumentEdit::Place> placesOf(const std::vector<TextPatch> &patches, const QByteArray &text,
                                      qsizetype skipped)
{
    QVector<DocumentEdit::Place> places;
    TextPositions positions(text);
    for (const TextPatch &patch : patches) {
        const TextPosition position = positions.at(patch.begin);
        places.push_back({static_cast<qint64>(patch.begin + skipped), position.line, position.column,
                          text.mid(static_cast<TESSEL::TextSize>(patch.begin),
                                   static_cast<TESSEL::TextSize>(patch.end - patch.begin)),
                          patch.text});
    }
    return places;
}

/// \a skipped bytes stand before the text.
QVector<Finding> findingsOf(const std::vector<DocumentCheck::PlacedFinding> &placed, qsizetype skipped)
{
    QVector<Finding> findings;
    for (const auto &[finding, position] : placed)
        findings += FindingMaker::made(finding, position, skipped);
    return findings;
}

Finding errorAbout(const DocumentError &error, qsizetype skipped)
{
    FindingData data{error.offset, error.message, {}, error.id, Severity::Error};
    data.allowed = error.allowed;
    data.limit = error.limit;
    return FindingMaker::made(std::move(data), error.position, skipped);
}

/// \a patches as they are in the text with \a skipped bytes before it.
std::vector<TextPatch> shifted(std::vector<TextPatch> patches, qsizetype skipped)
{
    for (TextPatch &patch : patches) {
        patch.begin += skipped;
        patch.end += skipped;
    }
    return patches;
}

} // namespace

DocumentEdit::DocumentEdit() = default;

DocumentEdit::DocumentEdit(const QByteArray &text, const QVector<Change> &changes, NewFindings newFindings,
                           const TESSEL::ReadingLimits &limits)
{
    auto made = std::make_shared<Private>();
    made->text = text;
    const qsizetype skipped = byteOrderMarkSize(text);
    try {
        made->edit(checkedText(text), skipped, changes, newFindings, limits);
    } catch (const DocumentError &error) {
        made->findings = {
            errorAbout(error, skipped),
            FindingMaker::notEdited(QStringLiteral("only a document that is read to its end can be "
                                                   "changed; put that right first"))};
    }
    d = std::move(made);
}

/// \throws DocumentError
void DocumentEdit::Private::edit(const QByteArray &checked, qsizetype skipped, const QVector<Change> &changes,
                                 NewFindings newFindings, const TESSEL::ReadingLimits &limits)
{
    ParsedDocument document = documentOf(checked, limits);
    if (document.rejection)
        throwRejection(*document.rejection, checked);
    const EditPlan plan(document, changes);
    findings = plan.errors();
    if (!findings.isEmpty())
        return;
    const std::vector<TextPatch> patches = plan.patches();
    const DocumentCheck check = checkText(patched(checked, patches), limits);
    const QVector<Finding> added = findingsOf(
        Inspection::newFindings({check, patches}, {checkDocument(std::move(document)), {}}), skipped);
    if (check.object)
        findings = plan.differencesTo(*check.object);
    const bool isFaulty = std::any_of(added.begin(), added.end(), [](const Finding &finding) {
        return !FindingMaker::contentOf(finding).isInherent;
    });
    if (!check.object || (newFindings == NewFindings::Refused && isFaulty && findings.isEmpty()))
        findings += added;
    isDone = check.object && findings.isEmpty();
    if (!isDone)
        return;
    findings = added;
    TextPositions positions(checked);
    for (const FindingData &loss : plan.losses())
        findings += FindingMaker::made(loss, positions.at(loss.offset), skipped);
    places = placesOf(patches, checked, skipped);
    text = patched(text, shifted(patches, skipped));
}

DocumentEdit DocumentEdit::Fix(const QByteArray &text, const TESSEL::ReadingLimits &limits)
{
    constexpr int MostRounds = 100; // what is put right lets more be read, and found
    auto made = std::make_shared<Private>();
    made->text = text;
    const qsizetype skipped = byteOrderMarkSize(text);
    try {
        QByteArray now = checkedText(text);
        for (int round = 0; round < MostRounds; ++round) {
            const TextFix fix = fixOf(now, skipped, limits);
            if (fix.patches.empty())
                break;
            now = patched(now, fix.patches);
            made->text = patched(made->text, shifted(fix.patches, skipped));
            made->corrected += fix.corrected;
        }
        made->findings = findingsOf(checkText(now, limits).findings, skipped);
    } catch (const DocumentError &error) {
        made->findings = {errorAbout(error, skipped)};
    }
    made->isDone = !made->corrected.isEmpty();
    DocumentEdit result;
    result.d = std::move(made);
    return result;
}

QVector<DocumentEdit::Change> DocumentEdit::ReadChanges(const QByteArray &json, const QByteArray &text,
                                                        const TESSEL::ReadingLimits &limits)
{
    const QJsonObject whole = jsonObjectOf(json);
    const Document document(text, limits);
    if (!document.GetObject())
        throw TESSEL::TesselException(document.GetState());
    const FieldTable &table = documentKindOf(*document.GetObject())->fields();
    const bool isWhole = whole.value(QStringLiteral("fields")).isObject();
    const QString expected = whole.value(QStringLiteral("kind")).toString();
    if (isWhole && !expected.isEmpty() && expected != document.GetKind()) {
        throw TESSEL::TesselException(
            QStringLiteral("holds fields of kind %1, not %2").arg(expected, document.GetKind()));
    }
    return fieldChanges(isWhole ? whole.value(QStringLiteral("fields")).toObject() : whole, table, document);
}

DocumentEdit::AreaChanges DocumentEdit::ReadArea(const QByteArray &geoJson, const QByteArray &text,
                                                 const TESSEL::ReadingLimits &limits)
{
    GeoJsonArea read = readGeoJsonArea(geoJson);
    const Document document(text, limits);
    if (!document.GetObject())
        throw TESSEL::TesselException(document.GetState());
    const TESSEL::Area *const area = areaOf(*document.GetObject());
    if (!area)
        throw TESSEL::TesselException(noAreaIn(document.GetKind()));
    AreaChanges result{
        coordinateChanges(QStringLiteral("Area.Coordinate"), area->GetCoordinate(), read.coordinates),
        read.ignored};
    if (area->GetName().isEmpty() && !read.name.isEmpty())
        result.changes += {Action::Set, QStringLiteral("Area.Name"), read.name};
    else if (!read.name.isEmpty() && read.name != area->GetName())
        result.ignored += read.namePlace;
    return result;
}

bool DocumentEdit::IsDone() const noexcept
{
    return d && d->isDone;
}

QByteArray DocumentEdit::GetText() const
{
    return d ? d->text : QByteArray();
}

QVector<DocumentEdit::Place> DocumentEdit::GetPlaces() const
{
    return d ? d->places : QVector<Place>();
}

QVector<Finding> DocumentEdit::GetCorrected() const
{
    return d ? d->corrected : QVector<Finding>();
}

QVector<Finding> DocumentEdit::GetFindings() const
{
    return d ? d->findings : QVector<Finding>();
}

} // namespace KORMAK
