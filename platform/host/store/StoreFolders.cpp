#include "StoreFolders.h"

#include "Handles.h"
#include "Hash.h"
#include "StoreFault.h"

#include <fcntl.h>
#include <pwd.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstdlib>
#include <filesystem>
#include <iomanip>
#include <sstream>
#include <vector>

namespace KLX::Host {
namespace {

namespace fs = std::filesystem;

std::string environmentText(const char* name) {
    const char* const text = std::getenv(name);
    return text != nullptr ? text : "";
}

bool isFolder(const std::string& path) {
    std::error_code ignored;
    return fs::is_directory(path, ignored);
}

std::string homeOfPasswordFile() {
    std::vector<char> buffer(16384);
    passwd entry{};
    passwd* found = nullptr;
    if (::getpwuid_r(::geteuid(), &entry, buffer.data(), buffer.size(), &found) != 0 ||
        found == nullptr || found->pw_dir == nullptr) {
        return "";
    }
    return found->pw_dir;
}

std::string homeFolder() {
    std::string home = environmentText("HOME");
    if (home.empty()) {
        home = homeOfPasswordFile();
    }
    if (home.empty() || home.front() != '/' || !isFolder(home)) {
        throw storeFault(HostError::NoStateFolder, home.empty() ? "HOME" : home,
                         "there is no home folder to keep the settings in");
    }
    return home;
}

// The same folder under two names is one folder, also as a part of the memory store's name.
std::string canonical(const std::string& path) {
    std::error_code failure;
    const fs::path absolute = fs::absolute(path, failure);
    const fs::path resolved = fs::weakly_canonical(absolute, failure);
    return (failure ? absolute : resolved).lexically_normal().string();
}

void makeFolder(const std::string& path) {
    if (::mkdir(path.c_str(), S_IRWXU) != 0 && errno != EEXIST) {
        const int code = errno;
        // A folder above that is read-only says so even where the folder itself is there.
        if (!isFolder(path)) {
            throw storeFaultOf(code, path);
        }
    }
}

struct stat statusOf(const std::string& path, bool followLink) {
    struct stat status {};
    const int result = followLink ? ::stat(path.c_str(), &status) : ::lstat(path.c_str(), &status);
    if (result != 0) {
        throw storeFaultOf(errno, path);
    }
    return status;
}

void checkOwner(const std::string& path, const struct stat& status) {
    if (!S_ISDIR(status.st_mode)) {
        throw storeFaultOf(ENOTDIR, path);
    }
    if (status.st_uid != ::geteuid()) {
        throw storeFault(HostError::NotOurs, path,
                         "belongs to user " + std::to_string(status.st_uid) + ", not to user " +
                             std::to_string(::geteuid()));
    }
}

void makeFolders(const std::string& path) {
    fs::path soFar;
    for (const fs::path& part : fs::path(path)) {
        soFar /= part;
        if (!part.empty() && !isFolder(soFar.string())) {
            makeFolder(soFar.string());
        }
    }
}

std::string runtimeBase() {
    std::string named = environmentText("XDG_RUNTIME_DIR");
    if (!named.empty() && named.front() == '/' && isFolder(named)) {
        return named;
    }
    return ::access("/run", W_OK) == 0 ? "/run" : "/tmp";
}

// Errors by which a machine has no such file for this process, now or later. Others pass.
bool isOutOfReach(int code) {
    return code == ENOENT || code == ENOTDIR || code == EACCES || code == EPERM;
}

bool startsWith(const std::string& text, const std::string& prefix) {
    return text.compare(0, prefix.size(), prefix) == 0;
}

constexpr auto unknownBoot = "unknown";

} // namespace

std::string stateFolder() {
    const std::string named = environmentText("KLX_STATE_DIR");
    if (!named.empty()) {
        return canonical(named);
    }
    const std::string stateHome = environmentText("XDG_STATE_HOME");
    if (!stateHome.empty() && stateHome.front() == '/') {
        return canonical(stateHome + "/klx");
    }
    return canonical(homeFolder() + "/.local/state/klx");
}

std::string runtimeFolder(const std::string& stateFolder) {
    std::ostringstream name;
    name << runtimeBase() << "/klx-" << ::geteuid() << '-' << std::hex << std::setw(16)
         << std::setfill('0') << hashOf(stateFolder);
    return name.str();
}

void ensureFolder(const std::string& path) {
    makeFolders(path);
    checkOwner(path, statusOf(path, true));
}

void ensurePrivateFolder(const std::string& path) {
    makeFolder(path);
    const struct stat status = statusOf(path, false);
    checkOwner(path, status);
    if ((status.st_mode & (S_IRWXG | S_IRWXO)) != 0) {
        throw storeFault(HostError::NotOurs, path, "is open to other users");
    }
}

std::optional<std::string> bootId() {
    constexpr auto path = "/proc/sys/kernel/random/boot_id";
    const Descriptor file(::open(path, O_RDONLY | O_CLOEXEC));
    if (!file.isOpen() && isOutOfReach(errno)) {
        return std::nullopt;
    }
    std::array<char, 64> text{};
    const ssize_t size = file.isOpen() ? ::read(file.get(), text.data(), text.size()) : -1;
    if (size < 0) {
        throw storeFaultOf(errno, path);
    }
    const std::string line(text.data(), static_cast<std::size_t>(size));
    const std::string id = line.substr(0, line.find_first_of(" \n"));
    return id.empty() ? std::nullopt : std::optional(id);
}

std::string memoryStoreName(const std::optional<std::string>& boot) {
    return "memory-" + boot.value_or(unknownBoot) + ".mdb";
}

void discardStaleMemoryStores(const std::string& folder, const std::optional<std::string>& boot) {
    if (!boot) {
        return;
    }
    // What cannot be removed is only litter: nobody opens it any more.
    std::error_code ignored;
    fs::directory_iterator entry(folder, ignored);
    while (!ignored && entry != fs::directory_iterator()) {
        const std::string name = entry->path().filename().string();
        if (startsWith(name, "memory-") && !startsWith(name, memoryStoreName(boot)) &&
            !startsWith(name, memoryStoreName(std::nullopt))) {
            fs::remove(entry->path(), ignored);
        }
        entry.increment(ignored);
    }
}

} // namespace KLX::Host
