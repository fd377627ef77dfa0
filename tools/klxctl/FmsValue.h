#pragma once

#include <string>

/// What keeps a text from being a key or a value of the set's configuration, with what to write
/// instead; "" when nothing does. A shell reads both, so only what means nothing to it may pass.
std::string mistakeOfFmsText(const std::string& text);

/// Whether the set tells, by any of the types that it keeps, that a key holds a value.
bool isFmsHeld(const std::string& key, const std::string& value);
