#include "inspection/TextFix_p.h"

#include <inspection/DocumentCheck_p.h>
#include <inspection/EditLayout_p.h>
#include <inspection/NewFindings_p.h>
#include <inspection/XmlEditor_p.h>
#include <objectbase/ITesselObject.h>

#include <algorithm>
#include <iterator>
#include <optional>
#include <utility>

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
        std::vector<PlacedFinding> faults; // or what stands where it is not read
        std::vector<PlacedFinding> others;
        for (const PlacedFinding &one : check.findings) {
            const bool isFault =
                one.finding.severity == Severity::Error || one.finding.correction == Correction::Element;
            if (!patchesFor({one}).empty())
                (isFault ? faults : others).push_back(one);
        }
        PlacedFindings certain = Certain(*this, {}, check, NewErrors::Revealed).among(faults);
        if (!others.empty()) {
            const DocumentCheck corrected = checkText(patched(text, patchesFor(certain)), limits);
            certain = joined(certain, Certain(*this, certain, corrected, NewErrors::Made).among(others));
        }
        TextFix result{patchesFor(certain), {}};
        for (const auto &[finding, position] : certain)
            result.corrected += FindingMaker::made(finding, position, skipped);
        return result;
    }

private:
    using PlacedFinding = DocumentCheck::PlacedFinding;
    using Correction = Finding::Correction;
    using PlacedFindings = std::vector<PlacedFinding>;

    /// What errors are that are found only when something is put right.
    enum class NewErrors {
        Revealed, ///< it was at fault, and what was meant is judged now
        Made, ///< it was read, and something is refused now
    };

    /// Tells which of some corrections are certain beside those that are.
    class Certain {
    public:
        /// \a check: of the text with what is \a corrected.
        Certain(Fixing &owner, PlacedFindings corrected, const DocumentCheck &check, NewErrors errors)
            : fixing(owner), base(std::move(corrected)), basePatches(fixing.patchesFor(base)), before(check),
              newErrors(errors)
        {
        }

        /// Of two that do not go together, neither is certain.
        [[nodiscard]] PlacedFindings among(const PlacedFindings &all) const
        {
            if (all.empty() || isHarmless(all))
                return all;
            if (all.size() == 1)
                return {};
            const auto half = all.begin() + static_cast<std::ptrdiff_t>(all.size() / 2);
            const PlacedFindings first = among({all.begin(), half});
            const PlacedFindings second = among({half, all.end()});
            const PlacedFindings both = joined(first, second);
            if (both.empty() || isHarmless(both))
                return both;
            const PlacedFindings rest = joined(harmlessBeside(first, second), harmlessBeside(second, first));
            return rest.empty() || isHarmless(rest) ? rest : PlacedFindings();
        }

    private:
        [[nodiscard]] PlacedFindings harmlessBeside(const PlacedFindings &some,
                                                    const PlacedFindings &others) const
        {
            PlacedFindings result;
            std::copy_if(some.begin(), some.end(), std::back_inserter(result),
                         [&](const PlacedFinding &one) { return isHarmless(joined({one}, others)); });
            return result;
        }

        [[nodiscard]] bool isHarmless(const PlacedFindings &some) const
        {
            const PlacedFindings corrected = joined(base, some);
            const std::vector<TextPatch> patches = fixing.patchesFor(corrected);
            if (patches.empty()) // they overlap
                return false;
            const DocumentCheck after = checkText(patched(fixing.text, patches), fixing.limits);
            if ((before.object && !after.object) || (before.isAccepted && !after.isAccepted))
                return false;
            const FormerPlaces places(patches);
            const PlacedFindings added = newFindings({after, patches}, {before, basePatches});
            return std::none_of(added.begin(), added.end(), [&](const PlacedFinding &one) {
                const bool isError = one.finding.severity == Severity::Error;
                return (one.finding.isContradiction || (isError && newErrors == NewErrors::Made))
                    && !fixing.isInRenamed(places.of(one.finding.offset).first, corrected);
            });
        }

        Fixing &fixing;
        const PlacedFindings base;
        const std::vector<TextPatch> basePatches;
        const DocumentCheck &before;
        const NewErrors newErrors;
    };

    /// In the order of the document.
    [[nodiscard]] static PlacedFindings joined(PlacedFindings some, const PlacedFindings &others)
    {
        some.insert(some.end(), others.begin(), others.end());
        std::stable_sort(some.begin(), some.end(), [](const PlacedFinding &a, const PlacedFinding &b) {
            return a.finding.offset < b.finding.offset;
        });
        return some;
    }

    /// Whether the place is in an element that was passed over under its name.
    [[nodiscard]] bool isInRenamed(qsizetype offset, const PlacedFindings &corrected) const
    {
        return std::any_of(corrected.begin(), corrected.end(), [&](const PlacedFinding &one) {
            return one.finding.correction == Correction::Name && attributeOf(one.finding).isEmpty()
                && offset > one.finding.offset
                && offset < layout.source.element(elementAt(one.finding.offset)).end;
        });
    }

    [[nodiscard]] static QString attributeOf(const FindingData &finding)
    {
        const auto at = finding.path.lastIndexOf(QLatin1String("/@"));
        return at < 0 ? QString() : finding.path.mid(at + 2);
    }

    /// Arranged; empty when there is nothing to be put right, or not all of it together.
    [[nodiscard]] std::vector<TextPatch> patchesFor(const PlacedFindings &findings)
    {
        editor.emplace(layout.tree, layout.source);
        for (const PlacedFinding &one : findings) {
            if (!correct(one.finding))
                return {};
        }
        std::vector<TextPatch> patches = editor->patches();
        return arrange(patches) ? patches : std::vector<TextPatch>();
    }

    bool correct(const FindingData &finding)
    {
        const Index element = elementAt(finding.offset);
        if (finding.correction == Correction::None || element == XmlTree::None)
            return false;
        const QString attribute = attributeOf(finding);
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
        const TESSEL::ObjectTable *table = nullptr;
        layout.places.root().each([&](const FieldPlace &place) {
            table = place.element == element && place.table ? place.table : table;
        });
        const TESSEL::Row *const row = table ? childRow(*table, attribute) : nullptr;
        if (!row)
            return false;
        const Index previous = siblingBefore(layout.tree, *table, element, *row);
        editor->addElement(element, previous, orderOf(*table, *row),
                           {nullptr, nullptr, XmlTree::None, attribute, value});
        editor->removeAttribute(element, attribute);
        return true;
    }

    const QByteArray &text;
    const TESSEL::ReadingLimits &limits;
    ParsedDocument document;
    EditLayout layout;
    std::optional<XmlEditor> editor; ///< of the corrections that are tried
};

/// Of a document of no kind, which \a error tells.
TextFix withRootRenamed(const QByteArray &text, const DocumentError &error, qsizetype skipped)
{
    const XmlTree tree(text);
    const XmlSource source(text, tree);
    if (tree.isBroken() || !source.isWhole())
        return {};
    XmlEditor editor(tree, source);
    editor.rename(XmlTree::Root, error.otherName);
    TextFix result{editor.patches(), {}};
    for (const auto &[finding, position] : failedCheck(error).findings)
        result.corrected += FindingMaker::made(finding, position, skipped);
    return result;
}

} // namespace

TextFix fixOf(const QByteArray &text, qsizetype skipped, const TESSEL::ReadingLimits &limits)
{
    try {
        return Fixing(text, limits).fix(skipped);
    } catch (const DocumentError &error) {
        if (error.otherName.isEmpty())
            throw;
        return withRootRenamed(text, error, skipped);
    }
}

} // namespace KORMAK::Inspection
