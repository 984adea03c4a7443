// Not installed. What keeps a text from being read although the XML reader of Qt would take it, found out
// before it does: what goes beyond the limits, and namespaces that are declared twice in one element.
// Ordinary texts are looked through for two words and long tags; only those with a document type or
// namespaces are read.
#ifndef TESSEL_READINGBOUNDS_P_H
#define TESSEL_READINGBOUNDS_P_H

#include <objectbase/objectbase_export.h>
#include <objectbase/ReadingLimits.h>

#include <QString>

#include <optional>
#include <string_view>

namespace TESSEL {

struct RefusedText {
    enum Reason { EntityCharacters, Attributes, Depth, NamespaceDeclaredTwice };

    Reason reason;
    QString message; ///< for people, as the messages of Qt's reader
    qint64 offset; ///< in characters: of the tag or the reference, or of where reading would end
};

/// Nothing when \a text may be read, be it well-formed or not. The depth of elements is told only where the
/// text has a document type or namespaces; elsewhere it is counted while reading.
[[nodiscard]] OBJECTBASE_EXPORT std::optional<RefusedText> refusalOf(const QString &text,
                                                                     const ReadingLimits &limits);

/// Whether refusalOf() has to look at the text that \a utf8 is; of what it need not, it says nothing.
[[nodiscard]] OBJECTBASE_EXPORT bool mayBeRefused(std::string_view utf8, const ReadingLimits &limits);

} // namespace TESSEL

#endif
