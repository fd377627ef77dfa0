#pragma once

#include "DeviceInfoManager.h"

#include <map>
#include <string>
#include <vector>

/// What the library knows of its properties, by their paths. Nothing is asked of the set for it.
class KnownProperties {
public:
    /// @throws Failure when the library cannot tell
    KnownProperties();

    /// @return null when there is no such property
    const PropertyDescription* find(const std::string& path) const;

    /// The properties at or below a path: "/Sound" stands for all of that menu.
    std::vector<const PropertyDescription*> below(const std::string& path) const;

    /// In byte order.
    std::vector<std::string> paths() const;

private:
    std::map<std::string, PropertyDescription> m_byPath;
};
