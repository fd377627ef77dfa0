#include "pelm.h"

#include "../Boundary.h"
#include "Controls.h"

// The leading integer of a call says nothing here: a desk has one picture, and its mode is the
// current one.

namespace {

using namespace KLX::Host;

template <typename T>
int get(const char* control, T* value, pelm_save_type_e save = PELM_SAVE_STORED) {
    return answer(control, [&] {
        requirePointer(value, "value");
        *value = static_cast<T>(readControl(control, save));
    });
}

template <typename T>
int set(const char* control, T value, pelm_save_type_e save = PELM_SAVE_STORED) {
    return answer(control, [&] { writeControl(control, static_cast<int>(value), save); });
}

} // namespace

int pelm_get_backlight(int, int* value, pelm_save_type_e save) {
    return get("backlight", value, save);
}
int pelm_set_backlight(int, int value, pelm_save_type_e save) {
    return set("backlight", value, save);
}

int pelm_get_gamma(int, int* value, pelm_save_type_e save) {
    return get("gamma", value, save);
}
int pelm_set_gamma(int, int value, pelm_save_type_e save) {
    return set("gamma", value, save);
}

int pelm_get_contrast(int, unsigned char* value, pelm_save_type_e save) {
    return get("contrast", value, save);
}
int pelm_set_contrast(int, unsigned char value, pelm_save_type_e save) {
    return set("contrast", value, save);
}

int pelm_get_brightness(int, unsigned char* value, pelm_save_type_e save) {
    return get("brightness", value, save);
}
int pelm_set_brightness(int, unsigned char value, pelm_save_type_e save) {
    return set("brightness", value, save);
}

int pelm_get_sharpness(int, unsigned char* value, pelm_save_type_e save) {
    return get("sharpness", value, save);
}
int pelm_set_sharpness(int, unsigned char value, pelm_save_type_e save) {
    return set("sharpness", value, save);
}

int pelm_get_color_strength(int, unsigned char* value, pelm_save_type_e save) {
    return get("color_strength", value, save);
}
int pelm_set_color_strength(int, unsigned char value, pelm_save_type_e save) {
    return set("color_strength", value, save);
}

int pelm_get_picture_mode(int, mrtv_picture_mode_e* value, pelm_save_type_e save) {
    return get("picture_mode", value, save);
}
int pelm_set_picture_mode(int, mrtv_picture_mode_e value, pelm_save_type_e save) {
    return set("picture_mode", value, save);
}

int pelm_get_apply_picture_mode(int, pelm_apply_picture_mode_e* value, pelm_save_type_e save) {
    return get("apply_picture_mode", value, save);
}
int pelm_set_apply_picture_mode(int, pelm_apply_picture_mode_e value, pelm_save_type_e save) {
    return set("apply_picture_mode", value, save);
}

int pelm_get_dynamic_contrast(int, pelm_value_e* value, pelm_save_type_e save) {
    return get("dynamic_contrast", value, save);
}
int pelm_set_dynamic_contrast(int, pelm_value_e value, pelm_save_type_e save) {
    return set("dynamic_contrast", value, save);
}

int pelm_get_film_mode(int, pelm_film_mode_e* value, pelm_save_type_e save) {
    return get("film_mode", value, save);
}
int pelm_set_film_mode(int, pelm_film_mode_e value, pelm_save_type_e save) {
    return set("film_mode", value, save);
}

int pelm_get_color_tint(int, int* value, pelm_save_type_e save) {
    return get("color_tint", value, save);
}
int pelm_set_color_tint(int, unsigned char value, pelm_save_type_e save) {
    return set("color_tint", value, save);
}

int pelm_get_hdr_plus_mode(pelm_setting_on_off_e* value, pelm_save_type_e save) {
    return get("hdr_plus_mode", value, save);
}
int pelm_set_hdr_plus_mode(pelm_setting_on_off_e value, pelm_save_type_e save) {
    return set("hdr_plus_mode", value, save);
}

int pelm_get_gamma_config(pelm_gamma_config_e* value, pelm_save_type_e save) {
    return get("gamma_config", value, save);
}
int pelm_set_gamma_config(pelm_gamma_config_e value, pelm_save_type_e save) {
    return set("gamma_config", value, save);
}

int pelm_get_sound_mode(pelm_audio_sound_mode_e* value, pelm_save_type_e save) {
    return get("sound_mode", value, save);
}
int pelm_set_sound_mode(pelm_audio_sound_mode_e value, pelm_save_type_e save) {
    return set("sound_mode", value, save);
}

int pelm_get_delay(unsigned int* value, pelm_save_type_e save) {
    return get("delay", value, save);
}
int pelm_set_delay(unsigned int value, pelm_save_type_e save) {
    return set("delay", value, save);
}

int pelm_get_energy_saving(int, pelm_save_type_e save, pelm_energy_saving_e* value) {
    return get("energy_saving", value, save);
}
int pelm_set_energy_saving(int, pelm_save_type_e save, pelm_energy_saving_e value) {
    return set("energy_saving", value, save);
}

int pelm_get_eco_sensor(int, pelm_save_type_e save, int* value) {
    return get("eco_sensor", value, save);
}
int pelm_set_eco_sensor(int, pelm_save_type_e save, int value) {
    return set("eco_sensor", value, save);
}

int pelm_get_game_mode(int, pelm_save_type_e save, pelm_game_mode_e* value) {
    return get("game_mode", value, save);
}
int pelm_set_game_mode(int, pelm_save_type_e save, pelm_game_mode_e value) {
    return set("game_mode", value, save);
}

int pelm_get_video_gray_onoff(int* value) {
    return get("video_gray_onoff", value);
}
int pelm_set_video_gray_onoff(int value) {
    return set("video_gray_onoff", value);
}

int pelm_get_audio_format(int* value) {
    return get("audio_format", value);
}
int pelm_set_audio_format(int value) {
    return set("audio_format", value);
}

int pelm_get_motion_lighting(int, int* value) {
    return get("motion_lighting", value);
}
int pelm_set_motion_lighting(int, int value) {
    return set("motion_lighting", value);
}
