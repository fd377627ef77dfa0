#pragma once

#include "InputDevice.h"

#include <string>
#include <vector>

/// The set's inputs, in their fixed order.
/// @throws Failure when the library cannot tell
std::vector<InputDevice> inputDevices();

/// Whether an input shows what is plugged into the machine, so that nothing can be played there.
bool isUsb(const std::string& inputName);

/// The names of the inputs at which something can be played.
/// @throws Failure when the library cannot tell
std::vector<std::string> portNames();
