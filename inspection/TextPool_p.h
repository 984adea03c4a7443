// Many texts, most of them short and many of them alike, in as little memory as they need.
#ifndef KORMAK_INSPECTION_TEXTPOOL_P_H
#define KORMAK_INSPECTION_TEXTPOOL_P_H

#include <QString>
#include <QStringView>

#include <memory>
#include <vector>

namespace KORMAK::Inspection {

class TextPool {
public:
    using Id = quint32;
    static constexpr Id Empty = 0;
    static constexpr int LongestShort = 127; ///< of the texts that share an id with those like them

    /// A text gets the id that it had when it was put in not long before. \throws std::bad_alloc
    [[nodiscard]] Id put(QStringView text);
    [[nodiscard]] QString text(Id id) const;

    /// The characters of a short text.
    class Room {
        friend class TextPool;
        char16_t units[LongestShort];
    };
    /// As text(), for as long as \a room holds it, and null when it is empty.
    [[nodiscard]] QStringView text(Id id, Room &room) const;

private:
    [[nodiscard]] bool isText(Id id, QStringView wanted) const;
    [[nodiscard]] char *place(std::size_t size);

    std::vector<std::unique_ptr<char[]>> chunks;
    std::size_t used = 0; ///< of all chunks
    std::vector<QString> longTexts;
    std::vector<Id> recent; ///< by hash
};

} // namespace KORMAK::Inspection

#endif
