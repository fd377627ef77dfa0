#pragma once

#include "KnownProperties.h"

#include <optional>
#include <string>
#include <vector>

/// A property with what the set holds for it.
struct ListedProperty {
    std::string path;
    std::string value; ///< "" when the set gives none
    std::optional<std::string> defaultValue;
    bool flag = false; ///< the property's flag as the library knows it
    bool isWritable = false;
    bool differs = false; ///< whether value and default are known and not the same

    /// What cannot be written was never changed.
    bool isChanged() const { return isWritable && differs; }
};

/// The properties at or below some paths, which are written with or without their first slash; of
/// no path, all properties.
/// @throws Failure when a path names nothing
std::vector<const PropertyDescription*> selectedProperties(const KnownProperties& known,
                                                           const std::vector<std::string>& words);

/// Reads the properties.
/// @throws Failure when the library reports a failure
std::vector<ListedProperty>
listedProperties(const std::vector<const PropertyDescription*>& properties);
