#include "Exception.h"
#include "InputTest.h"

#include <cerrno>

using fake::Line;
using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace {

class HdmiTest : public InputTest {
protected:
    HdmiTest() { scene.hdmi("VELMORA1", "Player of sixteen").source(13); }

    std::string messageOf(eHDMIinfo which) {
        DeviceInfoInput inputs = input();
        try {
            inputs.getHDMIinfo(which);
        } catch (const KLX::Exception& error) {
            return error.what();
        }
        return "nothing was thrown";
    }
};

TEST_F(HdmiTest, DeviceIsAskedOnceAndClosed) {
    EXPECT_EQ(input().getHDMIinfo(hdmiVendor), "VELMORA1");
    EXPECT_THAT(
        fake::calls(),
        ElementsAre("CreateSourceControl(1, 0)", "SourceControl.GetCurrentSourceInfo()",
                    "Destroy(SourceControl)", "v4l2_open(\"/dev/video21\", 2050)",
                    "v4l2_ioctl(video device, VIDIOC_G_EXT_CTRLS, 10485760, 10488235, 40, 3)",
                    "v4l2_close(video device)"));
    EXPECT_THAT(fake::logs(), ElementsAre(Line(3, "getHDMIinfo", "Device found")));
}

TEST_F(HdmiTest, ProductIsTheSixteenCharactersBehindTheVendor) {
    EXPECT_EQ(input().getHDMIinfo(hdmiProduct), "Player of sixtee");
}

TEST_F(HdmiTest, TextsEndAtTheirFirstZero) {
    scene.hdmi("", "TV");
    EXPECT_EQ(input().getHDMIinfo(hdmiVendor), "");
    EXPECT_EQ(input().getHDMIinfo(hdmiProduct), "TV");
}

TEST_F(HdmiTest, OtherSelectorsAskTheDeviceAndGiveNothing) {
    EXPECT_EQ(input().getHDMIinfo(static_cast<eHDMIinfo>(2)), "");
    EXPECT_EQ(fake::callsTo("v4l2_ioctl").size(), 1U);
    EXPECT_EQ(fake::callsTo("v4l2_close").size(), 1U);
}

TEST_F(HdmiTest, SourcesThirteenToSixteenAreHdmiOnEverySet) {
    for (const int source : {13, 14, 15, 16}) {
        scene.source(source);
        EXPECT_EQ(input().getHDMIinfo(hdmiVendor), "VELMORA1") << source;
        EXPECT_THAT(fake::callsTo("system_info_get_custom_int"), IsEmpty());
    }
}

TEST_F(HdmiTest, OtherSourcesAreNotFoundOnAnOrdinarySet) {
    for (const int source : {-1, 0, 12, 17, 37, 38, 39, 40}) {
        scene.source(source);
        EXPECT_EQ(input().getHDMIinfo(hdmiVendor), "") << source;
        EXPECT_THAT(fake::logs(), Contains(Line(3, "getHDMIinfo", "Device has not been found")));
        EXPECT_THAT(fake::callsTo("v4l2_open"), IsEmpty());
    }
}

TEST_F(HdmiTest, TessaSetsHaveTwoMore) {
    scene.feature(tessaFeature, 1);
    for (const int source : {38, 39}) {
        scene.source(source);
        EXPECT_EQ(input().getHDMIinfo(hdmiVendor), "VELMORA1") << source;
    }
    for (const int source : {12, 17, 37, 40}) {
        scene.source(source);
        EXPECT_EQ(input().getHDMIinfo(hdmiVendor), "") << source;
    }
}

TEST_F(HdmiTest, UnreadableSourceIsNoHdmiSource) {
    scene.fail("SourceControl.GetCurrentSourceInfo", -1);
    EXPECT_EQ(input().getHDMIinfo(hdmiVendor), "");
    EXPECT_THAT(fake::messages(6), ElementsAre("Exception ERR std::stoi"));
    EXPECT_THAT(fake::messages(3), Contains("Device has not been found"));
}

TEST_F(HdmiTest, ExceptionOfTheSourceQueryIsLoggedAndTheSourceIsZero) {
    scene.throwFrom("SourceControl.GetCurrentSourceInfo", std::runtime_error("gone"));
    EXPECT_EQ(input().getHDMIinfo(hdmiVendor), "");
    EXPECT_THAT(fake::logs(), Contains(Line(5, "getHDMIinfo", "ERR: gone")));
}

TEST_F(HdmiTest, DeviceThatCannotBeOpenedThrows) {
    scene.fail("v4l2_open", ENODEV);
    const std::string text = "Cannot open HDMI processor, errno= " + std::to_string(ENODEV);
    EXPECT_EQ(messageOf(hdmiVendor), text);
    EXPECT_THAT(fake::logs(), Contains(Line(5, "getHDMIinfo", text)));
    EXPECT_THAT(fake::callsTo("v4l2_close"), IsEmpty());
}

TEST_F(HdmiTest, FailedRequestThrowsAfterTheDeviceWasClosed) {
    scene.fail("v4l2_ioctl", EINVAL);
    const std::string text = "ioctl() failed, errno= " + std::to_string(EINVAL);
    EXPECT_EQ(messageOf(hdmiProduct), text);
    EXPECT_THAT(fake::logs(), Contains(Line(5, "getHDMIinfo", text)));
    EXPECT_EQ(fake::calls().back(), "v4l2_close(video device)");
}

} // namespace
