// The vocabularies of the library: the values that have names, and the names.
#ifndef KORMAK_INSPECTION_NAMELISTS_P_H
#define KORMAK_INSPECTION_NAMELISTS_P_H

#include <inspection/Vocabulary.h>
#include <objectbase/Vocabulary_p.h>

#include <QString>
#include <QStringList>
#include <QStringView>

#include <vector>

namespace KORMAK::Inspection {

struct NameList {
    QStringView name; ///< of the enumeration
    QStringView holds; ///< what its values are
    TESSEL::NameTable (*table)();
};

struct VocabularyMaker {
    [[nodiscard]] static Vocabulary made(const NameList *list); ///< null: none
};

/// In the order in which they are listed for people.
[[nodiscard]] const std::vector<NameList> &allNameLists();
/// What they are called.
[[nodiscard]] QStringList nameListNames();

/// The list of the names that \a table gives; null when there is none.
[[nodiscard]] const NameList *nameListOf(TESSEL::NameTable (*table)());

/// The name of \a value that is read; its number when the \a names have none for it, as objects may hold it.
[[nodiscard]] QString nameOrNumber(const TESSEL::NameTable &names, qint64 value);

/// How the text \a written for a value differs from its \a name, in parentheses behind a blank; empty when it
/// does not.
[[nodiscard]] QString writtenDifference(QStringView name, QStringView written);

} // namespace KORMAK::Inspection

#endif
