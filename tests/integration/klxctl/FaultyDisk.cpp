// Loaded before the C library, plays a disk on which bringing data to it fails, never returns, or
// takes so long that the terminal is gone or somebody has lost patience meanwhile.
// KLXCTL_TEST_FSYNC holds "fail in FOLDER", "hang in FOLDER", "delay in FOLDER" or, for a signal
// that comes, "hang up in FOLDER", "interrupt in FOLDER" or "terminate in FOLDER"; files elsewhere
// are as ever. A file named by KLXCTL_TEST_HANGING appears as soon as it hangs. Where
// KLXCTL_TEST_STATVFS is "fail", no disk tells how full it is. Where KLXCTL_TEST_OUTPUT is "hang
// up", "interrupt" or "terminate", that signal comes whenever standard output is written to.

#include <dlfcn.h>
#include <fcntl.h>
#include <sys/statvfs.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <climits>
#include <csignal>
#include <cstdlib>
#include <string>

namespace {

bool isIn(const std::string& folder, int descriptor) {
    std::array<char, PATH_MAX> path = {};
    const std::string link = "/proc/self/fd/" + std::to_string(descriptor);
    const ssize_t length = readlink(link.c_str(), path.data(), path.size() - 1);
    return length > 0 && std::string(path.data()).compare(0, folder.size(), folder) == 0;
}

int signalOf(const std::string& behaviour) {
    if (behaviour == "hang up") {
        return SIGHUP;
    }
    if (behaviour == "interrupt") {
        return SIGINT;
    }
    return behaviour == "terminate" ? SIGTERM : 0;
}

void markHanging() {
    if (const char* const marker = std::getenv("KLXCTL_TEST_HANGING")) {
        close(open(marker, O_WRONLY | O_CREAT | O_CLOEXEC, 0600));
    }
}

int actAs(const std::string& behaviour, int descriptor) {
    if (behaviour == "fail") {
        errno = EIO;
        return -1;
    }
    if (behaviour == "hang") {
        markHanging();
    }
    while (behaviour == "hang") {
        pause();
    }
    if (behaviour == "delay") {
        usleep(100000);
    } else {
        raise(signalOf(behaviour));
    }
    return static_cast<int>(syscall(SYS_fsync, descriptor));
}

int bringToDisk(int descriptor, long call) {
    const char* const text = std::getenv("KLXCTL_TEST_FSYNC");
    const std::string setting = text != nullptr ? text : "";
    const std::string separator = " in ";
    const std::size_t at = setting.find(separator);
    if (at == std::string::npos || !isIn(setting.substr(at + separator.size()), descriptor)) {
        return static_cast<int>(syscall(call, descriptor));
    }
    return actAs(setting.substr(0, at), descriptor);
}

} // namespace

extern "C" __attribute__((visibility("default"))) ssize_t write(int fd, const void* buf, size_t n) {
    const char* const setting = std::getenv("KLXCTL_TEST_OUTPUT");
    if (fd == STDOUT_FILENO && setting != nullptr) {
        raise(signalOf(setting));
    }
    return syscall(SYS_write, fd, buf, n);
}

extern "C" __attribute__((visibility("default"))) int fsync(int fd) {
    return bringToDisk(fd, SYS_fsync);
}

extern "C" __attribute__((visibility("default"))) int fdatasync(int fildes) {
    return bringToDisk(fildes, SYS_fdatasync);
}

extern "C" __attribute__((visibility("default"))) int statvfs(const char* file,
                                                              struct statvfs* buf) {
    const char* const setting = std::getenv("KLXCTL_TEST_STATVFS");
    if (setting != nullptr && std::string(setting) == "fail") {
        errno = EIO;
        return -1;
    }
    using Statvfs = int (*)(const char*, struct statvfs*);
    static const auto real = reinterpret_cast<Statvfs>(dlsym(RTLD_NEXT, "statvfs"));
    return real(file, buf);
}
