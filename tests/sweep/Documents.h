#pragma once

#include <map>
#include <string>

namespace klx::test {

/** What a document tells of one property. */
struct Entry {
    std::string defaultText;
    std::string value;
};

inline bool operator==(const Entry& left, const Entry& right) {
    return left.defaultText == right.defaultText && left.value == right.value;
}

/** By full path. */
using Entries = std::map<std::string, Entry>;

/**
 * Reads an XML or a JSON document.
 * @throws std::runtime_error when the text is neither, or a property lacks one of its two texts
 */
Entries entriesOf(const std::string& document);

} // namespace klx::test
