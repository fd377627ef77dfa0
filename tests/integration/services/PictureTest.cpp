#include "HostTest.h"

#include "pelm.h"

#include <atomic>
#include <thread>

namespace KLX::Host {
namespace {

constexpr auto dynamicMode = static_cast<mrtv_picture_mode_e>(0);
constexpr auto movieMode = static_cast<mrtv_picture_mode_e>(3);

int backlight(pelm_save_type_e save = PELM_SAVE_STORED) {
    int value = -1;
    EXPECT_EQ(pelm_get_backlight(1, &value, save), success);
    return value;
}

void choose(mrtv_picture_mode_e mode) {
    ASSERT_EQ(pelm_set_picture_mode(0, mode, PELM_SAVE_STORED), success);
}

class Picture : public HostTest {};

TEST_F(Picture, ReadsTheDefaultUntilAValueIsStored) {
    EXPECT_EQ(backlight(), backlight(PELM_SAVE_DEFAULT));
    EXPECT_EQ(pelm_set_backlight(0, 17, PELM_SAVE_STORED), success);
    EXPECT_EQ(backlight(), 17);
    EXPECT_NE(backlight(PELM_SAVE_DEFAULT), 17);
}

TEST_F(Picture, IsStillThereInAnotherProcess) {
    EXPECT_EQ(inOwnProcess([] { return pelm_set_backlight(0, 17, PELM_SAVE_STORED); }), 0);
    EXPECT_EQ(inOwnProcess([] { return backlight(); }), 17);
}

TEST_F(Picture, IsKeptApartForEachPictureMode) {
    choose(dynamicMode);
    const int ofDynamic = backlight();
    EXPECT_EQ(pelm_set_backlight(0, ofDynamic - 1, PELM_SAVE_STORED), success);
    choose(movieMode);
    EXPECT_EQ(backlight(), backlight(PELM_SAVE_DEFAULT));
    EXPECT_NE(backlight(PELM_SAVE_DEFAULT), ofDynamic);
    choose(dynamicMode);
    EXPECT_EQ(backlight(), ofDynamic - 1);
    EXPECT_EQ(backlight(PELM_SAVE_DEFAULT), ofDynamic);
}

TEST_F(Picture, IsOfOnePictureModeWhileOthersAreChosen) {
    choose(movieMode);
    const int ofMovie = backlight();
    choose(dynamicMode);
    const int ofDynamic = backlight() - 1;
    EXPECT_EQ(pelm_set_backlight(0, ofDynamic, PELM_SAVE_STORED), success);
    std::atomic<bool> done{false};
    std::thread viewer([&done] {
        while (!done) {
            choose(movieMode);
            choose(dynamicMode);
        }
    });
    int mixtures = 0;
    for (int look = 0; look < 5000; ++look) {
        const int seen = backlight();
        mixtures += seen != ofMovie && seen != ofDynamic ? 1 : 0;
    }
    done = true;
    viewer.join();
    EXPECT_EQ(mixtures, 0);
}

TEST_F(Picture, KeepsOtherControlsForAllPictureModes) {
    choose(dynamicMode);
    EXPECT_EQ(pelm_set_delay(120, PELM_SAVE_STORED), success);
    choose(movieMode);
    unsigned int delay = 0;
    EXPECT_EQ(pelm_get_delay(&delay, PELM_SAVE_STORED), success);
    EXPECT_EQ(delay, 120U);
}

TEST_F(Picture, RefusesAValueOutOfRange) {
    const int before = backlight();
    EXPECT_EQ(pelm_set_backlight(0, 51, PELM_SAVE_STORED), numberOf(HostError::OutOfRange));
    EXPECT_EQ(pelm_set_backlight(0, -1, PELM_SAVE_STORED), numberOf(HostError::OutOfRange));
    EXPECT_EQ(pelm_set_delay(4294967295U, PELM_SAVE_STORED), numberOf(HostError::OutOfRange));
    EXPECT_EQ(backlight(), before);
}

TEST_F(Picture, RefusesAnUnknownSaveType) {
    const auto unknown = static_cast<pelm_save_type_e>(3);
    int value = -1;
    EXPECT_EQ(pelm_get_backlight(1, &value, unknown), numberOf(HostError::OutOfRange));
    EXPECT_EQ(value, -1);
    EXPECT_EQ(pelm_set_backlight(0, 10, unknown), numberOf(HostError::OutOfRange));
}

TEST_F(Picture, NeverWritesADefault) {
    EXPECT_EQ(pelm_set_backlight(0, 10, PELM_SAVE_DEFAULT), numberOf(HostError::OutOfRange));
}

TEST_F(Picture, RefusesANullPointer) {
    EXPECT_EQ(pelm_get_backlight(1, nullptr, PELM_SAVE_STORED), numberOf(HostError::NullPointer));
    EXPECT_EQ(pelm_get_motion_lighting(0, nullptr), numberOf(HostError::NullPointer));
}

TEST_F(Picture, HasOneValueForEachControl) {
    EXPECT_EQ(pelm_set_color_tint(0, 30, PELM_SAVE_STORED), success);
    EXPECT_EQ(pelm_set_contrast(0, 31, PELM_SAVE_STORED), success);
    EXPECT_EQ(pelm_set_video_gray_onoff(1), success);
    EXPECT_EQ(pelm_set_audio_format(2), success);
    EXPECT_EQ(pelm_set_motion_lighting(0, 0), success);
    EXPECT_EQ(pelm_set_game_mode(0, PELM_SAVE_STORED, static_cast<pelm_game_mode_e>(2)), success);
    int tint = -1;
    unsigned char contrast = 0;
    int gray = -1;
    int format = -1;
    int lighting = -1;
    pelm_game_mode_e game{};
    EXPECT_EQ(pelm_get_color_tint(1, &tint, PELM_SAVE_STORED), success);
    EXPECT_EQ(pelm_get_contrast(1, &contrast, PELM_SAVE_STORED), success);
    EXPECT_EQ(pelm_get_video_gray_onoff(&gray), success);
    EXPECT_EQ(pelm_get_audio_format(&format), success);
    EXPECT_EQ(pelm_get_motion_lighting(0, &lighting), success);
    EXPECT_EQ(pelm_get_game_mode(0, PELM_SAVE_STORED, &game), success);
    EXPECT_EQ(tint, 30);
    EXPECT_EQ(contrast, 31);
    EXPECT_EQ(gray, 1);
    EXPECT_EQ(format, 2);
    EXPECT_EQ(lighting, 0);
    EXPECT_EQ(static_cast<int>(game), 2);
}

TEST_F(Picture, LacksWhatTheProfileLacks) {
    writeFile(m_folder.path("bare.json"), R"({"model": "Bare"})");
    ASSERT_EQ(setenv("KLX_PROFILE", m_folder.path("bare.json").c_str(), 1), 0);
    int value = -1;
    EXPECT_EQ(pelm_get_backlight(1, &value, PELM_SAVE_STORED), numberOf(HostError::UnknownKey));
    EXPECT_EQ(pelm_set_backlight(0, 1, PELM_SAVE_STORED), numberOf(HostError::UnknownKey));
}

} // namespace
} // namespace KLX::Host
