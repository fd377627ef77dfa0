#pragma once

#include "PageFormat.h"

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace KLX::Host {

/**
 * Follows every page of one snapshot of a data file by plain reads, so that damage is found before
 * LMDB trips over it: pages that are missing, used twice, out of their bounds or out of order.
 *
 * The caller keeps a read transaction on the snapshot, which keeps its pages from being reused.
 */
class PageWalk {
public:
    /** Tells whether a record is one of ours. */
    using RecordCheck = std::function<bool(std::string_view key, std::string_view bytes)>;

    PageWalk(int descriptor, const PageFormat::Meta& meta, RecordCheck isRecord);

    /** Walks; answers what is wrong, or nothing. */
    std::optional<std::string> findProblem();

private:
    enum class Kind { FreePages, Settings };
    struct Node;

    void walkTree(const PageFormat::Tree& tree, Kind kind);
    void walkPage(std::size_t number, std::size_t levelsBelow, Kind kind);
    void checkNode(const Node& node, std::size_t levelsBelow, Kind kind);
    void checkEntry(const Node& node, Kind kind);
    void checkFreeList(const Node& node, const std::string& value);
    std::string valueOf(const Node& node);
    std::string loadPage(std::size_t number);
    std::vector<Node> nodesOf(const std::string& page, std::size_t number) const;
    Node nodeAt(const std::string& page, std::size_t number, std::size_t offset) const;
    void claim(std::size_t number);

    int m_descriptor;
    PageFormat::Meta m_meta;
    RecordCheck m_isRecord;
    std::vector<bool> m_claimed;
    std::size_t m_entries = 0;
};

} // namespace KLX::Host
