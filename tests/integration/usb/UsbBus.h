#pragma once

#include <umockdev.h>

#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace KLX::Host::Test {

/** A device to plug in; null texts stand for a device that has none. */
struct Gadget {
    std::string port; ///< As the kernel names it, "1-2.4" for port 4 of the hub in port 2 of bus 1.
    std::vector<std::string> interfaceClasses; ///< In hexadecimal, as the kernel tells them.
    std::optional<std::string> product = std::nullopt;
    std::optional<std::string> manufacturer = std::nullopt;
};

Gadget stick(const std::string& port, const std::string& product = "Stick",
             const std::string& manufacturer = "Maker");

/**
 * The USB of a mocked machine, with nothing but what is plugged in here (root hubs come by
 * themselves). In a process that was started through umockdev-wrapper it stands in for the
 * machine's own as long as it lives; one at a time.
 */
class UsbBus {
public:
    UsbBus();

    /** Whether devices plugged in here are what the process sees. */
    static bool isInPlace();

    /** The folder that looks like the mocked machine's /sys. */
    std::string sysFolder() const;

    /** A hub has to be plugged in before what hangs on it. */
    void plug(const Gadget& gadget);
    void unplug(const std::string& port);

private:
    struct Released {
        void operator()(UMockdevTestbed* testbed) const { g_object_unref(testbed); }
    };

    const std::string& parentOf(const std::string& port);
    std::string add(const std::string& name, const std::string& parent, const std::string& type,
                    const std::vector<std::string>& attributes);
    void addInterfaces(const std::string& port, const std::string& prefix,
                       const std::vector<std::string>& classes);

    std::unique_ptr<UMockdevTestbed, Released> m_testbed;
    std::string m_controller;
    std::map<std::string, std::vector<std::string>> m_paths; ///< A device's, then its interfaces'.
};

} // namespace KLX::Host::Test
