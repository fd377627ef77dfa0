#include "Meanwhile.h"

#include <dlfcn.h>
#include <linux/rtnetlink.h>

#include <utility>

namespace klx::network {
namespace {

thread_local Meanwhile* current = nullptr;

} // namespace

Meanwhile::Meanwhile(int family, std::function<void(int)> change)
    : m_family(family), m_change(std::move(change)) {
    current = this;
}

Meanwhile::~Meanwhile() {
    current = nullptr;
}

void Meanwhile::beforeRoutes(int family) {
    if (family == m_family) {
        m_change(m_looks++);
    }
}

} // namespace klx::network

struct nl_sock;

// A program's own functions go before those of the libraries, here libnl's.
extern "C" __attribute__((visibility("default"))) int nl_rtgen_request(nl_sock* socket, int type,
                                                                       int family, int flags) {
    if (type == RTM_GETROUTE && klx::network::current != nullptr) {
        klx::network::current->beforeRoutes(family);
    }
    using Request = int (*)(nl_sock*, int, int, int);
    static const auto real = reinterpret_cast<Request>(dlsym(RTLD_NEXT, "nl_rtgen_request"));
    return real(socket, type, family, flags);
}
