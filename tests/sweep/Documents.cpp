#include "Documents.h"

#include <json/json.h>
#include <libxml/parser.h>
#include <libxml/tree.h>

#include <memory>
#include <stdexcept>

namespace klx::test {
namespace {

using XmlTree = std::unique_ptr<xmlDoc, decltype(&xmlFreeDoc)>;

std::string attribute(xmlNodePtr element, const char* name) {
    const std::unique_ptr<xmlChar, decltype(xmlFree)> text(
        xmlGetProp(element, reinterpret_cast<const xmlChar*>(name)), xmlFree);
    if (!text) {
        throw std::runtime_error(std::string("an element has no attribute ") + name);
    }
    return reinterpret_cast<const char*>(text.get());
}

void collect(xmlNodePtr parent, const std::string& prefix, Entries& entries) {
    for (xmlNodePtr child = xmlFirstElementChild(parent); child != nullptr;
         child = xmlNextElementSibling(child)) {
        const std::string path = prefix + "/" + attribute(child, "name");
        if (xmlFirstElementChild(child) != nullptr) {
            collect(child, path, entries);
        } else {
            entries[path] = {attribute(child, "default"), attribute(child, "value")};
        }
    }
}

Entries entriesOfXml(const std::string& document) {
    const XmlTree tree(xmlReadMemory(document.data(), static_cast<int>(document.size()), "document",
                                     nullptr, XML_PARSE_NOERROR),
                       &xmlFreeDoc);
    if (!tree) {
        throw std::runtime_error("no XML document: " + document);
    }
    Entries entries;
    collect(xmlFirstElementChild(xmlDocGetRootElement(tree.get())), "", entries);
    return entries;
}

Json::Value parsed(const std::string& document) {
    const std::unique_ptr<Json::CharReader> reader(Json::CharReaderBuilder().newCharReader());
    Json::Value root;
    if (!reader->parse(document.data(), document.data() + document.size(), &root, nullptr)) {
        throw std::runtime_error("no JSON document: " + document);
    }
    return root;
}

Entries entriesOfJson(const std::string& document) {
    const Json::Value root = parsed(document);
    Entries entries;
    for (const std::string& menu : root.getMemberNames()) {
        for (const std::string& property : root[menu].getMemberNames()) {
            const Json::Value& node = root[menu][property];
            if (!node["Default"].isString() || !node["Value"].isString()) {
                throw std::runtime_error("/" + menu + "/" + property + " lacks a text");
            }
            entries["/" + menu + "/" + property] = {node["Default"].asString(),
                                                    node["Value"].asString()};
        }
    }
    return entries;
}

} // namespace

Entries entriesOf(const std::string& document) {
    return document.compare(0, 5, "<?xml") == 0 ? entriesOfXml(document) : entriesOfJson(document);
}

} // namespace klx::test
