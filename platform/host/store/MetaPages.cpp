#include "MetaPages.h"

#include "StoreFault.h"

#include <lmdb.h>
#include <unistd.h>

#include <cerrno>
#include <chrono>
#include <thread>

namespace KLX::Host {
namespace {

using namespace PageFormat;

constexpr std::size_t smallestPage = 512;
constexpr std::size_t largestPage = 65536;
constexpr std::size_t deepestTree = 32;

std::uint32_t swapped(std::uint32_t number) {
    return __builtin_bswap32(number);
}

bool carriesMagic(const std::string& page, std::size_t header, std::uint32_t expected) {
    return page.size() >= header + sizeof expected &&
           numberAt<std::uint32_t>(page, header) == expected;
}

// The page header is one pointer and eight bytes, so the word size decides where the magic is.
const char* foreignWriter(const std::string& page) {
    constexpr std::size_t otherHeader = headerSizeFor(sizeof(std::size_t) == 8 ? 4 : 8);
    if (carriesMagic(page, otherHeader, magic)) {
        return sizeof(std::size_t) == 8 ? "was written by a 32-bit build"
                                        : "was written by a 64-bit build";
    }
    if (carriesMagic(page, headerSize, swapped(magic)) ||
        carriesMagic(page, otherHeader, swapped(magic))) {
        return "was written by a machine of the other byte order";
    }
    return nullptr;
}

bool isPageSize(std::size_t size) {
    return size >= smallestPage && size <= largestPage && (size & (size - 1)) == 0;
}

bool isTreePlausible(const Tree& tree, std::size_t lastPage) {
    const bool isEmpty = tree.root == noPage;
    return isEmpty ? tree.depth == 0 && tree.entries == 0
                   : tree.root >= metaPages && tree.root <= lastPage && tree.depth > 0 &&
                         tree.depth <= deepestTree;
}

bool isPlausible(const Meta& meta) {
    return isPageSize(meta.pageSize()) && meta.mapSize <= largestMap &&
           meta.lastPage >= metaPages - 1 && meta.lastPage < meta.mapSize / meta.pageSize() &&
           (meta.freePages.flags & ~(MDB_INTEGERKEY | MDB_NOSUBDIR)) == 0 && meta.main.flags == 0 &&
           isTreePlausible(meta.freePages, meta.lastPage) &&
           isTreePlausible(meta.main, meta.lastPage);
}

Meta metaIn(const std::string& page) {
    return numberAt<Meta>(page, headerSize);
}

std::string readMetaPage(int descriptor, std::size_t offset) {
    return readBytes(descriptor, offset, headerSize + sizeof(Meta));
}

/** What is wrong with the meta page at an offset, or null. */
const char* problemAt(int descriptor, std::size_t offset, std::size_t& pageSize) {
    const std::string page = readMetaPage(descriptor, offset);
    if (page.size() < headerSize + sizeof(Meta)) {
        return "is cut off";
    }
    const Meta meta = metaIn(page);
    if (meta.magicNumber != magic || (pageFlags(page) & metaPage) == 0) {
        return "does not begin like a store";
    }
    if (meta.version != dataVersion || !isPlausible(meta) ||
        (pageSize != 0 && meta.pageSize() != pageSize)) {
        return "has a damaged header";
    }
    pageSize = meta.pageSize();
    return nullptr;
}

const char* problemOfBoth(int descriptor) {
    std::size_t pageSize = 0;
    const char* const first = problemAt(descriptor, 0, pageSize);
    return first != nullptr ? first : problemAt(descriptor, pageSize, pageSize);
}

} // namespace

std::string readBytes(int descriptor, std::size_t offset, std::size_t size) {
    std::string bytes(size, '\0');
    std::size_t filled = 0;
    while (filled < size) {
        const ssize_t count = ::pread(descriptor, bytes.data() + filled, size - filled,
                                      static_cast<off_t>(offset + filled));
        if (count < 0 && errno == EINTR) {
            continue;
        }
        if (count <= 0) {
            break;
        }
        filled += static_cast<std::size_t>(count);
    }
    bytes.resize(filled);
    return bytes;
}

void checkMetaPages(int descriptor, const std::string& path) {
    if (const char* const writer = foreignWriter(readMetaPage(descriptor, 0))) {
        throw storeFault(HostError::StoreForeign, path, writer);
    }
    // Another process may be writing a meta page at this moment; damage stays.
    constexpr int looks = 3;
    const char* problem = problemOfBoth(descriptor);
    for (int look = 1; problem != nullptr && look < looks; ++look) {
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
        problem = problemOfBoth(descriptor);
    }
    if (problem != nullptr) {
        throw storeFault(HostError::StoreCorrupt, path, problem);
    }
}

std::optional<Meta> metaOf(int descriptor, std::size_t transaction) {
    const std::string first = readMetaPage(descriptor, 0);
    if (first.size() < headerSize + sizeof(Meta)) {
        return std::nullopt;
    }
    const Meta zero = metaIn(first);
    const std::string second = readMetaPage(descriptor, zero.pageSize());
    for (const std::string& page : {first, second}) {
        if (page.size() == headerSize + sizeof(Meta) && isPlausible(metaIn(page)) &&
            metaIn(page).transaction == transaction) {
            return metaIn(page);
        }
    }
    return std::nullopt;
}

} // namespace KLX::Host
