#include "inspection/TextFix_p.h"

#include <inspection/DocumentCheck_p.h>
#include <inspection/EditLayout_p.h>
#include <inspection/XmlEditor_p.h>
#include <objectbase/ITesselObject.h>

#include <algorithm>
#include <optional>

namespace KORMAK::Inspection {

namespace {

using Index = XmlTree::Index;

class Fixing {
public:
    Fixing(const QByteArray &checked, const TESSEL::ReadingLimits &readingLimits)
        : text(checked), limits(readingLimits), document(documentOf(text, limits)),
          layout(text, document.tree, *document.kind, *document.object)
    {
    }

    [[nodiscard]] TextFix fix(qsizetype skipped)
    {
        if (!layout.source.isWhole())
            return {};
        const DocumentCheck check = checkText(text, limits);
        TextFix all = corrected(check.findings, skipped);
        if (all.patches.empty() || !check.object || isReadWith(all))
            return all;
        // What lets the library see something that it refuses is not certain.
        std::vector<PlacedFinding> harmless;
        for (const PlacedFinding &one : check.findings) {
            if (corrected({one}, skipped).patches.empty())
                continue;
            harmless.push_back(one);
            if (!isReadWith(corrected(harmless, skipped)))
                harmless.pop_back();
        }
        return corrected(harmless, skipped);
    }

private:
    using PlacedFinding = DocumentCheck::PlacedFinding;

    [[nodiscard]] TextFix corrected(const std::vector<PlacedFinding> &findings, qsizetype skipped)
    {
        editor.emplace(layout.tree, layout.source);
        TextFix result;
        for (const auto &[finding, position] : findings) {
            if (correct(finding))
                result.corrected += FindingMaker::made(finding, position, skipped);
        }
        result.patches = editor->patches();
        return arrange(result.patches) ? result : TextFix();
    }

    [[nodiscard]] bool isReadWith(const TextFix &fix) const
    {
        return checkText(patched(text, fix.patches), limits).object != nullptr;
    }

    bool correct(const FindingData &finding)
    {
        using Correction = Finding::Correction;
        const Index element = elementAt(finding.offset);
        if (finding.correction == Correction::None || element == XmlTree::None)
            return false;
        const auto at = finding.path.lastIndexOf(QLatin1String("/@"));
        const QString attribute = at < 0 ? QString() : finding.path.mid(at + 2);
        if (!attribute.isEmpty() && !layout.source.attribute(element, attribute.toUtf8()))
            return false;
        if (finding.correction == Correction::Element)
            return moveToElement(element, attribute, finding.suggestion);
        if (finding.correction == Correction::Text && attribute.isEmpty())
            editor->setText(element, finding.suggestion);
        else if (finding.correction == Correction::Text)
            editor->setAttribute(element, attribute, finding.suggestion);
        else if (attribute.isEmpty())
            editor->rename(element, finding.suggestion);
        else
            editor->renameAttribute(element, attribute, finding.suggestion);
        return true;
    }

    [[nodiscard]] Index elementAt(qsizetype offset) const
    {
        Index first = XmlTree::Root;
        for (Index count = layout.tree.end(); count > 0;) {
            const Index half = count / 2;
            if (layout.tree.offset(first + half) < offset) {
                first += half + 1;
                count -= half + 1;
            } else {
                count = half;
            }
        }
        return first < layout.tree.end() && layout.tree.offset(first) == offset ? first : XmlTree::None;
    }

    bool moveToElement(Index element, const QString &attribute, const QString &value)
    {
        for (const auto &[path, places] : layout.places.all()) {
            const auto place =
                std::find_if(places.begin(), places.end(), [element](const FieldPlace &candidate) {
                    return candidate.element == element && candidate.table;
                });
            if (place == places.end())
                continue;
            const TESSEL::Row *const row = childRow(*place->table, attribute);
            if (!row)
                return false;
            const Index previous = siblingBefore(layout.tree, *place->table, element, *row);
            editor->addElement(element, previous, orderOf(*place->table, *row),
                               {nullptr, nullptr, XmlTree::None, attribute, value});
            editor->removeAttribute(element, attribute);
            return true;
        }
        return false;
    }

    const QByteArray &text;
    const TESSEL::ReadingLimits &limits;
    ParsedDocument document;
    EditLayout layout;
    std::optional<XmlEditor> editor; ///< of the corrections that are tried
};

} // namespace

TextFix fixOf(const QByteArray &text, qsizetype skipped, const TESSEL::ReadingLimits &limits)
{
    return Fixing(text, limits).fix(skipped);
}

} // namespace KORMAK::Inspection
