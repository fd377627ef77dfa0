#pragma once

#include <string>
#include <vector>

/// External inputs and attached devices, as text. The list of device names is filled at
/// construction and only read afterwards, so any thread may call any operation as far as the
/// platform's calls allow.
class DeviceInfoInput {
public:
    /// Lists the inputs of this set: a Tessa set has two more HDMI inputs.
    DeviceInfoInput();

    /// @return whether the set belongs to the Tessa model line
    bool IsTessa();

    /// Copies the names of the input devices, "HDMI1" to "USB4", in their fixed order.
    void getInputDeviceList(std::vector<std::string>& devices);

    /// Asks for a text of an attached USB storage device. The one argument serves two purposes: its
    /// last character less '0' is the device's index (1 is the first), and as a whole it names the
    /// text that is wanted.
    /// @param detail "model" or "vendor"
    /// @return the text; "0" when there is no such device or text
    std::string getUSBDetail(const std::string& detail);

private:
    std::vector<std::string> m_devices;
};
