// What a text in a document may say, and what the library makes of any other text.
#ifndef KORMAK_INSPECTION_DOCUMENTTEXTS_P_H
#define KORMAK_INSPECTION_DOCUMENTTEXTS_P_H

#include <objectbase/DocumentTable_p.h>

#include <QString>
#include <QStringList>
#include <QStringView>

namespace KORMAK::Inspection {

[[nodiscard]] bool isValid(const TESSEL::TextType &type, QStringView text);

/// What is wrong with a \a text that is not valid in \a row, and what it is read as.
[[nodiscard]] QString objectionTo(const TESSEL::Row &row, const QString &text);

/// The valid texts, where they can be listed.
[[nodiscard]] QStringList allowedTexts(const TESSEL::TextType &type);

} // namespace KORMAK::Inspection

#endif
