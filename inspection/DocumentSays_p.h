// What a document says of a field where the library does not understand that: "1.5 MHz", which reads as 0.
// Digits beyond the precision of a number are no such difference.
#ifndef KORMAK_INSPECTION_DOCUMENTSAYS_P_H
#define KORMAK_INSPECTION_DOCUMENTSAYS_P_H

#include <inspection/DocumentKind_p.h>
#include <inspection/FieldTable_p.h>
#include <inspection/XmlTree_p.h>

#include <QString>

#include <map>
#include <utility>
#include <vector>

namespace KORMAK::Inspection {

class DocumentSays {
public:
    struct Saying {
        QString path; ///< of the field
        QString text; ///< of its element or attribute, and of all that stands in that
        bool breaksOff = false; ///< the document ends in it
    };

    /// Of an object that was not read from a document.
    DocumentSays() = default;
    /// Of the \a object of \a kind, which was read from \a tree.
    DocumentSays(const DocumentKind &kind, const TESSEL::ITesselObject &object, const XmlTree &tree);

    /// In the order of the fields.
    [[nodiscard]] const std::vector<Saying> &all() const noexcept { return sayings; }
    /// Of the field that is the \a row of \a object; null when the document says what is understood.
    [[nodiscard]] const Saying *of(const FieldRow &row, const void *object) const;
    /// Whether there is something to tell of the field, or of one of the objects that it is made of.
    [[nodiscard]] bool concern(const FieldRow &row, const void *object) const;

private:
    using Place = std::pair<const FieldRow *, const void *>;
    friend class SayingWalk;

    std::vector<Saying> sayings;
    std::map<Place, std::size_t> places; ///< of fields, and of those that such a field is in
};

} // namespace KORMAK::Inspection

#endif
