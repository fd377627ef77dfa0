#include "DeviceInfoAV.h"
#include "MemberBinding.h"
#include "PelmBinding.h"
#include "PropertyCatalogue.h"

std::vector<PropertyRow> pictureAndSoundRows() {
    return {
        {"/Picture/Picture Mode", picture<pelm_get_picture_mode, pelm_set_picture_mode>()},
        {"/Picture/Backlight", picture<pelm_get_backlight, pelm_set_backlight>()},
        {"/Picture/Contrast", picture<pelm_get_contrast, pelm_set_contrast>()},
        {"/Picture/Brightness", picture<pelm_get_brightness, pelm_set_brightness>()},
        {"/Picture/Sharpness", picture<pelm_get_sharpness, pelm_set_sharpness>()},
        {"/Picture/Color", picture<pelm_get_color_strength, pelm_set_color_strength>()},
        {"/Picture/Tint",
         savedValue({"picture control", "pelm_get_color_tint"}, commonUtil::getPictureTintValue,
                    commonUtil::setPictureTintValue)},
        {"/Picture/Expert Settings/Apply Picture Settings",
         picture<pelm_get_apply_picture_mode, pelm_set_apply_picture_mode>()},
        {"/Picture/Contrast Enhancer",
         picture<pelm_get_dynamic_contrast, pelm_set_dynamic_contrast>().withDefault("3")},
        {"/Picture/Expert Settings/Film Mode", picture<pelm_get_film_mode, pelm_set_film_mode>()},
        {"/Picture/HDR+ Mode", pictureOfAllModes<pelm_get_hdr_plus_mode, pelm_set_hdr_plus_mode>()},
        {"/Picture/Gamma", pictureOfAllModes<pelm_get_gamma_config, pelm_set_gamma_config>()},
        {"/Picture/Gamma Value", picture<pelm_get_gamma, pelm_set_gamma>()},
        {"/Picture/Picture Size Settings", pictureSize("db/menu/picture/picturesize/mode")},
        {"/General/Eco Solution/Power Saving Mode",
         energy<pelm_get_energy_saving, pelm_set_energy_saving>()},
        {"/General/Eco Solution/Ambient Light Detection",
         energy<pelm_get_eco_sensor, pelm_set_eco_sensor>()},
        {"/General/Eco Solution/Motion Lighting",
         readWrite({"energy control", "pelm_get_motion_lighting"},
                   &DeviceInfoAV::getPictureMotionLightning,
                   &DeviceInfoAV::setPictureMotionLightning)
             .withDefault("1")},
        {"/Sound/Sound Mode", sound<pelm_get_sound_mode, pelm_set_sound_mode>()},
        {"/Sound/Digital Output Audio Format",
         readWrite({"sound control", "pelm_get_audio_format"},
                   &DeviceInfoAV::getSoundDigitalAudioOutAudioFormat,
                   &DeviceInfoAV::setSoundDigitalAudioOutAudioFormat)
             .answeringDefault("")},
        {"/Sound/Audio Delay", sound<pelm_get_delay, pelm_set_delay>()},
        {"/Sound/Mute", readWrite({"sound manager", "sound_manager_get_master_mute"},
                                  &DeviceInfoAV::getSoundMute, &DeviceInfoAV::setSoundMute)
                            .answeringDefault("0")},
        {"/Sound/Sound Output",
         readWrite({"sound manager", "sound_manager_get_speaker_selection"},
                   &DeviceInfoAV::getTVSoundOutput, &DeviceInfoAV::setTVSoundOutput)
             .answeringDefault("0")
             .withFlagClear()},
        // Two paths of the menu for one setting.
        {"/Connection/Game Mode", gameMode<pelm_get_game_mode, pelm_set_game_mode>()},
        {"/Connection/Game Mode Setting/Game Mode",
         gameMode<pelm_get_game_mode, pelm_set_game_mode>()},
    };
}
