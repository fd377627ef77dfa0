#include "PropertyReading.h"

#include "LibraryDocument.h"
#include "PathParts.h"
#include "PropertyAccess.h"
#include "SettingValue.h"
#include "XmlSettings.h"

#include <algorithm>

namespace {

/// Whether the bytes may look different in a document: it shows those that XML cannot carry as
/// U+FFFD.
bool mayChange(const std::string& value) {
    return std::any_of(value.begin(), value.end(), [](char character) {
        const auto code = static_cast<unsigned char>(character);
        return code < 0x20 || code >= 0x80;
    });
}

std::string shownValue(const std::string& path, const std::string& value) {
    const std::optional<PathParts> parts = partsOf(path);
    if (!parts || !mayChange(value)) {
        return value;
    }
    const std::vector<Setting> settings = xmlSettings(
        libraryDocument({{parts->category, {parts->rest}}}, CDeviceInfoManager::DATA_FORMAT_XML));
    return settings.empty() ? value : settings.front().value.value_or(value);
}

} // namespace

Reading readingOf(const std::string& path) {
    const std::string value = readProperty(path).value_or("");
    return {value, shownValue(path, value)};
}

bool areSame(const PropertyDescription& property, const std::string& left,
             const std::string& right) {
    return left == right || (!property.isText && isHeld(left, right));
}
