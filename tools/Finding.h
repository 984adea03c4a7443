// Something to tell about a place in a document.
#ifndef KORMAK_TOOLS_FINDING_H
#define KORMAK_TOOLS_FINDING_H

#include <QString>
#include <QStringList>
#include <QStringView>

#include <optional>
#include <vector>

enum class Severity {
    Warning,
    Error, ///< the library refuses the document for it
};

/// What kinds of findings there are, as scripts tell them apart.
namespace FindingId {
inline constexpr QStringView BadValue = u"bad-value"; ///< a text that does not say what belongs there
inline constexpr QStringView BeyondLimit = u"beyond-limit"; ///< more than a document may become
inline constexpr QStringView Encoding = u"encoding";
inline constexpr QStringView MisplacedElement = u"misplaced-element"; ///< an element within a text
inline constexpr QStringView MissingAttribute = u"missing-attribute";
inline constexpr QStringView MissingElement = u"missing-element";
inline constexpr QStringView NotWellFormed = u"not-well-formed";
inline constexpr QStringView Refused = u"refused"; ///< by the library, in its words
inline constexpr QStringView Repeated = u"repeated";
inline constexpr QStringView StrayText = u"stray-text";
inline constexpr QStringView Suspicious = u"suspicious";
inline constexpr QStringView UnknownAttribute = u"unknown-attribute";
inline constexpr QStringView UnknownElement = u"unknown-element";
inline constexpr QStringView UnknownKind = u"unknown-kind";
inline constexpr QStringView Unread = u"unread"; ///< known, but passed over
inline constexpr QStringView Unreadable = u"unreadable"; ///< the file
} // namespace FindingId

struct Finding {
    qsizetype offset; ///< in the text of the document
    QString message;
    QString path = {}; ///< of the element or attribute that it is about; empty: none
    QStringView id = FindingId::Suspicious;
    Severity severity = Severity::Warning;
    std::optional<QString> found = std::nullopt; ///< the text that is there
    QStringList allowed = {}; ///< the names that could be there
    QString complaint = {}; ///< what the library says when it refuses the document for this
};

using Findings = std::vector<Finding>;

#endif
