#pragma once

#include "UsbErrors.h"

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace KLX::Host {

/** What is kept of a USB device: its own texts, so that it may be unplugged meanwhile. */
struct UsbDevice {
    std::optional<std::string> product;
    std::optional<std::string> manufacturer;
};

/**
 * Looks for the plugged-in devices that offer an interface of the class (0 to 255), in whichever
 * of their configured interfaces; each counts once. A device that the system has not configured
 * offers none. They come by bus, then port by port, numbers in natural order: 1-2 before 1-10, a
 * hub's own ports right after the hub.
 *
 * Each call looks afresh through a libudev context of its own: safe from several threads. On an
 * error `devices` or `count` is left alone.
 */
UsbError scanUsbDevices(int deviceClass, std::vector<UsbDevice>& devices);
UsbError countUsbDevices(int deviceClass, std::size_t& count);

} // namespace KLX::Host
