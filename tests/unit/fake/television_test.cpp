#include "FakeTest.h"
#include "TvControlService.h"

#include <algorithm>
#include <array>
#include <cerrno>

#include <fcntl.h>
#include <libv4l2.h>
#include <linux/videodev2.h>

namespace klx {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class TelevisionTest : public FakeTest {};

TEST_F(TelevisionTest, ReadsOfAnUnprogrammedSetFail) {
    ISourceControl* source = nullptr;
    ITunerControl* tuner = nullptr;
    IVideoControl* video = nullptr;
    TvControlService::CreateSourceControl(1, 0, &source);
    TvControlService::CreateTunerControl(1, 0, &tuner);
    TvControlService::CreateVideoControl(1, 0, &video);
    TvSourceInfo info{7};
    int number = 7;
    EXPECT_EQ(source->GetCurrentSourceInfo(&info), fake::kNotProgrammed);
    EXPECT_EQ(tuner->GetSNRLevel(&number), fake::kNotProgrammed);
    EXPECT_EQ(video->GetPictureSize(&number), fake::kNotProgrammed);
    EXPECT_EQ(info.sourceId, 7);
    EXPECT_EQ(number, 7);
}

TEST_F(TelevisionTest, TheSourceIsTheOneChangedTo) {
    scene.source(13);
    ISourceControl* control = nullptr;
    TvControlService::CreateSourceControl(1, 0, &control);
    TvSourceInfo info{0};
    EXPECT_EQ(control->GetCurrentSourceInfo(&info), 1);
    EXPECT_EQ(info.sourceId, 13);
    EXPECT_EQ(control->ChangeSource(14, "NoAppId"), 1);
    EXPECT_EQ(control->GetCurrentSourceInfo(&info), 1);
    EXPECT_EQ(info.sourceId, 14);
    TvControlService::Destroy(control);
    EXPECT_THAT(fake::calls(),
                ElementsAre("CreateSourceControl(1, 0)", "SourceControl.GetCurrentSourceInfo()",
                            R"(SourceControl.ChangeSource(14, "NoAppId"))",
                            "SourceControl.GetCurrentSourceInfo()", "Destroy(SourceControl)"));
}

TEST_F(TelevisionTest, TheTunerTellsItsLevelWithStatusOne) {
    scene.snr(2534);
    ITunerControl* control = nullptr;
    TvControlService::CreateTunerControl(1, 0, &control);
    int level = 0;
    EXPECT_EQ(control->GetSNRLevel(&level), 1);
    EXPECT_EQ(level, 2534);
}

TEST_F(TelevisionTest, ThePictureSizeIsTheOneSet) {
    IVideoControl* control = nullptr;
    TvControlService::CreateVideoControl(1, 0, &control);
    EXPECT_EQ(control->SetPictureSize(3, 1), 0);
    int size = 0;
    EXPECT_EQ(control->GetPictureSize(&size), 0);
    EXPECT_EQ(size, 3);
    EXPECT_THAT(fake::callsTo("VideoControl.SetPictureSize"),
                ElementsAre("VideoControl.SetPictureSize(3, 1)"));
}

TEST_F(TelevisionTest, AFailedCreateLeavesTheControlNull) {
    scene.fail("CreateVideoControl", -1);
    std::array<char, 1> leftOver{};
    auto* control = reinterpret_cast<IVideoControl*>(leftOver.data());
    EXPECT_EQ(TvControlService::CreateVideoControl(1, 0, &control), -1);
    EXPECT_EQ(control, nullptr);
    EXPECT_THAT(fake::openHandles(), IsEmpty());
}

TEST_F(TelevisionTest, DestroyOfNullDoesNothing) {
    EXPECT_EQ(TvControlService::Destroy(nullptr), 0);
    EXPECT_THAT(fake::calls(), ElementsAre("Destroy(null)"));
    EXPECT_THAT(fake::misuses(), IsEmpty());
}

class VideoDeviceTest : public FakeTest {
protected:
    int request(int descriptor) {
        m_control.id = 0x00a009ab;
        m_control.size = static_cast<__u32>(payload.size());
        m_control.p_u8 = payload.data();
        v4l2_ext_controls controls{};
        controls.ctrl_class = 0x00a00000;
        controls.count = 1;
        controls.controls = &m_control;
        return v4l2_ioctl(descriptor, VIDIOC_G_EXT_CTRLS, &controls);
    }

    std::array<unsigned char, 40> payload{3};

private:
    v4l2_ext_control m_control{};
};

TEST_F(VideoDeviceTest, TellsVendorAndProductOfTheSourceInFront) {
    scene.hdmi("LongVendor", "Player");
    const int device = v4l2_open("/dev/video21", O_RDWR | O_NONBLOCK);
    std::fill(payload.begin() + 1, payload.end(), 0xff);
    ASSERT_EQ(request(device), 0);
    EXPECT_EQ(std::string(payload.begin(), payload.begin() + 14), "LongVendPlayer");
    EXPECT_EQ(payload[14], 0);
    EXPECT_EQ(payload[23], 0);
    EXPECT_EQ(std::string(payload.begin() + 24, payload.end()), std::string(16, 'x'));
    EXPECT_EQ(v4l2_close(device), 0);
    EXPECT_THAT(fake::calls(),
                ElementsAre(R"(v4l2_open("/dev/video21", 2050))",
                            "v4l2_ioctl(video device, VIDIOC_G_EXT_CTRLS, 10485760, 10488235, 40, "
                            "[3, 255 x 39])",
                            "v4l2_close(video device)"));
    EXPECT_THAT(fake::openHandles(), IsEmpty());
}

TEST_F(VideoDeviceTest, AnUnprogrammedRequestFails) {
    const int device = v4l2_open("/dev/video21", O_RDWR);
    EXPECT_EQ(request(device), -1);
    EXPECT_EQ(errno, 404);
    EXPECT_THAT(fake::openHandles(), ElementsAre("video device"));
}

TEST_F(VideoDeviceTest, AFailureIsAnErrno) {
    scene.fail("v4l2_open", ENODEV);
    EXPECT_EQ(v4l2_open("/dev/video21", O_RDWR), -1);
    EXPECT_EQ(errno, ENODEV);
}

TEST_F(VideoDeviceTest, AClosedDeviceIsNoDevice) {
    const int device = v4l2_open("/dev/video21", O_RDWR);
    v4l2_close(device);
    EXPECT_EQ(v4l2_close(device), -1);
    EXPECT_EQ(errno, EBADF);
    EXPECT_EQ(v4l2_close(4), -1);
    EXPECT_THAT(fake::misuses(),
                ElementsAre("v4l2_close(stale video device)", "v4l2_close(unknown handle)"));
}

} // namespace
} // namespace klx
