#include "XmlDocumentIndex.h"

#include "Exception.h"
#include "KLXCommonUtil.h"

#include <functional>

namespace {

const xmlChar* textOfName(const xmlNode* element) {
    for (const xmlAttr* attribute = element->properties; attribute != nullptr;
         attribute = attribute->next) {
        if (xmlStrEqual(attribute->name, reinterpret_cast<const xmlChar*>("name")) != 0) {
            return attribute->children != nullptr ? attribute->children->content : nullptr;
        }
    }
    return nullptr;
}

} // namespace

XmlDocumentIndex::XmlDocumentIndex(xmlDocPtr document) : m_document(document) {
    m_document->_private = this;
}

XmlDocumentIndex::~XmlDocumentIndex() {
    m_document->_private = nullptr;
}

XmlDocumentIndex* XmlDocumentIndex::of(const xmlNode* node) {
    return static_cast<XmlDocumentIndex*>(node->doc->_private);
}

bool XmlDocumentIndex::answersFor(std::string_view name) {
    return name.find('\'') == std::string_view::npos;
}

xmlNodePtr XmlDocumentIndex::find(const xmlNode* parent, std::string_view name) const {
    const auto found = m_elements.find({parent, name});
    return found != m_elements.end() ? found->second : nullptr;
}

void XmlDocumentIndex::add(xmlNodePtr element) {
    // The text is missing only when memory ran out, which ends the build.
    if (const xmlChar* const name = textOfName(element)) {
        m_elements.emplace(Child{element->parent, reinterpret_cast<const char*>(name)}, element);
    }
}

std::size_t XmlDocumentIndex::ChildHash::operator()(const Child& child) const {
    constexpr std::size_t spread = 31;
    return std::hash<std::string_view>()(child.name) +
           std::hash<const xmlNode*>()(child.parent) * spread;
}

xmlNodePtr childNamed(xmlNodePtr parent, const std::string& name) {
    const XmlDocumentIndex* const index = XmlDocumentIndex::of(parent);
    if (index != nullptr && XmlDocumentIndex::answersFor(name)) {
        return index->find(parent, name);
    }
    const auto matches = KLXCommonUtil::xmlFindNodes(parent, "*[@name='" + name + "']");
    if (matches.size() > 1) {
        throw KLX::Exception("XML tree has invalid structure");
    }
    return matches.empty() ? nullptr : matches.front();
}
