#pragma once

#include <sys/stat.h>

#include <string>

namespace KLX::Host {

/**
 * Which file it is, whatever name leads to it. Two files that are there, or open, at the same time
 * differ. Zero for none.
 */
struct FileIdentity {
    dev_t device = 0;
    ino_t number = 0;

    bool operator==(const FileIdentity& other) const {
        return device == other.device && number == other.number;
    }
    bool operator!=(const FileIdentity& other) const { return !(*this == other); }
};

inline FileIdentity identityOf(const struct stat& status) {
    return {status.st_dev, status.st_ino};
}

inline FileIdentity identityOf(int descriptor) {
    struct stat status {};
    return ::fstat(descriptor, &status) == 0 ? identityOf(status) : FileIdentity{};
}

inline FileIdentity identityAt(const std::string& path) {
    struct stat status {};
    return ::stat(path.c_str(), &status) == 0 ? identityOf(status) : FileIdentity{};
}

} // namespace KLX::Host
