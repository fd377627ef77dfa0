#pragma once

#include "SettingsDocument.h"

#include <string>

/// Reads a document from a file or, by the name "-", from standard input.
/// @param format the name of its format, "" to guess it from the content
/// @throws Failure when it cannot be read or is no document of the library's form
SettingsDocument readDocument(const std::string& file, const std::string& format = "");

/// What messages call the document of that file.
std::string documentName(const std::string& file);

/// @return a message when the name is empty, else ""
std::string checkInputName(const std::string& name);
