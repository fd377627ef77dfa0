#pragma once

#include "SettingsDocument.h"

/// Every mention of a property in an XML document, in the order of the document.
/// @throws Failure when the text is no document of the library's form
/// @param attribute that holds what is asked for: "value" or "default"
std::vector<Setting> xmlSettings(const std::string& text, const char* attribute = "value");

/// @see documentOf
std::string xmlDocumentOf(const std::vector<Assignment>& assignments);
