#include "XmlDocumentIndex.h"

#include "Exception.h"
#include "KLXCommonUtil.h"

namespace {

/// The text of the node's own attribute; null where it has none.
const char* nameOf(const xmlNode* element) {
    for (const xmlAttr* attribute = element->properties; attribute != nullptr;
         attribute = attribute->next) {
        if (xmlStrEqual(attribute->name, reinterpret_cast<const xmlChar*>("name")) != 0) {
            return reinterpret_cast<const char*>(attribute->children->content);
        }
    }
    return nullptr;
}

/// Whether the element comes behind another of its parent's in the order of names, too.
bool ascends(const xmlNode* element) {
    const char* const before = element->prev != nullptr ? nameOf(element->prev) : "";
    const char* const name = nameOf(element);
    return before != nullptr && name != nullptr && std::string_view(name) >= before;
}

} // namespace

xmlNodePtr XmlDocumentIndex::childNamed(xmlNodePtr parent, const std::string& name) {
    if (name.find('\'') == std::string::npos) {
        return find(parent, name);
    }
    const auto matches = KLXCommonUtil::xmlFindNodes(parent, "*[@name='" + name + "']");
    if (matches.size() > 1) {
        throw KLX::Exception("XML tree has invalid structure");
    }
    return matches.empty() ? nullptr : matches.front();
}

xmlNodePtr XmlDocumentIndex::find(const xmlNode* parent, std::string_view name) {
    if (parent->last == nullptr) {
        return nullptr;
    }
    const auto listed = m_listed.find(parent);
    if (listed == m_listed.end()) {
        const char* const last = nameOf(parent->last);
        const int order = last != nullptr ? name.compare(last) : -1;
        if (order >= 0) {
            return order == 0 ? parent->last : nullptr;
        }
    }
    const Children& children = listed != m_listed.end() ? listed->second : list(parent);
    const auto found = children.find(name);
    return found != children.end() ? found->second : nullptr;
}

void XmlDocumentIndex::add(xmlNodePtr element) {
    const auto listed = m_listed.find(element->parent);
    if (listed != m_listed.end()) {
        enter(element, listed->second);
    } else if (!ascends(element)) {
        list(element->parent);
    }
}

XmlDocumentIndex::Children& XmlDocumentIndex::list(const xmlNode* parent) {
    Children& children = m_listed[parent];
    for (xmlNodePtr child = parent->children; child != nullptr; child = child->next) {
        enter(child, children);
    }
    return children;
}

void XmlDocumentIndex::enter(xmlNodePtr element, Children& children) {
    if (const char* const name = nameOf(element)) {
        children.emplace(name, element);
    }
}
