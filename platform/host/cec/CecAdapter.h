#pragma once

#include <optional>
#include <string>

namespace KLX::Host {

/**
 * The machine's HDMI-CEC adapter: "/dev/cec0", or the device that $KLX_HOST_CEC names. Every call
 * opens the device for itself and may come from any thread.
 */
class CecAdapter {
public:
    /**
     * Opens the adapter; nothing where the machine has none and none was named. Throws
     * std::system_error, as the calls below do; its text names the device.
     */
    static std::optional<CecAdapter> open();

    CecAdapter(CecAdapter&& other) noexcept;
    CecAdapter& operator=(CecAdapter&&) = delete;
    ~CecAdapter();

    /** Whether the adapter answers on the cable. */
    bool isEnabled() const;

    /** Makes the adapter answer as a television, or fall silent. */
    void enable(bool on) const;

private:
    CecAdapter(int descriptor, std::string path) noexcept;

    void request(unsigned long number, void* argument, const char* failure) const;

    int m_descriptor;
    std::string m_path;
};

} // namespace KLX::Host
