// A list that grows without moving what is in it, for the many items of a long document: neither copies nor
// room for twice as many are made.
#ifndef KORMAK_INSPECTION_CHUNKEDLIST_P_H
#define KORMAK_INSPECTION_CHUNKEDLIST_P_H

#include <cstddef>
#include <memory>
#include <vector>

namespace KORMAK::Inspection {

template <class Item>
class ChunkedList {
public:
    [[nodiscard]] bool empty() const noexcept { return count == 0; }
    [[nodiscard]] std::size_t size() const noexcept { return count; }
    [[nodiscard]] Item &operator[](std::size_t index) { return chunks[index / ChunkSize][index % ChunkSize]; }
    [[nodiscard]] const Item &operator[](std::size_t index) const
    {
        return chunks[index / ChunkSize][index % ChunkSize];
    }

    void push_back(const Item &item)
    {
        if (count == chunks.size() * ChunkSize)
            chunks.emplace_back(new Item[ChunkSize]);
        (*this)[count] = item;
        ++count;
    }

private:
    static constexpr std::size_t ChunkSize = 512;

    std::vector<std::unique_ptr<Item[]>> chunks;
    std::size_t count = 0;
};

} // namespace KORMAK::Inspection

#endif
