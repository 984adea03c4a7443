// What would be lost if one XML document took the place of another: everything that the first says and the
// second does not. What the second says beyond the first is no loss, nor is the absence of what says nothing.
#ifndef KORMAK_TOOLS_XMLLOSSES_H
#define KORMAK_TOOLS_XMLLOSSES_H

#include <tools/XmlTree.h>

#include <QString>
#include <QStringView>

#include <cstddef>
#include <vector>

struct XmlLoss {
    qsizetype offset; ///< in the original
    QString message;
    bool isComment = false;
};

/// Something that says nothing by being there.
struct XmlDefault {
    QStringView element;
    QStringView attribute; ///< null: the text of the element
    QStringView text;
};

/// A view of a table.
class XmlDefaults {
public:
    constexpr XmlDefaults() = default;
    template <std::size_t Count>
    constexpr XmlDefaults(const XmlDefault (&rows)[Count]) : first(rows), last(rows + Count)
    {
    }

    [[nodiscard]] const XmlDefault *begin() const { return first; }
    [[nodiscard]] const XmlDefault *end() const { return last; }

private:
    const XmlDefault *first = nullptr;
    const XmlDefault *last = nullptr;
};

/// Elements are matched by name: those of one name in order or, where they have it, by the attribute
/// "UniqueName". Texts say the same when they are equal or the same number. An element without attributes,
/// children and text says nothing, nor do \a defaults. In the order of the original.
[[nodiscard]] std::vector<XmlLoss> findLosses(const XmlTree &original, const XmlTree &rewritten,
                                              const XmlDefaults &defaults = {});

#endif
