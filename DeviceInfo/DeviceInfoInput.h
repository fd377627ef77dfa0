#pragma once

#include <string>

/// External inputs and attached devices, as text. Keeps no state of its own, so any thread may call
/// it as far as the platform's calls allow.
class DeviceInfoInput {
public:
    /// Asks for a text of an attached USB storage device. The one argument serves two purposes: its
    /// last character less '0' is the device's index (1 is the first), and as a whole it names the
    /// text that is wanted.
    /// @param detail "model" or "vendor"
    /// @return the text; "0" when there is no such device or text
    std::string getUSBDetail(const std::string& detail);
};
