#pragma once

/**
 * @file
 * How LMDB lays its data file out (data version 1), as far as the checks before its use need it.
 *
 * LMDB trusts its file: a damaged one makes it abort, divide by zero or run into memory that the
 * file does not back. The store reads the file once by plain reads and follows every page before
 * LMDB gets to see it.
 */

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string>

namespace KLX::Host::PageFormat {

constexpr std::uint32_t magic = 0xBEEFC0DE;
constexpr std::uint32_t dataVersion = 1;
constexpr std::size_t metaPages = 2;
constexpr std::size_t noPage = ~static_cast<std::size_t>(0);

constexpr std::uint16_t branchPage = 0x01;
constexpr std::uint16_t leafPage = 0x02;
constexpr std::uint16_t overflowPage = 0x04;
constexpr std::uint16_t metaPage = 0x08;
constexpr std::uint16_t valueOnOverflowPages = 0x01;

/** Page header on a machine whose pointers have `word` bytes. */
constexpr std::size_t headerSizeFor(std::size_t word) {
    return word + 8;
}
constexpr std::size_t headerSize = headerSizeFor(sizeof(std::size_t));
constexpr std::size_t nodeHeaderSize = 8;

/** A B-tree as its meta page records it; the first tree's `pad` is the page size. */
struct Tree {
    std::uint32_t pad;
    std::uint16_t flags;
    std::uint16_t depth;
    std::size_t branchPages;
    std::size_t leafPages;
    std::size_t overflowPages;
    std::size_t entries;
    std::size_t root;
};

/** What follows the header of page 0 and of page 1. */
struct Meta {
    std::uint32_t magicNumber;
    std::uint32_t version;
    std::size_t address;
    std::size_t mapSize;
    Tree freePages;
    Tree main;
    std::size_t lastPage;
    std::size_t transaction;

    std::size_t pageSize() const { return freePages.pad; }
};

/** Reads a number of the machine's own byte order out of a page. */
template <typename Number>
Number numberAt(const std::string& page, std::size_t offset) {
    Number number{};
    std::memcpy(&number, page.data() + offset, sizeof number);
    return number;
}

inline std::size_t pageNumber(const std::string& page) {
    return numberAt<std::size_t>(page, 0);
}
inline std::uint16_t pageFlags(const std::string& page) {
    return numberAt<std::uint16_t>(page, sizeof(std::size_t) + 2);
}
inline std::size_t lowerBound(const std::string& page) {
    return numberAt<std::uint16_t>(page, sizeof(std::size_t) + 4);
}
inline std::size_t upperBound(const std::string& page) {
    return numberAt<std::uint16_t>(page, sizeof(std::size_t) + 6);
}
inline std::size_t overflowCount(const std::string& page) {
    return numberAt<std::uint32_t>(page, sizeof(std::size_t) + 4);
}

} // namespace KLX::Host::PageFormat
