#include "KlxctlTest.h"

#include <gmock/gmock.h>

#include <ostream>

using testing::HasSubstr;

namespace {

struct Row {
    const char* path;
    const char* legal;
    const char* illegal;
};

void PrintTo(const Row& row, std::ostream* out) {
    *out << row.path;
}

constexpr Row rows[] = {
    {"/Picture/Picture Mode", "3", "9"},
    {"/Picture/Backlight", "17", "51"},
    {"/Picture/Contrast", "31", "101"},
    {"/Picture/Brightness", "32", "101"},
    {"/Picture/Sharpness", "33", "101"},
    {"/Picture/Color", "34", "101"},
    {"/Picture/Tint", "70/30", "0/101"},
    {"/Picture/Expert Settings/Apply Picture Settings", "1", "2"},
    {"/Picture/Contrast Enhancer", "1", "4"},
    {"/Picture/Expert Settings/Film Mode", "2", "3"},
    {"/Picture/HDR+ Mode", "1", "2"},
    {"/Picture/Gamma", "2", "3"},
    {"/Picture/Gamma Value", "-2", "4"},
    {"/Picture/Picture Size Settings", "2", "4711"},
    {"/General/Eco Solution/Power Saving Mode", "2", "4"},
    {"/General/Eco Solution/Ambient Light Detection", "0", "2"},
    {"/General/Eco Solution/Motion Lighting", "0", "2"},
    {"/Sound/Sound Mode", "2", "4"},
    {"/Sound/Digital Output Audio Format", "2", "4"},
    {"/Sound/Audio Delay", "120", "251"},
    {"/Sound/Mute", "1", "true"},
    {"/Sound/Sound Output", "3", "99"},
    {"/Connection/Game Mode", "2", "3"},
    {"/Connection/Game Mode Setting/Game Mode", "2", "3"},
    {"/General & Privacy/Accessibility/Grayscale", "1", "2"},
};

class PictureAndSoundTest : public KlxctlTest, public testing::WithParamInterface<Row> {
protected:
    const std::string path = GetParam().path;
    const std::string legal = GetParam().legal;
    const std::string illegal = GetParam().illegal;
};

TEST_P(PictureAndSoundTest, TakesALegalValueAndCanBeReset) {
    const std::string before = valueOf(path);
    ASSERT_NE(before, legal);
    EXPECT_EQ(run({"set", path, legal}).status, 0);
    EXPECT_EQ(valueOf(path), legal);
    EXPECT_EQ(run({"set", path, before}).status, 0);
    EXPECT_EQ(valueOf(path), before);
}

TEST_P(PictureAndSoundTest, RefusesAnIllegalValueAndNamesBoth) {
    ASSERT_EQ(run({"set", path, legal}).status, 0);
    const Outcome outcome = run({"set", path, illegal});
    EXPECT_EQ(outcome.status, 3);
    EXPECT_THAT(outcome.messages, HasSubstr("\"" + illegal + "\""));
    EXPECT_THAT(outcome.messages, HasSubstr("\"" + legal + "\""));
    EXPECT_EQ(valueOf(path), legal);
}

INSTANTIATE_TEST_SUITE_P(Rows, PictureAndSoundTest, testing::ValuesIn(rows));

} // namespace

TEST_F(KlxctlTest, GameModeAnswersAlikeUnderBothOfItsPaths) {
    ASSERT_EQ(run({"set", "/Connection/Game Mode", "2"}).status, 0);
    EXPECT_EQ(valueOf("/Connection/Game Mode Setting/Game Mode"), "2");
}

TEST_F(KlxctlTest, PictureModeBringsItsOwnBacklight) {
    ASSERT_EQ(run({"set", "/Picture/Picture Mode", "0"}).status, 0);
    ASSERT_EQ(run({"set", "/Picture/Backlight", "11"}).status, 0);
    ASSERT_EQ(run({"set", "/Picture/Picture Mode", "3"}).status, 0);
    EXPECT_EQ(valueOf("/Picture/Backlight"), "20");
    ASSERT_EQ(run({"set", "/Picture/Picture Mode", "0"}).status, 0);
    EXPECT_EQ(valueOf("/Picture/Backlight"), "11");
}
