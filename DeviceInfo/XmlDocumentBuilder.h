#pragma once

#include "XmlDocument.h"
#include "XmlDocumentIndex.h"

#include <memory_resource>
#include <string>

/// A document in the making.
///
/// libxml2 allocates each element, attribute and text by itself, a dozen times for a property, and
/// releases each by itself; for a large document that costs as much as all the rest. Here they are
/// laid one behind the other into memory of the builder's own, which is released as a whole.
///
/// So the document may be searched, copied and written out, but libxml2 must not be asked to change
/// it, and none of its nodes outlives the builder. Names of elements and attributes are not copied:
/// they are literals. Not safe for use by several threads at once.
class XmlDocumentBuilder {
public:
    /// @param properties about how many will be added: memory for that many is taken in one piece,
    ///                   and more where that is not enough
    /// @throws std::bad_alloc
    explicit XmlDocumentBuilder(std::size_t properties);
    ~XmlDocumentBuilder();
    XmlDocumentBuilder(const XmlDocumentBuilder&) = delete;
    XmlDocumentBuilder& operator=(const XmlDocumentBuilder&) = delete;

    /// @return the builder that the node was made by
    static XmlDocumentBuilder& of(const xmlNode* node);

    xmlDocPtr document() const { return m_document.get(); }

    /// Adds the root element, of which a document has one.
    /// @param kind the element's name, a literal
    /// @return the element, owned by the builder
    /// @throws std::bad_alloc
    xmlNodePtr addRoot(const char* kind);

    /// Adds an element behind the parent's other children.
    /// @param kind the element's name, a literal
    /// @return the element, owned by the builder
    /// @throws std::bad_alloc, KLX::Exception "XML tree has invalid structure" when the parent
    ///         is no element
    xmlNodePtr addElement(xmlNodePtr parent, const char* kind);

    /// Adds an element with an attribute "name", by which `childNamed` finds it.
    /// @param kind the element's name, a literal
    /// @param name a text that `documentText` has made fit for XML
    /// @return the element, owned by the builder
    /// @throws as `addElement`
    xmlNodePtr addNamedElement(xmlNodePtr parent, const char* kind, const std::string& name);

    /// @return the child that bears the name, null when there is none
    /// @throws as `XmlDocumentIndex::childNamed`
    xmlNodePtr childNamed(xmlNodePtr parent, const std::string& name);

    /// Sets an attribute to the text, made fit for XML where it is not.
    /// @param name the attribute's name, a literal
    /// @throws std::bad_alloc, KLX::Exception "XML tree has invalid structure" when the node is no
    ///         element
    void setAttribute(xmlNodePtr element, const char* name, std::string value);

private:
    template <class Node>
    Node* make(xmlElementType type, const xmlChar* name, void* parent);
    void setFitAttribute(xmlNodePtr element, const char* name, const std::string& value);
    void setText(xmlNodePtr text, const std::string& value);

    std::pmr::monotonic_buffer_resource m_memory;
    XmlDocument m_document;
    void* const m_formerPrivate;
    XmlDocumentIndex m_index;
};
