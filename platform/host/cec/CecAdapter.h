#pragma once

#include <optional>

namespace KLX::Host {

/**
 * The machine's HDMI-CEC adapter: "/dev/cec0", or the device that $KLX_HOST_CEC names. Every call
 * opens the device for itself and may come from any thread.
 */
class CecAdapter {
public:
    /** Opens the adapter; nothing where the machine has none and none was named. */
    static std::optional<CecAdapter> open();

    CecAdapter(CecAdapter&& other) noexcept;
    CecAdapter& operator=(CecAdapter&&) = delete;
    ~CecAdapter();

    /** Whether the adapter answers on the cable. Throws std::system_error. */
    bool isEnabled() const;

    /** Makes the adapter answer as a television, or fall silent. Throws std::system_error. */
    void enable(bool on) const;

private:
    explicit CecAdapter(int descriptor) noexcept : m_descriptor(descriptor) {}

    int m_descriptor;
};

} // namespace KLX::Host
