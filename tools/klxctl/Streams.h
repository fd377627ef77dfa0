#pragma once

#include <string>

/// Makes sure that descriptors 0 to 2 are taken, so that no file that is opened later becomes the
/// standard output of a process that was started without one. Writing to such an output fails.
void reserveStandardStreams();

/// Writes data to standard output, all of it and at once.
/// @throws Failure when it is closed, full or otherwise refuses the data
void writeOutput(const std::string& data);

/// Ends standard output, so that a failure that shows only then is not lost. A second call does
/// nothing.
/// @throws Failure as `writeOutput` does
void closeOutput();

/// Writes all of the data to a descriptor.
/// @return false with `errno` set when it cannot be written
bool writeAll(int descriptor, const std::string& data);
