// In which encoding a file seems to be that is no text of a document, or says that it is.
#ifndef KORMAK_INSPECTION_TEXTENCODING_P_H
#define KORMAK_INSPECTION_TEXTENCODING_P_H

#include <inspection/FindingData_p.h>

#include <QByteArray>
#include <QString>

#include <optional>

namespace KORMAK::Inspection {

/// What \a bytes look like that are not UTF-8 from \a at on, and how to convert them, behind a semicolon;
/// empty when nothing can be told.
[[nodiscard]] QString likelyEncoding(const QByteArray &bytes, qsizetype at);

/// What there is to tell of a declaration that says another encoding than \a utf8 has, which reading goes by.
[[nodiscard]] std::optional<FindingData> otherEncodingDeclared(const QByteArray &utf8);

} // namespace KORMAK::Inspection

#endif
