#include "XmlReading.h"

#include "ExitStatus.h"

#include <libxml/parser.h>

#include <climits>

namespace {

struct TextRelease {
    void operator()(xmlChar* text) const { xmlFree(text); }
};
using Text = std::unique_ptr<xmlChar, TextRelease>;

const xmlChar* xmlText(const char* text) {
    return reinterpret_cast<const xmlChar*>(text);
}

std::string lastMistake() {
    const xmlError* const error = xmlGetLastError();
    if (error == nullptr || error->message == nullptr) {
        return "it is not well-formed XML";
    }
    std::string message = error->message;
    message.erase(message.find_last_not_of('\n') + 1);
    return "it is not well-formed XML: line " + std::to_string(error->line) + ": " + message;
}

} // namespace

XmlHandle parseXml(const std::string& text) {
    constexpr int options = XML_PARSE_NONET | XML_PARSE_NOERROR | XML_PARSE_NOWARNING;
    xmlResetLastError();
    XmlHandle document;
    if (text.size() <= INT_MAX) {
        document.reset(
            xmlReadMemory(text.data(), static_cast<int>(text.size()), nullptr, nullptr, options));
    }
    if (!document) {
        throw Failure(ExitStatus::Failed, lastMistake());
    }
    if (document->intSubset != nullptr && document->intSubset->entities != nullptr) {
        throw Failure(ExitStatus::Failed, "it declares entities; write their texts in their place");
    }
    return document;
}

bool isNamed(const xmlNode& element, const char* name) {
    return xmlStrEqual(element.name, xmlText(name)) != 0;
}

std::optional<std::string> attributeOf(const xmlNode& element, const char* name) {
    const Text value(xmlGetProp(&element, xmlText(name)));
    if (!value) {
        return std::nullopt;
    }
    return reinterpret_cast<const char*>(value.get());
}

std::string pathSegment(const std::string& name) {
    std::string segment = "/";
    for (const char character : name) {
        segment.append(character == '/' ? 2 : 1, character);
    }
    return segment;
}
