#include "KnownProperties.h"

#include "ExitStatus.h"

KnownProperties::KnownProperties() {
    std::vector<PropertyDescription> properties;
    if (!CDeviceInfoManager::DescribeProperties(properties)) {
        throw Failure(ExitStatus::Failed, "the library could not tell which properties there are; "
                                          "its lines above tell why");
    }
    for (PropertyDescription& property : properties) {
        m_byPath.emplace(property.path, std::move(property));
    }
}

const PropertyDescription* KnownProperties::find(const std::string& path) const {
    const auto found = m_byPath.find(path);
    return found != m_byPath.end() ? &found->second : nullptr;
}

std::vector<const PropertyDescription*> KnownProperties::below(const std::string& path) const {
    const auto isBelow = [&path](const std::string& name) {
        return name.compare(0, path.size(), path) == 0 &&
               (name.size() == path.size() || name[path.size()] == '/');
    };
    std::vector<const PropertyDescription*> properties;
    for (const auto& [name, property] : m_byPath) {
        if (isBelow(name)) {
            properties.push_back(&property);
        }
    }
    return properties;
}

std::vector<std::string> KnownProperties::paths() const {
    std::vector<std::string> paths;
    paths.reserve(m_byPath.size());
    for (const auto& [path, property] : m_byPath) {
        paths.push_back(path);
    }
    return paths;
}
