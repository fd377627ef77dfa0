// Loaded before the C library, plays hardware and files that hardly any machine has, each where its
// variable is set:
//   KLXCTL_TEST_DVB       a folder instead of /dev/dvb; a receiver's file holds what it tells:
//                         "decibel NUMBER", "relative NUMBER", "silent", or "broken" for an error
//   KLXCTL_TEST_WATCHDOG  the status that a watchdog had at the start; empty for no watchdog
//   KLXCTL_TEST_CEC       a file instead of the adapter $KLX_HOST_CEC, or else /dev/cec0, which
//   gets
//                         a line for each time that addresses are claimed or given up; empty for no
//                         adapter
//   KLXCTL_TEST_MARKERS   which of the files are there by which an image tells its type

#include <dlfcn.h>
#include <fcntl.h>
#include <glob.h>
#include <linux/cec.h>
#include <linux/dvb/frontend.h>
#include <linux/ioctl.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <sstream>
#include <string>

namespace {

template <class Function>
Function real(const char* name) {
    return reinterpret_cast<Function>(dlsym(RTLD_NEXT, name));
}

bool isPlayed(const char* setting) {
    return std::getenv(setting) != nullptr;
}

int refusal(int code) {
    errno = code;
    return -1;
}

std::string contentOf(int descriptor) {
    std::array<char, 4096> content = {};
    const ssize_t size = pread(descriptor, content.data(), content.size(), 0);
    return {content.data(), size > 0 ? static_cast<std::size_t>(size) : 0};
}

int tellCarrierToNoise(int receiver, dtv_property& property) {
    std::istringstream content(contentOf(receiver));
    std::string scale;
    long long number = 0;
    content >> scale >> number;
    if (scale == "broken") {
        return refusal(EIO);
    }
    property.u.st.len = scale == "silent" ? 0 : 1;
    property.u.st.stat[0].scale = scale == "decibel" ? FE_SCALE_DECIBEL : FE_SCALE_RELATIVE;
    property.u.st.stat[0].svalue = number;
    return 0;
}

const char* const noAddress = "silent\n";

bool holdsAddresses(int adapter) {
    const std::string content = contentOf(adapter);
    const std::size_t length = std::strlen(noAddress);
    return content.size() >= length && content.substr(content.size() - length) != noAddress;
}

const char* lineOf(const cec_log_addrs& addresses) {
    if (addresses.num_log_addrs == 0) {
        return noAddress;
    }
    const bool isTelevision = addresses.num_log_addrs == 1 &&
                              addresses.log_addr_type[0] == CEC_LOG_ADDR_TYPE_TV &&
                              addresses.primary_device_type[0] == CEC_OP_PRIM_DEVTYPE_TV &&
                              addresses.all_device_types[0] == CEC_OP_ALL_DEVTYPE_TV;
    return isTelevision ? "television\n" : "another device\n";
}

int claim(int adapter, const cec_log_addrs& addresses) {
    // As the kernel has it: none can be claimed while any are held.
    if (addresses.num_log_addrs > 0 && holdsAddresses(adapter)) {
        return refusal(EBUSY);
    }
    const std::string line = lineOf(addresses);
    lseek(adapter, 0, SEEK_END);
    return write(adapter, line.data(), line.size()) > 0 ? 0 : -1;
}

bool isAdapter(const char* path) {
    const char* const named = std::getenv("KLX_HOST_CEC");
    const char* const adapter = named != nullptr && *named != '\0' ? named : "/dev/cec0";
    return isPlayed("KLXCTL_TEST_CEC") && std::strcmp(path, adapter) == 0;
}

bool isMarker(const std::string& path) {
    return isPlayed("KLXCTL_TEST_MARKERS") &&
           (path == "/etc/release" || path == "/etc/perf" || path == "/etc/debug");
}

std::FILE* openFile(const char* path, const char* mode) {
    const bool isWatchdog = std::strcmp(path, "/sys/class/watchdog/watchdog0/bootstatus") == 0;
    if (!isWatchdog || !isPlayed("KLXCTL_TEST_WATCHDOG")) {
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
    std::va_list rest;
    va_start(rest, flags);
    const unsigned mode = (flags & (O_CREAT | O_TMPFILE)) != 0 ? va_arg(rest, unsigned) : 0;
    va_end(rest);
    const char* const shown = isAdapter(path) ? std::getenv("KLXCTL_TEST_CEC") : path;
    return real<int (*)(const char*, int, ...)>("open")(shown, flags, mode);
}

int ioctl(int fd, unsigned long request, ...) {
    std::va_list rest;
    va_start(rest, request);
    void* const argument = va_arg(rest, void*);
    va_end(rest);
    if (request == FE_GET_PROPERTY && isPlayed("KLXCTL_TEST_DVB")) {
        return tellCarrierToNoise(fd, *static_cast<dtv_properties*>(argument)->props);
    }
    if (request == CEC_ADAP_G_LOG_ADDRS && isPlayed("KLXCTL_TEST_CEC")) {
        static_cast<cec_log_addrs*>(argument)->num_log_addrs = holdsAddresses(fd) ? 1 : 0;
        return 0;
    }
    if (request == CEC_ADAP_S_LOG_ADDRS && isPlayed("KLXCTL_TEST_CEC")) {
        return claim(fd, *static_cast<cec_log_addrs*>(argument));
    }
    return real<int (*)(int, unsigned long, ...)>("ioctl")(fd, request, argument);
}

int glob(const char* pattern, int flags, int (*failed)(const char*, int), glob_t* matches) {
    const std::string devices = "/dev/dvb/";
    std::string shown = pattern;
    if (isPlayed("KLXCTL_TEST_DVB") && shown.rfind(devices, 0) == 0) {
        shown.replace(0, devices.size() - 1, std::getenv("KLXCTL_TEST_DVB"));
    }
    using Glob = int (*)(const char*, int, int (*)(const char*, int), glob_t*);
    return real<Glob>("glob")(shown.c_str(), flags, failed, matches);
}

int access(const char* path, int mode) {
    if (!isMarker(path)) {
        return real<int (*)(const char*, int)>("access")(path, mode);
    }
    std::istringstream markers(std::getenv("KLXCTL_TEST_MARKERS"));
    for (std::string marker; markers >> marker;) {
        if (marker == path) {
            return 0;
        }
    }
    return refusal(ENOENT);
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
