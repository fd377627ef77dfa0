#include "Streams.h"

#include "ExitStatus.h"

#include <fcntl.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstring>
#include <utility>

namespace {

[[noreturn]] void failOutput(int error) {
    throw Failure(ExitStatus::Failed,
                  std::string("cannot write to standard output: ") + std::strerror(error));
}

} // namespace

void reserveStandardStreams() {
    // Each in the direction that its stream is never used in. The lowest free number is what open()
    // takes, and that is the one just found free.
    constexpr std::array<int, 3> unusableModes = {O_WRONLY, O_RDONLY, O_RDONLY};
    for (std::size_t descriptor = 0; descriptor < unusableModes.size(); ++descriptor) {
        if (fcntl(static_cast<int>(descriptor), F_GETFD) < 0) {
            open("/dev/null", unusableModes[descriptor]);
        }
    }
}

void writeOutput(const std::string& data) {
    if (!writeAll(STDOUT_FILENO, data)) {
        failOutput(errno);
    }
}

void closeOutput() {
    static bool isOpen = true;
    if (std::exchange(isOpen, false) && close(STDOUT_FILENO) != 0) {
        failOutput(errno);
    }
}

bool writeAll(int descriptor, const std::string& data) {
    std::size_t done = 0;
    while (done < data.size()) {
        const ssize_t count = write(descriptor, data.data() + done, data.size() - done);
        if (count < 0 && errno != EINTR) {
            return false;
        }
        done += count > 0 ? static_cast<std::size_t>(count) : 0;
    }
    return true;
}
