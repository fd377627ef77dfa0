#include "XmlDocument.h"

#include "DocumentText.h"
#include "EntityGrowth.h"
#include "Exception.h"
#include "KLXCommonUtil.h"

#include <libxml/dict.h>
#include <libxml/parser.h>

#include <climits>
#include <new>
#include <utility>

namespace {

using XmlParser = std::unique_ptr<xmlParserCtxt, KLX::ReleasedBy<&xmlFreeParserCtxt>>;

const xmlChar* xmlText(const char* text) {
    return reinterpret_cast<const xmlChar*>(text);
}

// libxml2 fails here for want of memory only.
template <class Pointer>
Pointer required(Pointer pointer) {
    if (pointer == nullptr) {
        throw std::bad_alloc();
    }
    return pointer;
}

using XmlNames = std::unique_ptr<xmlDict, KLX::ReleasedBy<&xmlDictFree>>;

XmlNames createNames() {
    XmlNames names(required(xmlDictCreate()));
    for (const char* const name : {"rm_as", "version", "deviceInfo", "devicetype", "menu",
                                   "property", "name", "default", "value"}) {
        required(xmlDictLookup(names.get(), xmlText(name), -1));
    }
    return names;
}

/// All names of elements and attributes that documents of this library's making have: libxml2 then
/// copies none for each element. It would add a name that is missing here, which no two threads may
/// do at once; as it is, it only ever looks names up. They are not released, because a document may
/// outlive the process's static objects.
xmlDictPtr sharedNames() {
    static const xmlDictPtr names = createNames().release();
    return names;
}

} // namespace

XmlDocument newXmlDocument() {
    XmlDocument document(required(xmlNewDoc(xmlText("1.0"))));
    document->dict = sharedNames();
    xmlDictReference(document->dict);
    return document;
}

XmlDocument parseXmlDocument(const std::string& data) {
    const int size = data.size() > INT_MAX ? -1 : static_cast<int>(data.size());
    const XmlParser parser(required(xmlNewParserCtxt()));
    // The process's own defaults would let the parser load files and substitute entities.
    parser->options = 0;
    XmlDocument document(
        xmlCtxtReadMemory(parser.get(), data.data(), size, "noname.xml", nullptr, 0));
    if (!document || !entitiesStayWithinMeasure(document.get())) {
        throw KLX::Exception("Failed to parse XML from string");
    }
    return document;
}

xmlNodePtr addRoot(const XmlDocument& document, const char* name) {
    xmlNodePtr const root =
        required(xmlNewDocNode(document.get(), nullptr, xmlText(name), nullptr));
    xmlDocSetRootElement(document.get(), root);
    return root;
}

xmlNodePtr addElement(xmlNodePtr parent, const char* name) {
    return required(xmlNewChild(parent, nullptr, xmlText(name), nullptr));
}

void setAttribute(xmlNodePtr element, const char* name, std::string value) {
    const std::string text = documentText(std::move(value));
    required(KLXCommonUtil::xmlSetAttribute(element, name, text.c_str()));
}
