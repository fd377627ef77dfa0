#pragma once

#include "SettingsDocument.h"

/// Every property of a JSON document, in the order of their names.
/// @throws Failure when the text is no document of the library's form
std::vector<Setting> jsonSettings(const std::string& text);

/// @see documentOf
std::string jsonDocumentOf(const std::vector<Assignment>& assignments);
