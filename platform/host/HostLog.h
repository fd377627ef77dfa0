#pragma once

#include <string>

namespace KLX::Host {

/** Writes a line of the host platform's own to the platform log, under the tag "KLX_HOST". */
void hostLog(int priority, const std::string& text);

} // namespace KLX::Host
