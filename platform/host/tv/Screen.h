#pragma once

#include "../Boundary.h"

namespace KLX::Host {

/** Throws HostFailure (OutOfRange) unless the one screen of a desk is meant: profile 1, index 0. */
void checkScreen(int profile, int index);

/** Gives a caller the control of the one screen; null when another screen is meant. */
template <typename Interface, typename Control>
void handOutControl(int profile, int index, Interface** control, Control& ours) {
    requirePointer(control, "control");
    *control = nullptr;
    checkScreen(profile, index);
    *control = &ours;
}

} // namespace KLX::Host
