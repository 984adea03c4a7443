// Changes texts, attributes and elements of an XML document in its bytes. What is added is laid out as what
// stands around it.
#ifndef KORMAK_INSPECTION_XMLEDITOR_P_H
#define KORMAK_INSPECTION_XMLEDITOR_P_H

#include <inspection/TextPatch_p.h>
#include <inspection/XmlSource_p.h>
#include <inspection/XmlTree_p.h>

#include <QByteArray>
#include <QString>

#include <map>
#include <vector>

namespace KORMAK::Inspection {

class XmlEditor {
public:
    using Index = XmlTree::Index;

    /// An element of another document, to be copied, or one with a text.
    struct NewElement {
        const XmlSource *source = nullptr; ///< null: it has a text
        const XmlTree *tree = nullptr;
        Index index = XmlTree::None;
        QString name = {}; ///< without a prefix
        QString text = {};
    };

    XmlEditor(const XmlTree &xmlTree, const XmlSource &xmlSource);

    void setText(Index element, const QString &text);
    void setAttribute(Index element, const QString &name, const QString &text);
    /// Behind the attribute \a previous, or behind the name of the element when that is empty.
    void addAttribute(Index element, const QString &name, const QString &text, const QString &previous);
    /// Behind the child \a previous and the comments that follow it in its line, or before all children when
    /// that is None; those at one place in the order of \a order.
    void addElement(Index parent, Index previous, int order, const NewElement &added);
    /// With the line that it stands on alone, or with others that are removed; a comment behind it stays.
    void removeElement(Index element);
    void removeAttribute(Index element, const QString &name);
    void renameAttribute(Index element, const QString &name, const QString &newName);
    /// The name in both tags, but for its prefix.
    void rename(Index element, const QString &name);

    /// All changes.
    [[nodiscard]] std::vector<TextPatch> patches() const;

private:
    struct Layout {
        QByteArray lineEnd; ///< empty: all stands in one line
        QByteArray parent; ///< the indentation of the parent
        QByteArray child;
        QByteArray unit; ///< what a level is indented by
    };
    struct Addition {
        int order;
        NewElement element;
    };

    /// What stands before the element in its line, when that is blank; nothing when it is not.
    [[nodiscard]] std::optional<QByteArray> indentation(Index element) const;
    [[nodiscard]] qsizetype behindBlanks(qsizetype at) const;
    [[nodiscard]] bool isLineEnd(qsizetype at) const;
    /// Whether nothing but the end of an element stands behind \a at in its line.
    [[nodiscard]] bool isLineOver(qsizetype at) const;
    /// The end of the line behind \a at and comments; nothing when anything else is there.
    [[nodiscard]] std::optional<qsizetype> endOfLine(qsizetype at) const;
    [[nodiscard]] QByteArray lineEnd() const;
    [[nodiscard]] Layout layoutIn(Index parent) const;
    [[nodiscard]] QByteArray rendered(const NewElement &added, const QByteArray &prefix, const Layout &layout,
                                      const QByteArray &indent) const;
    [[nodiscard]] QByteArray copied(const XmlSource &from, const XmlTree &fromTree, Index index,
                                    const QByteArray &prefix, const Layout &layout,
                                    const QByteArray &indent) const;
    void addRemovalPatches(std::vector<TextPatch> &all) const;
    [[nodiscard]] TextPatch additionPatch(Index parent, Index previous,
                                          const std::vector<Addition> &additions) const;

    const XmlTree &tree;
    const XmlSource &source;
    std::vector<TextPatch> changes;
    std::vector<Index> removals;
    std::map<std::pair<Index, Index>, std::vector<Addition>> additions; ///< by parent and previous sibling
};

} // namespace KORMAK::Inspection

#endif
