// The fields that a table is made of, by their names: what a column holds, a filter asks for, rows are sorted
// by.
#ifndef KORMAK_TOOLS_TABLEFIELDS_H
#define KORMAK_TOOLS_TABLEFIELDS_H

#include <inspection/DocumentKind_p.h>
#include <inspection/FieldTable_p.h>

#include <QString>
#include <QStringList>

#include <optional>
#include <vector>

namespace Table {

/// What a field holds in a row.
struct Cell {
    const KORMAK::Inspection::TextType *type = nullptr; ///< null: the row has no such field
    KORMAK::Inspection::FieldValue value = {};

    [[nodiscard]] bool isSet() const { return KORMAK::Inspection::isSet(value); }
    /// As Field::GetText() says it.
    [[nodiscard]] QString text() const;
};

/// What a row is about: a document, or a part of one.
struct Subject {
    QString file;
    const KORMAK::Inspection::DocumentKind *kind;
    bool isComplete;
    const void *document; ///< as its table of fields takes it
    const KORMAK::Inspection::FieldTable *partTable = nullptr; ///< null: it is about the document as a whole
    const void *part = nullptr;
};

/// What there can be a row for each of, in place of one for each document: "Parameter".
[[nodiscard]] QStringList partNames();

/// The parts called \a part in a document of the \a kind, or the document itself if it is one; nothing when
/// there are none in documents of that kind.
struct Parts {
    const KORMAK::Inspection::FieldTable *table;
    std::vector<const void *> all;
};
[[nodiscard]] std::optional<Parts> partsOf(const KORMAK::Inspection::DocumentKind &kind, const void *document,
                                           const QString &part);

class FieldName {
public:
    /// The field called \a name of the part, or of the document, or one of "file", "kind" and "complete". \a
    /// part: what there is a row for each of; empty: documents. \throws UsageError when no document has it
    FieldName(QString name, QString part);

    [[nodiscard]] const QString &name() const noexcept { return text; }
    /// Of what it may hold, in any kind of document.
    [[nodiscard]] const std::vector<const KORMAK::Inspection::TextType *> &types() const noexcept
    {
        return allTypes;
    }
    [[nodiscard]] bool isFile() const { return text == QStringView(u"file"); }
    [[nodiscard]] bool isKind() const { return text == QStringView(u"kind"); }

    [[nodiscard]] Cell in(const Subject &subject) const;
    /// Whether \a path, of a finding in a document of the \a kind, is that of the field or of what it is in.
    [[nodiscard]] bool isWithin(const QString &path, const KORMAK::Inspection::DocumentKind &kind) const;

private:
    struct Step {
        QString key;
        bool hasBracket = false;
        QString bracketKey = {};
    };

    void readSteps();
    [[nodiscard]] QString joinedKeys() const;

    QString text;
    QString partName;
    std::vector<Step> steps; ///< none: it is no field of documents
    bool isOfPart = false;
    std::vector<const KORMAK::Inspection::TextType *> allTypes;

    friend class FieldSearch;
};

/// Where the name of a field ends that begins at \a begin of \a text: at its end, or at one of the characters
/// \a ends outside of brackets.
[[nodiscard]] int endOfName(const QString &text, int begin, const QString &ends);

/// The fields that \a names are, separated by commas. \throws UsageError
[[nodiscard]] std::vector<FieldName> fieldsCalled(const QString &names, const QString &part);

/// File, kind, and every field that documents of the \a kind may have to say to be complete; of parts, the
/// file and every such field of them.
[[nodiscard]] std::vector<FieldName> usualFields(const KORMAK::Inspection::DocumentKind &kind,
                                                 const QString &part);

} // namespace Table

#endif
