// Not installed. What a form shows of a document, line by line.
#ifndef KORMAK_WIDGETS_FIELDOUTLINE_P_H
#define KORMAK_WIDGETS_FIELDOUTLINE_P_H

#include <inspection/FieldNode.h>

#include <QHash>
#include <QSet>
#include <QString>
#include <QVector>

namespace KORMAK {

class Document;

namespace Widgets {

/// Which elements of long lists are shown: the first ones, and others a page at a time.
class ShownElements {
public:
    static constexpr int PageSize = 50;

    [[nodiscard]] bool contains(const QString &list, int index) const;
    /// \return it was not shown before
    bool add(const QString &list, int index);
    /// The elements of \a document that the field called \a path is in. \return one was not shown before
    bool addAround(const Document &document, const QString &path);
    void clear() { pages.clear(); }

private:
    QHash<QString, QSet<int>> pages; ///< beside the first, by the paths of their lists
};

struct OutlineLine {
    enum class Kind : qint32 {
        Heading, ///< of an object or of a list
        Element, ///< of an object in a list
        Value, ///< a field that can be set
        Map, ///< of an area
        More, ///< elements of a list that are not shown
    };

    Kind kind;
    FieldNode node;
    QString title = {};
    int count = 0; ///< of a list: how many elements there are, or are not shown
    int first = 0; ///< of those that are not shown
};

/// The lines of \a document. Of each list, the elements that are in \a shown.
class FieldOutline {
public:
    FieldOutline(const Document &document, const ShownElements &shown);

    [[nodiscard]] const QVector<OutlineLine> &lines() const noexcept { return all; }

private:
    void addBelow(const QString &path);
    void addGroup(const FieldNode &node);
    void addList(const FieldNode &node);

    const Document &document;
    const ShownElements &shown;
    QVector<OutlineLine> all;
};

/// Whether \a path is \a whole or in it.
[[nodiscard]] bool isWithin(const QString &path, const QString &whole);

} // namespace Widgets

} // namespace KORMAK

#endif
