#include "inspection/Rewriting_p.h"

#include <inspection/Completeness_p.h>
#include <inspection/FieldDiff_p.h>
#include <inspection/QuotedText_p.h>
#include <inspection/XmlLosses_p.h>
#include <objectbase/TesselException.h>

namespace KORMAK::Inspection {

namespace {

Rejection atRoot(const ParsedDocument &document, const QString &message)
{
    return {message, document.tree.offset(XmlTree::Root)};
}

} // namespace

Rewriting rewrite(ParsedDocument &document)
{
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
