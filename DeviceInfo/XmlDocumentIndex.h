#pragma once

#include <libxml/tree.h>

#include <array>
#include <cstddef>
#include <memory_resource>
#include <string>
#include <string_view>
#include <unordered_map>

/// The elements that the build of one document has created, by parent and name, so that finding one
/// again takes the same time however many there are.
///
/// It belongs to the document for as long as it lives; `childNamed` finds it there. Elements whose
/// names hold a single quote are left to the search by an XPath expression, where the quote has a
/// meaning of its own; no other name can be borne by two children of one parent.
class XmlDocumentIndex {
public:
    explicit XmlDocumentIndex(xmlDocPtr document);
    ~XmlDocumentIndex();
    XmlDocumentIndex(const XmlDocumentIndex&) = delete;
    XmlDocumentIndex& operator=(const XmlDocumentIndex&) = delete;

    /// @return the index that the node's document has; null when it has none
    static XmlDocumentIndex* of(const xmlNode* node);

    /// Whether `find` knows everything about elements of this name.
    static bool answersFor(std::string_view name);

    /// @return the parent's child of that name, null when none was created
    xmlNodePtr find(const xmlNode* parent, std::string_view name) const;

    /// Takes up an element that was just created and given its name.
    void add(xmlNodePtr element);

private:
    struct Child {
        const xmlNode* parent;
        std::string_view name; ///< the text of the element's own attribute

        bool operator==(const Child& other) const {
            return parent == other.parent && name == other.name;
        }
    };

    struct ChildHash {
        std::size_t operator()(const Child& child) const;
    };

    xmlDocPtr m_document;
    // Elements are only ever added, and all are forgotten at once. The catalogue's fit in here; the
    // allocator, which has small blocks ready for the tree, is not asked for large ones in between.
    std::array<std::byte, 16384> m_own;
    std::pmr::monotonic_buffer_resource m_memory{m_own.data(), m_own.size()};
    std::pmr::unordered_map<Child, xmlNodePtr, ChildHash> m_elements{&m_memory};
};

/// Finds the child that bears a name, by the document's index or, where that cannot answer, by an
/// XPath expression.
/// @return the element, null when there is none
/// @throws KLX::Exception "XML tree has invalid structure" when the expression finds several, or
///         what `KLXCommonUtil::xmlFindNodes` throws
xmlNodePtr childNamed(xmlNodePtr parent, const std::string& name);
