#include "AtomicFile.h"

#include "EndingSignals.h"
#include "ExitStatus.h"
#include "Messages.h"
#include "Streams.h"

#include <fcntl.h>
#include <unistd.h>

#include <array>
#include <atomic>
#include <cerrno>
#include <climits>
#include <cstring>
#include <filesystem>
#include <utility>

namespace {

// What the signal handler removes; everything in it can be used from a handler.
std::array<char, PATH_MAX> pendingPath;
std::atomic<bool> pending{false};
std::array<struct sigaction, endingSignals.size()> formerActions;

static_assert(std::atomic<bool>::is_always_lock_free, "the signal handler must not lock");

void removePendingFile() {
    if (pending.exchange(false)) {
        unlink(pendingPath.data());
    }
}

// The process still ends by the signal, so that its parent sees what happened.
void endBySignal(int number) {
    removePendingFile();
    signal(number, SIG_DFL);
    raise(number);
}

void catchSignals() {
    for (std::size_t index = 0; index < endingSignals.size(); ++index) {
        struct sigaction action = {};
        action.sa_handler = endBySignal;
        sigfillset(&action.sa_mask);
        sigaction(endingSignals[index], nullptr, &formerActions[index]);
        // An ignored signal, as under nohup, stays ignored.
        if (formerActions[index].sa_handler != SIG_IGN) {
            sigaction(endingSignals[index], &action, nullptr);
        }
    }
}

void releaseSignals() {
    for (std::size_t index = 0; index < endingSignals.size(); ++index) {
        sigaction(endingSignals[index], &formerActions[index], nullptr);
    }
}

// Noted before the file exists, so that there is no moment at which a signal leaves it behind.
bool notePending(const std::string& path) {
    if (path.size() >= pendingPath.size()) {
        errno = ENAMETOOLONG;
        return false;
    }
    std::memcpy(pendingPath.data(), path.c_str(), path.size() + 1);
    pending = true;
    return true;
}

int createPending(const std::string& path) {
    if (!notePending(path)) {
        return -1;
    }
    const int descriptor = open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
    if (descriptor < 0) {
        pending = false;
    }
    return descriptor;
}

/// Also where the last link leads to nothing yet. In a circle of links it ends at one of them.
std::string withLinksFollowed(const std::string& path) {
    constexpr int most = 40; // as the system itself
    std::filesystem::path real = path;
    std::error_code error;
    for (int links = 0; links < most && std::filesystem::is_symlink(real, error); ++links) {
        const std::filesystem::path next = std::filesystem::read_symlink(real, error);
        if (error) {
            break;
        }
        real = real.parent_path() / next;
    }
    return real.string();
}

bool isLink(const std::string& path) {
    std::error_code ignored;
    return std::filesystem::is_symlink(path, ignored);
}

bool isFolder(const std::string& path) {
    std::error_code ignored;
    return path.empty() || path.back() == '/' || std::filesystem::is_directory(path, ignored);
}

std::string temporaryName(const std::string& target, int attempt) {
    const std::string name =
        ".klxctl-" + std::to_string(getpid()) + "-" + std::to_string(attempt) + ".tmp";
    return std::filesystem::path(target).replace_filename(name).string();
}

} // namespace

AtomicFile::AtomicFile(const std::string& target)
    : m_name(target), m_target(withLinksFollowed(target)) {
    if (isFolder(m_target)) {
        fail(EISDIR);
    }
    if (isLink(m_target)) {
        fail(ELOOP);
    }
    catchSignals();
    int error = EEXIST;
    // Only a process of the same number that was killed can have left a file of this name.
    for (int attempt = 0; m_descriptor < 0 && error == EEXIST; ++attempt) {
        m_temporary = temporaryName(m_target, attempt);
        m_descriptor = createPending(m_temporary);
        error = errno;
    }
    if (m_descriptor < 0) {
        releaseSignals();
        fail(error);
    }
}

AtomicFile::~AtomicFile() {
    if (m_descriptor >= 0) {
        close(m_descriptor);
    }
    removePendingFile();
    releaseSignals();
}

void AtomicFile::write(const std::string& data) {
    if (!writeAll(m_descriptor, data)) {
        fail(errno);
    }
}

void AtomicFile::commit() {
    if (fsync(m_descriptor) != 0) {
        fail(errno);
    }
    if (close(std::exchange(m_descriptor, -1)) != 0) {
        fail(errno);
    }
    if (rename(m_temporary.c_str(), m_target.c_str()) != 0) {
        fail(errno);
    }
    pending = false;
}

void AtomicFile::fail(int error) const {
    throw Failure(ExitStatus::Failed,
                  "cannot write " + quoted(m_name) + ": " + std::strerror(error));
}
