#pragma once

#include <string>

/// Tells people something on standard error, behind the tool's name.
void report(const std::string& message);

/// A text for people, with the control characters, which a terminal would obey, as escapes.
std::string escaped(const std::string& text);

/// The same between quotation marks.
std::string quoted(const std::string& text);
