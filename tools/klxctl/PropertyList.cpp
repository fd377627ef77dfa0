#include "PropertyList.h"

#include "Categories.h"
#include "ExitStatus.h"
#include "LibraryDocument.h"
#include "NearestNames.h"
#include "PathParts.h"
#include "PropertyAccess.h"
#include "PropertyReading.h"
#include "XmlSettings.h"

#include <map>

namespace {

using Texts = std::map<std::string, std::string>;

std::string pathOf(const std::string& word) {
    std::string path = word.compare(0, 1, "/") == 0 ? word : "/" + word;
    while (!path.empty() && path.back() == '/') {
        path.pop_back();
    }
    return path;
}

bool asksForDefault(const PropertyDescription& property) {
    return property.hasDefault && !property.fixedDefault;
}

/// What the platform has to be asked for, which the library tells in documents only.
std::string documentOfAsked(const std::vector<const PropertyDescription*>& properties) {
    DocumentRequest request;
    for (const PropertyDescription* const property : properties) {
        const std::optional<PathParts> parts = partsOf(property->path);
        if (parts && asksForDefault(*property)) {
            request[parts->category].push_back(parts->rest);
        }
    }
    return libraryDocument(request, CDeviceInfoManager::DATA_FORMAT_XML);
}

Texts textsIn(const std::string& document, const char* attribute) {
    Texts texts;
    for (const Setting& setting : xmlSettings(document, attribute)) {
        texts[setting.path] = setting.value.value_or("");
    }
    return texts;
}

/// An empty default says nothing; nor does an empty value, which could not be read, unless it is a
/// text.
bool differs(const PropertyDescription& property, const ListedProperty& listed) {
    const std::string defaultValue = listed.defaultValue.value_or("");
    const bool isKnown = property.isText || !listed.value.empty();
    return isKnown && !defaultValue.empty() && !areSame(property, listed.value, defaultValue);
}

std::vector<std::string> nearestOf(const KnownProperties& known, const std::string& word) {
    const std::string path = pathOf(word);
    const bool mayBeCategory = path.find('/', 1) == std::string::npos;
    const std::vector<std::string> nearest =
        mayBeCategory ? nearestNames(word, menuCategories()) : std::vector<std::string>();
    return nearest.empty() ? nearestNames(path, known.paths()) : nearest;
}

} // namespace

std::vector<const PropertyDescription*> selectedProperties(const KnownProperties& known,
                                                           const std::vector<std::string>& words) {
    std::map<std::string, const PropertyDescription*> selected;
    for (const std::string& word : words.empty() ? std::vector<std::string>{""} : words) {
        const std::string path = pathOf(word);
        const auto below = known.below(path);
        if (below.empty() || (path.empty() && !words.empty())) {
            throw Failure(ExitStatus::WrongUsage,
                          unknownName("category, menu or property", word, nearestOf(known, word),
                                      "klxctl list"));
        }
        for (const PropertyDescription* const property : below) {
            selected[property->path] = property;
        }
    }
    std::vector<const PropertyDescription*> properties;
    properties.reserve(selected.size());
    for (const auto& [path, property] : selected) {
        properties.push_back(property);
    }
    return properties;
}

std::vector<ListedProperty>
listedProperties(const std::vector<const PropertyDescription*>& properties) {
    const std::string document = documentOfAsked(properties);
    Texts values = textsIn(document, "value");
    Texts defaults = textsIn(document, "default");
    std::vector<ListedProperty> all;
    all.reserve(properties.size());
    for (const PropertyDescription* const property : properties) {
        ListedProperty listed{property->path, "", property->fixedDefault, property->flag,
                              property->isWritable};
        if (asksForDefault(*property)) {
            listed.value = values[property->path];
            listed.defaultValue = defaults[property->path];
        } else {
            listed.value = readProperty(property->path).value_or("");
        }
        listed.differs = differs(*property, listed);
        all.push_back(std::move(listed));
    }
    return all;
}
