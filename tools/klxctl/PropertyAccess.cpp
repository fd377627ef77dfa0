#include "PropertyAccess.h"

#include "DeviceInfoManager.h"
#include "ExitStatus.h"
#include "LibraryDocument.h"
#include "Messages.h"
#include "NearestNames.h"
#include "PathParts.h"
#include "PropertyDirectory.h"

namespace {

[[noreturn]] void failLibrary(const char* act, const std::string& path) {
    throw Failure(ExitStatus::Failed, std::string("the library could not ") + act + " " +
                                          quoted(path) + "; its lines above tell why");
}

bool isListed(const std::string& path, const PathParts& parts) {
    return PropertyDirectory::fromDocument(libraryDocument({{parts.category, {parts.rest}}},
                                                           CDeviceInfoManager::DATA_FORMAT_XML))
        .contains(path);
}

std::vector<std::string> nearestIn(const PropertyDirectory& directory, const std::string& path) {
    return nearestNames(path, {directory.paths().begin(), directory.paths().end()});
}

// Its own category first: reading that alone is quicker, and brings no log lines about failures
// elsewhere.
std::vector<std::string> nearestPaths(const std::string& path) {
    std::vector<std::string> nearest;
    if (const std::optional<PathParts> parts = partsOf(path)) {
        nearest = nearestIn(PropertyDirectory::ofCategory(parts->category), path);
    }
    return nearest.empty() ? nearestIn(PropertyDirectory::everything(), path) : nearest;
}

} // namespace

std::optional<std::string> readProperty(const std::string& path) {
    const std::optional<PathParts> parts = partsOf(path);
    if (!parts) {
        return std::nullopt;
    }
    // The library leaves the value as it is when there is no such property; attached devices, which
    // no document lists, can be told from absent ones by this alone.
    const std::string untouched("\x01untouched\x01");
    std::string value = untouched;
    if (!CDeviceInfoManager::GetDevicePropertyValue(parts->category, parts->rest, value)) {
        failLibrary("read", path);
    }
    if (value == untouched && !isListed(path, *parts)) {
        return std::nullopt;
    }
    return value;
}

void writeProperty(const std::string& path, const std::string& value) {
    const std::optional<PathParts> parts = partsOf(path);
    if (!parts ||
        !CDeviceInfoManager::SetDevicePropertyValue(parts->category, parts->rest, value)) {
        failLibrary("write", path);
    }
}

void reportUnknownPaths(const std::vector<std::string>& unknown) {
    for (const std::string& path : unknown) {
        report(unknownName("property", path, nearestPaths(path)));
    }
}

std::string unknownName(const std::string& kind, const std::string& written,
                        const std::vector<std::string>& nearest, const std::string& shownBy) {
    std::string message = "there is no " + kind + " " + quoted(written);
    if (nearest.empty()) {
        return message + ", nor one of a similar name; " + quoted(shownBy) + " shows what there is";
    }
    message += "; did you mean";
    for (const std::string& name : nearest) {
        message += "\n  " + quoted(name);
    }
    return message;
}
