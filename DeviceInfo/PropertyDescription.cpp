#include "PropertyDescription.h"

#include "DeviceInfoManager.h"
#include "Log.h"
#include "PropertyCatalogue.h"

#include <algorithm>

namespace {

using Descriptions = std::vector<PropertyDescription>;

bool doesNothing(const PropertySetter& setter) {
    const auto* const function = setter.target<void (*)(const std::string&)>();
    return function != nullptr && *function == &emptySetter;
}

PropertyDescription descriptionOf(const std::string& path, const PropertyAccessor& accessor) {
    PropertyDescription description;
    description.path = path;
    description.flag = std::get<flagElement>(accessor);
    description.isWritable = !doesNothing(std::get<setterElement>(accessor));
    if (const auto& fixedDefault = std::get<fixedDefaultElement>(accessor)) {
        description.fixedDefault = *fixedDefault;
    }
    description.hasDefault = description.fixedDefault || std::get<defaultGetterElement>(accessor);
    return description;
}

/// Adds what the record cannot tell.
void completeFrom(const PropertyBinding& binding, PropertyDescription& description) {
    description.kind = binding.source().kind();
    description.key = binding.source().key();
    description.isText = description.kind == "text setting";
    if (binding.answeredDefault() != nullptr && description.hasDefault) {
        description.fixedDefault = binding.answeredDefault();
    }
}

/// @param descriptions in byte order of their paths
void completeFromCatalogue(Descriptions& descriptions) {
    for (const PropertyRow& row : propertyCatalogue()) {
        const auto found = std::lower_bound(
            descriptions.begin(), descriptions.end(), row.path,
            [](const PropertyDescription& each, const char* path) { return each.path < path; });
        if (found != descriptions.end() && found->path == row.path) {
            completeFrom(row.binding, *found);
        }
    }
}

} // namespace

bool CDeviceInfoManager::DescribeProperties(std::vector<PropertyDescription>& properties) {
    try {
        Descriptions descriptions;
        const CDeviceInfoManager& manager = instanceFor(__func__);
        const std::vector<std::string>& first = manager.m_specialPaths;
        for (const auto& [path, accessor] : *manager.m_properties) {
            descriptions.push_back(descriptionOf(path, accessor));
            descriptions.back().isRestoredFirst =
                std::find(first.begin(), first.end(), path) != first.end();
        }
        completeFromCatalogue(descriptions);
        properties = std::move(descriptions);
        return true;
    } catch (const std::exception& error) {
        KLX_LOG(LogWarning, "exception: [%s]", error.what());
    } catch (...) {
        KLX_LOG(LogWarning, "UNKNOWN exception occured");
    }
    return false;
}
