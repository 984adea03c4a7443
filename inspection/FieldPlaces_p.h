// Where a document says what its fields hold, found as reading finds it: a block goes on to its end tag, and
// whatever stands in it counts.
#ifndef KORMAK_INSPECTION_FIELDPLACES_P_H
#define KORMAK_INSPECTION_FIELDPLACES_P_H

#include <inspection/DocumentKind_p.h>
#include <inspection/EditScope_p.h>
#include <inspection/XmlCursor_p.h>
#include <inspection/XmlTree_p.h>

#include <QString>
#include <QStringView>

#include <algorithm>
#include <map>
#include <vector>

namespace KORMAK::Inspection {

struct FieldPlace {
    XmlTree::Index element; ///< it stands in, or it is
    const TESSEL::Row *row;
    const TESSEL::ObjectTable *table; ///< of what the row is, when that is an object; else null
    bool isAttribute = false;
};

/// The places of an object, and of what is in it. Those of a list or map are in its elements.
struct PlaceNode {
    struct Field {
        QStringView name;
        FieldPlace place;
    };

    std::vector<FieldPlace> own = {};
    std::vector<Field> fields = {}; ///< that are values, in the order of the document
    std::map<QString, PlaceNode> inner = {}; ///< by the names of fields, in a list or map by "[KEY]"

    /// Null when there is none.
    [[nodiscard]] const PlaceNode *find(const QString &step) const;
    /// The place of a value that counts: the last one, but of an attribute that in the last element of the
    /// object. Null when there is none.
    [[nodiscard]] const FieldPlace *last(QStringView name) const;
    /// Does \a work with each place in the node.
    template <class Work>
    void each(const Work &work) const
    {
        std::for_each(own.begin(), own.end(), work);
        for (const Field &field : fields)
            work(field.place);
        for (const auto &[step, node] : inner)
            node.each(work);
    }
};

/// The path of the inner node that is called \a step in the one at \a path.
[[nodiscard]] QString joined(const QString &path, const QString &step);

class FieldPlaces {
public:
    /// What stands where it is not read.
    struct Unread {
        QString path; ///< of the field
        QString text;
        QString place; ///< the end of the path of a finding about it: "/@Mode"
        qsizetype offset; ///< of the element that it stands in
    };

    /// Of what is in the \a scope. \a object is what the document says.
    FieldPlaces(const XmlTree &tree, const DocumentKind &kind, const TESSEL::ITesselObject &object,
                EditScope scope = {});

    /// The document itself.
    [[nodiscard]] const PlaceNode &root() const noexcept { return document; }
    /// All places of a field or of an object, the last of which counts; the document itself has the path "".
    [[nodiscard]] std::vector<FieldPlace> find(const QString &path) const;
    /// Values in attributes that are only written, where an element is read, which may be there, and the
    /// types of parameters that have a block, but do not say so.
    [[nodiscard]] const std::vector<Unread> &unread() const noexcept { return unreadValues; }

private:
    [[nodiscard]] const PlaceNode *nodeAt(const QString &path) const;
    void addObject(PlaceNode &node, TESSEL::Row::Content content, const QString &path);
    void addAttributes(PlaceNode &node);
    void addElement(PlaceNode &around, const TESSEL::Row &row, const QString &aroundPath);
    void addUnread(const PlaceNode &node, const QString &path);

    const XmlTree &tree;
    XmlCursor cursor;
    const EditScope scope;
    PlaceNode document;
    std::vector<Unread> unreadValues;
};

/// Whether elements of the row are read, be it only to be ignored.
[[nodiscard]] bool isRead(const TESSEL::Row &row);

/// The row by which a child element called \a name, without a prefix, is read; null when it is not.
[[nodiscard]] const TESSEL::Row *childRow(const TESSEL::ObjectTable &table, QStringView name);

} // namespace KORMAK::Inspection

#endif
