// Changes that keep what a document is made of: fuzzers find a namespace, a document type or another encoding
// by bytes alone hardly ever.
#ifndef KORMAK_FUZZ_XMLMUTATIONS_H
#define KORMAK_FUZZ_XMLMUTATIONS_H

#include <QByteArray>

namespace Fuzz {

enum class XmlMutation {
    DeclareNamespace,
    AddPrefix, ///< to an element, declared in it
    AddDocumentType, ///< with entities
    ReferToEntity, ///< in place of a text; the entity is declared if there is no document type
    ReferToCharacter,
    WrapInCData,
    AddComment,
    AddInstruction,
    AddBlanks, ///< around a text
    AddDeclaration, ///< of version, encoding and so on, which may be wrong
    AddByteOrderMark,
    Encode, ///< otherwise than in UTF-8
    RepeatElement,
    RemoveElement,
    WrapElement, ///< in one that no reader knows
    AddAttribute, ///< which may be there already
    RemoveAttribute,
    Last = RemoveAttribute,
};

/// True for what is well-formed afterwards when it was before.
[[nodiscard]] bool keepsWellFormed(XmlMutation mutation);

/// \a xml changed at a place that \a seed chooses; as it is where there is no such place. Any bytes will do.
[[nodiscard]] QByteArray mutated(const QByteArray &xml, XmlMutation mutation, unsigned int seed);

} // namespace Fuzz

#endif
