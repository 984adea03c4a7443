// Not installed. Makes a vocabulary of the list of its names.
#ifndef KORMAK_INSPECTION_VOCABULARY_P_H
#define KORMAK_INSPECTION_VOCABULARY_P_H

#include <inspection/Vocabulary.h>

namespace KORMAK::Inspection {

struct VocabularyMaker {
    [[nodiscard]] static Vocabulary made(const NameList *list); ///< null: none
};

} // namespace KORMAK::Inspection

#endif
