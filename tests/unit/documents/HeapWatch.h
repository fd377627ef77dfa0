#pragma once

#include <cstddef>

/**
 * Watches the memory that C++ and libxml2 take in this process. Counting never stops; a watch sees
 * what is taken during its life beyond what was held at its beginning. Beyond its limit no memory
 * is handed out, so that a greedy call fails instead of the machine.
 */
class HeapWatch {
public:
    explicit HeapWatch(std::size_t limit);
    ~HeapWatch();
    HeapWatch(const HeapWatch&) = delete;
    HeapWatch& operator=(const HeapWatch&) = delete;

    /** The most bytes that were held at once; above the limit when more were asked for. */
    std::size_t peak() const;

    /** The bytes that are held now and were not at the beginning; negative when there are fewer. */
    long long grown() const;

    /** How often memory resources took memory. */
    int piecesOfResources() const;

private:
    long long m_before;
    int m_piecesBefore;
};

constexpr std::size_t mebibyte = std::size_t{1} << 20;
