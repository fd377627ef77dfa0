#pragma once

#include <string>

/// @return the text with each character that XML 1.0 cannot carry, and each byte that is not part
///         of well-formed UTF-8, replaced by U+FFFD, so that a document can always be read back
std::string documentText(std::string text);
