#include "PrivateMount.h"

#include "HostTest.h"

#include <sched.h>
#include <sys/mount.h>
#include <unistd.h>

namespace KLX::Host {
namespace {

constexpr int cannotMount = 101;

// As root of a namespace of its own a user may mount; its files still belong to that user.
bool becomeRootOfNamespace() {
    const std::string user = std::to_string(::geteuid());
    const std::string group = std::to_string(::getegid());
    if (::unshare(CLONE_NEWUSER | CLONE_NEWNS) != 0) {
        return false;
    }
    writeFile("/proc/self/setgroups", "deny");
    writeFile("/proc/self/uid_map", "0 " + user + " 1");
    writeFile("/proc/self/gid_map", "0 " + group + " 1");
    return ::geteuid() == 0;
}

bool mountPrivately(const std::string& folder, const std::string& options) {
    const bool isApart =
        (::geteuid() == 0 && ::unshare(CLONE_NEWNS) == 0) || becomeRootOfNamespace();
    return isApart && ::mount("none", "/", nullptr, MS_REC | MS_PRIVATE, nullptr) == 0 &&
           ::mount("klx-test", folder.c_str(), "tmpfs", 0, options.c_str()) == 0;
}

} // namespace

int onTmpfs(const std::string& folder, const std::string& options,
            const std::function<int()>& body) {
    return inOwnProcess([&] { return mountPrivately(folder, options) ? body() : cannotMount; });
}

bool remountReadOnly(const std::string& folder) {
    return ::mount("klx-test", folder.c_str(), "tmpfs", MS_REMOUNT | MS_RDONLY, nullptr) == 0;
}

bool canMount(const std::string& folder) {
    return onTmpfs(folder, "size=64k", [] { return success; }) == success;
}

} // namespace KLX::Host
