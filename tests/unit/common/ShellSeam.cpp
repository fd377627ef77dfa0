#include "ShellSeam.h"

#include <cerrno>
#include <cstdlib>
#include <unistd.h>

namespace klx::test {
namespace {

ShellSeam* seam = nullptr;

std::string quoted(const std::string& text) {
    return '"' + text + '"';
}

} // namespace

ShellSeam::ShellSeam() {
    seam = this;
}

ShellSeam::~ShellSeam() {
    seam = nullptr;
}

} // namespace klx::test

using namespace klx::test;

// The linker's names for a wrapped function and the one behind it.
extern "C" {

int __real_system(const char* command);
int __real_access(const char* path, int mode);

int __wrap_system(const char* command) {
    if (seam == nullptr) {
        return __real_system(command);
    }
    seam->asked.push_back("system(" + quoted(command) + ")");
    return seam->run(command);
}

int __wrap_access(const char* path, int mode) {
    if (seam == nullptr) {
        return __real_access(path, mode);
    }
    seam->asked.push_back("access(" + quoted(path) + ", " + std::to_string(mode) + ")");
    errno = ENOENT;
    return seam->debugImage ? 0 : -1;
}
}

// Taken in place of the shared library's, which has no other user here.
namespace boost::filesystem::detail {

file_status status(const path& file, system::error_code* failure) {
    if (seam == nullptr) {
        return file_status(status_error);
    }
    seam->asked.push_back("status(" + quoted(file.string()) + ")");
    if (seam->marker == status_error && failure != nullptr) {
        failure->assign(EACCES, system::system_category());
    }
    return file_status(seam->marker);
}

} // namespace boost::filesystem::detail
