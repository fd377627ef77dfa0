#pragma once

#include "Handles.h"

#include <libxml/tree.h>

#include <memory>
#include <string>

/// A document and the tree that it holds.
using XmlDocument = std::unique_ptr<xmlDoc, KLX::ReleasedBy<&xmlFreeDoc>>;

/// Parses a document that may come from anywhere: nothing that it refers to is loaded, and
/// libxml2's limits on depth, length and entity expansion hold.
/// @throws KLX::Exception "Failed to parse XML from string", also for more than `INT_MAX` bytes
XmlDocument parseXmlDocument(const std::string& data);
