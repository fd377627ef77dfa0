#pragma once

#include "Diagnostics.h"

#include <string>

/// The table's first line, with the names of its columns.
std::string tableHeader();

/// A line of the table. A figure that is missing is shown as "-".
std::string tableRow(const Diagnostics& told);

/// One JSON object, on one line or on a line a member. A figure that is missing is null.
std::string jsonObject(const Diagnostics& told, bool onOneLine);

/// A number of bytes for people: "999 B", "1.0 KiB", "38.6 GiB".
std::string readableBytes(long long bytes);
