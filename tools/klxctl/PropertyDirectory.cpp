#include "PropertyDirectory.h"

#include "ExitStatus.h"
#include "LibraryDocument.h"

#include <libxml/parser.h>
#include <libxml/tree.h>

#include <climits>
#include <memory>

namespace {

struct DocumentRelease {
    void operator()(xmlDoc* document) const { xmlFreeDoc(document); }
};
struct TextRelease {
    void operator()(xmlChar* text) const { xmlFree(text); }
};
using Document = std::unique_ptr<xmlDoc, DocumentRelease>;
using Text = std::unique_ptr<xmlChar, TextRelease>;

const xmlChar* xmlText(const char* text) {
    return reinterpret_cast<const xmlChar*>(text);
}

Document parse(const std::string& text) {
    constexpr int options = XML_PARSE_NONET | XML_PARSE_NOERROR | XML_PARSE_NOWARNING;
    Document document;
    if (text.size() <= INT_MAX) {
        document.reset(
            xmlReadMemory(text.data(), static_cast<int>(text.size()), nullptr, nullptr, options));
    }
    if (!document) {
        throw Failure(ExitStatus::Failed, "the library's document is not well-formed XML");
    }
    return document;
}

std::string nameOf(const xmlNode& element) {
    const Text name(xmlGetProp(&element, xmlText("name")));
    return name ? reinterpret_cast<const char*>(name.get()) : "";
}

/// One element's part of a path: names carry a single slash where the path has two.
std::string segmentOf(const xmlNode& element) {
    std::string segment = "/";
    for (const char character : nameOf(element)) {
        segment.append(character == '/' ? 2 : 1, character);
    }
    return segment;
}

void collect(const xmlNode& parent, const std::string& prefix, std::set<std::string>& paths) {
    for (const xmlNode* child = parent.children; child != nullptr; child = child->next) {
        if (child->type != XML_ELEMENT_NODE) {
            continue;
        }
        const std::string path = prefix + segmentOf(*child);
        if (xmlHasProp(child, xmlText("value")) != nullptr) {
            paths.insert(path);
        }
        collect(*child, path, paths);
    }
}

} // namespace

PropertyDirectory PropertyDirectory::everything() {
    // A category stands for all names that it is the beginning of, so the empty one stands for all.
    return ofCategory("");
}

PropertyDirectory PropertyDirectory::ofCategory(const std::string& name) {
    return fromDocument(libraryDocument({{name, {"*"}}}, CDeviceInfoManager::DATA_FORMAT_XML));
}

PropertyDirectory PropertyDirectory::fromDocument(const std::string& document) {
    const Document parsed = parse(document);
    PropertyDirectory directory;
    const xmlNode* const root = xmlDocGetRootElement(parsed.get());
    for (const xmlNode* child = root->children; child != nullptr; child = child->next) {
        collect(*child, "", directory.m_paths);
    }
    return directory;
}

bool PropertyDirectory::containsPrefix(const std::string& text) const {
    const auto at = m_paths.lower_bound(text);
    return at != m_paths.end() && at->compare(0, text.size(), text) == 0;
}
