#include "PathParts.h"

namespace {

std::size_t firstSingleSlash(const std::string& text) {
    std::size_t at = text.find('/');
    while (at != std::string::npos && text.compare(at, 2, "//") == 0) {
        at = text.find('/', at + 2);
    }
    return at;
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
