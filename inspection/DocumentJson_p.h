// What there is to tell about documents, as JSON for scripts.
#ifndef KORMAK_INSPECTION_DOCUMENTJSON_P_H
#define KORMAK_INSPECTION_DOCUMENTJSON_P_H

#include <inspection/DocumentKind_p.h>
#include <inspection/DocumentSays_p.h>
#include <inspection/FieldDiff_p.h>
#include <inspection/FindingData_p.h>
#include <inspection/Json_p.h>

#include <QByteArray>
#include <QString>
#include <QStringView>

#include <optional>
#include <vector>

namespace KORMAK::Inspection {

/// An object of a \a type in a line of its own, with the members that \a write adds.
template <class Write>
[[nodiscard]] QByteArray jsonLine(QStringView type, Write write)
{
    JsonWriter json(JsonWriter::Layout::OneLine);
    json.beginObject();
    json.member(u"type", jsonText(type));
    write(json);
    json.endObject();
    return json.text().toUtf8() + '\n';
}

[[nodiscard]] QStringView nameOf(Severity severity);

/// A line about one finding in the document called \a file.
[[nodiscard]] QByteArray findingJson(const QString &file, const FindingData &finding,
                                     const std::optional<TextPosition> &position);

/// The line that sums up the findings of a document; \a kind is null when it is not known.
[[nodiscard]] QByteArray fileJson(const QString &file, QStringView status, const DocumentKind *kind,
                                  bool isComplete, qsizetype findings);

/// The kind, the state and the fields of \a object, and what the document \a says of them. \a rejection: why
/// the document is refused that it was read from; nothing when it is not. \a shown: of the same kind, whose
/// fields stand there in place of those of the object, and of which \a says tells; null: they do.
[[nodiscard]] QString fieldsJson(const DocumentKind &kind, const TESSEL::ITesselObject &object,
                                 const DocumentSays &says,
                                 const std::optional<QString> &rejection = std::nullopt,
                                 const TESSEL::ITesselObject *shown = nullptr);

/// \a areEqualToLibrary: by the operator of the class.
[[nodiscard]] QString differencesJson(const DocumentKind &kind,
                                      const std::vector<FieldDifference> &differences,
                                      bool areEqualToLibrary);

} // namespace KORMAK::Inspection

#endif
