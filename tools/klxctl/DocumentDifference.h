#pragma once

#include "KnownProperties.h"
#include "SettingsDocument.h"

#include <optional>
#include <string>
#include <vector>

/// What one of two sides tells of a property.
struct Side {
    bool isPresent = false;           ///< whether it tells of it at all
    std::optional<std::string> value; ///< none when it tells no value
    bool isMalformed = false;         ///< whether something that is no value stands in its place
};

struct Difference {
    std::string path;
    Side first;
    Side second;
};

/// The properties that two sides do not tell alike, in byte order of the paths. Values are compared
/// as `areSame` does, those of unknown properties byte by byte.
std::vector<Difference> differencesBetween(const std::vector<Setting>& first,
                                           const std::vector<Setting>& second,
                                           const KnownProperties& known);
