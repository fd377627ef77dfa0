#pragma once

#include "Handles.h"

#include <libxml/tree.h>

#include <string>

/// A document of this library's, freed with its tree.
using XmlDocument = std::unique_ptr<xmlDoc, KLX::ReleasedBy<&xmlFreeDoc>>;

/// @return an empty document of version 1.0
/// @throws std::bad_alloc
XmlDocument newXmlDocument();

/// Parses a document that may come from anywhere: nothing that it refers to is loaded, and
/// libxml2's limits on depth, length and entity expansion hold.
/// @throws KLX::Exception "Failed to parse XML from string", also for more than `INT_MAX` bytes
XmlDocument parseXmlDocument(const std::string& data);

/// Adds the root element. @return the element, owned by the document
/// @throws std::bad_alloc
xmlNodePtr addRoot(const XmlDocument& document, const char* name);

/// Adds an element behind the parent's other children. @return the element, owned by the document
/// @throws std::bad_alloc
xmlNodePtr addElement(xmlNodePtr parent, const char* name);

/// Sets an attribute to the text, made fit for XML where it is not.
/// @throws std::bad_alloc
void setAttribute(xmlNodePtr element, const char* name, std::string value);
