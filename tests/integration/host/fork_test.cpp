#include "HostTest.h"

#include "dlog.h"
#include "vconf.h"

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <atomic>
#include <filesystem>
#include <string>
#include <thread>

namespace KLX::Host {
namespace {

constexpr auto key = "db/menu/caption/caption";
constexpr auto memoryKey = "memory/sysman/hdmi1";

// The allocators of the address and the thread sanitizer take no care of a fork: a lock that
// another thread holds in that instant stays held in the child for ever.
#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
constexpr bool forksBesideThreads = false;
#elif defined(__has_feature)
constexpr bool forksBesideThreads =
    !__has_feature(address_sanitizer) && !__has_feature(thread_sanitizer);
#else
constexpr bool forksBesideThreads = true;
#endif

int valueOf(const char* name) {
    int value = -1;
    EXPECT_EQ(vconf_get_int(name, &value), success);
    return value;
}

/** How many descriptors of this process lead to a file. */
long descriptorsOf(const std::string& file) {
    const std::filesystem::directory_iterator descriptors("/proc/self/fd");
    return std::count_if(begin(descriptors), end(descriptors), [&](const auto& entry) {
        std::error_code ignored;
        return std::filesystem::read_symlink(entry.path(), ignored) == file;
    });
}

class Fork : public HostTest {};

// LMDB's handles are good in the process that opened them only, even where they seem to work.
TEST_F(Fork, GivesTheChildHandlesOfItsOwn) {
    ASSERT_EQ(vconf_set_int(key, 1), success);
    const std::string lockFile = dataFile() + "-lock";
    ASSERT_EQ(descriptorsOf(lockFile), 1);
    EXPECT_EQ(inOwnProcess([&] {
                  EXPECT_EQ(descriptorsOf(lockFile), 1);
                  EXPECT_EQ(valueOf(key), 1);
                  EXPECT_EQ(descriptorsOf(lockFile), 2);
                  return success;
              }),
              success);
}

TEST_F(Fork, LeavesAStoreThatWorksInParentChildAndGrandchild) {
    ASSERT_EQ(vconf_set_int(key, 1), success);
    EXPECT_EQ(inOwnProcess([] {
                  EXPECT_EQ(valueOf(key), 1);
                  EXPECT_EQ(vconf_set_int(key, 2), success);
                  EXPECT_EQ(inOwnProcess([] {
                                EXPECT_EQ(valueOf(key), 2);
                                return vconf_set_int(key, 3);
                            }),
                            success);
                  return valueOf(key) == 3 ? 0 : 1;
              }),
              0);
    EXPECT_EQ(valueOf(key), 3);
    EXPECT_EQ(vconf_set_int(key, 4), success);
    EXPECT_EQ(valueOf(key), 4);
}

TEST_F(Fork, IsHarmlessWhileOtherThreadsWrite) {
    if (!forksBesideThreads) {
        GTEST_SKIP() << "not under a sanitizer: its allocator does not survive this";
    }
    constexpr int forks = 50;
    std::atomic<bool> stop{false};
    std::thread writer([&] {
        for (int i = 0; !stop; ++i) {
            EXPECT_EQ(vconf_set_int(memoryKey, i % 3), success);
        }
    });
    for (int i = 0; i < forks; ++i) {
        EXPECT_EQ(inOwnProcess([&] { return vconf_set_int("memory/fork", i); }), success);
        EXPECT_EQ(valueOf("memory/fork"), i);
    }
    stop = true;
    writer.join();
}

TEST_F(Fork, OfAProcessWithoutStandardDescriptorsDoesNotLogIntoTheStore) {
    EXPECT_EQ(inOwnProcess([] {
                  for (const int descriptor : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) {
                      ::close(descriptor);
                  }
                  if (vconf_set_int(key, 9) != success) {
                      return 1;
                  }
                  __dlog_print(DLOG_ID_MAIN, DLOG_ERROR, "KLX", "%s", "into the store?");
                  return ::fcntl(STDERR_FILENO, F_GETFD) == -1 ? 0 : 2;
              }),
              0);
    EXPECT_EQ(valueOf(key), 9);
    EXPECT_EQ(contentOf(dataFile()).find("into the store?"), std::string::npos);
}

} // namespace
} // namespace KLX::Host
