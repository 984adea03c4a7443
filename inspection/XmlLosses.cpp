#include "inspection/XmlLosses_p.h"

#include <inspection/QuotedText_p.h>

#include <QHash>
#include <QPair>

#include <algorithm>
#include <cmath>
#include <optional>

namespace KORMAK::Inspection {

namespace {

std::optional<qint64> asInteger(const QString &text)
{
    bool ok = false;
    const qint64 number = text.toLongLong(&ok);
    return ok ? std::optional(number) : std::nullopt;
}

std::optional<double> asDouble(const QString &text)
{
    bool ok = false;
    const double number = text.toDouble(&ok);
    return ok ? std::optional(number) : std::nullopt;
}

/// Exact, although not every 64-bit integer is a double.
bool isSame(qint64 integer, double number)
{
    constexpr double Limit = 9223372036854775808.0;
    return number >= -Limit && number < Limit && number == std::floor(number)
        && static_cast<qint64>(number) == integer;
}

bool isSame(double a, double b)
{
    return a == b || (std::isnan(a) && std::isnan(b));
}

bool isSameNumber(const QString &a, const QString &b)
{
    const auto integerA = asInteger(a);
    const auto integerB = asInteger(b);
    if (integerA && integerB)
        return integerA == integerB;
    const auto doubleA = asDouble(a);
    const auto doubleB = asDouble(b);
    if (!doubleA || !doubleB)
        return false;
    if (integerA)
        return isSame(*integerA, *doubleB);
    return integerB ? isSame(*integerB, *doubleA) : isSame(*doubleA, *doubleB);
}

bool saysSame(const QString &a, const QString &b)
{
    return a == b || isSameNumber(a, b);
}

QString kindName(XmlTree::Aside::Kind kind)
{
    switch (kind) {
    case XmlTree::Aside::Kind::Comment:
        return QStringLiteral("the comment");
    case XmlTree::Aside::Kind::Instruction:
        return QStringLiteral("the processing instruction");
    default:
        return QStringLiteral("the document type");
    }
}

class LossFinder {
public:
    LossFinder(const XmlTree &originalTree, const XmlTree &rewrittenTree, const XmlDefaults &defaultRows)
        : original(originalTree), rewritten(rewrittenTree), defaults(defaultRows)
    {
    }

    std::vector<XmlLoss> find()
    {
        if (original.hasRoot())
            compareRoots();
        loseAsides();
        std::stable_sort(losses.begin(), losses.end(),
                         [](const XmlLoss &a, const XmlLoss &b) { return a.offset < b.offset; });
        return std::move(losses);
    }

private:
    using Index = XmlTree::Index;
    /// Name and unique name.
    using Key = QPair<QString, QString>;

    static Key keyOf(const XmlTree &tree, Index index)
    {
        return {tree.name(index), tree.attribute(index, UniqueNameAttribute).value_or(QString())};
    }

    void compareRoots()
    {
        if (rewritten.hasRoot() && original.name(XmlTree::Root) == rewritten.name(XmlTree::Root))
            compare(XmlTree::Root, XmlTree::Root);
        else
            loseElement(XmlTree::Root);
    }

    /// As deep as both documents go, so no deeper than the library writes.
    void compare(Index was, Index willBe)
    {
        if (original.hasText(was)) {
            const QString text = original.text(was);
            const QString instead = rewritten.text(willBe);
            if (!saysSame(text, instead))
                lose(was, QString(), text, instead);
        }
        compareAttributes(was, willBe);
        compareChildren(was, willBe);
    }

    void compareAttributes(Index was, Index willBe)
    {
        for (const XmlTree::Attribute &attribute : original.attributes(was)) {
            const auto counterpart = rewritten.attribute(willBe, attribute.name);
            const QString place = QStringLiteral("/@") + attribute.name;
            if (!counterpart && !isDefault(original.name(was), attribute.name, attribute.value))
                lose(was, place, attribute.value, std::nullopt);
            else if (counterpart && !saysSame(attribute.value, *counterpart))
                lose(was, place, attribute.value, counterpart);
        }
    }

    /// Elements that stand in one order in both need not be looked for.
    void compareChildren(Index was, Index willBe)
    {
        Index child = original.firstChild(was);
        Index counterpart = rewritten.firstChild(willBe);
        while (child != XmlTree::None && counterpart != XmlTree::None
               && keyOf(original, child) == keyOf(rewritten, counterpart)) {
            compare(child, counterpart);
            child = original.nextSibling(child);
            counterpart = rewritten.nextSibling(counterpart);
        }
        if (child != XmlTree::None)
            compareSiblings(child, counterpart);
    }

    void compareSiblings(Index was, Index willBe)
    {
        QHash<Key, std::vector<Index>> counterparts;
        for (Index i = willBe; i != XmlTree::None; i = rewritten.nextSibling(i))
            counterparts[keyOf(rewritten, i)].push_back(i);
        QHash<Key, std::size_t> seen;
        for (Index i = was; i != XmlTree::None; i = original.nextSibling(i)) {
            const Key key = keyOf(original, i);
            const std::size_t number = seen[key]++;
            const auto found = counterparts.constFind(key);
            if (found != counterparts.constEnd() && number < found->size())
                compare(i, (*found)[number]);
            else
                loseElement(i);
        }
    }

    void lose(Index was, const QString &place, const QString &text, const std::optional<QString> &instead)
    {
        const QString outcome = instead ? quoted(*instead) : QStringLiteral("missing");
        add(original.offset(was), original.path(was) + place,
            QStringLiteral("was ") + quoted(text) + QStringLiteral(", would be ") + outcome);
    }

    void loseElement(Index was)
    {
        if (saysNothing(was))
            return;
        if (!original.hasChild(was))
            lose(was, QString(), original.text(was), std::nullopt);
        else
            add(original.offset(was), original.path(was),
                QStringLiteral("would be missing with all that is in it"));
    }

    [[nodiscard]] bool saysNothing(Index element) const
    {
        return !original.hasChild(element) && !original.hasAttributes(element)
            && (!original.hasText(element) || isDefault(original.name(element), {}, original.text(element)));
    }

    [[nodiscard]] bool isDefault(QStringView element, QStringView attribute, const QString &text) const
    {
        return std::any_of(defaults.begin(), defaults.end(), [&](const XmlDefault &row) {
            return row.element == element && row.attribute == attribute
                && saysSame(text, row.text.toString());
        });
    }

    void loseAsides()
    {
        for (const XmlTree::Aside &aside : original.allAsides()) {
            add(aside.offset, aside.parent == XmlTree::None ? QString() : original.path(aside.parent),
                kindName(aside.kind) + QLatin1Char(' ') + quoted(aside.text)
                    + QStringLiteral(" would be missing"),
                aside.kind == XmlTree::Aside::Kind::Comment);
        }
    }

    void add(qsizetype offset, const QString &path, const QString &message, bool isComment = false)
    {
        losses.push_back({offset, path, message, isComment});
    }

    const XmlTree &original;
    const XmlTree &rewritten;
    const XmlDefaults defaults;
    std::vector<XmlLoss> losses;
};

} // namespace

std::vector<XmlLoss> findLosses(const XmlTree &original, const XmlTree &rewritten,
                                const XmlDefaults &defaults)
{
    return LossFinder(original, rewritten, defaults).find();
}

} // namespace KORMAK::Inspection
