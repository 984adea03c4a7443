#include "fuzz/XmlMutations.h"

#include <objectbase/QtCompat_p.h>

#include <QString>

#include <algorithm>
#include <random>
#include <utility>
#include <vector>

namespace Fuzz {

namespace {

/// A stretch of a document.
struct Token {
    enum Kind { StartTag, EmptyTag, EndTag, Text, Other };

    Kind kind;
    int begin;
    int end;
};

int endOf(const QByteArray &xml, int begin, const char *closing)
{
    const auto at = xml.indexOf(closing, begin);
    return at < 0 ? static_cast<int>(xml.size()) : static_cast<int>(at) + static_cast<int>(qstrlen(closing));
}

Token tokenAt(const QByteArray &xml, int begin)
{
    const auto startsWith = [&xml, begin](const char *text) { return xml.mid(begin, 9).startsWith(text); };
    if (!startsWith("<")) {
        const auto at = xml.indexOf('<', begin);
        return {Token::Text, begin, at < 0 ? static_cast<int>(xml.size()) : static_cast<int>(at)};
    }
    if (startsWith("<!--"))
        return {Token::Other, begin, endOf(xml, begin, "-->")};
    if (startsWith("<![CDATA["))
        return {Token::Other, begin, endOf(xml, begin, "]]>")};
    if (startsWith("<?"))
        return {Token::Other, begin, endOf(xml, begin, "?>")};
    const int end = endOf(xml, begin, ">");
    if (startsWith("<!")) // up to the end of the internal subset, if there is one
        return {Token::Other, begin,
                xml.mid(begin, end - begin).contains('[') ? endOf(xml, begin, "]>") : end};
    if (startsWith("</"))
        return {Token::EndTag, begin, end};
    return {xml.mid(begin, end - begin).endsWith("/>") ? Token::EmptyTag : Token::StartTag, begin, end};
}

class Mutator {
public:
    Mutator(QByteArray document, unsigned int seed) : xml(std::move(document)), generator(seed + 1)
    {
        for (int at = 0; at < xml.size(); at = tokens.back().end)
            tokens.push_back(tokenAt(xml, at));
    }

    QByteArray result(XmlMutation mutation)
    {
        change(mutation);
        return xml;
    }

private:
    static bool isTag(const Token &token)
    {
        return token.kind == Token::StartTag || token.kind == Token::EmptyTag;
    }

    void change(XmlMutation mutation)
    {
        switch (mutation) {
        case XmlMutation::DeclareNamespace:
            return addToTag({" xmlns=\"urn:x\"", " xmlns:x=\"urn:x\"", " xmlns=\"\"", " xmlns:y=\"urn:y\""});
        case XmlMutation::AddPrefix:
            return addPrefix();
        case XmlMutation::AddDocumentType:
            return addDocumentType();
        case XmlMutation::ReferToEntity:
            return referToEntity();
        case XmlMutation::ReferToCharacter:
            return referToCharacter();
        case XmlMutation::WrapInCData:
            return changeText([](const QByteArray &text) { return "<![CDATA[" + text + "]]>"; });
        case XmlMutation::AddComment:
            return addBetween({"<!-- -->", "<!--a-->", "<!--<b/>-->"});
        case XmlMutation::AddInstruction:
            return addBetween({"<?a?>", "<?a b?>", "<?xml-stylesheet href=\"a\"?>"});
        case XmlMutation::AddBlanks:
            return changeText([](const QByteArray &text) { return " \n" + text + "\t "; });
        case XmlMutation::AddDeclaration:
            return addDeclaration();
        case XmlMutation::AddByteOrderMark:
            xml.prepend("\xEF\xBB\xBF");
            return;
        case XmlMutation::Encode:
            return encode();
        case XmlMutation::RepeatElement:
            return changeElement([](const QByteArray &element) { return element + element; });
        case XmlMutation::RemoveElement:
            return changeElement([](const QByteArray &) { return QByteArray(); });
        case XmlMutation::WrapElement:
            return changeElement(
                [](const QByteArray &element) { return "<Unknown>" + element + "</Unknown>"; });
        case XmlMutation::AddAttribute:
            return addToTag(
                {" Unknown=\"a\"", " Version=\"1.0\"", " UniqueName=\"a\"", " Mode=\"ManualMode\""});
        case XmlMutation::RemoveAttribute:
            return removeAttribute();
        }
    }

    int below(std::size_t count) { return static_cast<int>(generator() % count); }

    QByteArray anyOf(const std::vector<QByteArray> &choices)
    {
        return choices[static_cast<std::size_t>(below(choices.size()))];
    }

    /// One of the tokens that \a isMeant chooses; their number when there is none.
    template <class Choice>
    std::size_t anyToken(Choice isMeant)
    {
        const auto count = std::count_if(tokens.begin(), tokens.end(), isMeant);
        int skipped = count > 0 ? below(static_cast<std::size_t>(count)) : 0;
        const auto found = std::find_if(tokens.begin(), tokens.end(),
                                        [&](const Token &token) { return isMeant(token) && skipped-- == 0; });
        return static_cast<std::size_t>(found - tokens.begin());
    }

    /// The end tag of the element that the token \a start begins; the number of tokens when there is none.
    [[nodiscard]] std::size_t closing(std::size_t start) const
    {
        int depth = 0;
        for (std::size_t i = start; i < tokens.size(); ++i) {
            depth += tokens[i].kind == Token::StartTag ? 1 : tokens[i].kind == Token::EndTag ? -1 : 0;
            if (depth <= 0)
                return i;
        }
        return tokens.size();
    }

    [[nodiscard]] QByteArray bytesOf(const Token &token) const
    {
        return xml.mid(token.begin, token.end - token.begin);
    }

    /// Behind the name of an element that \a token begins.
    [[nodiscard]] int endOfName(const Token &token) const
    {
        int at = token.begin + 1;
        while (at < token.end && !QByteArray(" \t\r\n/>").contains(xml.at(at)))
            ++at;
        return at;
    }

    void addToTag(const std::vector<QByteArray> &choices)
    {
        const std::size_t tag = anyToken(isTag);
        if (tag < tokens.size())
            xml.insert(endOfName(tokens[tag]), anyOf(choices));
    }

    void addPrefix()
    {
        const std::size_t tag = anyToken(isTag);
        const std::size_t end = tag < tokens.size() ? closing(tag) : tokens.size();
        if (end == tokens.size())
            return;
        if (end != tag)
            xml.insert(tokens[end].begin + 2, "p:");
        xml.insert(endOfName(tokens[tag]), " xmlns:p=\"urn:p\"");
        xml.insert(tokens[tag].begin + 1, "p:");
    }

    [[nodiscard]] bool hasDocumentType() const { return xml.contains("<!DOCTYPE"); }

    /// Behind the byte-order mark and the declaration, if they are there.
    [[nodiscard]] int startOfProlog() const
    {
        const int start = xml.startsWith("\xEF\xBB\xBF") ? 3 : 0;
        return xml.mid(start, 5) == "<?xml" ? endOf(xml, start, "?>") : start;
    }

    void addDocumentType()
    {
        if (hasDocumentType())
            return;
        xml.insert(startOfProlog(),
                   anyOf({"<!DOCTYPE a>", "<!DOCTYPE a [<!ENTITY b \"c\">]>",
                          R"(<!DOCTYPE a [<!ENTITY b "1"><!ENTITY d "&b;&b;">]>)",
                          "<!DOCTYPE a [<!ENTITY b \"<Unknown/>\">]>", "<!DOCTYPE a [<!ENTITY b \"&#60;\">]>",
                          "<!DOCTYPE a SYSTEM \"a.dtd\">", "<!DOCTYPE a [<!ENTITY b SYSTEM \"b.txt\">]>",
                          "<!DOCTYPE a [<!ATTLIST Job Unknown CDATA \"c\">]>"}));
    }

    void referToEntity()
    {
        QByteArray text;
        changeText([&text](const QByteArray &was) {
            text = was;
            return QByteArray("&b;");
        });
        if (!text.isEmpty() && !hasDocumentType())
            xml.insert(startOfProlog(),
                       "<!DOCTYPE a [<!ENTITY b \"" + text.replace('"', "&#34;").replace('%', "&#37;")
                           + "\">]>");
    }

    void referToCharacter()
    {
        changeText([this](const QByteArray &text) {
            const int at = below(static_cast<std::size_t>(text.size()));
            const auto c = static_cast<uchar>(text.at(at));
            const bool isPlain = c < 0x80 && c >= ' ' && !text.contains('&');
            return isPlain ? text.left(at) + "&#" + QByteArray::number(c) + ';' + text.mid(at + 1) : text;
        });
    }

    template <class Change>
    void changeText(Change change)
    {
        const std::size_t text = anyToken([this](const Token &token) {
            return token.kind == Token::Text && token.begin > 0 && token.end < xml.size()
                && !bytesOf(token).trimmed().isEmpty();
        });
        if (text < tokens.size())
            xml.replace(tokens[text].begin, tokens[text].end - tokens[text].begin,
                        change(bytesOf(tokens[text])));
    }

    /// Where something may stand that is no element: before the token of an element, or in the middle of a
    /// text.
    void addBetween(const std::vector<QByteArray> &choices)
    {
        const std::size_t token = anyToken([](const Token &candidate) {
            return candidate.kind != Token::Other && (candidate.kind != Token::Text || candidate.begin > 0);
        });
        if (token == tokens.size())
            return;
        const auto [kind, begin, end] = tokens[token];
        const bool canBeSplit = kind == Token::Text && !bytesOf(tokens[token]).contains('&');
        xml.insert(canBeSplit ? begin + below(static_cast<std::size_t>(end - begin)) : begin, anyOf(choices));
    }

    void addDeclaration()
    {
        const int start = xml.startsWith("\xEF\xBB\xBF") ? 3 : 0;
        xml.replace(
            start, startOfProlog() - start,
            anyOf({"<?xml version=\"1.0\"?>", R"(<?xml version="1.0" encoding="UTF-8"?>)",
                   R"(<?xml version="1.0" encoding="UTF-16"?>)",
                   R"(<?xml version="1.0" encoding="ISO-8859-1"?>)",
                   R"(<?xml version="1.0" encoding="unknown"?>)", R"(<?xml version="1.0" standalone="yes"?>)",
                   "<?xml version=\"1.1\"?>", "<?xml version=\"2.0\"?>", "<?xml?>"}));
    }

    void encode()
    {
        const QString text = QString::fromUtf8(xml);
        if (below(3) == 0) {
            xml = text.toLatin1();
            return;
        }
        const bool isBigEndian = below(2) == 0;
        QByteArray bytes;
        for (const QChar c : QChar(QChar::ByteOrderMark) + text) {
            const char units[] = {static_cast<char>(c.unicode() & 0xFF), static_cast<char>(c.unicode() >> 8)};
            bytes += units[isBigEndian ? 1 : 0];
            bytes += units[isBigEndian ? 0 : 1];
        }
        xml = bytes;
    }

    /// Any element but the root.
    template <class Change>
    void changeElement(Change change)
    {
        const auto root = std::find_if(tokens.begin(), tokens.end(), isTag);
        const std::size_t tag =
            anyToken([&](const Token &token) { return isTag(token) && &token != &*root; });
        const std::size_t end = tag < tokens.size() ? closing(tag) : tokens.size();
        if (end == tokens.size())
            return;
        const int begin = tokens[tag].begin;
        const int size = tokens[end].end - begin;
        xml.replace(begin, size, change(xml.mid(begin, size)));
    }

    void removeAttribute()
    {
        const std::size_t tag =
            anyToken([this](const Token &token) { return isTag(token) && bytesOf(token).contains('='); });
        if (tag == tokens.size())
            return;
        const int begin = endOfName(tokens[tag]);
        const int quote = endOf(xml, begin, "\"");
        xml.remove(begin, std::min(endOf(xml, quote, "\""), tokens[tag].end - 1) - begin);
    }

    QByteArray xml;
    std::vector<Token> tokens;
    std::minstd_rand generator;
};

} // namespace

bool keepsWellFormed(XmlMutation mutation)
{
    switch (mutation) {
    case XmlMutation::DeclareNamespace: // which may stand there already, as an attribute may
    case XmlMutation::AddAttribute:
    case XmlMutation::AddByteOrderMark:
    case XmlMutation::AddDocumentType: // as an external entity does in a document that is said to stand alone
    case XmlMutation::AddDeclaration:
    case XmlMutation::Encode:
        return false;
    default:
        return true;
    }
}

QByteArray mutated(const QByteArray &xml, XmlMutation mutation, unsigned int seed)
{
    return Mutator(xml, seed).result(mutation);
}

} // namespace Fuzz
