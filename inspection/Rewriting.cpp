#include "inspection/Rewriting_p.h"

#include <inspection/Completeness_p.h>
#include <inspection/DocumentTexts_p.h>
#include <inspection/FieldAssignment_p.h>
#include <inspection/FieldDiff_p.h>
#include <inspection/FieldPlaces_p.h>
#include <inspection/QuotedText_p.h>
#include <inspection/ReadableForm_p.h>
#include <inspection/XmlLosses_p.h>
#include <objectbase/TesselException.h>

#include <algorithm>
#include <set>
#include <utility>

namespace KORMAK::Inspection {

namespace {

Rejection atRoot(const ParsedDocument &document, const QString &message)
{
    return {message, document.tree.offset(XmlTree::Root)};
}

/// Makes fields of what stands where it is not read. \return what has become a field, or is one already
std::vector<FieldPlaces::Unread> takeUpUnread(const ParsedDocument &document, const FieldPlaces &places)
{
    const DocumentKind &kind = *document.kind;
    std::vector<FieldPlaces::Unread> taken;
    for (const FieldPlaces::Unread &unread : places.unread()) {
        if (const auto read = places.find(unread.path); !read.empty()) {
            if (document.tree.text(read.back().element) == unread.text)
                taken.push_back(unread);
            continue;
        }
        const QStringList setting(unread.path + QLatin1Char('=') + unread.text);
        if (assignAll(kind.fields(), setting, kind.variableAddress(*document.object)).errors.isEmpty())
            taken.push_back(unread);
    }
    return taken;
}

/// Where digits stand that single precision has no place for: what is written is read as the same number.
std::set<qsizetype> placesOfFloats(const ParsedDocument &document, const FieldPlaces &places)
{
    std::set<qsizetype> offsets;
    places.root().each([&](const FieldPlace &place) {
        const bool isFloat = place.row && place.row->type.kind == TESSEL::TextType::Kind::Float;
        if (isFloat && isValid(place.row->type, document.tree.text(place.element)))
            offsets.insert(document.tree.offset(place.element));
    });
    return offsets;
}

Rewriting rewriteReadable(ParsedDocument &document)
{
    Rewriting result;
    const FieldPlaces places(document.tree, *document.kind, *document.object);
    const auto taken = takeUpUnread(document, places);
    auto text = readableForm(*document.kind, *document.object);
    if (!text) {
        result.refusal = atRoot(document, QStringLiteral("Text cannot be represented in XML"));
        return result;
    }
    document.object.reset();
    result.text = std::move(*text);
    result.losses = lossesIn(document, result.text);
    const auto isSaid = [&taken, floats = placesOfFloats(document, places)](const FindingData &loss) {
        const bool isTaken = std::any_of(taken.begin(), taken.end(), [&loss](const auto &unread) {
            return loss.offset == unread.offset && !unread.place.isEmpty()
                && loss.path.endsWith(unread.place);
        });
        return isTaken || (floats.count(loss.offset) != 0 && !loss.path.contains(QLatin1String("/@")));
    };
    result.losses.erase(std::remove_if(result.losses.begin(), result.losses.end(), isSaid),
                        result.losses.end());
    return result;
}

} // namespace

Rewriting rewrite(ParsedDocument &document, WrittenForm form)
{
    if (form == WrittenForm::Readable)
        return rewriteReadable(document);
    const DocumentKind &kind = *document.kind;
    Rewriting result;
    if (kind.blockers)
        result.blockers = kind.blockers(*document.object, document.tree);
    if (!result.blockers.empty())
        return result;
    result.refusal = checkObject(document);
    if (result.refusal)
        return result;
    auto written = writtenDocument(kind, *document.object);
    if (const auto *reason = std::get_if<Rejection>(&written)) {
        result.refusal = atRoot(document, reason->message);
        return result;
    }
    result.text = std::get<QString>(written).toUtf8();
    written = QString();
    document.object.reset();
    result.losses = lossesIn(document, result.text);
    return result;
}

Findings lossesIn(const ParsedDocument &document, const QByteArray &text)
{
    Findings losses;
    for (const XmlLoss &loss : findLosses(document.tree, XmlTree(text), document.kind->defaults())) {
        losses.push_back({loss.offset, loss.message, loss.path,
                          loss.isComment ? FindingId::LostComment : FindingId::Lost});
    }
    return losses;
}

std::variant<QString, Rejection> writtenDocument(const DocumentKind &kind,
                                                 const TESSEL::ITesselObject &object)
{
    if (!object.HasData())
        return Rejection{stateOf(kind, object), 0};
    try {
        return object.GetXmlString();
    } catch (const TESSEL::TesselException &exception) {
        return Rejection{exception.GetErrorMessage(), 0};
    }
}

Findings notReadBack(const DocumentKind &kind, const TESSEL::ITesselObject &object, const QString &text)
{
    const auto readBack = kind.create();
    readBack->SetReadingLimits(object.GetReadingLimits());
    QString refusal;
    try {
        if (!readBack->SetXmlString(text, true))
            refusal = QStringLiteral("would not be read back");
    } catch (const TESSEL::TesselException &exception) {
        refusal = QStringLiteral("would not be read back: ") + exception.GetErrorMessage();
    }
    Findings findings;
    if (!refusal.isEmpty())
        findings.push_back({0, refusal, {}, FindingId::NotReadBack});
    for (const FieldDifference &difference :
         differences(kind.fields(), kind.address(object), kind.address(*readBack))) {
        findings.push_back({0, QStringLiteral("not read back as it is: ") + difference.change(),
                            oneLine(difference.path), FindingId::NotReadBack});
    }
    return findings;
}

} // namespace KORMAK::Inspection
