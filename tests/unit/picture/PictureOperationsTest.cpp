#include "PictureTest.h"
#include "commonUtil.h"

using ::testing::Contains;
using ::testing::ElementsAre;

namespace {

constexpr const char* rotating = "autorun-multiview-rotating";

using GrayscaleTest = PictureTest;

TEST_F(GrayscaleTest, ReadsTheSetting) {
    scene.pelm("video_gray_onoff", 1);
    EXPECT_EQ(commonUtil::getGrayscaleValue("ignored"), "1");
    EXPECT_THAT(fake::calls(), ElementsAre("pelm_get_video_gray_onoff()"));
    EXPECT_THAT(fake::logs(), ElementsAre(detailLine("getGrayscaleValue",
                                                     "pelm_get_video_gray_onoff value = [1]")));
}

TEST_F(GrayscaleTest, AnyNumberIsPassedOn) {
    scene.pelm("video_gray_onoff", -3);
    EXPECT_EQ(commonUtil::getGrayscaleValue(""), "-3");
}

TEST_F(GrayscaleTest, FailedReadIsNotNoticed) {
    scene.fail("pelm_get_video_gray_onoff", 17);
    EXPECT_EQ(commonUtil::getGrayscaleValue(""), "0");
    EXPECT_THAT(fake::logs(), ElementsAre(detailLine("getGrayscaleValue",
                                                     "pelm_get_video_gray_onoff value = [0]")));
}

TEST_F(GrayscaleTest, WritesTheSettingBeforeItTellsSo) {
    commonUtil::setGrayscaleValue("1");
    EXPECT_THAT(fake::history(),
                ElementsAre("pelm_set_video_gray_onoff(1)",
                            "log(3) setGrayscaleValue: pelm_set_video_gray_onoff value = [1]"));
    EXPECT_THAT(fake::logs(),
                Contains(detailLine("setGrayscaleValue", "pelm_set_video_gray_onoff value = [1]")));
}

TEST_F(GrayscaleTest, TextThatIsNoNumberWritesZero) {
    commonUtil::setGrayscaleValue("on");
    EXPECT_THAT(fake::calls(), ElementsAre("pelm_set_video_gray_onoff(0)"));
    EXPECT_THAT(fake::logs(), ElementsAre(failureLine("strToInt", "Exception ERR std::stoi"),
                                          detailLine("setGrayscaleValue",
                                                     "pelm_set_video_gray_onoff value = [0]")));
}

TEST_F(GrayscaleTest, FailedWriteIsNotNoticed) {
    scene.fail("pelm_set_video_gray_onoff", 17);
    commonUtil::setGrayscaleValue("1");
    EXPECT_THAT(fake::logs(), ElementsAre(detailLine("setGrayscaleValue",
                                                     "pelm_set_video_gray_onoff value = [1]")));
}

using MultiviewRotationTest = PictureTest;

TEST_F(MultiviewRotationTest, GivesTheServicesNumberAndNotItsText) {
    scene.settingsItem(rotating, 3, "on");
    EXPECT_EQ(commonUtil::getAutorunMultiviewRotation("ignored"), "3");
    EXPECT_THAT(fake::history(),
                ElementsAre("SettingsService.Get()",
                            "SettingsService.GetItemValue(\"autorun-multiview-rotating\", \"\")"));
}

TEST_F(MultiviewRotationTest, NegativeNumberIsPassedOn) {
    scene.settingsItem(rotating, -17);
    EXPECT_EQ(commonUtil::getAutorunMultiviewRotation(""), "-17");
}

TEST_F(MultiviewRotationTest, WritesTheTextAndWhetherItIsOn) {
    commonUtil::setAutorunMultiviewRotation("1");
    commonUtil::setAutorunMultiviewRotation("0");
    commonUtil::setAutorunMultiviewRotation("-2 times");
    EXPECT_THAT(
        fake::callsTo("SettingsService.SetItemValue"),
        ElementsAre("SettingsService.SetItemValue(\"autorun-multiview-rotating\", \"1\", true)",
                    "SettingsService.SetItemValue(\"autorun-multiview-rotating\", \"0\", false)",
                    "SettingsService.SetItemValue(\"autorun-multiview-rotating\", \"-2 times\", "
                    "true)"));
    EXPECT_THAT(fake::logs(), ::testing::IsEmpty());
}

TEST_F(MultiviewRotationTest, TextThatIsNoNumberIsWrittenAsOff) {
    commonUtil::setAutorunMultiviewRotation("abc");
    EXPECT_THAT(
        fake::calls(),
        Contains("SettingsService.SetItemValue(\"autorun-multiview-rotating\", \"abc\", false)"));
    EXPECT_THAT(fake::logs(), ElementsAre(failureLine("strToInt", "Exception ERR std::stoi")));
}

TEST_F(MultiviewRotationTest, FailedWriteIsNotNoticed) {
    scene.fail("SettingsService.SetItemValue", 17);
    commonUtil::setAutorunMultiviewRotation("1");
    EXPECT_THAT(fake::logs(), ::testing::IsEmpty());
}

/** The service has no instance to give. */
class NoSettingsServiceTest : public PictureTest {
protected:
    NoSettingsServiceTest() { scene.fail("SettingsService.Get", 17); }
};

TEST_F(NoSettingsServiceTest, GivesNothing) {
    EXPECT_EQ(commonUtil::getAutorunMultiviewRotation(""), "");
    EXPECT_THAT(fake::calls(), ElementsAre("SettingsService.Get()"));
}

TEST_F(NoSettingsServiceTest, NothingIsWritten) {
    commonUtil::setAutorunMultiviewRotation("1");
    EXPECT_THAT(fake::calls(), ElementsAre("SettingsService.Get()"));
}

} // namespace
