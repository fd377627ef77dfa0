#include "HostTest.h"

#include "store/StoreFolders.h"

#include <cstdlib>
#include <filesystem>

namespace KLX::Host {
namespace {

using ::testing::AnyOf;
using ::testing::StartsWith;

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

} // namespace
} // namespace KLX::Host
