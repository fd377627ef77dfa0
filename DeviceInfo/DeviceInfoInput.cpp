#include "DeviceInfoInput.h"

#include "Handles.h"
#include "Log.h"

#include <system_info.h>
#include <usb_device.h>

#include <type_traits>

namespace {

constexpr int massStorage = 8;

/// The USB service is initialised for as long as this lives; the results are not examined.
class UsbService {
public:
    UsbService() { usb_device_init(); }
    ~UsbService() { usb_device_fini(); }
    UsbService(const UsbService&) = delete;
    UsbService& operator=(const UsbService&) = delete;
};

using UsbDeviceList = std::unique_ptr<std::remove_pointer_t<usb_device_list_h>,
                                      KLX::ReleasedBy<&usb_device_free_device_list>>;

UsbDeviceList listUsbDevices() {
    usb_device_list_h list = nullptr;
    usb_device_get_device_list(massStorage, &list);
    return UsbDeviceList(list);
}

int deviceIndex(const std::string& name) {
    return static_cast<signed char>(name.back()) - '0';
}

/// Walks to the device with this index; null when the list has no first one. Past the end of the
/// list the last device stays.
usb_device_h walkTo(usb_device_list_h list, int index) {
    usb_device_h device = nullptr;
    usb_device_list_get_first(list, &device);
    for (int i = 1; i < index && usb_device_list_get_next(list, &device) == 0; ++i) {
    }
    return device;
}

const char* textOf(usb_device_h device, const std::string& detail) {
    if (detail == "model") {
        return usb_device_get_product(device);
    }
    return detail == "vendor" ? usb_device_get_manufacturer(device) : nullptr;
}

} // namespace

DeviceInfoInput::DeviceInfoInput() : m_devices{"HDMI1", "HDMI2", "HDMI3", "HDMI4"} {
    if (IsTessa()) {
        m_devices.insert(m_devices.end(), {"HDMI5", "HDMI6"});
    }
    m_devices.insert(m_devices.end(), {"AV1", "AV2", "COMP1", "COMP2", "SCART1", "SCART2", "USB1",
                                       "USB2", "USB3", "USB4"});
}

bool DeviceInfoInput::IsTessa() {
    int tessa = 0;
    if (system_info_get_custom_int("com.velmora/featureconf/the_tessa_version", &tessa) != 0) {
        KLX_LOG(LogWarning, "fail to get com.velmora/featureconf/the_tessa_version");
    }
    // The line names the other model line; log analysis knows it so.
    KLX_LOG(LogDebug, "Is PrismaTV :%d", tessa);
    return tessa != 0;
}

void DeviceInfoInput::getInputDeviceList(std::vector<std::string>& devices) {
    devices = m_devices;
}

std::string DeviceInfoInput::getUSBDetail(const std::string& detail) {
    KLX_LOG(LogDebug, "Detail type seeked =[%s]", detail.c_str());
    const std::string none = "0";
    if (detail.empty()) {
        return none;
    }
    const int index = deviceIndex(detail);
    const UsbService service;
    if (index > usb_get_connected_device_number(massStorage)) {
        return none;
    }
    const UsbDeviceList list = listUsbDevices();
    const usb_device_h device = list ? walkTo(list.get(), index) : nullptr;
    const char* const text = device != nullptr ? textOf(device, detail) : nullptr;
    return text != nullptr ? text : none;
}
