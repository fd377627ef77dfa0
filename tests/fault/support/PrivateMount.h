#pragma once

#include <functional>
#include <string>

namespace KLX::Host {

/**
 * Runs a body in a process of its own that has a tmpfs mounted at a folder, seen by that process
 * and its children only. Answers as ChildProcess::wait does.
 */
int onTmpfs(const std::string& folder, const std::string& options,
            const std::function<int()>& body);

/** Makes the tmpfs of the calling process read-only; nothing on it may be open for writing. */
bool remountReadOnly(const std::string& folder);

/** Whether this machine lets a process have a mount of its own at all. */
bool canMount(const std::string& folder);

} // namespace KLX::Host

/**
 * Leaves a test that needs a mount where none is permitted. Continuous integration has to permit
 * it: there the test fails instead.
 */
#define KLX_NEEDS_MOUNT(folder)                                                                    \
    if (!::KLX::Host::canMount(folder)) {                                                          \
        const char* const ci = std::getenv("CI");                                                  \
        ASSERT_FALSE(ci != nullptr && std::string(ci) == "true")                                   \
            << "neither root nor user namespaces permit a mount";                                  \
        GTEST_SKIP() << "not run: neither root nor user namespaces permit a mount";                \
    }
