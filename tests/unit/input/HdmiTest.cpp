#include "Exception.h"
#include "InputTest.h"

#include <cerrno>

using fake::Line;
using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::Not;

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
    EXPECT_THAT(fake::calls(),
                ElementsAre("CreateSourceControl(1, 0)", "SourceControl.GetCurrentSourceInfo()",
                            "Destroy(SourceControl)", "v4l2_open(\"/dev/video21\", 2050)",
                            "v4l2_ioctl(video device, VIDIOC_G_EXT_CTRLS, 10485760, 10488235, 40, "
                            "[3, 0 x 39])",
                            "v4l2_close(video device)"));
    EXPECT_THAT(fake::logs(), ElementsAre(Line(3, "getHDMIinfo", "Device found")));
}

TEST_F(HdmiTest, VendorIsEightCharactersAtMost) {
    scene.hdmi("VELMORA12", "Player");
    EXPECT_EQ(input().getHDMIinfo(hdmiVendor), "VELMORA1");
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

class HdmiSourceTest : public HdmiTest {
protected:
    static constexpr int ordinary = 0;
    static constexpr int tessa = 1;

    std::string vendorOf(int source) {
        scene.source(source);
        return input().getHDMIinfo(hdmiVendor);
    }

    void expectHdmi(int source, int modelLine) {
        scene.feature(tessaFeature, modelLine);
        EXPECT_EQ(vendorOf(source), "VELMORA1") << source;
        EXPECT_THAT(fake::logs(), Contains(Line(3, "getHDMIinfo", "Device found")).Times(1));
        EXPECT_THAT(fake::logs(), Not(Contains(notFound))) << source;
    }

    void expectNotFound(int source, int modelLine) {
        scene.feature(tessaFeature, modelLine);
        EXPECT_EQ(vendorOf(source), "") << source;
        EXPECT_THAT(
            fake::logs(),
            ElementsAre(Line(3, "IsTessa", "Is PrismaTV :" + std::to_string(modelLine)), notFound))
            << source;
        EXPECT_THAT(fake::callsTo("v4l2_open"), IsEmpty()) << source;
    }

    const fake::LineMatcher notFound = Line(3, "getHDMIinfo", "Device has not been found");
};

TEST_F(HdmiSourceTest, SourcesThirteenToSixteenAreHdmiOnBothModelLines) {
    for (const int modelLine : {ordinary, tessa}) {
        for (const int source : {13, 14, 15, 16}) {
            expectHdmi(source, modelLine);
            EXPECT_THAT(fake::callsTo("system_info_get_custom_int"), IsEmpty());
        }
    }
}

TEST_F(HdmiSourceTest, SourcesBesideThemAreNotFoundOnBothModelLines) {
    for (const int modelLine : {ordinary, tessa}) {
        for (const int source : {-1, 0, 12, 17, 37, 40}) {
            expectNotFound(source, modelLine);
        }
    }
}

TEST_F(HdmiSourceTest, SourcesThirtyEightAndThirtyNineAreHdmiOnATessaSetOnly) {
    for (const int source : {38, 39}) {
        expectHdmi(source, tessa);
        expectNotFound(source, ordinary);
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

/// What is called between the failure and the exception may change the error number.
class HdmiFailureTest : public HdmiTest {
protected:
    HdmiFailureTest() {
        for (const char* function : {"__dlog_print", "v4l2_close"}) {
            scene.onCall(function, [] { errno = 0; });
        }
    }
};

TEST_F(HdmiFailureTest, DeviceThatCannotBeOpenedThrows) {
    scene.fail("v4l2_open", ENODEV);
    const std::string text = "Cannot open HDMI processor, errno= " + std::to_string(ENODEV);
    EXPECT_EQ(messageOf(hdmiVendor), text);
    EXPECT_THAT(fake::logs(), Contains(Line(5, "getHDMIinfo", text)));
    EXPECT_THAT(fake::callsTo("v4l2_close"), IsEmpty());
}

TEST_F(HdmiFailureTest, FailedRequestThrowsAfterTheDeviceWasClosed) {
    scene.fail("v4l2_ioctl", EINVAL);
    const std::string text = "ioctl() failed, errno= " + std::to_string(EINVAL);
    EXPECT_EQ(messageOf(hdmiProduct), text);
    EXPECT_THAT(fake::logs(), Contains(Line(5, "getHDMIinfo", text)));
    EXPECT_EQ(fake::calls().back(), "v4l2_close(video device)");
}

} // namespace
