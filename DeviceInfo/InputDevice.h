#pragma once

#include <string>

/// One external input of the set, with what is attached to it.
struct InputDevice {
    /// The input's name, "HDMI1" to "USB4".
    std::string name;

    /// For HDMI inputs "0" for nothing connected, "1" or "2" for something connected, "-1" when the
    /// set does not tell; for the others "1" when something is connected, else "0".
    std::string state;

    /// What an attached USB storage device is called; "" for all others, and where it does not
    /// tell.
    std::string product;

    /// Who made an attached USB storage device; "" for all others, and where it does not tell.
    std::string manufacturer;
};
