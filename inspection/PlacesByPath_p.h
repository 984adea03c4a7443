// Where a document says what its fields hold.
#ifndef KORMAK_INSPECTION_PLACESBYPATH_P_H
#define KORMAK_INSPECTION_PLACESBYPATH_P_H

#include <inspection/DocumentKind_p.h>
#include <inspection/EditScope_p.h>
#include <inspection/XmlTree_p.h>

#include <QString>

#include <map>
#include <vector>

namespace KORMAK::Inspection {

struct FieldPlace {
    XmlTree::Index element; ///< it stands in, or it is
    const TESSEL::Row *row;
    const TESSEL::ObjectTable *table; ///< of what the row is, when that is an object; else null
    bool isAttribute = false;
};

class PlacesByPath {
public:
    /// What stands where it is not read.
    struct Unread {
        QString path; ///< of the field
        QString text;
        QString place; ///< the end of the path of a finding about it: "/@Mode"
        qsizetype offset; ///< of the element that it stands in
    };

    /// Of what is in the \a scope. \a object is what the document says.
    PlacesByPath(const XmlTree &tree, const DocumentKind &kind, const TESSEL::ITesselObject &object,
                 EditScope scope = {});

    /// All places of a field or of an object in the document, the last of which counts; the document itself
    /// has the path "". Null when there is none.
    [[nodiscard]] const std::vector<FieldPlace> *find(const QString &path) const;
    [[nodiscard]] const std::map<QString, std::vector<FieldPlace>> &all() const noexcept { return places; }
    /// Values in attributes that are only written, where an element is read, which may be there, and the
    /// types of parameters that have a block, but do not say so.
    [[nodiscard]] const std::vector<Unread> &unread() const noexcept { return unreadValues; }

private:
    void add(const TESSEL::ObjectTable &table, XmlTree::Index element, const QString &prefix);
    void addAttributes(const TESSEL::ObjectTable &table, XmlTree::Index element, const QString &prefix);
    void addChild(const TESSEL::ObjectTable &table, XmlTree::Index child, const QString &prefix);
    void forget(const QString &path);
    void forgetLists(const TESSEL::ObjectTable &table, const QString &prefix);
    void addUnread(const TESSEL::ObjectTable &table, XmlTree::Index element, const QString &prefix);

    const XmlTree &tree;
    const EditScope scope;
    std::map<QString, std::vector<FieldPlace>> places;
    std::map<QString, int> counts; ///< of the elements of lists, by the paths of the lists
    std::vector<Unread> unreadValues;
};

/// Whether elements of the row are read, be it only to be ignored.
[[nodiscard]] bool isRead(const TESSEL::Row &row);

/// The row by which a child element called \a name, without a prefix, is read; null when it is not.
[[nodiscard]] const TESSEL::Row *childRow(const TESSEL::ObjectTable &table, QStringView name);

} // namespace KORMAK::Inspection

#endif
