#pragma once

namespace KLX::Host {

/**
 * The error numbers by which the USB device service answers, next to 0 for success. All are
 * negative, so that none is taken for a count of devices. They are part of the interface and are
 * not renumbered.
 */
enum class UsbError : int {
    None = 0,
    NullPointer = -7101,    ///< A handle is null, or there is nowhere to put a result.
    InvalidClass = -7102,   ///< A device class below 0 or above 255.
    UnknownHandle = -7103,  ///< Not a list of this service, or one that was freed already.
    NoMoreDevices = -7104,  ///< The list is empty, or the walk has passed its last device.
    NotInitialized = -7105, ///< `usb_device_fini` without a `usb_device_init` before it.
    ScanFailed = -7106,     ///< The system did not let libudev look through the USB bus.
    OutOfMemory = -7107,    ///< No memory is left for the answer.
};

} // namespace KLX::Host
