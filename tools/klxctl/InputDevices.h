#pragma once

#include "InputDevice.h"

#include <vector>

/// The set's inputs, in their fixed order.
/// @throws Failure when the library cannot tell
std::vector<InputDevice> inputDevices();
