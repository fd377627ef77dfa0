#include "UsbScan.h"

#include "HostLog.h"

#include "dlog.h"

#include <libudev.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <map>
#include <memory>
#include <string_view>
#include <system_error>
#include <utility>

namespace KLX::Host {
namespace {

template <auto release>
struct ReleasedBy {
    template <class Handle>
    void operator()(Handle* handle) const noexcept {
        release(handle);
    }
};

using Context = std::unique_ptr<udev, ReleasedBy<&udev_unref>>;
using Enumeration = std::unique_ptr<udev_enumerate, ReleasedBy<&udev_enumerate_unref>>;
using Device = std::unique_ptr<udev_device, ReleasedBy<&udev_device_unref>>;

/** Bus and ports as the kernel names them, "1-1.10"; "1" for the root hub that it calls "usb1". */
std::string portOf(udev_device* device) {
    const char* const name = udev_device_get_sysname(device);
    return name + std::strcspn(name, "0123456789");
}

/** The numbers in a port count, not their characters. */
struct PortOrder {
    bool operator()(const std::string& left, const std::string& right) const {
        return strverscmp(left.c_str(), right.c_str()) < 0;
    }
};
using DevicesByPort = std::map<std::string, Device, PortOrder>;

bool restrictToInterfaces(udev_enumerate* enumeration, int deviceClass) {
    std::array<char, 3> hexClass{};
    std::snprintf(hexClass.data(), hexClass.size(), "%02hhx",
                  static_cast<unsigned char>(deviceClass));
    return udev_enumerate_add_match_subsystem(enumeration, "usb") >= 0 &&
           udev_enumerate_add_match_sysattr(enumeration, "bInterfaceClass", hexClass.data()) >= 0;
}

/** Whether the path lies directly in the folder. */
bool isIn(std::string_view path, std::string_view folder) {
    return path.substr(0, path.rfind('/')) == folder;
}

/** Adds the device that the interface belongs to; nothing when either was just unplugged. */
void addDeviceOf(udev* context, const char* interfacePath, DevicesByPort& found) {
    const Device interface(udev_device_new_from_syspath(context, interfacePath));
    if (!interface) {
        return;
    }
    Device device(udev_device_ref(
        udev_device_get_parent_with_subsystem_devtype(interface.get(), "usb", "usb_device")));
    // For a device that is gone libudev answers with the hub that it was plugged into.
    if (device &&
        isIn(udev_device_get_syspath(interface.get()), udev_device_get_syspath(device.get()))) {
        const std::string port = portOf(device.get());
        found.try_emplace(port, std::move(device));
    }
}

UsbError findDevices(udev* context, int deviceClass, DevicesByPort& found) {
    if (deviceClass < 0 || deviceClass > 255) {
        return UsbError::InvalidClass;
    }
    const Enumeration enumeration(context ? udev_enumerate_new(context) : nullptr);
    if (!enumeration || !restrictToInterfaces(enumeration.get(), deviceClass)) {
        return UsbError::OutOfMemory;
    }
    const int scanned = udev_enumerate_scan_devices(enumeration.get());
    if (scanned < 0) {
        hostLog(DLOG_WARNING, "The USB devices cannot be looked through: " +
                                  std::generic_category().message(-scanned) +
                                  ". It takes read access to /sys/bus/usb/devices and a few free "
                                  "file descriptors.");
        return UsbError::ScanFailed;
    }
    udev_list_entry* entry = nullptr;
    udev_list_entry_foreach(entry, udev_enumerate_get_list_entry(enumeration.get())) {
        addDeviceOf(context, udev_list_entry_get_name(entry), found);
    }
    return UsbError::None;
}

std::optional<std::string> textOf(udev_device* device, const char* attribute) {
    const char* const text = udev_device_get_sysattr_value(device, attribute);
    return text ? std::optional<std::string>(text) : std::nullopt;
}

/** Whether a device was unplugged. The kernel takes its texts away later than this file. */
bool isGone(udev_device* device) {
    const std::string file = std::string(udev_device_get_syspath(device)) + "/uevent";
    return ::access(file.c_str(), F_OK) != 0 && errno == ENOENT;
}

} // namespace

UsbError scanUsbDevices(int deviceClass, std::vector<UsbDevice>& devices) {
    const Context context(udev_new());
    DevicesByPort found;
    const UsbError error = findDevices(context.get(), deviceClass, found);
    if (error != UsbError::None) {
        return error;
    }
    std::vector<UsbDevice> result;
    result.reserve(found.size());
    for (const auto& [port, device] : found) {
        UsbDevice texts{textOf(device.get(), "product"), textOf(device.get(), "manufacturer")};
        if (!isGone(device.get())) {
            result.push_back(std::move(texts));
        }
    }
    devices = std::move(result);
    return UsbError::None;
}

UsbError countUsbDevices(int deviceClass, std::size_t& count) {
    const Context context(udev_new());
    DevicesByPort found;
    const UsbError error = findDevices(context.get(), deviceClass, found);
    if (error == UsbError::None) {
        count = found.size();
    }
    return error;
}

} // namespace KLX::Host
