// The kinds of document that the tool knows. A new kind is one row of the table, with the table of
// its fields and its form.
#ifndef KORMAK_INSPECTION_DOCUMENTKIND_P_H
#define KORMAK_INSPECTION_DOCUMENTKIND_P_H

#include <inspection/FieldTable_p.h>
#include <inspection/FindingData_p.h>
#include <inspection/XmlLosses_p.h>
#include <inspection/XmlTree_p.h>

#include <QStringList>
#include <QStringView>

#include <memory>

namespace TESSEL {
class ITesselObject;
}

namespace KORMAK::Inspection {

struct DocumentKind {
    using Examination = Findings (*)(const TESSEL::ITesselObject &document, const XmlTree &tree);

    QStringView rootElement; ///< tells the kind of a document, and is how people call it
    std::unique_ptr<TESSEL::ITesselObject> (*create)();
    /// Whether \a object is of the class of the kind, or of one derived from it.
    bool (*isOf)(const TESSEL::ITesselObject &object);
    std::unique_ptr<TESSEL::ITesselObject> (*copy)(const TESSEL::ITesselObject &document);
    const TESSEL::ObjectTable &(*table)();
    /// What the rows of the table take for \a document.
    const void *(*address)(const TESSEL::ITesselObject &document);
    /// By the operator of the class. The documents are of this kind.
    bool (*areEqual)(const TESSEL::ITesselObject &a, const TESSEL::ITesselObject &b);
    /// What keeps a document from being written that passes Check() but is not complete.
    QStringList (*missing)(const TESSEL::ITesselObject &document);
    Examination lint = nullptr; ///< what is suspicious about a document that is accepted; null: nothing
    Examination blockers = nullptr; ///< what keeps a document from being rewritten; null: nothing special

    [[nodiscard]] const FieldTable &fields() const { return fieldsOf(table()); }
    /// What a rewritten document need not say.
    [[nodiscard]] XmlDefaults defaults() const;
    /// Where the rows of the table may write to.
    [[nodiscard]] void *variableAddress(TESSEL::ITesselObject &document) const
    {
        return const_cast<void *>(address(document)); // the document is not const
    }
};

/// Null when there is none.
[[nodiscard]] const DocumentKind *findDocumentKind(QStringView rootElement);

/// Null when the class of \a object belongs to none.
[[nodiscard]] const DocumentKind *documentKindOf(const TESSEL::ITesselObject &object);

[[nodiscard]] QStringList documentKindNames();

} // namespace KORMAK::Inspection

#endif
