#include "CecAdapter.h"

#include <fcntl.h>
#include <linux/cec.h>
#include <sys/ioctl.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <string>
#include <system_error>
#include <utility>

namespace KLX::Host {
namespace {

[[noreturn]] void fail(const std::string& what) {
    throw std::system_error(errno, std::generic_category(), what);
}

cec_log_addrs televisionAddresses() {
    cec_log_addrs addresses{};
    addresses.cec_version = CEC_OP_CEC_VERSION_1_4;
    addresses.num_log_addrs = 1;
    addresses.vendor_id = CEC_VENDOR_ID_NONE;
    addresses.primary_device_type[0] = CEC_OP_PRIM_DEVTYPE_TV;
    addresses.log_addr_type[0] = CEC_LOG_ADDR_TYPE_TV;
    addresses.all_device_types[0] = CEC_OP_ALL_DEVTYPE_TV;
    std::strncpy(addresses.osd_name, "KLX", sizeof addresses.osd_name - 1);
    return addresses;
}

} // namespace

std::optional<CecAdapter> CecAdapter::open() {
    const char* const named = std::getenv("KLX_HOST_CEC");
    const char* const path = named != nullptr && *named != '\0' ? named : "/dev/cec0";
    const int descriptor = ::open(path, O_RDWR | O_CLOEXEC);
    if (descriptor >= 0) {
        return CecAdapter(descriptor, path);
    }
    // An adapter that was asked for by name, or is there but closed to this user, is no absence.
    if (path == named || errno != ENOENT) {
        fail(std::string("cannot open the CEC adapter ") + path);
    }
    return std::nullopt;
}

CecAdapter::CecAdapter(int descriptor, std::string path) noexcept
    : m_descriptor(descriptor), m_path(std::move(path)) {}

CecAdapter::CecAdapter(CecAdapter&& other) noexcept
    : m_descriptor(other.m_descriptor), m_path(std::move(other.m_path)) {
    other.m_descriptor = -1;
}

CecAdapter::~CecAdapter() {
    if (m_descriptor >= 0) {
        ::close(m_descriptor);
    }
}

bool CecAdapter::isEnabled() const {
    cec_log_addrs addresses{};
    request(CEC_ADAP_G_LOG_ADDRS, &addresses, "cannot ask the CEC adapter ");
    return addresses.num_log_addrs > 0;
}

void CecAdapter::enable(bool on) const {
    // Addresses can only be claimed while none are held, so the old ones are given up first.
    cec_log_addrs none{};
    request(CEC_ADAP_S_LOG_ADDRS, &none, "cannot silence the CEC adapter ");
    if (on) {
        cec_log_addrs television = televisionAddresses();
        request(CEC_ADAP_S_LOG_ADDRS, &television, "cannot start the CEC adapter ");
    }
}

void CecAdapter::request(unsigned long number, void* argument, const char* failure) const {
    if (::ioctl(m_descriptor, number, argument) != 0) {
        fail(failure + m_path);
    }
}

} // namespace KLX::Host
