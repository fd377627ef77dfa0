#pragma once

#include <string>

/// Whether a set that was asked for one value and now tells another holds what was asked for: the
/// same text, or the same whole number however it is written.
bool isHeld(const std::string& asked, const std::string& told);

/// Whether a text is a whole number of any length, with or without a sign.
bool isWholeNumber(const std::string& text);
