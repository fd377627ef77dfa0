#include "UsbBus.h"

#include <stdexcept>

namespace KLX::Host::Test {
namespace {

/** The texts as the null-terminated array that GLib's interfaces take. */
std::vector<char*> arrayOf(const std::vector<std::string>& texts) {
    std::vector<char*> array;
    for (const std::string& text : texts) {
        array.push_back(const_cast<char*>(text.c_str()));
    }
    array.push_back(nullptr);
    return array;
}

/** A text that GLib gave away. */
std::string taken(gchar* text) {
    const std::unique_ptr<gchar, decltype(&g_free)> owned(text, &g_free);
    if (!owned) {
        throw std::runtime_error("the testbed refused; its own message tells why");
    }
    return owned.get();
}

} // namespace

Gadget stick(const std::string& port, const std::string& product, const std::string& manufacturer) {
    return {port, {"08"}, product, manufacturer};
}

UsbBus::UsbBus() : m_testbed(umockdev_testbed_new()) {
    std::vector<char*> none = arrayOf({});
    m_controller = taken(umockdev_testbed_add_devicev(m_testbed.get(), "pci", "0000:00:14.0",
                                                      nullptr, none.data(), none.data()));
}

bool UsbBus::isInPlace() {
    return umockdev_in_mock_environment();
}

std::string UsbBus::sysFolder() const {
    return taken(umockdev_testbed_get_sys_dir(m_testbed.get()));
}

void UsbBus::plug(const Gadget& gadget) {
    std::vector<std::string> attributes{"bDeviceClass", "00"};
    if (gadget.product) {
        attributes.insert(attributes.end(), {"product", *gadget.product + "\n"});
    }
    if (gadget.manufacturer) {
        attributes.insert(attributes.end(), {"manufacturer", *gadget.manufacturer + "\n"});
    }
    const std::string path = add(gadget.port, parentOf(gadget.port), "usb_device", attributes);
    m_paths[gadget.port] = {path};
    addInterfaces(gadget.port, gadget.port, gadget.interfaceClasses);
}

void UsbBus::unplug(const std::string& port) {
    const std::vector<std::string> paths = m_paths.at(port);
    for (auto path = paths.rbegin(); path != paths.rend(); ++path) {
        umockdev_testbed_uevent(m_testbed.get(), path->c_str(), "remove");
        umockdev_testbed_remove_device(m_testbed.get(), path->c_str());
    }
    m_paths.erase(port);
}

const std::string& UsbBus::parentOf(const std::string& port) {
    const std::size_t dot = port.rfind('.');
    if (dot != std::string::npos) {
        return m_paths.at(port.substr(0, dot)).front();
    }
    const std::string bus = port.substr(0, port.find('-'));
    const std::string root = "usb" + bus;
    if (m_paths.count(root) == 0) {
        m_paths[root] = {add(root, m_controller, "usb_device",
                             {"bDeviceClass", "09", "product", "Host Controller\n"})};
        addInterfaces(root, bus + "-0", {"09"});
    }
    return m_paths.at(root).front();
}

std::string UsbBus::add(const std::string& name, const std::string& parent, const std::string& type,
                        const std::vector<std::string>& attributes) {
    std::vector<char*> attributeArray = arrayOf(attributes);
    const std::vector<std::string> properties{"DEVTYPE", type};
    std::vector<char*> propertyArray = arrayOf(properties);
    return taken(umockdev_testbed_add_devicev(m_testbed.get(), "usb", name.c_str(), parent.c_str(),
                                              attributeArray.data(), propertyArray.data()));
}

void UsbBus::addInterfaces(const std::string& port, const std::string& prefix,
                           const std::vector<std::string>& classes) {
    std::vector<std::string>& paths = m_paths.at(port);
    const std::string device = paths.front();
    int number = 0;
    for (const std::string& interfaceClass : classes) {
        paths.push_back(add(prefix + ":1." + std::to_string(number++), device, "usb_interface",
                            {"bInterfaceClass", interfaceClass + "\n"}));
    }
}

} // namespace KLX::Host::Test
