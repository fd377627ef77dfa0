#pragma once

#include <string>

/// Writes data to what the option "-o" names: "-" is standard output, a device or a pipe is written
/// into, any other file is replaced as a whole.
/// @throws Failure when the data cannot be written
void writeTo(const std::string& target, const std::string& data);
