#pragma once

#include <string>
#include <string_view>

/// The first segment of a property path.
struct PathSegment {
    std::string name;   ///< with each doubled slash of the path as a single one
    std::size_t length; ///< characters of the path that it takes, its leading slash included
};

/// Splits off the first segment: a slash and what follows it up to the next single slash.
/// @param remaining what is left of the path
/// @param fullPath  the whole path, for the message
/// @throws KLX::Exception "Invalid property name: " and the whole path when there is no leading
///         slash; "Regex search failed", "Regex replace failed"
PathSegment firstSegment(std::string_view remaining, const std::string& fullPath);

/// @return the segment's name as it stands in a path, with each slash doubled
std::string withDoubledSlashes(std::string name);

/// @return the device that the name of a USB property speaks of: the part behind its first slash up
///         to the next one; a name without a slash is its own device
std::string usbDeviceName(const std::string& property);
