#pragma once

#include <libxml/tree.h>

#include <string>
#include <string_view>
#include <unordered_map>

/// Finds the elements that an `XmlDocumentBuilder` has created by parent and name, in a time that
/// hardly grows with their number.
///
/// Properties are mostly visited in the order of their names. As long as the names below a parent
/// only ascend, the last one tells whether a name is new; a parent for which that has ended has its
/// children listed.
///
/// Elements whose names hold a single quote are left to the search by an XPath expression, where
/// the quote has a meaning of its own; no other name can be borne by two children of one parent.
class XmlDocumentIndex {
public:
    /// Finds the child that bears a name; where a quote is in the name, by an XPath expression.
    /// @return the element, null when there is none
    /// @throws KLX::Exception "XML tree has invalid structure" when several bear it, or what
    ///         `KLXCommonUtil::xmlFindNodes` throws
    xmlNodePtr childNamed(xmlNodePtr parent, const std::string& name);

    /// Takes up an element that was just created and given its name.
    void add(xmlNodePtr element);

private:
    using Children = std::unordered_map<std::string_view, xmlNodePtr>;

    xmlNodePtr find(const xmlNode* parent, std::string_view name);
    Children& list(const xmlNode* parent);
    static void enter(xmlNodePtr element, Children& children);

    std::unordered_map<const xmlNode*, Children> m_listed;
};
