#pragma once

#include "UsbScan.h"

#include "usb_device.h"

#include <cstdint>
#include <map>
#include <mutex>

namespace KLX::Host {

/**
 * The lists that are handed out and not freed yet, with their devices.
 *
 * A handle is a number that is never given out again, not an address: a list freed twice, a handle
 * kept too long and a stranger's pointer are all recognised without looking where they point.
 * Texts belong to their list and stay until it is freed. Safe from several threads; two threads
 * that walk one list share its position.
 */
class UsbLists {
public:
    /** The lists of this process. */
    static UsbLists& instance();

    usb_device_list_h add(std::vector<UsbDevice> devices);
    UsbError remove(usb_device_list_h list);

    /** Goes to the first device. On an error `device` is left alone. */
    UsbError first(usb_device_list_h list, usb_device_h& device);

    /** Goes to the next device, to the first one when the walk has not begun; as `first`. */
    UsbError next(usb_device_list_h list, usb_device_h& device);

    /** @return the device, owned by its list; null for what is no device of a living list. */
    const UsbDevice* find(usb_device_h device) const;

private:
    using Number = std::uintptr_t;

    /** A list has the number that it is kept under, its devices the numbers that follow. */
    struct List {
        std::vector<UsbDevice> devices;
        std::size_t walked = 0;
    };

    static UsbError advance(Number number, List& list, usb_device_h& device);

    mutable std::mutex m_mutex;
    std::map<Number, List> m_lists;
    Number m_nextNumber = 1;
};

} // namespace KLX::Host
