#pragma once

#include <libxml/tree.h>

#include <memory>
#include <optional>
#include <string>

struct XmlRelease {
    void operator()(xmlDoc* document) const { xmlFreeDoc(document); }
};
using XmlHandle = std::unique_ptr<xmlDoc, XmlRelease>;

/// Parses a document that may come from anywhere: nothing that it refers to is loaded, and one that
/// declares entities, which may grow to any size, is refused.
/// @throws Failure that tells the line and what is wrong there
XmlHandle parseXml(const std::string& text);

bool isNamed(const xmlNode& element, const char* name);

/// @return nothing when the element has no such attribute
std::optional<std::string> attributeOf(const xmlNode& element, const char* name);

/// An element's part of a path: names carry a single slash where the path has two.
std::string pathSegment(const std::string& name);
