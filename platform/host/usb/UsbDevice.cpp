#include "UsbLists.h"

#include <atomic>
#include <new>

namespace {

using KLX::Host::UsbDevice;
using KLX::Host::UsbError;
using KLX::Host::UsbLists;

/** Queries that are begun and not ended; each has its own resources, so counting is all. */
std::atomic<int> openQueries{0};

int numberOf(UsbError error) {
    return static_cast<int>(error);
}

/** The edge to C: no exception passes. Memory is the only thing that can run out below. */
template <class Call>
int guarded(Call call) noexcept {
    try {
        return numberOf(call());
    } catch (const std::bad_alloc&) {
        return numberOf(UsbError::OutOfMemory);
    }
}

const char* textOf(usb_device_h device, std::optional<std::string> UsbDevice::*text) {
    const UsbDevice* const found = UsbLists::instance().find(device);
    return found && found->*text ? (found->*text)->c_str() : nullptr;
}

} // namespace

int usb_device_init(void) {
    ++openQueries;
    return numberOf(UsbError::None);
}

int usb_device_fini(void) {
    int open = openQueries.load();
    while (open > 0) {
        if (openQueries.compare_exchange_weak(open, open - 1)) {
            return numberOf(UsbError::None);
        }
    }
    return numberOf(UsbError::NotInitialized);
}

int usb_get_connected_device_number(int device_class) {
    std::size_t count = 0;
    const int error = guarded([&] { return KLX::Host::countUsbDevices(device_class, count); });
    return error == 0 ? static_cast<int>(count) : error;
}

int usb_device_get_device_list(int device_class, usb_device_list_h* list) {
    if (!list) {
        return numberOf(UsbError::NullPointer);
    }
    return guarded([&] {
        std::vector<UsbDevice> devices;
        const UsbError error = KLX::Host::scanUsbDevices(device_class, devices);
        if (error == UsbError::None) {
            *list = UsbLists::instance().add(std::move(devices));
        }
        return error;
    });
}

int usb_device_list_get_first(usb_device_list_h list, usb_device_h* device) {
    if (!list || !device) {
        return numberOf(UsbError::NullPointer);
    }
    return guarded([&] { return UsbLists::instance().first(list, *device); });
}

int usb_device_list_get_next(usb_device_list_h list, usb_device_h* device) {
    if (!list || !device) {
        return numberOf(UsbError::NullPointer);
    }
    return guarded([&] { return UsbLists::instance().next(list, *device); });
}

const char* usb_device_get_product(usb_device_h device) {
    return textOf(device, &UsbDevice::product);
}

const char* usb_device_get_manufacturer(usb_device_h device) {
    return textOf(device, &UsbDevice::manufacturer);
}

int usb_device_free_device_list(usb_device_list_h list) {
    if (!list) {
        return numberOf(UsbError::NullPointer);
    }
    return guarded([&] { return UsbLists::instance().remove(list); });
}
