#include "objectbase/ReadingBounds_p.h"

#include <objectbase/Constants_p.h>
#include <objectbase/Nesting_p.h>
#include <objectbase/QtCompat_p.h>

#include <QStringView>
#include <QXmlStreamReader>

#include <algorithm>
#include <iterator>
#include <type_traits>
#include <unordered_map>
#include <vector>

namespace TESSEL {

namespace {

[[maybe_unused]] constexpr auto LogLevels = LogLevelNames;

constexpr qint64 TooMany = qint64(1) << 60;

qint64 sum(qint64 a, qint64 b)
{
    return std::min(a + b, TooMany);
}

qint64 product(qint64 a, qint64 b)
{
    return b > 0 && a > TooMany / b ? TooMany : a * b;
}

/// Looks for the first character alone, which Qt does many characters at a time.
bool holds(QStringView text, QStringView word)
{
    const auto last = text.size() - word.size();
    for (auto at = text.indexOf(word.front()); at >= 0 && at <= last;
         at = text.indexOf(word.front(), at + 1)) {
        if (text[at + 1] == word[1] && text.mid(at).startsWith(word))
            return true;
    }
    return false;
}

/// Whether a tag could have more than \a most attributes. No tag holds a "<" but at its start, so that only
/// stretches without one that are long enough for so many are looked at.
template <class Text>
bool mayHaveMoreAttributes(Text text, qint64 most)
{
    using Unit = std::decay_t<decltype(text[0])>;
    using Place = decltype(text.size());
    const auto at = [text](qint64 place) { return text[static_cast<Place>(place)]; };
    const auto size = static_cast<qint64>(text.size());
    constexpr qint64 ShortestAttribute = 4; // a=""
    const qint64 shortestTag = product(ShortestAttribute, most + 1);
    qint64 begin = 0;
    while (begin <= size - shortestTag) {
        qint64 last = begin + shortestTag - 1;
        while (last >= begin && at(last) != Unit(u'<'))
            --last;
        if (last >= begin) {
            begin = last + 1;
            continue;
        }
        const auto end = std::find(text.begin() + begin + shortestTag, text.end(), Unit(u'<')) - text.begin();
        if (std::count(text.begin() + begin, text.begin() + end, Unit(u'=')) > most)
            return true;
        begin = end + 1;
    }
    return false;
}

bool isBlank(QChar c)
{
    return c == u' ' || c == u'\t' || c == u'\n' || c == u'\r';
}

bool isQuote(QChar c)
{
    return c == u'"' || c == u'\'';
}

/// A text and a place in it.
class Cursor {
public:
    explicit Cursor(QStringView source) : text(source) { }

    [[nodiscard]] bool atEnd() const { return place >= text.size(); }
    [[nodiscard]] QChar current() const { return atEnd() ? QChar() : text[place]; }
    [[nodiscard]] TextSize offset() const { return place; }
    [[nodiscard]] bool isAt(QStringView word) const { return text.mid(place).startsWith(word); }

    void advance(TextSize count = 1) { place = std::min(place + count, length()); }

    /// Behind the next \a word, or to the end.
    void skipBehind(QStringView word)
    {
        const auto found = text.indexOf(word, place);
        place = found < 0 ? length() : static_cast<TextSize>(found + word.size());
    }

    void skipBlanks()
    {
        while (!atEnd() && isBlank(current()))
            advance();
    }

    /// The characters up to the first for which \a ends is true.
    template <class Ends>
    QStringView takeUntil(Ends ends)
    {
        const TextSize begin = place;
        while (!atEnd() && !ends(current()))
            advance();
        return text.mid(begin, place - begin);
    }

    /// What stands between the quote that the cursor is on and the next one like it.
    QStringView takeLiteral()
    {
        const QChar quote = current();
        advance();
        const QStringView literal = takeUntil([quote](QChar c) { return c == quote; });
        advance();
        return literal;
    }

    /// The name in a reference, the cursor being on its first character; empty for one to a character.
    QStringView takeReference()
    {
        advance();
        const QStringView name = takeUntil([](QChar c) {
            return c == u';' || c == u'<' || c == u'&' || c == u'#' || isBlank(c) || isQuote(c);
        });
        if (current() != u';')
            return {};
        advance();
        return name;
    }

private:
    [[nodiscard]] TextSize length() const { return static_cast<TextSize>(text.size()); }

    QStringView text;
    TextSize place = 0;
};

/// The value of an entity: references to characters are resolved where it is declared.
QString entityValue(QStringView literal)
{
    QString value;
    for (Cursor cursor(literal); !cursor.atEnd();) {
        if (!cursor.isAt(u"&#")) {
            value += cursor.current();
            cursor.advance();
            continue;
        }
        cursor.advance(2);
        const bool isHexadecimal = cursor.current() == u'x';
        if (isHexadecimal)
            cursor.advance();
        const QString digits = cursor.takeUntil([](QChar c) { return c == u';' || c == u'&'; }).toString();
        cursor.advance();
        const uint code = digits.toUInt(nullptr, isHexadecimal ? 16 : 10);
        if (QChar::requiresSurrogates(code)) {
            value += QChar(QChar::highSurrogate(code));
            value += QChar(QChar::lowSurrogate(code));
        } else {
            value += QChar(static_cast<ushort>(code));
        }
    }
    return value;
}

/// Counts in the characters of a text what Qt would make of it, without making it.
class TextScan {
public:
    TextScan(const QString &document, const ReadingLimits &readingLimits)
        : text(document), limits(readingLimits),
          mostCharacters(std::max(limits.GetEntityCharacters(),
                                  product(std::max(limits.GetEntityFactor(), 0), document.size())))
    {
    }

    [[nodiscard]] std::optional<RefusedText> refusal()
    {
        while (!text.atEnd() && !refused) {
            if (text.current() == u'&') {
                const TextSize begin = text.offset();
                addReference(begin, text.takeReference());
            } else if (text.current() == u'<') {
                readMarkup();
            } else {
                text.advance();
            }
        }
        return refused;
    }

private:
    struct Entity {
        QString value;
        qint64 characters = 0; ///< that a reference puts in its place, with those of entities in it
        qint64 tags = 0; ///< among them
        bool isCounted = false;
        bool isOpen = false;
    };
    using Entities = std::unordered_map<QString, Entity>; // what is in it stays in its place

    /// A parameter entity whose declarations are being read, or the document type itself.
    struct Source {
        Cursor cursor;
        Entity *entity;
    };

    void refuse(RefusedText::Reason reason, qint64 offset, const QString &message)
    {
        if (!refused)
            refused = RefusedText{reason, message, offset};
    }

    void addCharacters(qint64 offset, qint64 count)
    {
        characters = sum(characters, count);
        if (characters > mostCharacters) {
            refuse(RefusedText::EntityCharacters, offset,
                   QStringLiteral("Entities stand for more than %1 characters.").arg(mostCharacters));
        }
    }

    void addReference(qint64 offset, QStringView name)
    {
        Entity *const entity = find(general, name);
        if (!entity)
            return;
        count(*entity);
        // Each element is looked up among all attributes that are declared, those that entities bring, too.
        addCharacters(offset, sum(entity->characters, product(entity->tags, declaredAttributes)));
    }

    static Entity *find(Entities &entities, QStringView name)
    {
        const auto entity = name.isEmpty() ? entities.end() : entities.find(name.toString());
        return entity == entities.end() ? nullptr : &entity->second;
    }

    /// The general entity that the next reference in \a cursor names, if it is declared.
    Entity *nextEntity(Cursor &cursor)
    {
        while (!cursor.atEnd()) {
            if (cursor.current() != u'&') {
                cursor.advance();
                continue;
            }
            if (Entity *const entity = find(general, cursor.takeReference()))
                return entity;
        }
        return nullptr;
    }

    /// Without recursion, since entities may refer to one another in a long chain.
    void count(Entity &entity)
    {
        std::vector<Source> open;
        const auto begin = [&open](Entity &next) {
            next.isOpen = true;
            next.characters = next.value.size();
            next.tags = std::count(next.value.cbegin(), next.value.cend(), QChar(u'<'));
            open.push_back({Cursor(next.value), &next});
        };
        const auto add = [](Entity &outer, const Entity &inner) {
            outer.characters = sum(outer.characters, inner.characters);
            outer.tags = sum(outer.tags, inner.tags);
        };
        if (!entity.isCounted)
            begin(entity);
        while (!open.empty()) {
            Entity &current = *open.back().entity;
            if (Entity *const inner = nextEntity(open.back().cursor)) {
                if (inner->isCounted)
                    add(current, *inner);
                else if (!inner->isOpen) // one that contains itself is an error for Qt
                    begin(*inner);
                continue;
            }
            current.isOpen = false;
            current.isCounted = true;
            open.pop_back();
            if (!open.empty())
                add(*open.back().entity, current);
        }
    }

    void readMarkup()
    {
        if (text.isAt(u"<!--"))
            text.skipBehind(u"-->");
        else if (text.isAt(u"<![CDATA["))
            text.skipBehind(u"]]>");
        else if (text.isAt(u"<?"))
            text.skipBehind(u"?>");
        else if (text.isAt(u"<!DOCTYPE"))
            readDocumentType();
        else
            readTag();
    }

    void readTag()
    {
        const TextSize begin = text.offset();
        const bool isEnd = text.isAt(u"</");
        qint64 attributes = 0;
        text.advance();
        while (!text.atEnd() && text.current() != u'>' && text.current() != u'<') {
            if (isQuote(text.current())) {
                const TextSize literal = text.offset();
                addReferences(literal, text.takeLiteral());
                continue;
            }
            attributes += text.current() == u'=' ? 1 : 0;
            text.advance();
        }
        if (!isEnd)
            addCharacters(begin, declaredAttributes);
        if (attributes > limits.GetAttributes()) {
            refuse(RefusedText::Attributes, begin,
                   QStringLiteral("An element has more than %1 attributes.").arg(limits.GetAttributes()));
        }
    }

    void addReferences(qint64 offset, QStringView literal)
    {
        for (Cursor cursor(literal); !cursor.atEnd();) {
            if (cursor.current() == u'&')
                addReference(offset, cursor.takeReference());
            else
                cursor.advance();
        }
    }

    void readDocumentType()
    {
        text.advance();
        while (!text.atEnd() && text.current() != u'>' && !refused) {
            if (isQuote(text.current()))
                (void)text.takeLiteral();
            else if (text.current() == u'[')
                readDeclarations();
            else
                text.advance();
        }
    }

    /// Up to the "]" that ends them.
    void readDeclarations()
    {
        text.advance();
        std::vector<Source> open;
        while (!refused) {
            Cursor &cursor = open.empty() ? text : open.back().cursor;
            if (cursor.atEnd()) {
                if (open.empty())
                    return;
                open.back().entity->isOpen = false;
                open.pop_back();
            } else if (cursor.current() == u'%') {
                Entity *const entity = find(parameter, cursor.takeReference());
                if (!entity || entity->isOpen)
                    continue;
                addCharacters(text.offset(), entity->value.size());
                entity->isOpen = true;
                open.push_back({Cursor(entity->value), entity});
            } else if (isBlank(cursor.current())) {
                cursor.skipBlanks();
            } else if (open.empty() && cursor.current() == u']') {
                return;
            } else {
                readDeclaration(cursor, !open.empty());
            }
        }
    }

    void readDeclaration(Cursor &cursor, bool isInEntity)
    {
        constexpr qint64 SizeOfDeclaration = 100; // what it takes is much more than its characters
        const bool isEntity = cursor.isAt(u"<!ENTITY");
        const bool isAttributeList = cursor.isAt(u"<!ATTLIST");
        if (isInEntity && (isEntity || isAttributeList))
            addCharacters(text.offset(), SizeOfDeclaration);
        if (cursor.isAt(u"<!--"))
            cursor.skipBehind(u"-->");
        else if (cursor.isAt(u"<?"))
            cursor.skipBehind(u"?>");
        else if (isEntity)
            readEntity(cursor);
        else if (isAttributeList)
            readAttributeList(cursor);
        else if (cursor.isAt(u"<!"))
            skipDeclaration(cursor);
        else
            cursor.advance();
    }

    static void skipDeclaration(Cursor &cursor)
    {
        while (!cursor.atEnd() && cursor.current() != u'>') {
            if (isQuote(cursor.current()))
                (void)cursor.takeLiteral();
            else
                cursor.advance();
        }
        cursor.advance();
    }

    void readEntity(Cursor &cursor)
    {
        constexpr QStringView Keyword = u"<!ENTITY";
        cursor.advance(static_cast<TextSize>(Keyword.size()));
        cursor.skipBlanks();
        const bool isParameter = cursor.current() == u'%';
        if (isParameter)
            cursor.advance();
        cursor.skipBlanks();
        const QStringView name =
            cursor.takeUntil([](QChar c) { return isBlank(c) || isQuote(c) || c == u'>'; });
        cursor.skipBlanks();
        if (isQuote(cursor.current())) {
            const QStringView literal = cursor.takeLiteral();
            constexpr QStringView Predefined[] = {u"lt", u"gt", u"amp", u"quot", u"apos"};
            const bool isPredefined =
                std::find(std::begin(Predefined), std::end(Predefined), name) != std::end(Predefined);
            if (isParameter || !isPredefined) { // the first declaration counts
                Entity &entity = (isParameter ? parameter : general)[name.toString()];
                if (entity.value.isNull())
                    entity.value = entityValue(literal);
            }
        }
        skipDeclaration(cursor);
    }

    void readAttributeList(Cursor &cursor)
    {
        while (!cursor.atEnd() && cursor.current() != u'>') {
            // Each ends with a default or a word that begins with "#", and some with both.
            if (isQuote(cursor.current())) {
                ++declaredAttributes;
                const TextSize place = text.offset();
                addReferences(place, cursor.takeLiteral());
                continue;
            }
            if (cursor.current() == u'#' && !cursor.isAt(u"#FIXED"))
                ++declaredAttributes;
            cursor.advance();
        }
        cursor.advance();
        if (declaredAttributes > limits.GetAttributes()) {
            refuse(RefusedText::Attributes, text.offset(),
                   QStringLiteral("The document type declares more than %1 attributes.")
                       .arg(limits.GetAttributes()));
        }
    }

    Cursor text;
    ReadingLimits limits;
    qint64 mostCharacters;
    qint64 characters = 0;
    qint64 declaredAttributes = 0;
    Entities general;
    Entities parameter;
    std::optional<RefusedText> refused;
};

bool declaresNamespace(const QXmlStreamAttribute &attribute)
{
    const QStringView name = attribute.qualifiedName();
    return name.startsWith(QStringView(u"xmlns")) && (name.size() == 5 || name[5] == u':');
}

/// Whether a reader that processes namespaces reads the first \a tokens.
bool isReadWithNamespaces(const QString &text, qint64 tokens)
{
    QXmlStreamReader reader(text);
    for (qint64 i = 0; i < tokens && !reader.atEnd(); ++i)
        reader.readNext();
    return !reader.hasError();
}

/// Without its namespaces Qt's reader takes declarations for attributes, of which it allows none twice.
std::optional<RefusedText> refusalOfTokens(const QString &text, const ReadingLimits &limits)
{
    QXmlStreamReader reader(text);
    reader.setNamespaceProcessing(false);
    std::vector<qint64> declared; // namespaces, in each of the elements that are open
    qint64 inScope = 0;
    qint64 tokens = 0;
    for (; !reader.atEnd(); ++tokens) {
        const auto token = reader.readNext();
        if (token == QXmlStreamReader::StartElement) {
            const QXmlStreamAttributes attributes = reader.attributes();
            if (attributes.size() + inScope > limits.GetAttributes()) {
                return RefusedText{
                    RefusedText::Attributes,
                    QStringLiteral("An element has more than %1 attributes.").arg(limits.GetAttributes()),
                    reader.characterOffset()};
            }
            declared.push_back(std::count_if(attributes.begin(), attributes.end(), declaresNamespace));
            inScope += declared.back();
            if (static_cast<qint64>(declared.size()) > limits.GetDepth()) {
                return RefusedText{RefusedText::Depth, depthMessage(limits.GetDepth()),
                                   reader.characterOffset()};
            }
        } else if (token == QXmlStreamReader::EndElement) {
            inScope -= declared.back();
            declared.pop_back();
        }
    }
    if (reader.hasError() && isReadWithNamespaces(text, tokens)) {
        return RefusedText{RefusedText::NamespaceDeclaredTwice,
                           QStringLiteral("A namespace is declared twice in one element."),
                           reader.characterOffset()};
    }
    return std::nullopt;
}

} // namespace

std::optional<RefusedText> refusalOf(const QString &text, const ReadingLimits &limits)
{
    const bool hasDocumentType = holds(text, u"!DOCTYPE");
    if (hasDocumentType || mayHaveMoreAttributes(QStringView(text), std::max(limits.GetAttributes(), 0))) {
        if (auto refusal = TextScan(text, limits).refusal())
            return refusal;
    }
    if (hasDocumentType || holds(text, u"xmlns"))
        return refusalOfTokens(text, limits);
    return std::nullopt;
}

bool mayBeRefused(std::string_view utf8, const ReadingLimits &limits)
{
    const auto isThere = [utf8](std::string_view word) { return utf8.find(word) != std::string_view::npos; };
    return isThere("!DOCTYPE") || isThere("xmlns")
        || mayHaveMoreAttributes(utf8, std::max(limits.GetAttributes(), 0)); // in bytes no tag is shorter
}

} // namespace TESSEL
