#include "CatalogueRow.h"
#include "PropertyCatalogue.h"

namespace fake = klx::fake;

using ::testing::ElementsAreArray;

namespace {

/** A value, default and write of the picture/sound library: stored 5, default 6, written 7. */
CatalogueRow libraryRow(const char* path, const char* value, const char* defaultCall,
                        const char* write) {
    return row(path, flagSet)
        .reads({value}, "5")
        .readsDefault({defaultCall}, "6")
        .writes("7", {write});
}

const char* const sizeDefault =
    "get_vconf_key_default_value(\"db/menu/picture/picturesize/mode\", 0)";

/** The picture and sound settings, in storing order. */
std::vector<CatalogueRow> pictureRows() {
    return {
        libraryRow("/Picture/Picture Mode", "pelm_get_picture_mode(1, 1)",
                   "pelm_get_picture_mode(1, 2)", "pelm_set_picture_mode(0, 7, 1)"),
        libraryRow("/Picture/Backlight", "pelm_get_backlight(1, 1)", "pelm_get_backlight(1, 2)",
                   "pelm_set_backlight(0, 7, 1)"),
        libraryRow("/Picture/Contrast", "pelm_get_contrast(1, 1)", "pelm_get_contrast(1, 2)",
                   "pelm_set_contrast(0, 7, 1)"),
        libraryRow("/Picture/Brightness", "pelm_get_brightness(1, 1)", "pelm_get_brightness(1, 2)",
                   "pelm_set_brightness(0, 7, 1)"),
        libraryRow("/Picture/Sharpness", "pelm_get_sharpness(1, 1)", "pelm_get_sharpness(1, 2)",
                   "pelm_set_sharpness(0, 7, 1)"),
        libraryRow("/Picture/Color", "pelm_get_color_strength(1, 1)",
                   "pelm_get_color_strength(1, 2)", "pelm_set_color_strength(0, 7, 1)"),
        row("/Picture/Tint", flagSet)
            .reads({"pelm_get_color_tint(1, 1)"}, "95/5")
            .readsDefault({"pelm_get_color_tint(1, 2)"}, "94/6")
            .writes("93/7", {"pelm_set_color_tint(0, 7, 1)"}),
        libraryRow("/Picture/Expert Settings/Apply Picture Settings",
                   "pelm_get_apply_picture_mode(1, 1)", "pelm_get_apply_picture_mode(1, 2)",
                   "pelm_set_apply_picture_mode(0, 7, 1)"),
        row("/Picture/Contrast Enhancer", flagSet)
            .reads({"pelm_get_dynamic_contrast(1, 1)"}, "5")
            .fixedDefault("3")
            .writes("7", {"pelm_set_dynamic_contrast(0, 7, 1)"}),
        libraryRow("/Picture/Expert Settings/Film Mode", "pelm_get_film_mode(1, 1)",
                   "pelm_get_film_mode(1, 2)", "pelm_set_film_mode(0, 7, 1)"),
        libraryRow("/Picture/HDR+ Mode", "pelm_get_hdr_plus_mode(1)", "pelm_get_hdr_plus_mode(2)",
                   "pelm_set_hdr_plus_mode(7, 1)"),
        libraryRow("/Picture/Gamma", "pelm_get_gamma_config(1)", "pelm_get_gamma_config(2)",
                   "pelm_set_gamma_config(7, 1)"),
        libraryRow("/Picture/Gamma Value", "pelm_get_gamma(1, 1)", "pelm_get_gamma(1, 2)",
                   "pelm_set_gamma(0, 7, 1)"),
        row("/Picture/Picture Size Settings", flagSet)
            .reads({"CreateVideoControl(1, 0)", "VideoControl.GetPictureSize()",
                    "Destroy(VideoControl)"},
                   "5")
            .readsDefault({sizeDefault}, "6")
            .writes("7", {"CreateVideoControl(1, 0)", "VideoControl.SetPictureSize(7, 1)"}),
        libraryRow("/General/Eco Solution/Power Saving Mode", "pelm_get_energy_saving(1, 1)",
                   "pelm_get_energy_saving(1, 2)", "pelm_set_energy_saving(0, 1, 7)"),
        libraryRow("/General/Eco Solution/Ambient Light Detection", "pelm_get_eco_sensor(1, 1)",
                   "pelm_get_eco_sensor(1, 2)", "pelm_set_eco_sensor(0, 1, 7)"),
        row("/General/Eco Solution/Motion Lighting", flagSet)
            .reads({"pelm_get_motion_lighting(0)"}, "5")
            .fixedDefault("1")
            .writes("7", {"pelm_set_motion_lighting(0, 7)"}),
        libraryRow("/Sound/Sound Mode", "pelm_get_sound_mode(1)", "pelm_get_sound_mode(2)",
                   "pelm_set_sound_mode(7, 1)"),
        row("/Sound/Digital Output Audio Format", flagSet)
            .reads({"pelm_get_audio_format()"}, "5")
            .readsDefault({}, "")
            .writes("7", {"pelm_set_audio_format(7)"}),
        libraryRow("/Sound/Audio Delay", "pelm_get_delay(1)", "pelm_get_delay(2)",
                   "pelm_set_delay(7, 1)"),
        row("/Sound/Mute", flagSet)
            .reads({"sound_manager_get_master_mute()"}, "1")
            .readsDefault({}, "0")
            .writes("1", {"sound_manager_set_master_mute(true)"}),
        row("/Sound/Sound Output", flagClear)
            .reads({"sound_manager_get_speaker_selection()"}, "5")
            .readsDefault({}, "0")
            .writes("7", {"sound_manager_set_speaker_selection(7)"}),
        libraryRow("/Connection/Game Mode", "pelm_get_game_mode(0, 1)", "pelm_get_game_mode(0, 2)",
                   "pelm_set_game_mode(0, 1, 7)"),
        libraryRow("/Connection/Game Mode Setting/Game Mode", "pelm_get_game_mode(0, 1)",
                   "pelm_get_game_mode(0, 2)", "pelm_set_game_mode(0, 1, 7)"),
    };
}

/** Two general settings that are served by the same adapters. */
std::vector<CatalogueRow> adaptedGeneralRows() {
    const std::string item = "(\"autorun-multiview-rotating\", ";
    return {
        row("/General & Privacy/Start screen option/Autorun Multi View When Rotating", flagSet)
            .reads({"SettingsService.Get()", "SettingsService.GetItemValue" + item + "\"\")"}, "5")
            .writes("7", {"SettingsService.Get()",
                          "SettingsService.SetItemValue" + item + "\"7\", true)"}),
        row("/General & Privacy/Accessibility/Grayscale", flagSet)
            .reads({"pelm_get_video_gray_onoff()"}, "5")
            .writes("7", {"pelm_set_video_gray_onoff(7)"}),
    };
}

/** A set on which every stored value is 5 and every default 6. */
class PictureRowTest : public CatalogueRowTest {
protected:
    PictureRowTest() {
        for (const std::string& function : fake::functions()) {
            if (function.rfind("pelm_get_", 0) == 0) {
                const std::string adjustment = function.substr(std::string("pelm_get_").size());
                scene.pelm(adjustment, 5).pelmDefault(adjustment, 6);
            }
        }
        scene.muted(true).speaker(5).pictureSize(5);
        scene.settingsItem("autorun-multiview-rotating", 5);
        scene.storeDefault("db/menu/picture/picturesize/mode", "6");
    }
};

TEST_P(PictureRowTest, ReadsItsValue) {
    checkValue();
}

TEST_P(PictureRowTest, KnowsItsDefault) {
    checkDefault();
}

TEST_P(PictureRowTest, IsWritten) {
    checkWrite();
}

TEST_P(PictureRowTest, CarriesItsFlag) {
    checkFlag();
}

INSTANTIATE_TEST_SUITE_P(PictureAndSound, PictureRowTest, ::testing::ValuesIn(pictureRows()),
                         testNameOf);
INSTANTIATE_TEST_SUITE_P(General, PictureRowTest, ::testing::ValuesIn(adaptedGeneralRows()),
                         testNameOf);

TEST(PictureRowsTest, AreAllThereAreInStoringOrder) {
    std::vector<std::string> paths;
    for (const PropertyRow& each : pictureAndSoundRows()) {
        paths.emplace_back(each.path);
    }
    EXPECT_THAT(paths, ElementsAreArray(pathsOf(pictureRows())));
    EXPECT_EQ(paths.size(), 24U);
}

/** The two paths of the game mode. */
class GameModeTest : public ::testing::Test {
protected:
    GameModeTest() { CDeviceProperty::GetInstance()->createPropertyAccessor(records); }

    std::string get(const std::string& path) {
        return std::get<valueGetterElement>(records.at(path))("");
    }

    void set(const std::string& path, const std::string& value) {
        std::get<setterElement>(records.at(path))(value);
    }

    const std::string one = "/Connection/Game Mode";
    const std::string other = "/Connection/Game Mode Setting/Game Mode";
    fake::Scene scene;
    PropertyAccessorMap records;
};

TEST_F(GameModeTest, WhatOnePathWritesTheOtherReads) {
    set(one, "2");
    EXPECT_EQ(get(other), "2");
    set(other, "3");
    EXPECT_EQ(get(one), "3");
}

TEST_F(GameModeTest, BothPathsFailAlike) {
    scene.pelm("game_mode", 1).fail("pelm_get_game_mode", 17);
    EXPECT_EQ(get(one), "");
    EXPECT_EQ(get(other), "");
    EXPECT_THAT(fake::messages(6), ::testing::ElementsAre("Operation failed, error: 17",
                                                          "Operation failed, error: 17"));
}

} // namespace
