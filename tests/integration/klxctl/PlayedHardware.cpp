// Loaded before the C library, plays hardware that hardly any machine has: a DVB receiver that
// tells KLXCTL_TEST_CNR, "decibel NUMBER" or "relative NUMBER", or nothing for "silent" and an
// error for "broken"; and a watchdog whose status at the start was KLXCTL_TEST_WATCHDOG.

#include <dlfcn.h>
#include <fcntl.h>
#include <linux/dvb/frontend.h>
#include <linux/ioctl.h>

#include <cerrno>
#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <sstream>
#include <string>

namespace {

int receiver = -1;

template <class Function>
Function real(const char* name) {
    return reinterpret_cast<Function>(dlsym(RTLD_NEXT, name));
}

bool isPlayed(const char* path, const char* device, const char* setting) {
    return std::strcmp(path, device) == 0 && std::getenv(setting) != nullptr;
}

int tellCarrierToNoise(dtv_property& property) {
    std::istringstream setting(std::getenv("KLXCTL_TEST_CNR"));
    std::string scale;
    long long number = 0;
    setting >> scale >> number;
    if (scale == "broken") {
        errno = EIO;
        return -1;
    }
    property.u.st.len = scale == "silent" ? 0 : 1;
    property.u.st.stat[0].scale = scale == "decibel" ? FE_SCALE_DECIBEL : FE_SCALE_RELATIVE;
    property.u.st.stat[0].svalue = number;
    return 0;
}

std::FILE* openFile(const char* path, const char* mode) {
    if (!isPlayed(path, "/sys/class/watchdog/watchdog0/bootstatus", "KLXCTL_TEST_WATCHDOG")) {
        return real<std::FILE* (*)(const char*, const char*)>("fopen")(path, mode);
    }
    std::FILE* const file = std::tmpfile();
    std::fputs(std::getenv("KLXCTL_TEST_WATCHDOG"), file);
    std::rewind(file);
    return file;
}

} // namespace

#pragma GCC visibility push(default)
extern "C" {

int open(const char* path, int flags, ...) {
    const auto next = real<int (*)(const char*, int, ...)>("open");
    if (isPlayed(path, "/dev/dvb/adapter0/frontend0", "KLXCTL_TEST_CNR")) {
        receiver = next("/dev/null", flags);
        return receiver;
    }
    std::va_list rest;
    va_start(rest, flags);
    const unsigned mode = (flags & (O_CREAT | O_TMPFILE)) != 0 ? va_arg(rest, unsigned) : 0;
    va_end(rest);
    return next(path, flags, mode);
}

int ioctl(int fd, unsigned long request, ...) {
    std::va_list rest;
    va_start(rest, request);
    void* const argument = va_arg(rest, void*);
    va_end(rest);
    if (fd == receiver && request == FE_GET_PROPERTY) {
        return tellCarrierToNoise(*static_cast<dtv_properties*>(argument)->props);
    }
    return real<int (*)(int, unsigned long, ...)>("ioctl")(fd, request, argument);
}

std::FILE* fopen(const char* path, const char* mode) {
    return openFile(path, mode);
}

// With file sizes of 64 bits on a 32-bit machine, the function above has this name already.
#ifndef _FILE_OFFSET_BITS
std::FILE* fopen64(const char* path, const char* mode) {
    return openFile(path, mode);
}
#endif
}
#pragma GCC visibility pop
