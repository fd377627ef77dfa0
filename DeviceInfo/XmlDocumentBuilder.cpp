#include "XmlDocumentBuilder.h"

#include "DocumentText.h"
#include "Exception.h"

#include <libxml/parserInternals.h>

#include <new>
#include <utility>

namespace {

/// What an element with a name, a default and a value takes, if the texts are short.
constexpr std::size_t sizeOfProperty =
    sizeof(xmlNode) + 3 * (sizeof(xmlAttr) + sizeof(xmlNode)) + 64;

const xmlChar* xmlText(const char* text) {
    return reinterpret_cast<const xmlChar*>(text);
}

xmlNodePtr asNode(void* node) {
    return static_cast<xmlNodePtr>(node);
}

/// Takes a node up behind those of its kind, which are linked in the same way for children and
/// attributes.
template <class Node>
void append(Node* node, Node*& first, Node* last) {
    node->prev = last;
    (last != nullptr ? last->next : first) = node;
}

// An expression in a name can lead anywhere.
void require(bool hasRightKind) {
    if (!hasRightKind) {
        throw KLX::Exception("XML tree has invalid structure");
    }
}

} // namespace

XmlDocumentBuilder::XmlDocumentBuilder(std::size_t properties)
    // One more, for what is around them.
    : m_memory((properties + 1) * sizeOfProperty, std::pmr::new_delete_resource()),
      m_document(xmlNewDoc(xmlText("1.0"))) {
    if (!m_document) {
        throw std::bad_alloc();
    }
    m_document->_private = this;
}

XmlDocumentBuilder::~XmlDocumentBuilder() {
    // libxml2 is left what it has made: the document alone.
    m_document->children = nullptr;
    m_document->last = nullptr;
}

XmlDocumentBuilder& XmlDocumentBuilder::of(const xmlNode* node) {
    return *static_cast<XmlDocumentBuilder*>(node->doc->_private);
}

template <class Node>
Node* XmlDocumentBuilder::make(xmlElementType type, const xmlChar* name, xmlNodePtr parent) {
    Node* const node = new (m_memory.allocate(sizeof(Node), alignof(Node))) Node{};
    node->type = type;
    node->name = name;
    node->parent = parent;
    node->doc = m_document.get();
    return node;
}

xmlNodePtr XmlDocumentBuilder::addRoot(const char* name) {
    return addElement(asNode(m_document.get()), name);
}

xmlNodePtr XmlDocumentBuilder::addElement(xmlNodePtr parent, const char* kind) {
    require(parent->type == XML_ELEMENT_NODE || parent->type == XML_DOCUMENT_NODE);
    auto* const element = make<xmlNode>(XML_ELEMENT_NODE, xmlText(kind), parent);
    append(element, parent->children, parent->last);
    parent->last = element;
    return element;
}

xmlNodePtr XmlDocumentBuilder::addNamedElement(xmlNodePtr parent, const char* kind,
                                               const std::string& name) {
    xmlNodePtr const element = addElement(parent, kind);
    setFitAttribute(element, "name", name);
    m_index.add(element);
    return element;
}

xmlNodePtr XmlDocumentBuilder::childNamed(xmlNodePtr parent, const std::string& name) {
    return m_index.childNamed(parent, name);
}

void XmlDocumentBuilder::setAttribute(xmlNodePtr element, const char* name, std::string value) {
    require(element->type == XML_ELEMENT_NODE);
    setFitAttribute(element, name, documentText(std::move(value)));
}

void XmlDocumentBuilder::setFitAttribute(xmlNodePtr element, const char* name,
                                         const std::string& value) {
    xmlAttrPtr last = nullptr;
    for (xmlAttrPtr each = element->properties; each != nullptr; each = each->next) {
        if (xmlStrEqual(each->name, xmlText(name)) != 0) {
            each->children->content = copied(value);
            return;
        }
        last = each;
    }
    auto* const attribute = make<xmlAttr>(XML_ATTRIBUTE_NODE, xmlText(name), element);
    // libxml2 knows a text by the address of this name.
    auto* const text = make<xmlNode>(XML_TEXT_NODE, xmlStringText, asNode(attribute));
    text->content = copied(value);
    attribute->children = text;
    attribute->last = text;
    append(attribute, element->properties, last);
}

xmlChar* XmlDocumentBuilder::copied(const std::string& text) {
    auto* const copy = static_cast<xmlChar*>(m_memory.allocate(text.size() + 1, 1));
    text.copy(reinterpret_cast<char*>(copy), text.size());
    copy[text.size()] = 0;
    return copy;
}
