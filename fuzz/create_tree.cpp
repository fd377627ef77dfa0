// Dumps a set whose properties have any names: each line of the input is a path.

#include "FuzzedSet.h"

#include <algorithm>
#include <sstream>

namespace {

constexpr auto xml = CDeviceInfoManager::DATA_FORMAT_XML;

// libxml2 reads elements that are nested up to 256 deep.
constexpr long deepest = 200;

std::list<std::string> pathsOf(const std::string& input) {
    std::list<std::string> paths;
    std::istringstream lines(input);
    for (std::string path; std::getline(lines, path) && paths.size() < 32;) {
        if (std::count(path.begin(), path.end(), '/') < deepest) {
            paths.push_back(path);
        }
    }
    return paths;
}

/** A path that XML carries as it is, and that has a menu and a property. */
bool isPlain(const std::string& path) {
    const auto printable = [](unsigned char character) {
        return character >= ' ' && character < 0x7F;
    };
    const std::size_t slash = path.find('/', 1);
    return path.rfind('/', 0) == 0 && std::all_of(path.begin(), path.end(), printable) &&
           slash != std::string::npos && slash > 1 && slash + 1 < path.size() &&
           path.find("//") == std::string::npos;
}

bool hasPropertiesBelow(const std::string& path, const std::list<std::string>& paths) {
    return std::any_of(paths.begin(), paths.end(), [&path](const std::string& other) {
        return other.compare(0, path.size() + 1, path + "/") == 0;
    });
}

/** A source whose name has no number is dumped without a value. */
bool isUnnumberedSource(const std::string& path) {
    return path.find("Source_Connect/") != std::string::npos &&
           path.find_first_of("0123456789") == std::string::npos;
}

/** A name that ends the search expression's own quotes can be answered with another's element. */
bool haveQuotes(const std::list<std::string>& paths) {
    return std::any_of(paths.begin(), paths.end(), [](const std::string& path) {
        return path.find('\'') != std::string::npos;
    });
}

void requireRestored(const std::list<std::string>& paths, Records& records) {
    if (haveQuotes(paths)) {
        return;
    }
    for (const std::string& path : paths) {
        if (isPlain(path) && !hasPropertiesBelow(path, paths)) {
            require(records.valueOf(path) == (isUnnumberedSource(path) ? "" : path),
                    "a value was not restored");
        }
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::list<std::string> paths = pathsOf(textOf(data, size));
    FuzzedSet set({});
    for (const std::string& path : paths) {
        set.records().add(path, path);
    }
    std::string document;
    // The empty category is the beginning of every path.
    if (!CDeviceInfoManager::GetDeviceInfo({{"", {"*"}}}, document, "", xml)) {
        return 0;
    }
    require(isXml(document), "the dump cannot be read");
    for (const std::string& path : paths) {
        set.records().setValueOf(path, "changed");
    }
    require(CDeviceInfoManager::SetDeviceInfo(document, xml), "the dump cannot be restored");
    requireRestored(paths, set.records());
    return 0;
}
