#include "Frontend.h"

#include <fcntl.h>
#include <glob.h>
#include <linux/dvb/frontend.h>
#include <sys/ioctl.h>
#include <unistd.h>

#include <algorithm>
#include <cstring>
#include <memory>
#include <string>
#include <vector>

namespace KLX::Host {
namespace {

class Descriptor {
public:
    explicit Descriptor(const std::string& path)
        : m_number(::open(path.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC)) {}
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

struct MatchesReleased {
    void operator()(glob_t* matches) const noexcept { ::globfree(matches); }
};

/** The numbers in a path count, not their characters. */
bool isBefore(const std::string& left, const std::string& right) {
    return strverscmp(left.c_str(), right.c_str()) < 0;
}

std::vector<std::string> receivers() {
    glob_t matches{};
    const std::unique_ptr<glob_t, MatchesReleased> released(&matches);
    if (::glob("/dev/dvb/adapter*/frontend*", GLOB_NOSORT, nullptr, &matches) != 0) {
        return {};
    }
    std::vector<std::string> paths(matches.gl_pathv, matches.gl_pathv + matches.gl_pathc);
    std::sort(paths.begin(), paths.end(), isBefore);
    return paths;
}

std::optional<int> measuredBy(const std::string& receiver) {
    const Descriptor frontend(receiver);
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

} // namespace

std::optional<int> carrierToNoise() {
    for (const std::string& receiver : receivers()) {
        if (const std::optional<int> measured = measuredBy(receiver)) {
            return measured;
        }
    }
    return std::nullopt;
}

} // namespace KLX::Host
