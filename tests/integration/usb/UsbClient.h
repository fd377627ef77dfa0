#pragma once

#include "UsbErrors.h"

#include "usb_device.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace KLX::Host::Test {

constexpr int massStorage = USB_DEVICE_CLASS_MASS_STORAGE;

using Texts = std::vector<std::string>;

inline int numberOf(UsbError error) {
    return static_cast<int>(error);
}

/** A list that frees itself; null when making it failed. */
class DeviceList {
public:
    explicit DeviceList(int deviceClass = massStorage)
        : m_error(usb_device_get_device_list(deviceClass, &m_list)) {}
    ~DeviceList() {
        if (m_list) {
            EXPECT_EQ(usb_device_free_device_list(m_list), 0);
        }
    }
    DeviceList(const DeviceList&) = delete;
    DeviceList& operator=(const DeviceList&) = delete;

    usb_device_list_h handle() const { return m_list; }
    int error() const { return m_error; }

private:
    usb_device_list_h m_list = nullptr;
    int m_error;
};

inline int count(int deviceClass = massStorage) {
    return usb_get_connected_device_number(deviceClass);
}

/** Walks the list from first to last. */
inline std::vector<usb_device_h> devicesIn(const DeviceList& list) {
    std::vector<usb_device_h> devices;
    usb_device_h device = nullptr;
    int error = usb_device_list_get_first(list.handle(), &device);
    while (error == 0) {
        devices.push_back(device);
        error = usb_device_list_get_next(list.handle(), &device);
    }
    EXPECT_EQ(error, numberOf(UsbError::NoMoreDevices));
    return devices;
}

inline Texts productsIn(const DeviceList& list) {
    Texts products;
    for (usb_device_h device : devicesIn(list)) {
        const char* const product = usb_device_get_product(device);
        products.push_back(product ? product : "(none)");
    }
    return products;
}

inline Texts products(int deviceClass = massStorage) {
    return productsIn(DeviceList(deviceClass));
}

} // namespace KLX::Host::Test
