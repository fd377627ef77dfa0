#include "PropertyPath.h"

#include "Exception.h"

#include <boost/regex.hpp>

namespace {

bool searchSegment(const std::string& remaining, boost::smatch& match) {
    static const boost::regex segment("^/(([^/]+|[/]{2})*)");
    try {
        // "^" alone would also match behind a line feed.
        return boost::regex_search(remaining, match, segment, boost::match_continuous);
    } catch (const std::runtime_error&) {
        throw KLX::Exception("Regex search failed");
    }
}

std::string withSingleSlashes(const std::string& name) {
    static const boost::regex doubledSlash("//");
    try {
        return boost::regex_replace(name, doubledSlash, "/");
    } catch (const std::runtime_error&) {
        throw KLX::Exception("Regex replace failed");
    }
}

} // namespace

PathSegment firstSegment(const std::string& remaining, const std::string& fullPath) {
    boost::smatch match;
    if (!searchSegment(remaining, match)) {
        throw KLX::Exception("Invalid property name: " + fullPath);
    }
    return {withSingleSlashes(match.str(1)), static_cast<std::size_t>(match.length(0))};
}

std::string withDoubledSlashes(const std::string& name) {
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
