#include "IdentityTest.h"
#include "Machine.h"

#include <tuple>

using ::testing::ElementsAre;

namespace {

/** Free, used and total bytes. */
using Figures = std::tuple<long long, long long, long long>;

class StorageTest : public IdentityTest {
protected:
    /** Storage in blocks of one byte, 1000 of which are occupied. */
    void holdFreeBytes(unsigned long free) { machine.storage = blocks(1, 1000 + free, free, free); }

    static struct statvfs blocks(unsigned long size, unsigned long total, unsigned long free,
                                 unsigned long available) {
        struct statvfs figures {};
        figures.f_bsize = size;
        figures.f_frsize = 7;
        figures.f_blocks = total;
        figures.f_bfree = free;
        figures.f_bavail = available;
        return figures;
    }

    /** Measures. @return the outputs, -1 each as long as they are untouched */
    static Figures measure(int result) {
        Figures figures{-1, -1, -1};
        auto& [free, used, total] = figures;
        EXPECT_EQ(DeviceInfoGeneral::getMemInfoUtil(free, used, total), result);
        return figures;
    }

    Machine machine;
};

TEST_F(StorageTest, IsMeasuredInBytes) {
    machine.storage = blocks(4096, 3000000, 2000000, 1500000);
    EXPECT_EQ(measure(1), Figures(6143999930, 4096000070, 10240000000));
    EXPECT_THAT(machine.asked, ElementsAre("statvfs(\"/opt\")"));
    EXPECT_THAT(fake::logs(), ElementsAre(generalLine(4, "getMemInfoUtil",
                                                      "free=[6143999930] used=[4096000070] "
                                                      "total=[10240000000]")));
}

TEST_F(StorageTest, NothingFree) {
    holdFreeBytes(0);
    EXPECT_EQ(measure(1), Figures(0, 1000, 1000));
}

TEST_F(StorageTest, UpTo70BytesCountAsUsed) {
    holdFreeBytes(1);
    EXPECT_EQ(measure(1), Figures(0, 1001, 1001));
    holdFreeBytes(70);
    EXPECT_EQ(measure(1), Figures(0, 1070, 1070));
}

TEST_F(StorageTest, From71BytesOn70AreKeptBack) {
    holdFreeBytes(71);
    EXPECT_EQ(measure(1), Figures(1, 1070, 1071));
    holdFreeBytes(72);
    EXPECT_EQ(measure(1), Figures(2, 1070, 1072));
}

TEST_F(StorageTest, FailureLeavesTheOutputsAlone) {
    EXPECT_EQ(measure(0), Figures(-1, -1, -1));
    EXPECT_THAT(fake::logs(), ElementsAre(generalLine(5, "getMemInfoUtil", "statvfs failed")));
}

class MemoryTest : public IdentityTest {
protected:
    void hold(unsigned long swap, unsigned long freeSwap, unsigned long ram, unsigned long freeRam,
              unsigned unit) {
        struct sysinfo figures {};
        figures.totalswap = swap;
        figures.freeswap = freeSwap;
        figures.totalram = ram;
        figures.freeram = freeRam;
        figures.mem_unit = unit;
        machine.memory = figures;
    }

    static long long measure(int result) {
        long long used = -1;
        EXPECT_EQ(DeviceInfoGeneral::getMemoryUsageUtil(used), result);
        return used;
    }

    Machine machine;
};

TEST_F(MemoryTest, IsRamAndSwapInUse) {
    hold(500, 400, 8000, 3000, 1);
    EXPECT_EQ(measure(1), 5100);
    EXPECT_THAT(machine.asked, ElementsAre("sysinfo"));
    EXPECT_THAT(fake::logs(), ElementsAre(generalLine(3, "getMemoryUsageUtil", "getMemoryUsage"),
                                          generalLine(4, "getMemoryUsageUtil", "usedMem= [5100]")));
}

TEST_F(MemoryTest, IsCountedInUnits) {
    hold(1000000, 500000, 2000000, 500000, 4096);
    EXPECT_EQ(measure(1), 8192000000);
}

// An emulator that cuts the figures to 32 bits tells so.
TEST_F(MemoryTest, IsNegativeWhereMoreIsFreeThanThereIs) {
    hold(0, 0, 1000, 3000, 4096);
    EXPECT_EQ(measure(1), -8192000);
}

TEST_F(MemoryTest, FailureLeavesTheOutputAlone) {
    EXPECT_EQ(measure(0), -1);
    EXPECT_THAT(fake::logs(), ElementsAre(generalLine(3, "getMemoryUsageUtil", "getMemoryUsage"),
                                          generalLine(5, "getMemoryUsageUtil", "sysinfo failed")));
}

} // namespace
