#include "PropertyPath.h"

#include "Exception.h"

#include <boost/regex.hpp>

#include <algorithm>
#include <iterator>

namespace {

// A regular expression says what a segment is: "^/(([^/]+|[/]{2})*)". In a path of up to this
// length its search cannot fail for want of anything, so that reading the characters one by one
// gives the same in a fraction of the time. Whatever is longer is searched.
constexpr std::size_t longestRead = 1024;

std::size_t searchedLength(std::string_view remaining) {
    static const boost::regex segment("^/(([^/]+|[/]{2})*)");
    boost::cmatch match;
    try {
        // "^" alone would also match behind a line feed.
        boost::regex_search(remaining.data(), remaining.data() + remaining.size(), match, segment,
                            boost::match_continuous);
    } catch (const std::runtime_error&) {
        throw KLX::Exception("Regex search failed");
    }
    return static_cast<std::size_t>(match.length(0));
}

std::size_t readLength(std::string_view remaining) {
    std::size_t at = 1;
    while (at < remaining.size()) {
        const std::size_t slash = std::min(remaining.find('/', at), remaining.size());
        if (remaining.substr(slash, 2) != "//") {
            return slash;
        }
        at = slash + 2;
    }
    return remaining.size();
}

std::string withSingleSlashes(std::string_view name) {
    static const boost::regex doubledSlash("//");
    if (name.find('/') == std::string_view::npos) {
        return std::string(name);
    }
    try {
        std::string single;
        boost::regex_replace(std::back_inserter(single), name.data(), name.data() + name.size(),
                             doubledSlash, "/");
        return single;
    } catch (const std::runtime_error&) {
        throw KLX::Exception("Regex replace failed");
    }
}

} // namespace

PathSegment firstSegment(std::string_view remaining, const std::string& fullPath) {
    if (remaining.empty() || remaining.front() != '/') {
        throw KLX::Exception("Invalid property name: " + fullPath);
    }
    const std::size_t length =
        remaining.size() <= longestRead ? readLength(remaining) : searchedLength(remaining);
    return {withSingleSlashes(remaining.substr(1, length - 1)), length};
}

std::string withDoubledSlashes(std::string name) {
    if (name.find('/') == std::string::npos) {
        return name;
    }
    std::string doubled;
    for (const char character : name) {
        doubled.append(character == '/' ? 2 : 1, character);
    }
    return doubled;
}

std::string usbDeviceName(const std::string& property) {
    const std::size_t slash = property.find('/');
    const std::size_t begin = slash == std::string::npos ? 0 : slash + 1;
    return property.substr(begin, property.find('/', begin) - begin);
}
