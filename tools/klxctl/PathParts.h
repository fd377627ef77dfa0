#pragma once

#include <optional>
#include <string>
#include <vector>

/// A property's path as the library takes it: "/" + category + "/" + rest.
struct PathParts {
    std::string category;
    std::string rest; ///< may contain further slashes
};

/// Divides "/Picture/Expert Settings/Gamma" into "Picture" and "Expert Settings/Gamma". A doubled
/// slash belongs to a name and divides nothing.
/// @return nothing when the text has no leading slash or no second part
std::optional<PathParts> partsOf(const std::string& path);

/// The names along a path that begins with a slash, each doubled slash as the single one that it
/// stands for.
std::vector<std::string> segmentsOf(const std::string& path);
