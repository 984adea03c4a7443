// The kinds of document that the tool knows. A new kind is one row of the table, with the table of
// its fields and its form.
#ifndef KORMAK_TOOLS_DOCUMENTKIND_H
#define KORMAK_TOOLS_DOCUMENTKIND_H

#include <tools/Field.h>
#include <tools/Finding.h>
#include <tools/XmlLosses.h>
#include <tools/XmlTree.h>

#include <QStringList>
#include <QStringView>

#include <memory>

namespace TESSEL {
class ITesselObject;
}

struct ObjectForm;

struct DocumentKind {
    using Examination = Findings (*)(const TESSEL::ITesselObject &document, const XmlTree &tree);

    QStringView rootElement; ///< tells the kind of a document, and is how people call it
    std::unique_ptr<TESSEL::ITesselObject> (*create)();
    const FieldTable *fields;
    /// What the rows of the table take for \a document.
    const void *(*address)(const TESSEL::ITesselObject &document);
    /// By the operator of the class. The documents are of this kind.
    bool (*areEqual)(const TESSEL::ITesselObject &a, const TESSEL::ITesselObject &b);
    /// What keeps a document from being written that passes Check() but is not complete.
    QStringList (*missing)(const TESSEL::ITesselObject &document);
    const ObjectForm &(*form)(const XmlTree &tree); ///< how the document should be written
    Examination lint = nullptr; ///< what is suspicious about a document that is accepted; null: nothing
    Examination obstacles = nullptr; ///< what keeps a document from being rewritten; null: nothing special
    XmlDefaults defaults = {}; ///< what a rewritten document need not say
};

/// Null when there is none.
[[nodiscard]] const DocumentKind *findDocumentKind(QStringView rootElement);

[[nodiscard]] QStringList documentKindNames();

#endif
