#include "Radios.h"

#include "NetworkErrors.h"

#include <fcntl.h>
#include <linux/rfkill.h>
#include <unistd.h>

#include <cerrno>
#include <string>
#include <system_error>

namespace KLX::Host {
namespace {

constexpr const char* radioDevice = "/dev/rfkill";

class Device {
public:
    explicit Device(int flags)
        : m_descriptor(::open(radioDevice, flags | O_CLOEXEC | O_NONBLOCK)), m_error(errno) {}
    Device(const Device&) = delete;
    Device& operator=(const Device&) = delete;
    ~Device() {
        if (isOpen()) {
            ::close(m_descriptor);
        }
    }

    bool isOpen() const noexcept { return m_descriptor >= 0; }

    /** There is no such device, or no driver behind it. */
    bool isAbsent() const noexcept {
        return !isOpen() && (m_error == ENOENT || m_error == ENODEV || m_error == ENXIO);
    }
    int descriptor() const noexcept { return m_descriptor; }
    int error() const noexcept { return m_error; }

private:
    int m_descriptor;
    int m_error;
};

[[noreturn]] void giveUp(const char* what, int systemError) {
    const bool isDenied = systemError == EACCES || systemError == EPERM;
    throw NetworkFault(isDenied ? NetworkError::RadioDenied : NetworkError::RadioFailed,
                       std::string("cannot ") + what + ' ' + radioDevice + ": " +
                           std::error_code(systemError, std::generic_category()).message() +
                           (isDenied ? "; give this user the right to it, or unset "
                                       "KLX_HOST_RFKILL to keep the switch in the settings store"
                                     : ""));
}

} // namespace

// The kernel begins with one event for each radio that there is, and then has nothing to say.
Radios readRadios() {
    const Device device(O_RDONLY);
    Radios radios;
    if (device.isAbsent()) {
        return radios;
    }
    if (!device.isOpen()) {
        giveUp("open", device.error());
    }
    rfkill_event event{};
    bool anyFree = false;
    ssize_t length = 0;
    while ((length = ::read(device.descriptor(), &event, sizeof event)) == sizeof event) {
        if (event.type == RFKILL_TYPE_WLAN && event.op == RFKILL_OP_ADD) {
            radios.exist = true;
            radios.areOn = radios.areOn || (event.soft == 0 && event.hard == 0);
            anyFree = anyFree || event.hard == 0;
        }
    }
    if (length < 0 && errno != EAGAIN) {
        giveUp("read", errno);
    }
    radios.areBlocked = radios.exist && !anyFree;
    return radios;
}

void switchRadios(bool on) {
    if (on && readRadios().areBlocked) {
        throw NetworkFault(NetworkError::RadioBlocked,
                           "the Wi-Fi radios are switched off on the machine itself; use its "
                           "switch or key to switch them on");
    }
    const Device device(O_WRONLY);
    if (!device.isOpen()) {
        giveUp("open", device.error());
    }
    rfkill_event event{};
    event.type = RFKILL_TYPE_WLAN;
    event.op = RFKILL_OP_CHANGE_ALL;
    event.soft = on ? 0 : 1;
    if (::write(device.descriptor(), &event, sizeof event) != sizeof event) {
        giveUp("write", errno);
    }
}

} // namespace KLX::Host
