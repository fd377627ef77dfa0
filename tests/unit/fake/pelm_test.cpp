#include "FakeTest.h"
#include "SettingsService.h"
#include "pelm.h"
#include "sound_manager.h"

#include <stdexcept>
#include <vector>

namespace klx {
namespace {

using ::testing::ElementsAre;

class PelmTest : public FakeTest {};

TEST_F(PelmTest, AnUnprogrammedAdjustmentCannotBeRead) {
    int value = 7;
    EXPECT_EQ(pelm_get_backlight(1, &value, PELM_SAVE_STORED), fake::kNotProgrammed);
    EXPECT_EQ(pelm_get_video_gray_onoff(&value), fake::kNotProgrammed);
    EXPECT_EQ(value, 7);
}

TEST_F(PelmTest, StoredAndDefaultCopiesAreApart) {
    scene.pelm("backlight", 20).pelmDefault("backlight", 50);
    int value = 0;
    EXPECT_EQ(pelm_get_backlight(1, &value, PELM_SAVE_STORED), 0);
    EXPECT_EQ(value, 20);
    EXPECT_EQ(pelm_get_backlight(1, &value, PELM_SAVE_DEFAULT), 0);
    EXPECT_EQ(value, 50);
    EXPECT_THAT(fake::calls(), ElementsAre("pelm_get_backlight(1, 1)", "pelm_get_backlight(1, 2)"));
}

TEST_F(PelmTest, ArgumentsAreShownInTheirOwnOrder) {
    pelm_set_contrast(0, 200, PELM_SAVE_STORED);
    pelm_set_delay(4000000000U, PELM_SAVE_STORED);
    pelm_set_game_mode(0, PELM_SAVE_STORED, static_cast<pelm_game_mode_e>(3));
    pelm_set_energy_saving(0, PELM_SAVE_STORED, static_cast<pelm_energy_saving_e>(4));
    pelm_set_eco_sensor(0, PELM_SAVE_STORED, 6);
    pelm_set_motion_lighting(0, 5);
    EXPECT_THAT(fake::calls(),
                ElementsAre("pelm_set_contrast(0, 200, 1)", "pelm_set_delay(4000000000, 1)",
                            "pelm_set_game_mode(0, 1, 3)", "pelm_set_energy_saving(0, 1, 4)",
                            "pelm_set_eco_sensor(0, 1, 6)", "pelm_set_motion_lighting(0, 5)"));
}

TEST_F(PelmTest, AWriteChangesTheCopyItNames) {
    scene.pelm("color_tint", 30).pelmDefault("color_tint", 50);
    EXPECT_EQ(pelm_set_color_tint(0, 100, PELM_SAVE_STORED), 0);
    int value = 0;
    pelm_get_color_tint(1, &value, PELM_SAVE_STORED);
    EXPECT_EQ(value, 100);
    pelm_get_color_tint(1, &value, PELM_SAVE_DEFAULT);
    EXPECT_EQ(value, 50);
    EXPECT_EQ(pelm_set_color_tint(0, 60, PELM_SAVE_DEFAULT), 0);
    pelm_get_color_tint(1, &value, PELM_SAVE_DEFAULT);
    EXPECT_EQ(value, 60);
    pelm_get_color_tint(1, &value, PELM_SAVE_STORED);
    EXPECT_EQ(value, 100);
}

TEST_F(PelmTest, EachShapeKeepsItsValues) {
    scene.pelm("sharpness", 255).pelm("delay", 4000000000LL).pelm("energy_saving", 2);
    unsigned char sharpness = 0;
    unsigned int delay = 0;
    auto saving = pelm_energy_saving_e{};
    EXPECT_EQ(pelm_get_sharpness(1, &sharpness, PELM_SAVE_STORED), 0);
    EXPECT_EQ(pelm_get_delay(&delay, PELM_SAVE_STORED), 0);
    EXPECT_EQ(pelm_get_energy_saving(1, PELM_SAVE_STORED, &saving), 0);
    EXPECT_EQ(sharpness, 255);
    EXPECT_EQ(delay, 4000000000U);
    EXPECT_EQ(saving, 2);
}

template <typename T, typename Get>
long long valueOf(Get get) {
    T value{};
    EXPECT_EQ(get(&value), 0);
    return static_cast<long long>(value);
}

TEST_F(PelmTest, EachAdjustmentHasAValueOfItsOwn) {
    long long next = 1;
    for (const std::string& function : fake::functions()) {
        if (function.rfind("pelm_get_", 0) == 0) {
            scene.pelm(function.substr(9), next++);
        }
    }
    const auto save = PELM_SAVE_STORED;
    const auto picture = [=](auto get) {
        return [=](auto* value) {
            return get(1, value, save);
        };
    };
    const auto sound = [=](auto get) {
        return [=](auto* value) {
            return get(value, save);
        };
    };
    const auto energy = [=](auto get) {
        return [=](auto* value) {
            return get(1, save, value);
        };
    };
    const std::vector<long long> values = {
        valueOf<pelm_apply_picture_mode_e>(picture(pelm_get_apply_picture_mode)),
        valueOf<int>(pelm_get_audio_format),
        valueOf<int>(picture(pelm_get_backlight)),
        valueOf<unsigned char>(picture(pelm_get_brightness)),
        valueOf<unsigned char>(picture(pelm_get_color_strength)),
        valueOf<int>(picture(pelm_get_color_tint)),
        valueOf<unsigned char>(picture(pelm_get_contrast)),
        valueOf<unsigned int>(sound(pelm_get_delay)),
        valueOf<pelm_value_e>(picture(pelm_get_dynamic_contrast)),
        valueOf<int>(energy(pelm_get_eco_sensor)),
        valueOf<pelm_energy_saving_e>(energy(pelm_get_energy_saving)),
        valueOf<pelm_film_mode_e>(picture(pelm_get_film_mode)),
        valueOf<pelm_game_mode_e>(energy(pelm_get_game_mode)),
        valueOf<int>(picture(pelm_get_gamma)),
        valueOf<pelm_gamma_config_e>(sound(pelm_get_gamma_config)),
        valueOf<pelm_setting_on_off_e>(sound(pelm_get_hdr_plus_mode)),
        valueOf<int>([](int* value) { return pelm_get_motion_lighting(0, value); }),
        valueOf<mrtv_picture_mode_e>(picture(pelm_get_picture_mode)),
        valueOf<unsigned char>(picture(pelm_get_sharpness)),
        valueOf<pelm_audio_sound_mode_e>(sound(pelm_get_sound_mode)),
        valueOf<int>(pelm_get_video_gray_onoff)};
    for (std::size_t i = 0; i < values.size(); ++i) {
        EXPECT_EQ(values[i], static_cast<long long>(i) + 1);
    }
    EXPECT_EQ(static_cast<long long>(values.size()) + 1, next);
}

TEST_F(PelmTest, AnAdjustmentThatDoesNotExistIsRefused) {
    EXPECT_THROW(scene.pelm("backlite", 1), std::invalid_argument);
    EXPECT_THROW(scene.pelmDefault("pelm_get_backlight", 1), std::invalid_argument);
}

class SoundTest : public FakeTest {};

TEST_F(SoundTest, UnprogrammedReadsFail) {
    bool muted = true;
    int selection = 7;
    std::string text = "old";
    EXPECT_EQ(sound_manager_get_master_mute(&muted), fake::kNotProgrammed);
    EXPECT_EQ(sound_manager_get_speaker_selection(&selection), fake::kNotProgrammed);
    EXPECT_EQ(SettingsService::Get()->GetItemValue("a", text, ""), fake::kNotProgrammed);
    EXPECT_TRUE(muted);
    EXPECT_EQ(selection, 7);
    EXPECT_EQ(text, "old");
}

TEST_F(SoundTest, WritesAreReadBack) {
    scene.muted(false).speaker(0);
    EXPECT_EQ(sound_manager_set_master_mute(true), 0);
    EXPECT_EQ(sound_manager_set_speaker_selection(4), 0);
    bool muted = false;
    int selection = 0;
    EXPECT_EQ(sound_manager_get_master_mute(&muted), 0);
    EXPECT_EQ(sound_manager_get_speaker_selection(&selection), 0);
    EXPECT_TRUE(muted);
    EXPECT_EQ(selection, 4);
    EXPECT_EQ(fake::calls().front(), "sound_manager_set_master_mute(true)");
}

TEST_F(SoundTest, ASettingsItemAnswersWithItsNumberAndText) {
    scene.settingsItem("item", 3, "text");
    std::string text;
    EXPECT_EQ(SettingsService::Get()->GetItemValue("item", text, ""), 3);
    EXPECT_EQ(text, "text");
    EXPECT_EQ(SettingsService::Get()->SetItemValue("item", "1", true), 0);
    EXPECT_THAT(fake::calls(),
                ElementsAre("SettingsService.Get()", R"(SettingsService.GetItemValue("item", ""))",
                            "SettingsService.Get()",
                            R"(SettingsService.SetItemValue("item", "1", true))"));
}

TEST_F(SoundTest, TheSettingsServiceCanBeMissing) {
    scene.fail("SettingsService.Get", 0);
    EXPECT_EQ(SettingsService::Get(), nullptr);
}

} // namespace
} // namespace klx
