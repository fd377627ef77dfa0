#pragma once

#include <json/value.h>

#include <map>
#include <string>

namespace KLX::Host {

/**
 * The JSON of a profile after everything that it extends was put underneath it, and the memory of
 * which file each part came from.
 */
struct ProfileDocument {
    Json::Value root;
    std::string file;                           ///< The file that was asked for.
    std::map<std::string, std::string> origins; ///< File by path, where it is not `file`.

    /** The file that a path such as `settings["db/x"].default` was written in. */
    const std::string& fileOf(const std::string& path) const;
};

/** How a member of an object is written in a path: `.name`, or `["name"]` where that needs it. */
std::string memberPath(const std::string& parent, const std::string& name);

/** Reads a profile with all that it extends; throws HostFailure (ProfileInvalid). */
ProfileDocument readProfileDocument(const std::string& name, const std::string& shippedFolder);

} // namespace KLX::Host
