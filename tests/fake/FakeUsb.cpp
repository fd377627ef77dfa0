#include "FakeCore.h"
#include "usb_device.h"

#include <algorithm>

namespace klx::fake {
namespace {

/** The devices of a list are lent out as handles of their own. */
struct UsbList {
    std::vector<const UsbDevice*> devices;
    std::size_t position = 0;
};

bool isKnown(const State& state, int deviceClass) {
    return state.usbDevices && deviceClass == USB_DEVICE_CLASS_MASS_STORAGE;
}

std::shared_ptr<UsbList> makeList(State& state) {
    auto list = std::make_shared<UsbList>();
    for (const UsbDevice& device : *state.usbDevices) {
        const std::string name = "usb device " + std::to_string(list->devices.size() + 1);
        list->devices.push_back(state.handles.add(std::make_shared<UsbDevice>(device), "usb device",
                                                  name, HandleTable::Kept::byService));
    }
    return list;
}

/** Hands out the device at a position and goes there, if the list is that long. */
int giveDevice(UsbList* list, std::size_t position, usb_device_h* device) {
    if (list == nullptr) {
        return kBadHandle;
    }
    if (position >= list->devices.size()) {
        return kNotProgrammed;
    }
    list->position = position;
    *device = const_cast<UsbDevice*>(list->devices[position]);
    return 0;
}

const char* textOf(const char* function, usb_device_h device,
                   std::optional<std::string> UsbDevice::*member) {
    const char* text = nullptr;
    call(function, args(device), [&](State& state) {
        const auto* const record = state.handles.find<UsbDevice>(device, "usb device", function);
        if (record != nullptr && (record->*member)) {
            text = (record->*member)->c_str();
        }
        return 0;
    });
    return text;
}

} // namespace

Scene& Scene::usbDevices(std::vector<UsbDevice> devices) {
    Access()->usbDevices = std::move(devices);
    return *this;
}

} // namespace klx::fake

using namespace klx::fake;

int usb_device_init() {
    return call(__func__, "", [](State& state) {
        ++state.usbSessions;
        return 0;
    });
}

int usb_device_fini() {
    return callReleasing(__func__, "", [](State& state) {
        state.usbSessions = std::max(0, state.usbSessions - 1);
        return 0;
    });
}

int usb_get_connected_device_number(int device_class) {
    return call(__func__, args(device_class), [&](State& state) {
        return isKnown(state, device_class) ? static_cast<int>(state.usbDevices->size())
                                            : kNotProgrammed;
    });
}

int usb_device_get_device_list(int device_class, usb_device_list_h* list) {
    return call(__func__, args(device_class), [&](State& state) {
        if (!isKnown(state, device_class)) {
            return kNotProgrammed;
        }
        *list =
            state.handles.add(makeList(state), "usb list", "usb list", HandleTable::Kept::byClient);
        return 0;
    });
}

int usb_device_list_get_first(usb_device_list_h list, usb_device_h* device) {
    const char* const function = __func__;
    return call(function, args(list), [&](State& state) {
        return giveDevice(state.handles.find<UsbList>(list, "usb list", function), 0, device);
    });
}

int usb_device_list_get_next(usb_device_list_h list, usb_device_h* device) {
    const char* const function = __func__;
    return call(function, args(list), [&](State& state) {
        auto* const known = state.handles.find<UsbList>(list, "usb list", function);
        return giveDevice(known, known == nullptr ? 0 : known->position + 1, device);
    });
}

const char* usb_device_get_product(usb_device_h device) {
    return textOf(__func__, device, &UsbDevice::product);
}

const char* usb_device_get_manufacturer(usb_device_h device) {
    return textOf(__func__, device, &UsbDevice::manufacturer);
}

int usb_device_free_device_list(usb_device_list_h list) {
    const char* const function = __func__;
    return callReleasing(function, args(list), [&](State& state) {
        const auto* const known = state.handles.find<UsbList>(list, "usb list", function);
        if (known == nullptr) {
            return kBadHandle;
        }
        for (const UsbDevice* device : known->devices) {
            state.handles.close(device, "usb device", function);
        }
        state.handles.close(list, "usb list", function);
        return 0;
    });
}
