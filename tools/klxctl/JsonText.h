#pragma once

#include <string>

namespace Json {
class Value;
}

/// A JSON text for machines, with a newline at its end: ASCII, whatever bytes the values hold (what
/// is not UTF-8 becomes U+FFFD).
std::string jsonText(const Json::Value& root);

/// The same on one line.
std::string jsonLine(const Json::Value& root);
