// Findings as annotations of changes on GitHub: lines that its workflows read.
#ifndef KORMAK_TOOLS_GITHUBANNOTATION_H
#define KORMAK_TOOLS_GITHUBANNOTATION_H

#include <inspection/FindingData_p.h>

#include <QByteArray>
#include <QString>

#include <optional>

/// The line for a finding in the file \a path.
[[nodiscard]] QByteArray githubAnnotation(const QString &path, const KORMAK::Inspection::FindingData &finding,
                                          const std::optional<KORMAK::Inspection::TextPosition> &position);

#endif
