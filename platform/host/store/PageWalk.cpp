#include "PageWalk.h"

#include "MetaPages.h"

#include <stdexcept>
#include <utility>

namespace KLX::Host {
namespace {

using namespace PageFormat;

struct Damage : std::runtime_error {
    Damage(std::size_t page, const char* what)
        : std::runtime_error("page " + std::to_string(page) + " " + what) {}
};

void require(bool holds, std::size_t page, const char* otherwise) {
    if (!holds) {
        throw Damage(page, otherwise);
    }
}

} // namespace

/** An entry of a page: a key with a child page (branch) or with a value (leaf). */
struct PageWalk::Node {
    std::size_t page;
    std::uint32_t low; ///< Size of the value; lower part of the child's number.
    std::uint16_t flags;
    std::string key;
    std::string rest; ///< What follows the key, to the end of the page.

    std::size_t child() const {
        constexpr unsigned lowBits = 32;
        const std::uint64_t high = sizeof(std::size_t) > sizeof low ? flags : 0U;
        return static_cast<std::size_t>(low | (high << lowBits));
    }
};

PageWalk::PageWalk(int descriptor, const Meta& meta, RecordCheck isRecord)
    : m_descriptor(descriptor), m_meta(meta), m_isRecord(std::move(isRecord)),
      m_claimed(meta.lastPage + 1) {}

std::optional<std::string> PageWalk::findProblem() {
    try {
        claim(0);
        claim(1);
        walkTree(m_meta.freePages, Kind::FreePages);
        walkTree(m_meta.main, Kind::Settings);
    } catch (const Damage& damage) {
        return damage.what();
    }
    return std::nullopt;
}

void PageWalk::walkTree(const Tree& tree, Kind kind) {
    m_entries = 0;
    if (tree.root != noPage) {
        walkPage(tree.root, tree.depth - 1U, kind);
        require(m_entries == tree.entries, tree.root, "leads to too few or too many entries");
    }
}

void PageWalk::walkPage(std::size_t number, std::size_t levelsBelow, Kind kind) {
    const std::string page = loadPage(number);
    const std::uint16_t expected = levelsBelow > 0 ? branchPage : leafPage;
    require(pageFlags(page) == expected, number, "is of the wrong kind");
    const std::vector<Node> nodes = nodesOf(page, number);
    const bool needsTwo = levelsBelow > 0 && kind == Kind::Settings;
    require(nodes.size() >= (needsTwo ? 2U : 1U), number, "is empty");
    for (std::size_t i = 0; i < nodes.size(); ++i) {
        const bool inOrder =
            kind == Kind::FreePages || levelsBelow > 0 || i == 0 || nodes[i - 1].key < nodes[i].key;
        require(inOrder, number, "is out of order");
        checkNode(nodes[i], levelsBelow, kind);
    }
}

void PageWalk::checkNode(const Node& node, std::size_t levelsBelow, Kind kind) {
    if (levelsBelow > 0) {
        walkPage(node.child(), levelsBelow - 1, kind);
    } else {
        ++m_entries;
        checkEntry(node, kind);
    }
}

void PageWalk::checkEntry(const Node& node, Kind kind) {
    require((node.flags & ~valueOnOverflowPages) == 0, node.page, "has an entry of unknown kind");
    const std::string value = valueOf(node);
    if (kind == Kind::FreePages) {
        checkFreeList(node, value);
    } else {
        require(m_isRecord(node.key, value), node.page, "has a damaged record");
    }
}

void PageWalk::checkFreeList(const Node& node, const std::string& value) {
    constexpr std::size_t word = sizeof(std::size_t);
    require(node.key.size() == word && value.size() >= word, node.page, "has a damaged free list");
    const auto count = numberAt<std::size_t>(value, 0);
    require(count < value.size() / word, node.page, "has a free list that is too short");
    for (std::size_t i = 1; i <= count; ++i) {
        claim(numberAt<std::size_t>(value, i * word));
    }
}

std::string PageWalk::valueOf(const Node& node) {
    if ((node.flags & valueOnOverflowPages) == 0) {
        require(node.low <= node.rest.size(), node.page, "has an entry beyond its end");
        return node.rest.substr(0, node.low);
    }
    require(node.rest.size() >= sizeof(std::size_t), node.page, "has an entry beyond its end");
    const auto first = numberAt<std::size_t>(node.rest, 0);
    const std::string page = loadPage(first);
    // A value that was replaced by a shorter one keeps all the pages of the longer one.
    const std::size_t needed = (headerSize - 1 + node.low) / m_meta.pageSize() + 1;
    const std::size_t pages = overflowCount(page);
    require(pageFlags(page) == overflowPage && pages >= needed, first, "is of the wrong kind");
    for (std::size_t i = 1; i < pages; ++i) {
        claim(first + i);
    }
    std::string value = readBytes(m_descriptor, first * m_meta.pageSize() + headerSize, node.low);
    require(value.size() == node.low, first, "is cut off");
    return value;
}

std::string PageWalk::loadPage(std::size_t number) {
    claim(number);
    std::string page = readBytes(m_descriptor, number * m_meta.pageSize(), m_meta.pageSize());
    require(page.size() == m_meta.pageSize(), number, "is cut off");
    require(pageNumber(page) == number, number, "carries another number");
    return page;
}

std::vector<PageWalk::Node> PageWalk::nodesOf(const std::string& page, std::size_t number) const {
    const std::size_t lower = lowerBound(page);
    const std::size_t upper = upperBound(page);
    require(lower >= headerSize && lower <= upper && upper <= page.size() && lower % 2 == 0, number,
            "has impossible bounds");
    std::vector<Node> nodes;
    for (std::size_t at = headerSize; at < lower; at += 2) {
        const std::size_t offset = numberAt<std::uint16_t>(page, at);
        require(offset >= upper && offset % 2 == 0, number, "has an entry beyond its end");
        nodes.push_back(nodeAt(page, number, offset));
    }
    return nodes;
}

PageWalk::Node PageWalk::nodeAt(const std::string& page, std::size_t number,
                                std::size_t offset) const {
    require(offset + nodeHeaderSize <= page.size(), number, "has an entry beyond its end");
    Node node{};
    node.page = number;
    // LMDB stores the two halves so that they are one number in the machine's byte order.
    node.low = numberAt<std::uint32_t>(page, offset);
    node.flags = numberAt<std::uint16_t>(page, offset + 4);
    const std::size_t keySize = numberAt<std::uint16_t>(page, offset + 6);
    const std::size_t keyAt = offset + nodeHeaderSize;
    require(keyAt + keySize <= page.size(), number, "has an entry beyond its end");
    node.key = page.substr(keyAt, keySize);
    node.rest = page.substr(keyAt + keySize);
    return node;
}

void PageWalk::claim(std::size_t number) {
    require(number < m_claimed.size(), number, "lies beyond the last page");
    require(!m_claimed[number], number, "is used twice");
    m_claimed[number] = true;
}

} // namespace KLX::Host
