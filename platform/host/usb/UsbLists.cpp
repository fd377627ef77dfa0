#include "UsbLists.h"

namespace KLX::Host {
namespace {

std::uintptr_t numberOf(const void* handle) {
    return reinterpret_cast<std::uintptr_t>(handle);
}

// A handle is a number in a pointer's clothes and never followed.
void* handleOf(std::uintptr_t number) {
    return reinterpret_cast<void*>(number); // NOLINT(performance-no-int-to-ptr)
}

} // namespace

UsbLists& UsbLists::instance() {
    // Never destroyed, so that a client's own clean-up at exit still finds its lists.
    static UsbLists& lists = *new UsbLists;
    return lists;
}

usb_device_list_h UsbLists::add(std::vector<UsbDevice> devices) {
    const std::lock_guard<std::mutex> lock(m_mutex);
    const Number number = m_nextNumber;
    const std::size_t count = devices.size();
    m_lists.emplace(number, List{std::move(devices)});
    m_nextNumber += 1 + count;
    return handleOf(number);
}

UsbError UsbLists::remove(usb_device_list_h list) {
    const std::lock_guard<std::mutex> lock(m_mutex);
    return m_lists.erase(numberOf(list)) == 1 ? UsbError::None : UsbError::UnknownHandle;
}

UsbError UsbLists::first(usb_device_list_h list, usb_device_h& device) {
    const std::lock_guard<std::mutex> lock(m_mutex);
    const auto entry = m_lists.find(numberOf(list));
    if (entry == m_lists.end()) {
        return UsbError::UnknownHandle;
    }
    entry->second.walked = 0;
    return advance(entry->first, entry->second, device);
}

UsbError UsbLists::next(usb_device_list_h list, usb_device_h& device) {
    const std::lock_guard<std::mutex> lock(m_mutex);
    const auto entry = m_lists.find(numberOf(list));
    if (entry == m_lists.end()) {
        return UsbError::UnknownHandle;
    }
    return advance(entry->first, entry->second, device);
}

UsbError UsbLists::advance(Number number, List& list, usb_device_h& device) {
    if (list.walked == list.devices.size()) {
        return UsbError::NoMoreDevices;
    }
    ++list.walked;
    device = handleOf(number + list.walked);
    return UsbError::None;
}

const UsbDevice* UsbLists::find(usb_device_h device) const {
    const std::lock_guard<std::mutex> lock(m_mutex);
    const Number number = numberOf(device);
    auto entry = m_lists.lower_bound(number);
    if (entry == m_lists.begin()) {
        return nullptr;
    }
    --entry;
    const std::vector<UsbDevice>& devices = entry->second.devices;
    const Number position = number - entry->first - 1;
    return position < devices.size() ? &devices[position] : nullptr;
}

} // namespace KLX::Host
