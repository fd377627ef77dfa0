#include "HostTest.h"
#include "PrivateMount.h"
#include "StoreCalls.h"

#include <sys/stat.h>
#include <sys/statvfs.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <string>
#include <vector>

namespace KLX::Host {
namespace {

namespace fs = std::filesystem;
using ::testing::HasSubstr;

constexpr auto key = "db/menu/caption/caption";
constexpr auto oneMebibyte = "size=1m,mode=0700";
constexpr std::size_t page = 4096;

std::string fillKey(std::size_t i) {
    return "db/fill/" + std::to_string(i);
}

/** Writes texts until one is refused; how many were acknowledged. */
std::size_t fill(int& refusal) {
    const std::string text(20000, 'x');
    for (std::size_t i = 0;; ++i) {
        refusal = setText(fillKey(i), text);
        if (refusal != success) {
            return i;
        }
    }
}

/** Takes all the space of a file system but so many pages. */
void leavePages(const std::string& folder, std::size_t pages) {
    struct statvfs status {};
    ASSERT_EQ(::statvfs(folder.c_str(), &status), 0);
    const auto free = static_cast<std::size_t>(status.f_bavail * status.f_frsize);
    writeFile(folder + "/ballast", std::string(free - pages * page, 'b'));
}

class Disk : public HostTest {
protected:
    Disk() { fs::create_directory(disk()); }

    std::string disk() const { return m_folder.path("disk"); }

    /** Runs a body with the state folder, and the runtime folder too, on a small disk. */
    int onSmallDisk(const std::function<int()>& body) {
        return onTmpfs(disk(), oneMebibyte, [&] {
            ::setenv("KLX_STATE_DIR", (disk() + "/state").c_str(), 1);
            ::setenv("XDG_RUNTIME_DIR", disk().c_str(), 1);
            return body();
        });
    }
};

TEST_F(Disk, ThatIsFullRefusesAWriteAndLosesNothing) {
    KLX_NEEDS_MOUNT(disk());
    EXPECT_EQ(onSmallDisk([&] {
                  writeFile(disk() + "/ballast", std::string(300000, 'b'));
                  EXPECT_EQ(setInteger(key, 7), success);
                  int refusal = success;
                  std::size_t written = 0;
                  const std::string lines = standardErrorOf([&] {
                      written = fill(refusal);
                      EXPECT_NE(setText(fillKey(0), std::string(300000, 'y')), success);
                  });
                  EXPECT_EQ(refusal, numberOf(HostError::DiskFull));
                  EXPECT_EQ(linesIn(lines), 1) << lines;
                  EXPECT_THAT(lines, HasSubstr(disk() + "/state/settings.mdb: "));
                  EXPECT_THAT(lines, HasSubstr("free space on its disk"));
                  EXPECT_GT(written, 10U);
                  for (std::size_t i = 0; i < written; ++i) {
                      EXPECT_EQ(textOf(fillKey(i)), std::string(20000, 'x')) << i;
                  }
                  EXPECT_EQ(inOwnProcess([] { return integerOr(key); }), 7);
                  fs::remove(disk() + "/ballast");
                  EXPECT_EQ(setText(fillKey(written), "room again"), success);
                  EXPECT_EQ(textOf(fillKey(written)), "room again");
                  return success;
              }),
              success);
}

TEST_F(Disk, ThatIsFullIsReportedAgainAfterItWorkedInBetween) {
    KLX_NEEDS_MOUNT(disk());
    EXPECT_EQ(onSmallDisk([&] {
                  const std::string lines = standardErrorOf([&] {
                      for (int time = 0; time < 2; ++time) {
                          EXPECT_EQ(setInteger(key, time), success);
                          leavePages(disk(), 0);
                          EXPECT_EQ(setText("db/long", std::string(100000, 'x')),
                                    numberOf(HostError::DiskFull));
                          fs::remove(disk() + "/ballast");
                      }
                  });
                  EXPECT_EQ(linesIn(lines), 2) << lines;
                  return success;
              }),
              success);
}

// However little room there is for a new store: an error or a store, never half of one.
TEST_F(Disk, ThatIsNearlyFullGetsAWholeStoreOrNone) {
    KLX_NEEDS_MOUNT(disk());
    int refused = 0;
    int made = 0;
    for (std::size_t pages = 0; pages < 40; ++pages) {
        const int result = onSmallDisk([&] {
            leavePages(disk(), pages);
            int first = success;
            const std::string lines = standardErrorOf([&] {
                first = setInteger(key, 7);
                setInteger(key, 7);
                integerOr("memory/sysman/hdmi1");
            });
            EXPECT_TRUE(first == success || first == numberOf(HostError::DiskFull)) << first;
            EXPECT_LE(linesIn(lines), 2) << lines;
            fs::remove(disk() + "/ballast");
            EXPECT_EQ(setInteger(key, 8), success);
            EXPECT_EQ(setInteger("memory/sysman/hdmi1", 1), success);
            EXPECT_EQ(inOwnProcess([] { return integerOr(key); }), 8);
            EXPECT_EQ(countFiles(disk() + "/state", ""), 2);
            return first == success ? 0 : 1;
        });
        refused += result == 1 ? 1 : 0;
        made += result == 0 ? 1 : 0;
    }
    EXPECT_EQ(refused + made, 40);
    EXPECT_GT(refused, 0);
    EXPECT_GT(made, 0);
}

TEST_F(Disk, ThatIsReadOnlyStillShowsItsSettings) {
    KLX_NEEDS_MOUNT(disk());
    EXPECT_EQ(onSmallDisk([&] {
                  EXPECT_EQ(inOwnProcess([] { return setInteger(key, 7); }), success);
                  EXPECT_TRUE(remountReadOnly(disk()));
                  const std::string lines = standardErrorOf([&] {
                      EXPECT_EQ(integerOr(key), 7);
                      EXPECT_EQ(setInteger(key, 8), numberOf(HostError::NotWritable));
                      EXPECT_EQ(integerOr(key), 7);
                      EXPECT_EQ(setInteger(key, 8), numberOf(HostError::NotWritable));
                  });
                  EXPECT_EQ(linesIn(lines), 1) << lines;
                  EXPECT_THAT(lines, HasSubstr(disk() + "/state/settings.mdb: "));
                  EXPECT_THAT(lines, HasSubstr("set KLX_STATE_DIR to a writable folder"));
                  return success;
              }),
              success);
}

TEST_F(Disk, ThatIsReadOnlyAndEmptyHasNoSettings) {
    KLX_NEEDS_MOUNT(disk());
    EXPECT_EQ(onSmallDisk([&] {
                  EXPECT_TRUE(remountReadOnly(disk()));
                  const std::string lines = standardErrorOf([&] {
                      EXPECT_EQ(integerOr(key), numberOf(HostError::NotWritable));
                      EXPECT_EQ(setInteger(key, 8), numberOf(HostError::NotWritable));
                  });
                  EXPECT_EQ(linesIn(lines), 1) << lines;
                  EXPECT_THAT(lines, HasSubstr(disk() + "/state: "));
                  return success;
              }),
              success);
}

TEST_F(Disk, FolderThatMayNotBeWrittenIsReported) {
    constexpr uid_t nobody = 65534;
    const std::string folder = m_folder.path("locked");
    fs::create_directory(folder);
    const bool isRoot = ::geteuid() == 0;
    // Root's rights ignore permissions, so the call is made by somebody without them.
    if (isRoot) {
        ASSERT_EQ(::chown(folder.c_str(), nobody, nobody), 0);
        fs::permissions(m_folder.path(), fs::perms(0755));
    }
    fs::permissions(folder, fs::perms(0500));
    EXPECT_EQ(inOwnProcess([&] {
                  EXPECT_TRUE(!isRoot || ::setresuid(nobody, nobody, nobody) == 0);
                  ::setenv("KLX_STATE_DIR", folder.c_str(), 1);
                  const std::string lines = standardErrorOf([&] {
                      EXPECT_EQ(setInteger(key, 8), numberOf(HostError::NotWritable));
                      EXPECT_EQ(setInteger(key, 8), numberOf(HostError::NotWritable));
                  });
                  EXPECT_EQ(linesIn(lines), 1) << lines;
                  EXPECT_THAT(lines, HasSubstr(folder + "/settings.mdb: "));
                  EXPECT_THAT(lines, HasSubstr("make it writable for this user"));
                  return success;
              }),
              success);
}

// A sandbox may hide by which name the kernel knows this boot.
TEST_F(Disk, ThatHidesTheBootFromAProcessLeavesTheOthersTheirMemoryKeys) {
    const std::string bootFolder = "/proc/sys/kernel/random";
    KLX_NEEDS_MOUNT(bootFolder);
    constexpr auto memoryKey = "memory/sysman/hdmi1";
    ASSERT_EQ(inOwnProcess([&] { return setInteger(memoryKey, 1); }), success);
    EXPECT_EQ(onTmpfs(bootFolder, oneMebibyte, [&] { return setInteger(memoryKey, 0); }), success);
    EXPECT_EQ(inOwnProcess([&] { return integerOr(memoryKey); }), 1);
    EXPECT_EQ(onTmpfs(bootFolder, oneMebibyte, [&] { return integerOr(memoryKey); }), 0);
}

} // namespace
} // namespace KLX::Host
