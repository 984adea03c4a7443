#ifndef TESSEL_READINGLIMITS_H
#define TESSEL_READINGLIMITS_H

#include <QtGlobal>

namespace TESSEL {

/// What input may become while it is read, so that a small document or binary form cannot take all memory or
/// hours. The limits that an object starts with are far above ordinary documents. What goes beyond a limit is
/// refused like a document that is not well-formed; see ITesselObject::SetReadingLimits().
///
/// \snippet docs/ObjectbaseSnippetsTest.cpp ReadingLimits
///
/// A limit may be any number; one below 1 allows nothing.
class ReadingLimits {
public:
    /// \name Entities
    /// The characters that a document type may add to a document of n characters: the greater of
    /// GetEntityCharacters() and GetEntityFactor() times n. Each reference to an entity counts with all
    /// characters that are put in its place, those of entities within it included, and each element with one
    /// for each attribute that the document type declares.
    /// @{
    [[nodiscard]] constexpr qint64 GetEntityCharacters() const noexcept { return entityCharacters; }
    constexpr void SetEntityCharacters(qint64 characters) noexcept { entityCharacters = characters; }
    [[nodiscard]] constexpr int GetEntityFactor() const noexcept { return entityFactor; }
    constexpr void SetEntityFactor(int factor) noexcept { entityFactor = factor; }
    /// @}

    /// \name Attributes
    /// The attributes of one element, with the namespaces that are declared where it stands. A document type
    /// may not declare more attributes in all.
    /// @{
    [[nodiscard]] constexpr int GetAttributes() const noexcept { return attributes; }
    constexpr void SetAttributes(int count) noexcept { attributes = count; }
    /// @}

    /// \name Depth
    /// How many elements may stand in one another, the root element included.
    /// @{
    [[nodiscard]] constexpr int GetDepth() const noexcept { return depth; }
    constexpr void SetDepth(int elements) noexcept { depth = elements; }
    /// @}

    /// \name Binary forms
    /// The bytes that a compressed binary form with a payload of n bytes may become: the greater of
    /// GetExpandedBytes() and GetExpandedFactor() times n.
    /// @{
    [[nodiscard]] constexpr qint64 GetExpandedBytes() const noexcept { return expandedBytes; }
    constexpr void SetExpandedBytes(qint64 bytes) noexcept { expandedBytes = bytes; }
    [[nodiscard]] constexpr int GetExpandedFactor() const noexcept { return expandedFactor; }
    constexpr void SetExpandedFactor(int factor) noexcept { expandedFactor = factor; }
    /// @}

    /// All limits are the same.
    [[nodiscard]] constexpr bool operator==(const ReadingLimits &other) const noexcept
    {
        return entityCharacters == other.entityCharacters && entityFactor == other.entityFactor
            && attributes == other.attributes && depth == other.depth && expandedBytes == other.expandedBytes
            && expandedFactor == other.expandedFactor;
    }
    [[nodiscard]] constexpr bool operator!=(const ReadingLimits &other) const noexcept
    {
        return !(*this == other);
    }

private:
    qint64 entityCharacters = 1'048'576;
    qint64 expandedBytes = 6'291'456;
    int entityFactor = 1;
    int expandedFactor = 6;
    int attributes = 100;
    int depth = 1000;
};

} // namespace TESSEL

#endif
