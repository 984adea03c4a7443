#include "inspection/XmlEditor_p.h"

#include <objectbase/QtCompat_p.h>

#include <algorithm>
#include <utility>

namespace KORMAK::Inspection {

namespace {

bool isBlank(char c)
{
    return c == ' ' || c == '\t';
}

/// \a quote: of an attribute; none for the text of an element. What a reader would make a blank of, or drop,
/// is a reference.
QByteArray escaped(const QString &text, char quote = '\0')
{
    const bool isAttribute = quote != '\0';
    QByteArray result;
    const QByteArray utf8 = text.toUtf8();
    for (const char c : utf8) {
        if (c == '&')
            result += "&amp;";
        else if (c == '<')
            result += "&lt;";
        else if (c == '>' && !isAttribute)
            result += "&gt;";
        else if (c == '\r')
            result += "&#13;";
        else if (isAttribute && c == '\n')
            result += "&#10;";
        else if (isAttribute && c == '\t')
            result += "&#9;";
        else if (isAttribute && c == quote)
            result += quote == '"' ? "&quot;" : "&apos;";
        else
            result += c;
    }
    return result;
}

/// \a text with line feeds as \a lineEnd, which readers make line feeds of.
QByteArray withLineEnds(QByteArray text, const QByteArray &lineEnd)
{
    return lineEnd == "\r\n" ? text.replace('\n', lineEnd) : text;
}

QByteArray prefixOf(const QByteArray &name)
{
    return name.left(name.indexOf(':') + 1);
}

} // namespace

XmlEditor::XmlEditor(const XmlTree &xmlTree, const XmlSource &xmlSource)
    : tree(xmlTree), source(xmlSource) { }

void XmlEditor::setText(Index element, const QString &text)
{
    const XmlSource::Element &span = source.element(element);
    const QByteArray references = withLineEnds(escaped(text), lineEnd());
    if (span.isEmptyTag()) {
        qsizetype slash = span.tagEnd - 2;
        const QByteArray name = source.name(element);
        changes.push_back({slash, span.tagEnd, '>' + references + "</" + name + '>'});
        return;
    }
    const std::vector<XmlSource::Piece> pieces = source.pieces(element);
    if (pieces.empty()) {
        changes.push_back({span.tagEnd, span.tagEnd, references});
        return;
    }
    // One section stays one, so that the text can be changed back.
    const bool isSection = pieces.size() == 1 && pieces.front().isSection
        && !text.contains(QLatin1String("]]>")) && !text.contains(QLatin1Char('\r'));
    const QByteArray content =
        isSection ? "<![CDATA[" + withLineEnds(text.toUtf8(), lineEnd()) + "]]>" : references;
    for (const XmlSource::Piece &piece : pieces)
        changes.push_back({piece.begin, piece.end, &piece == &pieces.front() ? content : QByteArray()});
}

void XmlEditor::setAttribute(Index element, const QString &name, const QString &text)
{
    const auto span = *source.attribute(element, name.toUtf8());
    changes.push_back({span.valueBegin, span.valueEnd, escaped(text, span.quote(source.text()))});
}

void XmlEditor::addAttribute(Index element, const QString &name, const QString &text, const QString &previous)
{
    const auto before = previous.isEmpty() ? std::nullopt : source.attribute(element, previous.toUtf8());
    const qsizetype at =
        before ? before->end : source.element(element).begin + 1 + source.name(element).size();
    changes.push_back({at, at, ' ' + name.toUtf8() + "=\"" + escaped(text, '"') + '"'});
}

void XmlEditor::addElement(Index parent, Index previous, int order, const NewElement &added)
{
    additions[{parent, previous}].push_back({order, added});
}

void XmlEditor::removeElement(Index element)
{
    removals.push_back(element);
}

void XmlEditor::removeAttribute(Index element, const QString &name)
{
    const auto span = *source.attribute(element, name.toUtf8());
    changes.push_back({span.begin, span.end, {}});
}

void XmlEditor::renameAttribute(Index element, const QString &name, const QString &newName)
{
    const auto span = *source.attribute(element, name.toUtf8());
    const qsizetype begin = source.text().indexOf(name.toUtf8(), static_cast<TESSEL::TextSize>(span.begin));
    changes.push_back({begin, begin + name.toUtf8().size(), newName.toUtf8()});
}

void XmlEditor::rename(Index element, const QString &name)
{
    const XmlSource::Element &span = source.element(element);
    const QByteArray former = source.name(element);
    const qsizetype prefix = prefixOf(former).size();
    const auto replace = [&](qsizetype nameBegin) {
        changes.push_back({nameBegin + prefix, nameBegin + former.size(), name.toUtf8()});
    };
    replace(span.begin + 1);
    if (!span.isEmptyTag())
        replace(span.contentEnd + 2);
}

std::vector<TextPatch> XmlEditor::patches() const
{
    std::vector<TextPatch> all = changes;
    for (const auto &[place, added] : additions)
        all.push_back(additionPatch(place.first, place.second, added));
    addRemovalPatches(all);
    return all;
}

void XmlEditor::addRemovalPatches(std::vector<TextPatch> &all) const
{
    std::vector<Index> inOrder = removals;
    std::sort(inOrder.begin(), inOrder.end());
    for (auto element = inOrder.begin(); element != inOrder.end();) {
        qsizetype begin = source.element(*element).begin;
        qsizetype end = source.element(*element).end;
        const auto indent = indentation(*element);
        ++element;
        if (!indent) {
            all.push_back({begin, end, {}});
            continue;
        }
        while (element != inOrder.end() && source.element(*element).begin == behindBlanks(end))
            end = source.element(*element++).end;
        if (isLineOver(end)) {
            end = isLineEnd(behindBlanks(end)) ? behindBlanks(end) : end;
            begin -= indent->size();
            begin -= begin > 0 ? 1 : 0; // the line feed, and what may stand before it
            begin -= begin > 0 && source.text().constData()[begin - 1] == '\r' ? 1 : 0;
        } else {
            end = behindBlanks(end); // what follows takes its place
        }
        all.push_back({begin, end, {}});
    }
}

std::optional<QByteArray> XmlEditor::indentation(Index element) const
{
    const char *const text = source.text().constData();
    const qsizetype end = source.element(element).begin;
    qsizetype begin = end;
    while (begin > 0 && isBlank(text[begin - 1]))
        --begin;
    if (begin > 0 && text[begin - 1] != '\n')
        return std::nullopt;
    return source.text(begin, end);
}

qsizetype XmlEditor::behindBlanks(qsizetype at) const
{
    const QByteArray &text = source.text();
    while (at < text.size() && isBlank(text.constData()[at]))
        ++at;
    return at;
}

bool XmlEditor::isLineEnd(qsizetype at) const
{
    const char c = source.text().constData()[at];
    return c == '\n' || c == '\r';
}

bool XmlEditor::isLineOver(qsizetype at) const
{
    const qsizetype next = behindBlanks(at);
    return isLineEnd(next) || source.text(next, next + 2) == "</";
}

std::optional<qsizetype> XmlEditor::endOfLine(qsizetype at) const
{
    while (!isLineOver(at)) {
        const qsizetype next = source.behindComment(behindBlanks(at));
        if (next == behindBlanks(at))
            return std::nullopt;
        at = next;
    }
    return behindBlanks(at);
}

QByteArray XmlEditor::lineEnd() const
{
    const int lineFeed = static_cast<int>(source.text().indexOf('\n'));
    if (lineFeed < 0)
        return {};
    return lineFeed > 0 && source.text().at(lineFeed - 1) == '\r' ? "\r\n" : "\n";
}

XmlEditor::Layout XmlEditor::layoutIn(Index parent) const
{
    Layout layout;
    const auto indent = indentation(parent);
    const Index child = tree.firstChild(parent);
    const Index rootChild = tree.firstChild(XmlTree::Root);
    const auto childIndent = child != XmlTree::None ? indentation(child) : std::nullopt;
    if (child != XmlTree::None ? !childIndent : !indent)
        return layout;
    layout.lineEnd = lineEnd();
    layout.parent = indent.value_or(QByteArray());
    const auto first = rootChild != XmlTree::None ? indentation(rootChild) : std::nullopt;
    layout.unit = first && !first->isEmpty() ? *first : QByteArray("    ");
    if (childIndent && childIndent->size() > layout.parent.size())
        layout.unit = childIndent->mid(layout.parent.size());
    layout.child = childIndent.value_or(layout.parent + layout.unit);
    return layout;
}

QByteArray XmlEditor::rendered(const NewElement &added, const QByteArray &prefix, const Layout &layout,
                               const QByteArray &indent) const
{
    if (added.source)
        return copied(*added.source, *added.tree, added.index, prefix, layout, indent);
    const QByteArray name = prefix + added.name.toUtf8();
    return '<' + name + '>' + withLineEnds(escaped(added.text), lineEnd()) + "</" + name + '>';
}

/// As it stands in \a from, but for the blanks between elements.
QByteArray XmlEditor::copied(const XmlSource &from, const XmlTree &fromTree, Index index,
                             const QByteArray &prefix, const Layout &layout, const QByteArray &indent) const
{
    const XmlSource::Element &span = from.element(index);
    QByteArray result = '<' + prefix + from.text(span.begin + 1, span.tagEnd);
    if (span.isEmptyTag())
        return result;
    const QByteArray inner = indent + layout.unit;
    for (Index child = fromTree.firstChild(index); child != XmlTree::None;
         child = fromTree.nextSibling(child)) {
        if (!layout.lineEnd.isEmpty())
            result += layout.lineEnd + inner;
        result += copied(from, fromTree, child, prefix, layout, inner);
    }
    if (!fromTree.hasChild(index))
        result += withLineEnds(from.text(span.tagEnd, span.contentEnd), lineEnd());
    else if (!layout.lineEnd.isEmpty())
        result += layout.lineEnd + indent;
    return result + "</" + prefix + from.text(span.contentEnd + 2, span.end);
}

TextPatch XmlEditor::additionPatch(Index parent, Index previous, const std::vector<Addition> &added) const
{
    std::vector<Addition> inOrder = added;
    std::stable_sort(inOrder.begin(), inOrder.end(),
                     [](const Addition &a, const Addition &b) { return a.order < b.order; });
    const XmlSource::Element &span = source.element(parent);
    const qsizetype begin = previous != XmlTree::None ? source.element(previous).end : span.tagEnd;
    Layout layout = layoutIn(parent);
    const auto lineOver = span.isEmptyTag() ? begin : endOfLine(begin);
    if (!lineOver) // what else stands in the line stays there
        layout.lineEnd.clear();
    const QByteArray name = source.name(parent);
    QByteArray text;
    for (const Addition &addition : inOrder) {
        if (!layout.lineEnd.isEmpty())
            text += layout.lineEnd + layout.child;
        text += rendered(addition.element, prefixOf(name), layout, layout.child);
    }
    const QByteArray closing = layout.lineEnd.isEmpty() ? QByteArray() : layout.lineEnd + layout.parent;
    if (span.isEmptyTag())
        return {span.tagEnd - 2, span.tagEnd, '>' + text + closing + "</" + name + '>'};
    const qsizetype at = layout.lineEnd.isEmpty() ? behindBlanks(begin) : *lineOver;
    if (previous == XmlTree::None && at == span.contentEnd)
        text += closing;
    return {at, at, text};
}

} // namespace KORMAK::Inspection
