#include "XmlErrors.h"

#include "Log.h"

#include <libxml/globals.h>

#include <new>
#include <string>

namespace KLX {

namespace {

std::string messageOf(const xmlError* error) {
    std::string text = error != nullptr && error->message != nullptr ? error->message : "";
    while (!text.empty() && text.back() == '\n') {
        text.pop_back();
    }
    return text;
}

void ignoreXmlError(void*, xmlErrorPtr) {}

} // namespace

XmlErrorScope::XmlErrorScope()
    : m_handler(xmlStructuredError), m_context(xmlStructuredErrorContext) {}

XmlErrorScope XmlErrorScope::toLog() {
    return XmlErrorScope(&XmlErrorScope::log);
}

XmlErrorScope XmlErrorScope::quietByDefault() {
    return xmlStructuredError != nullptr ? XmlErrorScope() : XmlErrorScope(&ignoreXmlError);
}

XmlErrorScope::XmlErrorScope(xmlStructuredErrorFunc handler) : XmlErrorScope() {
    xmlSetStructuredErrorFunc(this, handler);
}

XmlErrorScope::~XmlErrorScope() {
    xmlSetStructuredErrorFunc(m_context, m_handler);
}

void XmlErrorScope::requireMemory() const {
    if (m_ranOutOfMemory) {
        throw std::bad_alloc();
    }
}

void XmlErrorScope::log(void* scope, xmlErrorPtr error) {
    if (error != nullptr && error->code == XML_ERR_NO_MEMORY) {
        static_cast<XmlErrorScope*>(scope)->m_ranOutOfMemory = true;
    }
    KLX_LOG_AS("logXmlError", LogDebug, "%s", messageOf(error).c_str());
}

} // namespace KLX
