#include "HostTest.h"

#include "store/StoreFile.h"

#include <fcntl.h>

namespace KLX::Host {
namespace {

constexpr std::size_t mapSize = std::size_t{1} << 20U;

unsigned flagsOf(const OpenedStore& store) {
    unsigned flags = 0;
    EXPECT_EQ(mdb_env_get_flags(store.environment.get(), &flags), MDB_SUCCESS);
    return flags;
}

class StoreFileTest : public HostTest {};

// No test can pull the plug, but leaving out the waiting for the disk is a flag of LMDB's.
TEST_F(StoreFileTest, WaitsForTheDiskWhereItIsDurable) {
    constexpr unsigned unsafe = MDB_NOSYNC | MDB_NOMETASYNC | MDB_MAPASYNC | MDB_WRITEMAP;
    EXPECT_EQ(flagsOf(openStore({m_folder.path("durable"), true, mapSize})) & unsafe, 0U);
    EXPECT_NE(flagsOf(openStore({m_folder.path("memory"), false, mapSize})) & MDB_NOSYNC, 0U);
}

TEST_F(StoreFileTest, IsNotInheritedByOtherPrograms) {
    const OpenedStore store = openStore({m_folder.path("store"), true, mapSize});
    int descriptor = -1;
    ASSERT_EQ(mdb_env_get_fd(store.environment.get(), &descriptor), MDB_SUCCESS);
    EXPECT_NE(::fcntl(descriptor, F_GETFD) & FD_CLOEXEC, 0);
}

TEST_F(StoreFileTest, LeavesNoDraftBehind) {
    openStore({m_folder.path("run/store"), true, mapSize});
    EXPECT_EQ(countFiles(m_folder.path("run"), ""), 2);
}

} // namespace
} // namespace KLX::Host
