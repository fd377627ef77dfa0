#pragma once

#include <limits>
#include <string>

namespace KLX::Host {

/** What the type of a control's functions can carry; a profile's range lies within. */
struct ControlLimits {
    int minimum;
    int maximum;
};

constexpr ControlLimits anyInteger{std::numeric_limits<int>::min(),
                                   std::numeric_limits<int>::max()};

/** The limits of a control by its pelm name, or null for a name that is none. */
const ControlLimits* findControlLimits(const std::string& name);

/** All names, for a message. */
std::string controlNames();

} // namespace KLX::Host
