#include <gtest/gtest.h>

#include <linux/videodev2.h>
#include <sys/statvfs.h>
#include <sys/types.h>

#include <ctime>

namespace {

// A 32-bit machine has four bytes for each of these unless it is asked for more.
TEST(MachineSizesTest, FilesMayBeLargerThanTwoGigabytes) {
    EXPECT_EQ(sizeof(off_t), 8U);
    EXPECT_EQ(sizeof(fsblkcnt_t), 8U);
}

TEST(MachineSizesTest, TimesMayLieBeyondTheYear2038) {
    EXPECT_EQ(sizeof(time_t), 8U);
}

TEST(MachineSizesTest, RequestToTheHdmiProcessorIsTheKernelsOwn) {
    const bool pointersHaveFourBytes = sizeof(void*) == 4;
    EXPECT_EQ(sizeof(v4l2_ext_controls), pointersHaveFourBytes ? 24U : 32U);
    EXPECT_EQ(VIDIOC_G_EXT_CTRLS, pointersHaveFourBytes ? 0xc0185647UL : 0xc0205647UL);
}

} // namespace
