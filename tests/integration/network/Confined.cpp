#include "Confined.h"

#include <linux/capability.h>
#include <linux/filter.h>
#include <linux/seccomp.h>
#include <sys/prctl.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <array>
#include <cstddef>
#include <stdexcept>
#include <string>
#include <thread>
#include <vector>

namespace klx::network {
namespace {

void check(long result, const char* what) {
    if (result != 0) {
        throw std::runtime_error(std::string("cannot ") + what);
    }
}

/** Runs both on a new thread, which takes its confinement with it. */
void runConfined(const std::function<void()>& confine, const std::function<void()>& body) {
    std::exception_ptr failure;
    std::thread([&] {
        try {
            confine();
            body();
        } catch (...) {
            failure = std::current_exception();
        }
    }).join();
    if (failure) {
        std::rethrow_exception(failure);
    }
}

void giveUpCapabilities() {
    __user_cap_header_struct header{_LINUX_CAPABILITY_VERSION_3, 0};
    std::array<__user_cap_data_struct, 2> none{};
    check(::syscall(SYS_capset, &header, none.data()), "give up capabilities");
}

sock_filter load(std::size_t offset) {
    return BPF_STMT(BPF_LD | BPF_W | BPF_ABS, static_cast<unsigned>(offset));
}

sock_filter skipUnless(unsigned value, unsigned char count) {
    return BPF_JUMP(BPF_JMP | BPF_JEQ | BPF_K, value, 0, count);
}

sock_filter answer(unsigned action) {
    return BPF_STMT(BPF_RET | BPF_K, action);
}

// The low half of an argument comes first on little-endian machines only.
constexpr std::size_t firstArgument =
    offsetof(seccomp_data, args) + (__BYTE_ORDER__ == __ORDER_BIG_ENDIAN__ ? 4 : 0);

std::vector<sock_filter> filterOf(long number, int argument, int error) {
    const unsigned refusal = SECCOMP_RET_ERRNO | static_cast<unsigned>(error);
    if (argument < 0) {
        return {load(offsetof(seccomp_data, nr)), skipUnless(static_cast<unsigned>(number), 1),
                answer(refusal), answer(SECCOMP_RET_ALLOW)};
    }
    return {load(offsetof(seccomp_data, nr)),
            skipUnless(static_cast<unsigned>(number), 3),
            load(firstArgument),
            skipUnless(static_cast<unsigned>(argument), 1),
            answer(refusal),
            answer(SECCOMP_RET_ALLOW)};
}

} // namespace

void withoutRightsToFiles(const std::function<void()>& body) {
    runConfined(giveUpCapabilities, body);
}

void withoutSystemCall(long number, int argument, int error, const std::function<void()>& body) {
    runConfined(
        [&] {
            std::vector<sock_filter> filter = filterOf(number, argument, error);
            sock_fprog program{static_cast<unsigned short>(filter.size()), filter.data()};
            check(::prctl(PR_SET_NO_NEW_PRIVS, 1, 0, 0, 0), "give up new rights");
            check(::prctl(PR_SET_SECCOMP, SECCOMP_MODE_FILTER, &program), "filter system calls");
        },
        body);
}

} // namespace klx::network
