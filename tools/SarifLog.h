// Findings as a log in SARIF 2.1.0, which code hosts and editors read. It is written in parts: its begin,
// results with commas between them, its end.
#ifndef KORMAK_TOOLS_SARIFLOG_H
#define KORMAK_TOOLS_SARIFLOG_H

#include <inspection/FindingData_p.h>
#include <tools/Command.h>

#include <QByteArray>
#include <QString>

#include <optional>

namespace SarifLog {

[[nodiscard]] QByteArray begin();
/// A finding in the file \a path. Lines and columns count characters.
[[nodiscard]] QByteArray result(const QString &path, const KORMAK::Inspection::FindingData &finding,
                                const std::optional<KORMAK::Inspection::TextPosition> &position);
[[nodiscard]] QByteArray end(ExitStatus status);

} // namespace SarifLog

#endif
