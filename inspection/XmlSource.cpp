#include "inspection/XmlSource_p.h"

#include <objectbase/QtCompat_p.h>

#include <cstring>
#include <utility>

namespace KORMAK::Inspection {

namespace {

bool isBlank(char c)
{
    return c == ' ' || c == '\t' || c == '\n' || c == '\r';
}

bool endsName(char c)
{
    return isBlank(c) || c == '=' || c == '/' || c == '>';
}

} // namespace

XmlSource::XmlSource(QByteArray utf8, const XmlTree &tree) : bytes(std::move(utf8))
{
    scan();
    isComplete = static_cast<XmlTree::Index>(elements.size()) == tree.end();
    for (XmlTree::Index i = XmlTree::Root; isComplete && i < tree.end(); ++i)
        isComplete = tree.offset(i) == element(i).begin;
}

QByteArray XmlSource::text(qsizetype begin, qsizetype end) const
{
    return bytes.mid(static_cast<TESSEL::TextSize>(begin), static_cast<TESSEL::TextSize>(end - begin));
}

bool XmlSource::startsWith(qsizetype at, const char *what) const
{
    return std::strncmp(bytes.constData() + at, what, std::strlen(what)) == 0;
}

qsizetype XmlSource::behind(qsizetype at, const char *what) const
{
    const qsizetype found = bytes.indexOf(what, static_cast<TESSEL::TextSize>(at));
    return found < 0 ? bytes.size() : found + static_cast<qsizetype>(std::strlen(what));
}

qsizetype XmlSource::behindTag(qsizetype at) const
{
    char quote = '\0';
    for (; at < bytes.size(); ++at) {
        const char c = bytes.constData()[at];
        if (quote != '\0')
            quote = c == quote ? '\0' : quote;
        else if (c == '"' || c == '\'')
            quote = c;
        else if (c == '>')
            return at + 1;
    }
    return at;
}

qsizetype XmlSource::behindDocumentType(qsizetype at) const
{
    bool isInSubset = false;
    for (++at; at < bytes.size();) {
        const char c = bytes.constData()[at];
        if (c == '"' || c == '\'') {
            const char quote[] = {c, '\0'};
            at = behind(at + 1, quote);
        } else if (c == '<') {
            const qsizetype next =
                startsWith(at, "<!--") || startsWith(at, "<?") ? behindAside(at) : behindTag(at);
            at = next;
        } else if (c == '>' && !isInSubset) {
            return at + 1;
        } else {
            isInSubset = c == '[' || (isInSubset && c != ']');
            ++at;
        }
    }
    return at;
}

qsizetype XmlSource::behindAside(qsizetype at) const
{
    if (startsWith(at, "<!--"))
        return behind(at + 4, "-->");
    if (startsWith(at, "<![CDATA["))
        return behind(at, "]]>");
    if (startsWith(at, "<?"))
        return behind(at, "?>");
    return startsWith(at, "<!") ? behindDocumentType(at) : at;
}

qsizetype XmlSource::behindComment(qsizetype at) const
{
    return startsWith(at, "<!--") || startsWith(at, "<?") ? behindAside(at) : at;
}

void XmlSource::scan()
{
    std::vector<std::size_t> open;
    for (qsizetype at = bytes.indexOf('<'); at >= 0 && at < bytes.size();
         at = bytes.indexOf('<', static_cast<TESSEL::TextSize>(at))) {
        const qsizetype next = behindAside(at);
        if (next != at) {
            at = next;
            continue;
        }
        const qsizetype end = behindTag(at);
        if (startsWith(at, "</")) {
            if (open.empty())
                return;
            elements[open.back()].contentEnd = at;
            elements[open.back()].end = end;
            open.pop_back();
        } else {
            if (bytes.constData()[end - 2] != '/')
                open.push_back(elements.size());
            elements.push_back({at, end, end, end});
        }
        at = end;
    }
}

QByteArray XmlSource::name(XmlTree::Index index) const
{
    const qsizetype begin = element(index).begin + 1;
    qsizetype end = begin;
    while (!endsName(bytes.constData()[end]))
        ++end;
    return text(begin, end);
}

std::optional<XmlSource::Attribute> XmlSource::attribute(XmlTree::Index index, const QByteArray &name) const
{
    const char *const data = bytes.constData();
    qsizetype at = element(index).begin + 1 + this->name(index).size();
    for (;;) {
        Attribute found{at, 0, 0, 0};
        while (isBlank(data[at]))
            ++at;
        const qsizetype nameBegin = at;
        while (!endsName(data[at]))
            ++at;
        if (at == nameBegin)
            return std::nullopt;
        const QByteArray foundName = text(nameBegin, at);
        while (data[at] != '"' && data[at] != '\'')
            ++at;
        const char quote[] = {data[at], '\0'};
        found.valueBegin = at + 1;
        at = behind(at + 1, quote);
        found.valueEnd = at - 1;
        found.end = at;
        if (foundName == name)
            return found;
    }
}

std::vector<XmlSource::Piece> XmlSource::pieces(XmlTree::Index index) const
{
    std::vector<Piece> result;
    const Element &whole = element(index);
    int depth = 0;
    for (qsizetype at = whole.tagEnd; at < whole.contentEnd;) {
        if (bytes.constData()[at] == '<') {
            const qsizetype aside = behindAside(at);
            const qsizetype end = aside != at ? aside : behindTag(at);
            if (aside != at && startsWith(at, "<![CDATA[") && depth == 0)
                result.push_back({at, end, true});
            else if (aside == at && bytes.constData()[end - 2] != '/')
                depth += startsWith(at, "</") ? -1 : 1;
            at = end;
            continue;
        }
        qsizetype end = bytes.indexOf('<', static_cast<TESSEL::TextSize>(at));
        end = end < 0 || end > whole.contentEnd ? whole.contentEnd : end;
        if (depth == 0)
            result.push_back({at, end, false});
        at = end;
    }
    return result;
}

} // namespace KORMAK::Inspection
