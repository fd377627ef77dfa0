#include "XmlDocument.h"

#include "EntityGrowth.h"
#include "Exception.h"

#include <libxml/parser.h>

#include <climits>
#include <new>

namespace {

using XmlParser = std::unique_ptr<xmlParserCtxt, KLX::ReleasedBy<&xmlFreeParserCtxt>>;

} // namespace

XmlDocument parseXmlDocument(const std::string& data) {
    const int size = data.size() > INT_MAX ? -1 : static_cast<int>(data.size());
    const XmlParser parser(xmlNewParserCtxt());
    if (!parser) {
        throw std::bad_alloc();
    }
    // The process's own defaults would let the parser load files and substitute entities.
    parser->options = 0;
    XmlDocument document(
        xmlCtxtReadMemory(parser.get(), data.data(), size, "noname.xml", nullptr, 0));
    if (!document || !entitiesStayWithinMeasure(document.get())) {
        throw KLX::Exception("Failed to parse XML from string");
    }
    return document;
}
