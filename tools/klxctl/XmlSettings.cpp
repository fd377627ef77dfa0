#include "XmlSettings.h"

#include "ExitStatus.h"
#include "PathParts.h"
#include "XmlReading.h"

#include <new>

namespace {

struct BufferRelease {
    void operator()(xmlChar* text) const { xmlFree(text); }
};
using Buffer = std::unique_ptr<xmlChar, BufferRelease>;

const xmlChar* xmlText(const std::string& text) {
    return reinterpret_cast<const xmlChar*>(text.c_str());
}

std::string nameOf(const xmlNode& element) {
    const std::optional<std::string> name = attributeOf(element, "name");
    if (!name) {
        throw Failure(ExitStatus::Failed, "the element in line " +
                                              std::to_string(xmlGetLineNo(&element)) +
                                              " has no name");
    }
    return *name;
}

/// @return the number of properties that were found
std::size_t collect(const xmlNode& parent, const std::string& prefix, const char* attribute,
                    std::vector<Setting>& settings) {
    const std::size_t former = settings.size();
    for (const xmlNode* child = parent.children; child != nullptr; child = child->next) {
        if (child->type != XML_ELEMENT_NODE) {
            continue;
        }
        const std::string path = prefix + pathSegment(nameOf(*child));
        const bool mayHold = isNamed(*child, "menu") || isNamed(*child, "property");
        const bool isEmpty = !mayHold || collect(*child, path, attribute, settings) == 0;
        const std::optional<std::string> value = attributeOf(*child, attribute);
        const bool isMenu = mayHold && prefix.empty();
        if (isMenu && value) {
            // The library reads no value there.
            settings.push_back({path, std::nullopt, true});
        } else if (!isMenu && (isEmpty || value)) {
            settings.push_back({path, value});
        }
    }
    return settings.size() - former;
}

// libxml2 fails to add something for want of memory only.
template <class Pointer>
Pointer required(Pointer pointer) {
    if (pointer == nullptr) {
        throw std::bad_alloc();
    }
    return pointer;
}

xmlNode* addNamed(xmlNode* parent, const char* kind, const std::string& name) {
    xmlNode* const element = required(xmlNewChild(parent, nullptr, xmlText(kind), nullptr));
    required(xmlNewProp(element, xmlText("name"), xmlText(name)));
    return element;
}

// Each stands in elements of its own, for shared ones would bring them out of their order.
void addAssignment(xmlNode* deviceInfo, const Assignment& assignment) {
    xmlNode* element = deviceInfo;
    for (const std::string& name : segmentsOf(assignment.path)) {
        element = addNamed(element, element == deviceInfo ? "menu" : "property", name);
    }
    required(xmlNewProp(element, xmlText("value"), xmlText(assignment.value)));
}

std::string serialised(xmlDoc* document) {
    xmlChar* text = nullptr;
    int size = 0;
    xmlDocDumpMemoryEnc(document, &text, &size, "utf-8");
    const Buffer owned(required(text));
    return {reinterpret_cast<const char*>(text), static_cast<std::size_t>(size)};
}

} // namespace

std::vector<Setting> xmlSettings(const std::string& text, const char* attribute) {
    const XmlHandle document = parseXml(text);
    const xmlNode* const root = xmlDocGetRootElement(document.get());
    std::vector<Setting> settings;
    bool isDocument = false;
    for (const xmlNode* child = root->children; child != nullptr; child = child->next) {
        if (child->type == XML_ELEMENT_NODE && isNamed(*child, "deviceInfo")) {
            isDocument = true;
            collect(*child, "", attribute, settings);
        }
    }
    if (!isDocument) {
        throw Failure(ExitStatus::Failed,
                      "it is no document of a set: it has no element \"deviceInfo\"");
    }
    return settings;
}

std::string xmlDocumentOf(const std::vector<Assignment>& assignments) {
    const XmlHandle document(required(xmlNewDoc(xmlText("1.0"))));
    xmlNode* const root =
        required(xmlNewDocNode(document.get(), nullptr, xmlText("rm_as"), nullptr));
    xmlDocSetRootElement(document.get(), root);
    xmlNode* const deviceInfo =
        required(xmlNewChild(root, nullptr, xmlText("deviceInfo"), nullptr));
    for (const Assignment& assignment : assignments) {
        addAssignment(deviceInfo, assignment);
    }
    return serialised(document.get());
}
