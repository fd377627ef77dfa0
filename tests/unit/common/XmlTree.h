#pragma once

#include <libxml/parser.h>

#include <memory>
#include <string>

namespace klx::test {

/** A document of a test, freed with its tree. */
using XmlTree = std::unique_ptr<xmlDoc, void (*)(xmlDocPtr)>;

inline XmlTree parseXml(const std::string& text) {
    return {xmlReadMemory(text.data(), static_cast<int>(text.size()), nullptr, nullptr, 0),
            &xmlFreeDoc};
}

inline xmlNodePtr rootOf(const XmlTree& tree) {
    return xmlDocGetRootElement(tree.get());
}

inline std::string nameOf(xmlNodePtr node) {
    return reinterpret_cast<const char*>(node->name);
}

} // namespace klx::test
