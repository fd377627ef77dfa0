#include "OutputTarget.h"

#include "AtomicFile.h"
#include "ExitStatus.h"
#include "Messages.h"
#include "Streams.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>

namespace {

bool isDeviceOrPipe(const std::string& path) {
    struct stat status = {};
    return stat(path.c_str(), &status) == 0 && !S_ISREG(status.st_mode) && !S_ISDIR(status.st_mode);
}

void writeInto(const std::string& path, const std::string& data) {
    const int descriptor = open(path.c_str(), O_WRONLY | O_CLOEXEC | O_NOCTTY);
    const bool written = descriptor >= 0 && writeAll(descriptor, data);
    const int error = written ? 0 : errno;
    if (descriptor >= 0) {
        close(descriptor);
    }
    if (!written) {
        throw Failure(ExitStatus::Failed,
                      "cannot write " + quoted(path) + ": " + std::strerror(error));
    }
}

} // namespace

void writeTo(const std::string& target, const std::string& data) {
    if (target == "-") {
        writeOutput(data);
    } else if (isDeviceOrPipe(target)) {
        writeInto(target, data);
    } else {
        AtomicFile file(target);
        file.write(data);
        file.commit();
    }
}
