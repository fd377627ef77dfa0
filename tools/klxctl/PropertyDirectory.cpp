#include "PropertyDirectory.h"

#include "LibraryDocument.h"
#include "XmlReading.h"

namespace {

void collect(const xmlNode& parent, const std::string& prefix, std::set<std::string>& paths) {
    for (const xmlNode* child = parent.children; child != nullptr; child = child->next) {
        if (child->type != XML_ELEMENT_NODE) {
            continue;
        }
        const std::string path = prefix + pathSegment(attributeOf(*child, "name").value_or(""));
        if (attributeOf(*child, "value")) {
            paths.insert(path);
        }
        collect(*child, path, paths);
    }
}

} // namespace

PropertyDirectory PropertyDirectory::everything() {
    // A category stands for all names that it is the beginning of, so the empty one stands for all.
    return ofCategory("");
}

PropertyDirectory PropertyDirectory::ofCategory(const std::string& name) {
    return fromDocument(libraryDocument({{name, {"*"}}}, CDeviceInfoManager::DATA_FORMAT_XML));
}

PropertyDirectory PropertyDirectory::fromDocument(const std::string& document) {
    const XmlHandle parsed = parseXml(document);
    PropertyDirectory directory;
    const xmlNode* const root = xmlDocGetRootElement(parsed.get());
    for (const xmlNode* child = root->children; child != nullptr; child = child->next) {
        collect(*child, "", directory.m_paths);
    }
    return directory;
}

bool PropertyDirectory::containsPrefix(const std::string& text) const {
    const auto at = m_paths.lower_bound(text);
    return at != m_paths.end() && at->compare(0, text.size(), text) == 0;
}
