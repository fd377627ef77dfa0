#include "HostTest.h"

#include "store/StoreFault.h"
#include "store/StoreFolders.h"

#include <sys/resource.h>

#include <cstdlib>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace KLX::Host {
namespace {

using ::testing::AnyOf;
using ::testing::SizeIs;
using ::testing::StartsWith;
using ::testing::UnorderedElementsAre;

class StoreFolders : public HostTest {};

TEST_F(StoreFolders, AreOneForAFolderUnderTwoNames) {
    std::filesystem::create_directory(m_folder.path("real"));
    std::filesystem::create_directory_symlink(m_folder.path("real"), m_folder.path("link"));
    ::setenv("KLX_STATE_DIR", m_folder.path("link/../link/state").c_str(), 1);
    EXPECT_EQ(Host::stateFolder(), m_folder.path("real/state"));
}

TEST_F(StoreFolders, AreAbsoluteWhenTheyAreNamedRelatively) {
    ::setenv("KLX_STATE_DIR", "some/state", 1);
    EXPECT_EQ(Host::stateFolder(),
              (std::filesystem::current_path() / "some/state").lexically_normal().string());
}

TEST_F(StoreFolders, ForMemoryDifferByStateFolder) {
    EXPECT_THAT(Host::runtimeFolder("/a"), StartsWith(HostTest::runtimeFolder() + "/klx-"));
    EXPECT_EQ(Host::runtimeFolder("/a"), Host::runtimeFolder("/a"));
    EXPECT_NE(Host::runtimeFolder("/a"), Host::runtimeFolder("/b"));
}

TEST_F(StoreFolders, ForMemoryFallBackWhenNoRuntimeFolderIsThere) {
    for (const std::string& named :
         {m_folder.path("missing"), std::string("relative"), std::string()}) {
        ::setenv("XDG_RUNTIME_DIR", named.c_str(), 1);
        EXPECT_THAT(Host::runtimeFolder("/a"),
                    AnyOf(StartsWith("/run/klx-"), StartsWith("/tmp/klx-")));
    }
}

/** The files that are left of three memory stores after those of earlier boots were discarded. */
std::vector<std::string> leftOver(const TemporaryFolder& place,
                                  const std::optional<std::string>& boot) {
    const std::string folder = place.path("run");
    for (const char* const name : {"old", "this", "unknown"}) {
        writeFile(folder + "/memory-" + name + ".mdb", "");
        writeFile(folder + "/memory-" + name + ".mdb-lock", "");
    }
    discardStaleMemoryStores(folder, boot);
    std::vector<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(folder)) {
        names.push_back(entry.path().filename().string());
    }
    return names;
}

TEST_F(StoreFolders, KeepTheMemoryStoresThatMayBeInUse) {
    EXPECT_THAT(leftOver(m_folder, "this"),
                UnorderedElementsAre("memory-this.mdb", "memory-this.mdb-lock",
                                     "memory-unknown.mdb", "memory-unknown.mdb-lock"));
}

TEST_F(StoreFolders, KeepEveryMemoryStoreWhileTheBootIsUnknown) {
    EXPECT_THAT(leftOver(m_folder, std::nullopt), SizeIs(6));
}

TEST_F(StoreFolders, DoNotTakeAnAttemptThatFailedForABootWithoutAName) {
    ASSERT_NE(bootId(), std::nullopt);
    EXPECT_EQ(bootId(), bootId());
    EXPECT_EQ(inOwnProcess([] {
                  rlimit usual{};
                  EXPECT_EQ(::getrlimit(RLIMIT_NOFILE, &usual), 0);
                  const rlimit none{0, usual.rlim_max};
                  EXPECT_EQ(::setrlimit(RLIMIT_NOFILE, &none), 0);
                  EXPECT_THROW(bootId(), StoreFault);
                  EXPECT_EQ(::setrlimit(RLIMIT_NOFILE, &usual), 0);
                  return success;
              }),
              success);
}

} // namespace
} // namespace KLX::Host
