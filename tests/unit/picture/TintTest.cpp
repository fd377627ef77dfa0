#include "PictureTest.h"
#include "commonUtil.h"

#include <climits>

using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace {

class TintTest : public PictureTest {
protected:
    static fake::LineMatcher writing(const std::string& tint) {
        return detailLine("setPictureTintValue", "set picture tint value :[#" + tint + "]");
    }
};

TEST_F(TintTest, StoredTintIsTheShareOfRed) {
    scene.pelm("color_tint", 30);
    EXPECT_EQ(commonUtil::getPictureTintValue(PELM_SAVE_STORED), "70/30");
    EXPECT_THAT(fake::history(),
                ElementsAre("pelm_get_color_tint(1, 1)",
                            "log(3) getPictureTintValue: get picture red tint :[#30] / green "
                            "tint :[#70]"));
    EXPECT_THAT(fake::logs(), ElementsAre(detailLine("getPictureTintValue",
                                                     "get picture red tint :[#30] / green tint "
                                                     ":[#70]")));
}

TEST_F(TintTest, DefaultIsAskedFor) {
    scene.pelm("color_tint", 30).pelmDefault("color_tint", 50);
    EXPECT_EQ(commonUtil::getPictureTintValue(PELM_SAVE_DEFAULT), "50/50");
    EXPECT_THAT(fake::calls(), ElementsAre("pelm_get_color_tint(1, 2)"));
}

TEST_F(TintTest, EndsOfTheScale) {
    scene.pelm("color_tint", 0).pelmDefault("color_tint", 100);
    EXPECT_EQ(commonUtil::getPictureTintValue(PELM_SAVE_STORED), "100/0");
    EXPECT_EQ(commonUtil::getPictureTintValue(PELM_SAVE_DEFAULT), "0/100");
}

TEST_F(TintTest, ReadsAsAnInt) {
    scene.pelm("color_tint", 300);
    EXPECT_EQ(commonUtil::getPictureTintValue(PELM_SAVE_STORED), "-200/300");
}

TEST_F(TintTest, AnyNumberCanBeRead) {
    scene.pelm("color_tint", INT_MIN);
    EXPECT_EQ(commonUtil::getPictureTintValue(PELM_SAVE_STORED), "-2147483548/-2147483648");
}

TEST_F(TintTest, FailedReadIsAllGreen) {
    scene.pelm("color_tint", 30).fail("pelm_get_color_tint", 17);
    EXPECT_EQ(commonUtil::getPictureTintValue(PELM_SAVE_STORED), "100/0");
    EXPECT_THAT(fake::logs(),
                ElementsAre(failureLine("getPelmPictureWrapper", "Operation failed, error: 17"),
                            failureLine("strToInt", "Exception ERR std::stoi"),
                            detailLine("getPictureTintValue",
                                       "get picture red tint :[#0] / green tint :[#100]")));
}

/** A text and the part of it that is written. */
struct TintText {
    const char* text;
    const char* tint;
    const char* call;
};

class TintTextTest : public TintTest, public ::testing::WithParamInterface<TintText> {};

TEST_P(TintTextTest, PartBehindTheSlashIsWritten) {
    const TintText& given = GetParam();
    commonUtil::setPictureTintValue(given.text);
    EXPECT_THAT(fake::calls(), ElementsAre(given.call));
    EXPECT_THAT(fake::logs(), ElementsAre(writing(given.tint)));
}

INSTANTIATE_TEST_SUITE_P(SlashWithinTheFirstFour, TintTextTest,
                         ::testing::Values(TintText{"70/30", "30", "pelm_set_color_tint(0, 30, 1)"},
                                           TintText{"100/0", "0", "pelm_set_color_tint(0, 0, 1)"},
                                           TintText{"0/100", "100",
                                                    "pelm_set_color_tint(0, 100, 1)"},
                                           TintText{"7/0", "0", "pelm_set_color_tint(0, 0, 1)"},
                                           TintText{"abc/9", "9", "pelm_set_color_tint(0, 9, 1)"}));

INSTANTIATE_TEST_SUITE_P(
    CutToFiveCharacters, TintTextTest,
    ::testing::Values(TintText{"7/1234", "123", "pelm_set_color_tint(0, 123, 1)"},
                      TintText{"70/305", "30", "pelm_set_color_tint(0, 30, 1)"},
                      TintText{"100/05", "0", "pelm_set_color_tint(0, 0, 1)"}));

INSTANTIATE_TEST_SUITE_P(
    NarrowedToAByte, TintTextTest,
    ::testing::Values(TintText{"7/256", "256", "pelm_set_color_tint(0, 0, 1)"},
                      TintText{"7/999", "999", "pelm_set_color_tint(0, 231, 1)"},
                      TintText{"70/-1", "-1", "pelm_set_color_tint(0, 255, 1)"}));

class TintWithoutPartTest : public TintTest, public ::testing::WithParamInterface<const char*> {};

TEST_P(TintWithoutPartTest, NothingIsWritten) {
    commonUtil::setPictureTintValue(GetParam());
    EXPECT_THAT(fake::calls(), IsEmpty());
    EXPECT_THAT(fake::logs(),
                ElementsAre(writing(""), failureLine("setPelmPictureWrapper", "[ERROR] stoi")));
}

INSTANTIATE_TEST_SUITE_P(SlashInTheFirstOrFifthPlaceOrNoneInFive, TintWithoutPartTest,
                         ::testing::Values("/50", "/", "//50", "1234/5", "1234/", "123456", "12345",
                                           "12345/6"));

INSTANTIATE_TEST_SUITE_P(NothingBehindTheSlash, TintWithoutPartTest,
                         ::testing::Values("7/", "70/", "100/"));

class ShortTintTest : public TintTest, public ::testing::WithParamInterface<const char*> {};

TEST_P(ShortTintTest, LeavesAsOutOfRange) {
    EXPECT_THROW(commonUtil::setPictureTintValue(GetParam()), std::out_of_range);
    EXPECT_THAT(fake::history(), IsEmpty());
}

INSTANTIATE_TEST_SUITE_P(TextWithoutSlash, ShortTintTest, ::testing::Values("50", "", "1", "1234"));

TEST_F(TintTest, PartThatIsNoNumberIsNotWritten) {
    commonUtil::setPictureTintValue("7/abc");
    commonUtil::setPictureTintValue("7//5");
    const auto failure = failureLine("setPelmPictureWrapper", "[ERROR] stoi");
    EXPECT_THAT(fake::calls(), IsEmpty());
    EXPECT_THAT(fake::logs(), ElementsAre(writing("abc"), failure, writing("/5"), failure));
}

TEST_F(TintTest, FailedWriteIsLoggedInTheWrappersName) {
    scene.fail("pelm_set_color_tint", 17);
    commonUtil::setPictureTintValue("70/30");
    EXPECT_THAT(fake::logs(),
                ElementsAre(writing("30"),
                            failureLine("setPelmPictureWrapper", "Operation failed, error: 17")));
}

TEST_F(TintTest, ExceptionOfAnotherKindPassesOnFromAWrite) {
    scene.throwFrom("pelm_set_color_tint", 5);
    EXPECT_THROW(commonUtil::setPictureTintValue("70/30"), int);
}

} // namespace
