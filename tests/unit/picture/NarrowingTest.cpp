#include "PictureTest.h"
#include "commonUtil.h"

#include <climits>

using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace {

/** Numbers at and beyond the edges of what a setting can hold. */
class NarrowingTest : public PictureTest {
protected:
    static void writeContrast(const std::string& text) {
        commonUtil::setPelmPictureWrapper<unsigned char>(pelm_set_contrast, text);
    }

    static void writeDelay(const std::string& text) {
        commonUtil::setPelmSoundWrapper<unsigned int>(pelm_set_delay, text);
    }

    static void writePictureMode(const std::string& text) {
        commonUtil::setPelmPictureWrapper<mrtv_picture_mode_e>(pelm_set_picture_mode, text);
    }
};

TEST_F(NarrowingTest, ByteSettingKeepsTheLowestEightBits) {
    writeContrast("255");
    writeContrast("256");
    writeContrast("-1");
    writeContrast("2147483647");
    EXPECT_THAT(fake::calls(),
                ElementsAre("pelm_set_contrast(0, 255, 1)", "pelm_set_contrast(0, 0, 1)",
                            "pelm_set_contrast(0, 255, 1)", "pelm_set_contrast(0, 255, 1)"));
    EXPECT_THAT(fake::logs(), IsEmpty());
}

TEST_F(NarrowingTest, ByteIsReadAsANumberWithoutSign) {
    scene.pelm("contrast", 200);
    EXPECT_EQ(commonUtil::getPelmPictureWrapper<unsigned char>(pelm_get_contrast, PELM_SAVE_STORED),
              "200");
}

TEST_F(NarrowingTest, DelayAboveTheLargestIntIsNotWritten) {
    writeDelay("4294967295");
    EXPECT_THAT(fake::calls(), IsEmpty());
    EXPECT_THAT(fake::logs(), ElementsAre(failureLine("setPelmSoundWrapper", "[ERROR] stoi")));
}

TEST_F(NarrowingTest, DelayTakesEveryInt) {
    writeDelay("2147483647");
    writeDelay("-1");
    EXPECT_THAT(fake::calls(),
                ElementsAre("pelm_set_delay(2147483647, 1)", "pelm_set_delay(4294967295, 1)"));
}

TEST_F(NarrowingTest, DelayAboveTheLargestIntReadsNegative) {
    scene.pelm("delay", 4294967295);
    EXPECT_EQ(commonUtil::getPelmSoundWrapper<unsigned int>(pelm_get_delay, PELM_SAVE_STORED),
              "-1");
}

TEST_F(NarrowingTest, IntSettingTakesEveryInt) {
    commonUtil::setPelmPictureWrapper<int>(pelm_set_backlight, "2147483647");
    commonUtil::setPelmPictureWrapper<int>(pelm_set_backlight, "-2147483648");
    EXPECT_THAT(fake::calls(), ElementsAre("pelm_set_backlight(0, 2147483647, 1)",
                                           "pelm_set_backlight(0, -2147483648, 1)"));
}

TEST_F(NarrowingTest, EnumerationTakesNumbersWithoutAName) {
    writePictureMode("99");
    writePictureMode("-1");
    writePictureMode("2147483647");
    EXPECT_THAT(fake::calls(),
                ElementsAre("pelm_set_picture_mode(0, 99, 1)", "pelm_set_picture_mode(0, -1, 1)",
                            "pelm_set_picture_mode(0, 2147483647, 1)"));
}

TEST_F(NarrowingTest, EnumerationGivesNumbersWithoutAName) {
    const auto read = [] {
        return commonUtil::getPelmPictureWrapper<mrtv_picture_mode_e>(pelm_get_picture_mode,
                                                                      PELM_SAVE_STORED);
    };
    scene.pelm("picture_mode", 99);
    EXPECT_EQ(read(), "99");
    scene.pelm("picture_mode", INT_MIN);
    EXPECT_EQ(read(), "-2147483648");
}

} // namespace
