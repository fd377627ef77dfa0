#pragma once

#include "XmlTree.h"

#include <string>
#include <vector>

namespace klx::test {

/** The attribute as the parser reads it back; "(none)" when there is none. */
inline std::string attributeOf(xmlNodePtr node, const char* name) {
    xmlChar* const value = xmlGetProp(node, reinterpret_cast<const xmlChar*>(name));
    const std::string text = value != nullptr ? reinterpret_cast<const char*>(value) : "(none)";
    xmlFree(value);
    return text;
}

inline xmlNodePtr firstElement(xmlNodePtr node) {
    while (node != nullptr && node->type != XML_ELEMENT_NODE) {
        node = node->next;
    }
    return node;
}

/** Adds the path of each element below `parent` that carries a value, and of all below it. */
inline void addLeafPaths(xmlNodePtr parent, const std::string& path,
                         std::vector<std::string>& paths) {
    for (xmlNodePtr node = firstElement(parent->children); node != nullptr;
         node = firstElement(node->next)) {
        const std::string own = path + "/" + attributeOf(node, "name");
        if (attributeOf(node, "value") != "(none)") {
            paths.push_back(own);
        }
        addLeafPaths(node, own, paths);
    }
}

/** The device element of a parsed document. */
inline xmlNodePtr deviceOf(const XmlTree& tree) {
    return tree ? firstElement(rootOf(tree)->children) : nullptr;
}

/** The paths of the properties that a document holds, in its order. */
inline std::vector<std::string> leafPaths(const std::string& document) {
    std::vector<std::string> paths;
    const XmlTree tree = parseXml(document);
    if (const xmlNodePtr device = deviceOf(tree)) {
        addLeafPaths(device, "", paths);
    }
    return paths;
}

/** What stands between the device element's tags, or all of a document that has none. */
inline std::string insideDevice(const std::string& document) {
    const std::string open = "<deviceInfo devicetype=\"TV\">\n";
    const std::size_t begin = document.find(open);
    const std::size_t end = document.find("  </deviceInfo>");
    if (begin == std::string::npos || end == std::string::npos) {
        return document;
    }
    return document.substr(begin + open.size(), end - begin - open.size());
}

} // namespace klx::test
