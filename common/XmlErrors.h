#pragma once

#include <libxml/xmlerror.h>

namespace KLX {

/// Takes libxml2's messages of the calling thread for as long as it lives, so that nothing reaches
/// the process's standard error; the caller's own handler is back in place afterwards.
class XmlErrorScope {
public:
    /// Messages go to the log at debug priority.
    static XmlErrorScope toLog();

    /// Messages go to the handler that is set already; to nobody when there is none.
    static XmlErrorScope quietByDefault();

    /// libxml2 carries on with half a document when a small allocation fails; only its messages
    /// tell.
    /// @throws std::bad_alloc when `toLog` saw such a message
    void requireMemory() const;

    XmlErrorScope(const XmlErrorScope&) = delete;
    XmlErrorScope& operator=(const XmlErrorScope&) = delete;
    ~XmlErrorScope();

private:
    XmlErrorScope();
    explicit XmlErrorScope(xmlStructuredErrorFunc handler);

    static void log(void* scope, xmlErrorPtr error);

    xmlStructuredErrorFunc m_handler;
    void* m_context;
    bool m_ranOutOfMemory = false;
};

} // namespace KLX
