// What was probably meant by something that does not belong where it stands in a document, and what puts it
// right for certain.
#ifndef KORMAK_INSPECTION_REMEDY_P_H
#define KORMAK_INSPECTION_REMEDY_P_H

#include <inspection/FindingData_p.h>
#include <objectbase/DocumentTable_p.h>

#include <QString>
#include <QStringList>

#include <map>
#include <utility>

namespace KORMAK::Inspection {

/// What a text may be meant to be that is none of the names.
struct Guess {
    QStringList names; ///< that differ from it in case or by blanks around it; else those a letter away
    bool isCertain = false; ///< there is one, and it cannot be another name that is a letter away by intent
};
[[nodiscard]] Guess guessOf(const QString &text, const QStringList &names);
/// The only name that differs from \a text in nothing but case; null when there is none.
[[nodiscard]] QString nameInOtherCase(const QString &text, const QStringList &names);

/// As many of the names as people can take in at a glance.
struct NameExcerpt {
    QStringList names; ///< all of a few; else those that are most like the text
    int more = 0; ///< how many are left out
};
[[nodiscard]] NameExcerpt excerptOf(const QStringList &names, const QString &text);

/// What to ask behind a message: "; did you mean "Antenna"?". Empty without a name.
[[nodiscard]] QString question(const QStringList &names);

/// Says what texts of the \a type there are.
void allowTexts(FindingData &finding, const TESSEL::TextType &type);
/// Says what is allowed in place of the text that was found, and which of it was meant.
void suggestText(FindingData &finding, const TESSEL::TextType &type);

/// What suggestText() says. A document may say the same wrong name in thousands of places, for which it is
/// looked up once.
class TextSuggestions {
public:
    void add(FindingData &finding, const TESSEL::TextType &type);

private:
    using Name = std::pair<TESSEL::NameTable (*)(), QString>; ///< in a vocabulary

    std::map<Name, FindingData> ofNames;
};

/// Says which of the names that are allowed was meant by \a name. \a otherCase: the one that differs from it
/// in nothing but case, if renaming it would put that right; else null.
void suggestName(FindingData &finding, const QString &name, const QString &otherCase);

} // namespace KORMAK::Inspection

#endif
