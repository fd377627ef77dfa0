#include "XmlErrors.h"

#include "Log.h"

#include <libxml/globals.h>

#include <string>

namespace KLX {

namespace {

void logXmlError(void*, xmlErrorPtr error) {
    std::string text = error != nullptr && error->message != nullptr ? error->message : "";
    while (!text.empty() && text.back() == '\n') {
        text.pop_back();
    }
    KLX_LOG(LogDebug, "%s", text.c_str());
}

void ignoreXmlError(void*, xmlErrorPtr) {}

} // namespace

XmlErrorScope XmlErrorScope::toLog() {
    return XmlErrorScope(&logXmlError);
}

XmlErrorScope XmlErrorScope::quietByDefault() {
    return XmlErrorScope(xmlStructuredError != nullptr ? xmlStructuredError : &ignoreXmlError);
}

XmlErrorScope::XmlErrorScope(xmlStructuredErrorFunc handler)
    : m_handler(xmlStructuredError), m_context(xmlStructuredErrorContext) {
    xmlSetStructuredErrorFunc(handler == m_handler ? m_context : nullptr, handler);
}

XmlErrorScope::~XmlErrorScope() {
    xmlSetStructuredErrorFunc(m_context, m_handler);
}

} // namespace KLX
