#pragma once

#include <string>

namespace KLX::Host {

/** Calls of the settings store in the form that the fault tests need. */

int setInteger(const std::string& key, int value);
int setText(const std::string& key, const std::string& value);

/** The number under a key, or the error number. */
int integerOr(const std::string& key);

/** The text under a key, or "(failed)". */
std::string textOf(const std::string& key);

} // namespace KLX::Host
