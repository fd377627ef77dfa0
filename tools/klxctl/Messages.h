#pragma once

#include <string>

/// Tells people something on standard error, behind the tool's name.
void report(const std::string& message);

/// A text between quotation marks, for messages; control characters, which a terminal would obey,
/// are shown as escapes.
std::string quoted(const std::string& text);
