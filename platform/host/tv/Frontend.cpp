#include "Frontend.h"

#include <fcntl.h>
#include <linux/dvb/frontend.h>
#include <sys/ioctl.h>
#include <unistd.h>

namespace KLX::Host {
namespace {

class Descriptor {
public:
    explicit Descriptor(const char* path)
        : m_number(::open(path, O_RDONLY | O_NONBLOCK | O_CLOEXEC)) {}
    ~Descriptor() {
        if (isOpen()) {
            ::close(m_number);
        }
    }
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;

    bool isOpen() const noexcept { return m_number >= 0; }
    int number() const noexcept { return m_number; }

private:
    int m_number;
};

} // namespace

std::optional<int> carrierToNoise() {
    const Descriptor frontend("/dev/dvb/adapter0/frontend0");
    if (!frontend.isOpen()) {
        return std::nullopt;
    }
    dtv_property property{};
    property.cmd = DTV_STAT_CNR;
    dtv_properties query{1, &property};
    if (::ioctl(frontend.number(), FE_GET_PROPERTY, &query) != 0 || property.u.st.len < 1 ||
        property.u.st.stat[0].scale != FE_SCALE_DECIBEL) {
        return std::nullopt;
    }
    constexpr long long thousandthsInAHundredth = 10;
    return static_cast<int>(property.u.st.stat[0].svalue / thousandthsInAHundredth);
}

} // namespace KLX::Host
