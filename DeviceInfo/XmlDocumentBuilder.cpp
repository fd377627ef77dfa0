#include "XmlDocumentBuilder.h"

#include "DocumentText.h"
#include "Exception.h"

#include <libxml/parserInternals.h>

#include <cstring>
#include <new>
#include <utility>

namespace {

/// What a property takes: an element with three attributes, a third of a group around it, and texts
/// that are not long.
constexpr std::size_t sizeOfProperty = (sizeof(xmlNode) * 14 + sizeof(xmlAttr) * 10) / 3 + 128;

const xmlChar* xmlText(const char* text) {
    return reinterpret_cast<const xmlChar*>(text);
}

// A name can be an expression that leads to anything that a document has.
void requireElement(const xmlNode* node) {
    if (node->type != XML_ELEMENT_NODE) {
        throw KLX::Exception("XML tree has invalid structure");
    }
}

XmlDocument newDocument() {
    XmlDocument document(xmlNewDoc(xmlText("1.0")));
    if (!document) {
        throw std::bad_alloc();
    }
    return document;
}

} // namespace

XmlDocumentBuilder::XmlDocumentBuilder(std::size_t properties)
    // One more, for what is above them.
    : m_memory((properties + 1) * sizeOfProperty, std::pmr::new_delete_resource()),
      m_document(newDocument()), m_formerPrivate(m_document->_private) {
    m_document->_private = this;
}

XmlDocumentBuilder::~XmlDocumentBuilder() {
    // libxml2 gets back what it has made: the document alone.
    m_document->children = nullptr;
    m_document->last = nullptr;
    m_document->_private = m_formerPrivate;
}

XmlDocumentBuilder& XmlDocumentBuilder::of(const xmlNode* node) {
    return *static_cast<XmlDocumentBuilder*>(node->doc->_private);
}

template <class Node>
Node* XmlDocumentBuilder::make(xmlElementType type, const xmlChar* name, void* parent) {
    Node* const node = new (m_memory.allocate(sizeof(Node), alignof(Node))) Node{};
    node->type = type;
    node->name = name;
    node->parent = static_cast<xmlNodePtr>(parent);
    node->doc = m_document.get();
    return node;
}

xmlNodePtr XmlDocumentBuilder::addRoot(const char* kind) {
    auto* const root = make<xmlNode>(XML_ELEMENT_NODE, xmlText(kind), m_document.get());
    m_document->children = root;
    m_document->last = root;
    return root;
}

xmlNodePtr XmlDocumentBuilder::addElement(xmlNodePtr parent, const char* kind) {
    requireElement(parent);
    auto* const element = make<xmlNode>(XML_ELEMENT_NODE, xmlText(kind), parent);
    element->prev = parent->last;
    (parent->last != nullptr ? parent->last->next : parent->children) = element;
    parent->last = element;
    return element;
}

xmlNodePtr XmlDocumentBuilder::addNamedElement(xmlNodePtr parent, const char* kind,
                                               const std::string& name) {
    const xmlNodePtr element = addElement(parent, kind);
    setFitAttribute(element, "name", name);
    m_index.add(element);
    return element;
}

xmlNodePtr XmlDocumentBuilder::childNamed(xmlNodePtr parent, const std::string& name) {
    return m_index.childNamed(parent, name);
}

void XmlDocumentBuilder::setAttribute(xmlNodePtr element, const char* name, std::string value) {
    requireElement(element);
    setFitAttribute(element, name, documentText(std::move(value)));
}

void XmlDocumentBuilder::setFitAttribute(xmlNodePtr element, const char* name,
                                         const std::string& value) {
    xmlAttrPtr last = nullptr;
    for (xmlAttrPtr each = element->properties; each != nullptr; each = each->next) {
        if (xmlStrEqual(each->name, xmlText(name)) != 0) {
            setText(each->children, value);
            return;
        }
        last = each;
    }
    auto* const attribute = make<xmlAttr>(XML_ATTRIBUTE_NODE, xmlText(name), element);
    auto* const text = make<xmlNode>(XML_TEXT_NODE, xmlStringText, attribute);
    setText(text, value);
    attribute->children = text;
    attribute->last = text;
    attribute->prev = last;
    (last != nullptr ? last->next : element->properties) = attribute;
}

void XmlDocumentBuilder::setText(xmlNodePtr text, const std::string& value) {
    // Nothing is released before the document is, so a property that is asked for again and again
    // takes more memory only when its text has grown.
    const bool hasRoom = text->content != nullptr &&
                         std::strlen(reinterpret_cast<char*>(text->content)) >= value.size();
    if (!hasRoom) {
        text->content = static_cast<xmlChar*>(m_memory.allocate(value.size() + 1, 1));
    }
    std::memcpy(text->content, value.c_str(), value.size() + 1);
}
