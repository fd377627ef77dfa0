#include "DeviceInfoGeneral.h"
#include "LogMatchers.h"

#include <gmock/gmock.h>

namespace fake = klx::fake;
using fake::LineIn;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace {

class PictureSizeTest : public ::testing::Test {
protected:
    static auto error(const std::string& function, const std::string& message) {
        return ElementsAre(LineIn("DeviceInfoGeneral.cpp", 6, function, message));
    }

    fake::Scene scene;
    DeviceInfoGeneral general;
};

TEST_F(PictureSizeTest, IsReadThroughAVideoControl) {
    scene.pictureSize(5);
    EXPECT_EQ(general.getPictureSize("ignored"), "5");
    EXPECT_THAT(fake::history(),
                ElementsAre("CreateVideoControl(1, 0)", "VideoControl.GetPictureSize()",
                            "Destroy(VideoControl)"));
    EXPECT_THAT(fake::openHandles(), IsEmpty());
}

TEST_F(PictureSizeTest, AnyStatusThatIsNotNegativeIsASuccess) {
    scene.pictureSize(-5).answer("VideoControl.GetPictureSize", 3);
    EXPECT_EQ(general.getPictureSize(""), "-5");
    EXPECT_THAT(fake::logs(), IsEmpty());
}

TEST_F(PictureSizeTest, WithoutAControlIsEmpty) {
    scene.fail("CreateVideoControl", -1);
    EXPECT_EQ(general.getPictureSize(""), "");
    EXPECT_THAT(fake::calls(), ElementsAre("CreateVideoControl(1, 0)"));
    EXPECT_THAT(fake::logs(), error("getPictureSize", "VideoControl is NULL !!"));
}

TEST_F(PictureSizeTest, ResultOfTheCreationIsNotExamined) {
    scene.pictureSize(5).answer("CreateVideoControl", -1);
    EXPECT_EQ(general.getPictureSize(""), "5");
    EXPECT_THAT(fake::logs(), IsEmpty());
}

TEST_F(PictureSizeTest, ThatCannotBeReadIsEmptyAndTheControlDestroyed) {
    scene.pictureSize(5).answer("VideoControl.GetPictureSize", -1);
    EXPECT_EQ(general.getPictureSize(""), "");
    EXPECT_THAT(fake::calls(),
                ElementsAre("CreateVideoControl(1, 0)", "VideoControl.GetPictureSize()",
                            "Destroy(VideoControl)"));
    EXPECT_THAT(fake::logs(), error("getPictureSize", "Failed to get PictureSize!!"));
    EXPECT_THAT(fake::openHandles(), IsEmpty());
}

TEST_F(PictureSizeTest, IsAppliedAndTheControlLeft) {
    general.setPictureSize("3");
    EXPECT_THAT(fake::history(),
                ElementsAre("CreateVideoControl(1, 0)", "VideoControl.SetPictureSize(3, 1)"));
    EXPECT_THAT(fake::openHandles(), ElementsAre("VideoControl"));
}

TEST_F(PictureSizeTest, AnyStatusOfSettingThatIsNotNegativeIsASuccess) {
    scene.answer("VideoControl.SetPictureSize", 1);
    general.setPictureSize("3");
    EXPECT_THAT(fake::logs(), IsEmpty());
    EXPECT_THAT(fake::openHandles(), ElementsAre("VideoControl"));
}

TEST_F(PictureSizeTest, TextThatIsNoNumberIsZero) {
    general.setPictureSize("wide");
    EXPECT_THAT(fake::history(),
                ElementsAre("CreateVideoControl(1, 0)", "log(6) strToInt: Exception ERR std::stoi",
                            "VideoControl.SetPictureSize(0, 1)"));
    EXPECT_THAT(fake::logs(),
                ElementsAre(LineIn("commonUtil.h", 6, "strToInt", "Exception ERR std::stoi")));
}

TEST_F(PictureSizeTest, IsNotSetWithoutAControl) {
    scene.fail("CreateVideoControl", -1);
    general.setPictureSize("3");
    EXPECT_THAT(fake::calls(), ElementsAre("CreateVideoControl(1, 0)"));
    EXPECT_THAT(fake::logs(), error("setPictureSize", "VideoControl is NULL"));
}

TEST_F(PictureSizeTest, IsParsedBeforeTheControlIsLookedAt) {
    scene.fail("CreateVideoControl", -1);
    general.setPictureSize("wide");
    EXPECT_THAT(fake::messages(6), ElementsAre("Exception ERR std::stoi", "VideoControl is NULL"));
}

TEST_F(PictureSizeTest, ThatIsRefusedIsLoggedAndTheControlDestroyed) {
    scene.fail("VideoControl.SetPictureSize", -1);
    general.setPictureSize("3");
    EXPECT_THAT(fake::calls(),
                ElementsAre("CreateVideoControl(1, 0)", "VideoControl.SetPictureSize(3, 1)",
                            "Destroy(VideoControl)"));
    EXPECT_THAT(fake::logs(), error("setPictureSize", "Failed to set PictureSize!!"));
    EXPECT_THAT(fake::openHandles(), IsEmpty());
}

} // namespace
