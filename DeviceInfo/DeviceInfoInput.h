#pragma once

#include "InputDevice.h"
#include "ValueTypes.h"

#include <string>
#include <vector>

/// What is asked of an HDMI source. Values outside the named ones give "".
enum eHDMIinfo : int { hdmiVendor = 0, hdmiProduct = 1 };

/// External inputs and attached devices, as text. The list of device names is filled at
/// construction and only read afterwards, so any thread may call any operation as far as the
/// platform's calls allow. Failures are logged; only `getHDMIinfo` throws.
class DeviceInfoInput {
public:
    /// Lists the inputs of this set: a Tessa set has two more HDMI inputs.
    DeviceInfoInput();

    /// @return the number of the source that is shown, "" on failure; the default is "0". Queries
    ///         wait for each other.
    std::string getSourceList(eMenuValueType kind, const std::string& ignored);

    /// Switches to a source. Does not wait for queries.
    /// @param value its number
    void setSourceList(const std::string& value);

    /// Asks the HDMI processor about the source in front.
    /// @return the text, "" when that source is no HDMI input
    /// @throws KLX::Exception "Cannot open HDMI processor, errno= %d", "ioctl() failed, errno= %d"
    std::string getHDMIinfo(eHDMIinfo which);

    /// @return the state of HDMI-CEC in decimal; both arguments are ignored
    std::string getCordixHdmiCec(eMenuValueType, const std::string&);
    void setCordixHdmiCec(const std::string& value);

    /// @return whether the set belongs to the Tessa model line
    bool IsTessa();

    /// Copies the names of the input devices, "HDMI1" to "USB4", in their fixed order.
    void getInputDeviceList(std::vector<std::string>& devices);

    /// @param name an input device, such as "HDMI1"
    /// @return for names with "HDMI" the port's state "0", "1" or "2", "-1" on failure; for others
    ///         "1" when something is connected, else "0"
    std::string getInputDeviceStatus(const std::string& name);

    /// @param name its last character less '0' is the index of a USB storage device, 1 the first
    /// @return "1" when that many devices are connected, else "0"
    std::string getUSBStatus(const std::string& name);

    /// Asks for a text of an attached USB storage device. The one argument serves two purposes: its
    /// last character less '0' is the device's index (1 is the first), and as a whole it names the
    /// text that is wanted.
    /// @param detail "model" or "vendor"
    /// @return the text; "0" when there is no such device or text
    std::string getUSBDetail(const std::string& detail);

    /// @return every input device with its state; for the USB ones state and texts come from one
    ///         list of what is attached
    std::vector<InputDevice> describeInputDevices();

private:
    bool isHdmi(int source);

    std::vector<std::string> m_devices;
};
