// Loaded before the C library, ends the process by SIGTERM at one moment of its work on files in
// the folder KLXCTL_TEST_FOLDER. There is a moment before and one after each call that opens a file
// to write, writes to it, brings it to the disk, closes it or gives it a name; KLXCTL_TEST_MOMENT
// says which it is, counted from 1.

#include <fcntl.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <climits>
#include <csignal>
#include <cstdarg>
#include <cstdlib>
#include <string>

namespace {

bool isWatched(const std::string& path) {
    const char* const folder = std::getenv("KLXCTL_TEST_FOLDER");
    return folder != nullptr && path.compare(0, std::string(folder).size(), folder) == 0;
}

bool isWatched(int descriptor) {
    std::array<char, PATH_MAX> path = {};
    const std::string link = "/proc/self/fd/" + std::to_string(descriptor);
    const ssize_t length = readlink(link.c_str(), path.data(), path.size() - 1);
    return length > 0 && isWatched(std::string(path.data()));
}

void passMoment() {
    const char* const text = std::getenv("KLXCTL_TEST_MOMENT");
    static int remaining = text != nullptr ? std::atoi(text) : 0;
    if (--remaining == 0) {
        raise(SIGTERM);
    }
}

template <class... Arguments>
long between(bool watched, long number, Arguments... arguments) {
    if (watched) {
        passMoment();
    }
    const long result = syscall(number, arguments...);
    const int error = errno;
    if (watched) {
        passMoment();
    }
    errno = error;
    return result;
}

int openFile(const char* path, int flags, va_list more) {
    const bool writes = (flags & O_ACCMODE) != O_RDONLY;
    const unsigned mode = (flags & O_CREAT) != 0 ? va_arg(more, unsigned) : 0;
    return static_cast<int>(
        between(writes && isWatched(path), SYS_openat, AT_FDCWD, path, flags, mode));
}

} // namespace

extern "C" {
#pragma GCC visibility push(default)

int open(const char* file, int oflag, ...) {
    va_list more;
    va_start(more, oflag);
    const int descriptor = openFile(file, oflag, more);
    va_end(more);
    return descriptor;
}

// With file sizes of 64 bits on a 32-bit machine, the function above has this name already.
#ifndef _FILE_OFFSET_BITS
int open64(const char* file, int oflag, ...) {
    va_list more;
    va_start(more, oflag);
    const int descriptor = openFile(file, oflag | O_LARGEFILE, more);
    va_end(more);
    return descriptor;
}
#endif

ssize_t write(int fd, const void* buf, size_t n) {
    return between(isWatched(fd), SYS_write, fd, buf, n);
}

int fsync(int fd) {
    return static_cast<int>(between(isWatched(fd), SYS_fsync, fd));
}

int close(int fd) {
    return static_cast<int>(between(isWatched(fd), SYS_close, fd));
}

int rename(const char* old, const char* now) {
    return static_cast<int>(
        between(isWatched(std::string(now)), SYS_renameat2, AT_FDCWD, old, AT_FDCWD, now, 0));
}

#pragma GCC visibility pop
}
