#include "HostTest.h"

#include "store/StoreFile.h"

#include <dlfcn.h>
#include <fcntl.h>

#include <cerrno>

namespace {

/** How many of the next reservations of disk space a signal cuts short. */
int interruptions = 0;

} // namespace

// Stands in front of the C library's: a signal that arrives in that very instant cannot be staged.
extern "C" int fallocate(int fd, int mode, off_t offset, off_t len) {
    if (interruptions > 0) {
        --interruptions;
        errno = EINTR;
        return -1;
    }
    using Fallocate = int (*)(int, int, off64_t, off64_t);
    static const auto real = reinterpret_cast<Fallocate>(dlsym(RTLD_NEXT, "fallocate64"));
    return real(fd, mode, offset, len);
}

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

TEST_F(StoreFileTest, IsOpenedHoweverManySignalsArriveMeanwhile) {
    interruptions = 3;
    EXPECT_NO_THROW(openStore({m_folder.path("store"), true, mapSize}));
    EXPECT_EQ(interruptions, 0);
}

} // namespace
} // namespace KLX::Host
