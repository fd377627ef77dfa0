#pragma once

#include "XmlDocument.h"
#include "XmlDocumentIndex.h"

#include <memory_resource>
#include <string>

/// A document in the making.
///
/// libxml2 asks for memory ten times for each property and gives it back piece by piece; that was
/// most of what a large document cost. Here elements, attributes and texts are laid one behind the
/// other into memory of the builder's own, which goes back at once.
///
/// The document may be searched and written out like any other, but none of its nodes may be freed
/// or replaced by libxml2, and none may outlive the builder. Not safe for use by several threads at
/// once.
class XmlDocumentBuilder {
public:
    /// @param properties about how many will be added: memory for them is asked for in one piece
    /// @throws std::bad_alloc
    explicit XmlDocumentBuilder(std::size_t properties);
    ~XmlDocumentBuilder();
    XmlDocumentBuilder(const XmlDocumentBuilder&) = delete;
    XmlDocumentBuilder& operator=(const XmlDocumentBuilder&) = delete;

    /// @return the builder that the node was made by
    static XmlDocumentBuilder& of(const xmlNode* node);

    xmlDocPtr document() const { return m_document.get(); }

    // Names of elements and of attributes are literals, which are not copied.

    /// @return the root element, owned by the builder
    /// @throws std::bad_alloc
    xmlNodePtr addRoot(const char* name);

    /// Adds an element behind the parent's other children.
    /// @return the element, owned by the builder
    /// @throws std::bad_alloc, KLX::Exception "XML tree has invalid structure" when the parent
    ///         cannot have children
    xmlNodePtr addElement(xmlNodePtr parent, const char* kind);

    /// Adds an element with an attribute "name", by which `childNamed` finds it.
    /// @param name a text that `documentText` has made fit for XML
    /// @return the element, owned by the builder
    /// @throws as `addElement`
    xmlNodePtr addNamedElement(xmlNodePtr parent, const char* kind, const std::string& name);

    /// @return the child that bears the name, null when there is none
    /// @throws as `XmlDocumentIndex::childNamed`
    xmlNodePtr childNamed(xmlNodePtr parent, const std::string& name);

    /// Sets an attribute to the text, made fit for XML where it is not.
    /// @throws std::bad_alloc, KLX::Exception "XML tree has invalid structure" when the node is no
    ///         element
    void setAttribute(xmlNodePtr element, const char* name, std::string value);

private:
    template <class Node>
    Node* make(xmlElementType type, const xmlChar* name, xmlNodePtr parent);
    void setFitAttribute(xmlNodePtr element, const char* name, const std::string& value);
    xmlChar* copied(const std::string& text);

    std::pmr::monotonic_buffer_resource m_memory;
    XmlDocument m_document;
    XmlDocumentIndex m_index;
};
