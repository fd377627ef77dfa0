#include "HostTest.h"

#include "vconf.h"

#include <sys/stat.h>
#include <unistd.h>

#include <cstdlib>
#include <ctime>
#include <filesystem>
#include <string>

namespace KLX::Host {
namespace {

namespace fs = std::filesystem;
using ::testing::HasSubstr;

constexpr auto key = "db/menu/caption/caption";
constexpr auto memoryKey = "memory/sysman/hdmi1";
constexpr unsigned permissionBits = 07777;

unsigned permissionsOf(const fs::path& path) {
    struct stat status {};
    EXPECT_EQ(::stat(path.c_str(), &status), 0) << path;
    return status.st_mode & permissionBits;
}

/** The memory store's own folder under the runtime folder. */
fs::path memoryFolderIn(const std::string& runtimeFolder) {
    for (const auto& entry : fs::directory_iterator(runtimeFolder)) {
        return entry.path();
    }
    return {};
}

int valueSeen() {
    int value = 0;
    return vconf_get_int(key, &value) == success ? value : -1;
}

int valueSeenByOthers() {
    return inOwnProcess(valueSeen);
}

/** Reads look whether the store was moved away once in a tick of this clock. */
void awaitTick() {
    timespec before{};
    timespec now{};
    ::clock_gettime(CLOCK_MONOTONIC_COARSE, &before);
    do {
        ::clock_gettime(CLOCK_MONOTONIC_COARSE, &now);
    } while (now.tv_sec == before.tv_sec && now.tv_nsec == before.tv_nsec);
}

/** This process, which has had the store open for long, and a new one write and read in turn. */
void expectAgreement(int value) {
    awaitTick();
    EXPECT_EQ(valueSeen(), value);
    EXPECT_EQ(vconf_set_int(key, value + 1), success);
    EXPECT_EQ(valueSeenByOthers(), value + 1);
    EXPECT_EQ(inOwnProcess([&] { return vconf_set_int(key, value + 2); }), success);
    EXPECT_EQ(valueSeen(), value + 2);
}

class Folders : public HostTest {};

TEST_F(Folders, AreOpenToTheirOwnerOnlyWhateverTheUmask) {
    ::umask(0);
    ::setenv("KLX_STATE_DIR", m_folder.path("a/b/state").c_str(), 1);
    ASSERT_EQ(vconf_set_int(key, 1), success);
    ASSERT_EQ(vconf_set_int(memoryKey, 1), success);
    EXPECT_EQ(permissionsOf(m_folder.path("a")), 0700U);
    EXPECT_EQ(permissionsOf(m_folder.path("a/b/state")), 0700U);
    EXPECT_EQ(permissionsOf(m_folder.path("a/b/state/settings.mdb")), 0600U);
    EXPECT_EQ(permissionsOf(m_folder.path("a/b/state/settings.mdb-lock")), 0600U);
    const fs::path memory = memoryFolderIn(runtimeFolder());
    EXPECT_EQ(permissionsOf(memory), 0700U);
    for (const auto& entry : fs::directory_iterator(memory)) {
        EXPECT_EQ(permissionsOf(entry.path()), 0600U) << entry.path();
    }
}

TEST_F(Folders, HoldNothingButTheStoreAndItsLock) {
    ASSERT_EQ(vconf_set_int(key, 1), success);
    EXPECT_EQ(countFiles(stateFolder(), ""), 2);
    EXPECT_EQ(countFiles(stateFolder(), "settings.mdb"), 2);
}

TEST_F(Folders, FollowXdgStateHome) {
    ::unsetenv("KLX_STATE_DIR");
    ::setenv("XDG_STATE_HOME", m_folder.path("xdg").c_str(), 1);
    ASSERT_EQ(vconf_set_int(key, 1), success);
    EXPECT_TRUE(fs::exists(m_folder.path("xdg/klx/settings.mdb")));
}

TEST_F(Folders, FallBackToTheHomeFolder) {
    ::unsetenv("KLX_STATE_DIR");
    ::setenv("XDG_STATE_HOME", "relative/is/ignored", 1);
    ::setenv("HOME", m_folder.path().c_str(), 1);
    ASSERT_EQ(vconf_set_int(key, 1), success);
    EXPECT_TRUE(fs::exists(m_folder.path(".local/state/klx/settings.mdb")));
}

TEST_F(Folders, AreNotMadeInAHomeThatIsMissing) {
    ::unsetenv("KLX_STATE_DIR");
    ::unsetenv("XDG_STATE_HOME");
    ::setenv("HOME", m_folder.path("missing").c_str(), 1);
    int result = success;
    const std::string lines = standardErrorOf([&] {
        result = vconf_set_int(key, 1);
        vconf_set_int(key, 1);
    });
    EXPECT_EQ(result, numberOf(HostError::NoStateFolder));
    EXPECT_EQ(linesIn(lines), 1) << lines;
    EXPECT_THAT(lines, HasSubstr(m_folder.path("missing")));
    EXPECT_THAT(lines, HasSubstr("set KLX_STATE_DIR"));
    EXPECT_FALSE(fs::exists(m_folder.path("missing")));
}

TEST_F(Folders, OfAnotherUserAreRefused) {
    const std::string foreign = m_folder.path("foreign");
    fs::create_directory(foreign);
    // Without root's rights nothing can be given away, but the root folder is somebody else's.
    const bool isRoot = ::geteuid() == 0;
    ASSERT_TRUE(!isRoot || ::chown(foreign.c_str(), 12345, 12345) == 0);
    ::setenv("KLX_STATE_DIR", isRoot ? foreign.c_str() : "/", 1);
    int result = success;
    const std::string lines = standardErrorOf([&] { result = vconf_set_int(key, 1); });
    EXPECT_EQ(result, numberOf(HostError::NotOurs));
    EXPECT_EQ(linesIn(lines), 1) << lines;
    EXPECT_THAT(lines, HasSubstr("belongs to user"));
}

TEST_F(Folders, ForMemoryAreRefusedWhenOthersMayLookInside) {
    ASSERT_EQ(inOwnProcess([] { return vconf_set_int(memoryKey, 1); }), success);
    fs::permissions(memoryFolderIn(runtimeFolder()), fs::perms(0755));
    int result = success;
    const std::string lines = standardErrorOf([&] { result = vconf_set_int(memoryKey, 2); });
    EXPECT_EQ(result, numberOf(HostError::NotOurs));
    EXPECT_THAT(lines, HasSubstr("is open to other users"));
}

TEST_F(Folders, ForMemoryAreRefusedWhenTheyAreLinks) {
    ASSERT_EQ(inOwnProcess([] { return vconf_set_int(memoryKey, 1); }), success);
    const fs::path folder = memoryFolderIn(runtimeFolder());
    const fs::path elsewhere = m_folder.path("elsewhere");
    fs::rename(folder, elsewhere);
    fs::create_directory_symlink(elsewhere, folder);
    int value = 0;
    standardErrorOf([&] { EXPECT_NE(vconf_get_int(memoryKey, &value), success); });
    EXPECT_EQ(value, 0);
}

TEST_F(Folders, ForgetMemoryKeysOfAnEarlierBoot) {
    ASSERT_EQ(inOwnProcess([] { return vconf_set_int("memory/test", 1); }), success);
    const fs::path folder = memoryFolderIn(runtimeFolder());
    for (const auto& entry : fs::directory_iterator(folder)) {
        const std::string name = entry.path().filename().string();
        const std::string ending = name.substr(name.find(".mdb"));
        fs::rename(entry.path(), folder / ("memory-an-earlier-boot" + ending));
    }
    int value = 0;
    EXPECT_EQ(vconf_get_int("memory/test", &value), numberOf(HostError::UnknownKey));
    EXPECT_EQ(countFiles(folder, "memory-an-earlier-boot"), 0);
    EXPECT_EQ(countFiles(folder, "memory-"), 2);
}

TEST_F(Folders, MayBeTakenAwayWhileTheStoreIsOpen) {
    ASSERT_EQ(vconf_set_int(key, 1), success);
    fs::remove_all(stateFolder());
    EXPECT_EQ(vconf_set_int(key, 2), success);
    EXPECT_EQ(valueSeenByOthers(), 2);
}

TEST_F(Folders, MayBeMovedAwayWhileTheStoreIsOpen) {
    ASSERT_EQ(vconf_set_int(key, 1), success);
    fs::rename(stateFolder(), m_folder.path("state.bad"));
    EXPECT_EQ(vconf_set_int(key, 2), success);
    EXPECT_EQ(valueSeenByOthers(), 2);
    fs::rename(stateFolder(), m_folder.path("state.worse"));
    EXPECT_EQ(inOwnProcess([] { return vconf_set_int(key, 3); }), success);
    expectAgreement(3);
}

} // namespace
} // namespace KLX::Host
