// The kinds of document that the tool knows. A new kind is one row of the table and its fieldsOf().
#ifndef KORMAK_TOOLS_DOCUMENTKIND_H
#define KORMAK_TOOLS_DOCUMENTKIND_H

#include <tools/Field.h>
#include <tools/Finding.h>
#include <tools/XmlLosses.h>
#include <tools/XmlTree.h>

#include <QStringList>
#include <QStringView>

#include <memory>
#include <vector>

namespace TESSEL {
class ITesselObject;
}

struct DocumentKind {
    using Examination = Findings (*)(const TESSEL::ITesselObject &document, const XmlTree &tree);

    QStringView rootElement; ///< tells the kind of a document, and is how people call it
    std::unique_ptr<TESSEL::ITesselObject> (*create)();
    std::vector<Field> (*fields)(const TESSEL::ITesselObject &document);
    Examination lint = nullptr; ///< what is suspicious about a document that is accepted; null: nothing
    Examination obstacles = nullptr; ///< what keeps a document from being rewritten; null: nothing special
    XmlDefaults defaults = {}; ///< what a rewritten document need not say
};

/// Null when there is none.
[[nodiscard]] const DocumentKind *findDocumentKind(QStringView rootElement);

[[nodiscard]] QStringList documentKindNames();

#endif
