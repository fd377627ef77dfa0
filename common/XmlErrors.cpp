#include "XmlErrors.h"

#include "Log.h"

#include <libxml/globals.h>

#include <cstring>
#include <new>

namespace KLX {

namespace {

const char* messageOf(const xmlError* error) {
    return error != nullptr && error->message != nullptr ? error->message : "";
}

int lengthWithoutLineEnd(const char* message) {
    std::size_t length = std::strlen(message);
    while (length > 0 && message[length - 1] == '\n') {
        --length;
    }
    return static_cast<int>(length);
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
    // No copy: an exception for want of memory would pass through libxml2's own functions.
    const char* const message = messageOf(error);
    KLX_LOG_AS("logXmlError", LogDebug, "%.*s", lengthWithoutLineEnd(message), message);
}

} // namespace KLX
