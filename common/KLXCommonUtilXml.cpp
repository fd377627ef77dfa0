#include "KLXCommonUtil.h"

#include "Exception.h"
#include "Handles.h"
#include "XmlErrors.h"

#include <libxml/tree.h>
#include <libxml/xmlIO.h>
#include <libxml/xpath.h>
#include <libxml/xpathInternals.h>

#include <algorithm>
#include <iterator>

namespace {

using XmlBuffer = std::unique_ptr<xmlBuffer, KLX::ReleasedBy<&xmlBufferFree>>;
using XPathContext = std::unique_ptr<xmlXPathContext, KLX::ReleasedBy<&xmlXPathFreeContext>>;
using XPathObject = std::unique_ptr<xmlXPathObject, KLX::ReleasedBy<&xmlXPathFreeObject>>;

const xmlChar* xmlText(const char* text) {
    return reinterpret_cast<const xmlChar*>(text);
}

const char* plainText(const xmlChar* text) {
    return reinterpret_cast<const char*>(text);
}

// xmlFree is a variable, so it cannot be a template argument.
struct FreedByXml {
    void operator()(xmlChar* text) const noexcept { xmlFree(text); }
};
using XmlString = std::unique_ptr<xmlChar, FreedByXml>;

} // namespace

xmlAttrPtr KLXCommonUtil::xmlSetAttribute(xmlNodePtr node, const char* name, const char* value) {
    if (xmlHasProp(node, xmlText(name)) == nullptr) {
        return xmlNewProp(node, xmlText(name), xmlText(value));
    }
    return xmlSetProp(node, xmlText(name), xmlText(value));
}

std::string KLXCommonUtil::xmlGetAttribute(xmlNodePtr node, const char* name) {
    const XmlString value(xmlGetProp(node, xmlText(name)));
    if (!value) {
        throw KLX::Exception(std::string("Failed to get attribute: ") + name);
    }
    return plainText(value.get());
}

std::vector<xmlNodePtr> KLXCommonUtil::xmlFindNodes(xmlNodePtr node, const std::string& xpath) {
    if (node == nullptr) {
        throw KLX::Exception("xmlNodePtr is null");
    }
    const auto quiet = KLX::XmlErrorScope::quietByDefault();
    const XPathContext context(xmlXPathNewContext(node->doc));
    if (!context) {
        throw KLX::Exception("xPathContextPtr is null");
    }
    context->node = node;
    const XPathObject found(xmlXPathEvalExpression(xmlText(xpath.c_str()), context.get()));
    if (!found) {
        throw KLX::Exception("Failed to evaluate XPath: " + xpath);
    }
    const xmlNodeSetPtr nodes = found->nodesetval;
    if (nodes == nullptr || nodes->nodeNr <= 0) {
        return {};
    }
    xmlXPathNodeSetSort(nodes);
    std::vector<xmlNodePtr> kept;
    // A namespace in the set is a copy that dies with the set.
    std::copy_if(nodes->nodeTab, nodes->nodeTab + nodes->nodeNr, std::back_inserter(kept),
                 [](xmlNodePtr each) { return each->type != XML_NAMESPACE_DECL; });
    return kept;
}

void KLXCommonUtil::xmlDocumentToString(xmlDocPtr doc, std::string& out) {
    const auto quiet = KLX::XmlErrorScope::quietByDefault();
    const XmlBuffer buffer(xmlBufferCreate());
    if (!buffer) {
        throw KLX::Exception("Failed to create buffer with xmlBufferCreate().");
    }
    // By default it would be allocated anew for every few kilobytes that it is given.
    xmlBufferSetAllocationScheme(buffer.get(), XML_BUFFER_ALLOC_DOUBLEIT);
    const xmlOutputBufferPtr output = xmlOutputBufferCreateBuffer(buffer.get(), nullptr);
    if (output == nullptr) {
        throw KLX::Exception("Failed to create output buffer with xmlOutputBufferCreateBuffer().");
    }
    if (xmlSaveFormatFileTo(output, doc, "utf-8", 1) == -1) {
        throw KLX::Exception("Failed to save XML to buffer with xmlSaveFormatFileTo().");
    }
    out.assign(plainText(xmlBufferContent(buffer.get())),
               static_cast<std::size_t>(xmlBufferLength(buffer.get())));
}
