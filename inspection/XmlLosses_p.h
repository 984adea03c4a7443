// What would be lost if one XML document took the place of another: everything that the first says and the
// second does not. What the second says beyond the first is no loss, nor is the absence of what says nothing.
#ifndef KORMAK_INSPECTION_XMLLOSSES_P_H
#define KORMAK_INSPECTION_XMLLOSSES_P_H

#include <inspection/XmlTree_p.h>

#include <QString>
#include <QStringView>

#include <vector>

namespace KORMAK::Inspection {

struct XmlLoss {
    qsizetype offset; ///< in the original
    QString path; ///< of the element or attribute; empty: it stands outside of all
    QString message;
    bool isComment = false;
};

/// Something that says nothing by being there.
struct XmlDefault {
    QStringView element;
    QStringView attribute; ///< null: the text of the element
    QStringView text;
};

using XmlDefaults = std::vector<XmlDefault>;

/// Elements are matched by name: those of one name in order or, where they have it, by the attribute
/// "UniqueName". Texts say the same when they are equal or the same number. An element without attributes,
/// children and text says nothing, nor do \a defaults. In the order of the original.
[[nodiscard]] std::vector<XmlLoss> findLosses(const XmlTree &original, const XmlTree &rewritten,
                                              const XmlDefaults &defaults = {});

} // namespace KORMAK::Inspection

#endif
