#include "Machine.h"

#include "LinkedNames.h"

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <ctime>
#include <unistd.h>

namespace {

Machine* machine = nullptr;
std::FILE* processorFile = nullptr;

std::string quoted(const char* text) {
    return '"' + std::string(text) + '"';
}

void note(const std::string& question) {
    machine->asked.push_back(question);
}

std::FILE* fileHolding(const std::string& content) {
    std::FILE* const file = std::tmpfile();
    if (file != nullptr) {
        std::fwrite(content.data(), 1, content.size(), file);
        std::rewind(file);
    }
    return file;
}

std::FILE* openProcessorTimes() {
    if (machine->processorTimes.empty()) {
        errno = EMFILE;
        return nullptr;
    }
    processorFile = fileHolding(machine->processorTimes.front());
    machine->processorTimes.pop_front();
    return processorFile;
}

/** Hands out figures. @return the status of the call that gives them */
template <class Figures>
int give(const std::optional<Figures>& figures, Figures* out) {
    if (!figures) {
        errno = EIO;
        return -1;
    }
    *out = *figures;
    return 0;
}

} // namespace

Machine::Machine() {
    machine = this;
}

Machine::~Machine() {
    machine = nullptr;
    processorFile = nullptr;
}

// The linker's names for a wrapped function and the one behind it.
extern "C" {

std::FILE* __real_fopen(const char* path, const char* mode) __asm__("__real_" KLX_LINKED_FOPEN);
std::FILE* __wrap_fopen(const char* path, const char* mode) __asm__("__wrap_" KLX_LINKED_FOPEN);
int __real_fclose(std::FILE* file);
int __real_access(const char* path, int mode);
int __real_statvfs(const char* path, struct statvfs* figures) __asm__("__real_" KLX_LINKED_STATVFS);
int __wrap_statvfs(const char* path, struct statvfs* figures) __asm__("__wrap_" KLX_LINKED_STATVFS);
int __real_sysinfo(struct sysinfo* figures);
int __real_system(const char* command);
int __real_nanosleep(const timespec* duration,
                     timespec* left) __asm__("__real_" KLX_LINKED_NANOSLEEP);
int __wrap_nanosleep(const timespec* duration,
                     timespec* left) __asm__("__wrap_" KLX_LINKED_NANOSLEEP);

std::FILE* __wrap_fopen(const char* path, const char* mode) {
    if (machine == nullptr) {
        return __real_fopen(path, mode);
    }
    note("fopen(" + quoted(path) + ", " + quoted(mode) + ")");
    return std::strcmp(path, "/proc/stat") == 0 ? openProcessorTimes() : nullptr;
}

int __wrap_fclose(std::FILE* file) {
    if (machine != nullptr && file == processorFile) {
        note("fclose");
        processorFile = nullptr;
    }
    return __real_fclose(file);
}

int __wrap_access(const char* path, int mode) {
    if (machine == nullptr) {
        return __real_access(path, mode);
    }
    note("access(" + quoted(path) + ", " + std::to_string(mode) + ")");
    errno = ENOENT;
    return machine->files.count(path) != 0 ? 0 : -1;
}

int __wrap_statvfs(const char* path, struct statvfs* figures) {
    if (machine == nullptr) {
        return __real_statvfs(path, figures);
    }
    note("statvfs(" + quoted(path) + ")");
    return give(machine->storage, figures);
}

int __wrap_sysinfo(struct sysinfo* figures) {
    if (machine == nullptr) {
        return __real_sysinfo(figures);
    }
    note("sysinfo");
    return give(machine->memory, figures);
}

int __wrap_system(const char* command) {
    if (machine == nullptr) {
        return __real_system(command);
    }
    note("system(" + quoted(command) + ")");
    return machine->shell(command);
}

int __wrap_nanosleep(const timespec* duration, timespec* left) {
    if (machine == nullptr) {
        return __real_nanosleep(duration, left);
    }
    note("nanosleep(" + std::to_string(duration->tv_sec) + " s " +
         std::to_string(duration->tv_nsec) + " ns)");
    return 0;
}
}
