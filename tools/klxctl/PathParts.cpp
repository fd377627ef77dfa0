#include "PathParts.h"

namespace {

std::size_t firstSingleSlash(const std::string& text) {
    std::size_t at = text.find('/');
    while (at != std::string::npos && text.compare(at, 2, "//") == 0) {
        at = text.find('/', at + 2);
    }
    return at;
}

std::string withSingleSlashes(const std::string& name) {
    std::string single;
    for (std::size_t at = 0; at < name.size(); ++at) {
        single += name[at];
        at += name.compare(at, 2, "//") == 0 ? 1 : 0;
    }
    return single;
}

} // namespace

std::optional<PathParts> partsOf(const std::string& path) {
    if (path.empty() || path.front() != '/') {
        return std::nullopt;
    }
    const std::string names = path.substr(1);
    const std::size_t slash = firstSingleSlash(names);
    if (slash == std::string::npos) {
        return std::nullopt;
    }
    return PathParts{names.substr(0, slash), names.substr(slash + 1)};
}

std::vector<std::string> segmentsOf(const std::string& path) {
    std::vector<std::string> segments;
    std::string left = path.substr(1);
    for (std::size_t slash = 0; slash != std::string::npos;) {
        slash = firstSingleSlash(left);
        segments.push_back(withSingleSlashes(left.substr(0, slash)));
        left = slash == std::string::npos ? "" : left.substr(slash + 1);
    }
    return segments;
}
