#include "FakeCore.h"
#include "pelm.h"

namespace klx::fake {
namespace {

/** "backlight" of "pelm_get_backlight". */
std::string adjustmentOf(const std::string& function) {
    return function.substr(std::strlen("pelm_get_"));
}

template <typename T>
int read(const char* function, const std::string& arguments, int save, T* value) {
    return call(function, arguments, [&](State& state) {
        const auto* const known = lookUp(state.pelm, std::pair(adjustmentOf(function), save));
        if (known == nullptr) {
            return kNotProgrammed;
        }
        *value = static_cast<T>(*known);
        return 0;
    });
}

int write(const char* function, const std::string& arguments, int save, long long value) {
    return call(function, arguments, [&](State& state) {
        state.pelm[{adjustmentOf(function), save}] = value;
        return 0;
    });
}

} // namespace

Scene& Scene::pelm(const std::string& adjustment, long long stored) {
    requireKnown("pelm_get_" + adjustment);
    Access()->pelm[{adjustment, PELM_SAVE_STORED}] = stored;
    return *this;
}

Scene& Scene::pelmDefault(const std::string& adjustment, long long value) {
    requireKnown("pelm_get_" + adjustment);
    Access()->pelm[{adjustment, PELM_SAVE_DEFAULT}] = value;
    return *this;
}

} // namespace klx::fake

using namespace klx::fake;

int pelm_get_backlight(int mode, int* value, pelm_save_type_e save) {
    return read(__func__, args(mode, save), save, value);
}

int pelm_set_backlight(int mode, int value, pelm_save_type_e save) {
    return write(__func__, args(mode, value, save), save, value);
}

int pelm_get_gamma(int mode, int* value, pelm_save_type_e save) {
    return read(__func__, args(mode, save), save, value);
}

int pelm_set_gamma(int mode, int value, pelm_save_type_e save) {
    return write(__func__, args(mode, value, save), save, value);
}

int pelm_get_contrast(int mode, unsigned char* value, pelm_save_type_e save) {
    return read(__func__, args(mode, save), save, value);
}

int pelm_set_contrast(int mode, unsigned char value, pelm_save_type_e save) {
    return write(__func__, args(mode, value, save), save, value);
}

int pelm_get_brightness(int mode, unsigned char* value, pelm_save_type_e save) {
    return read(__func__, args(mode, save), save, value);
}

int pelm_set_brightness(int mode, unsigned char value, pelm_save_type_e save) {
    return write(__func__, args(mode, value, save), save, value);
}

int pelm_get_sharpness(int mode, unsigned char* value, pelm_save_type_e save) {
    return read(__func__, args(mode, save), save, value);
}

int pelm_set_sharpness(int mode, unsigned char value, pelm_save_type_e save) {
    return write(__func__, args(mode, value, save), save, value);
}

int pelm_get_color_strength(int mode, unsigned char* value, pelm_save_type_e save) {
    return read(__func__, args(mode, save), save, value);
}

int pelm_set_color_strength(int mode, unsigned char value, pelm_save_type_e save) {
    return write(__func__, args(mode, value, save), save, value);
}

int pelm_get_picture_mode(int mode, mrtv_picture_mode_e* value, pelm_save_type_e save) {
    return read(__func__, args(mode, save), save, value);
}

int pelm_set_picture_mode(int mode, mrtv_picture_mode_e value, pelm_save_type_e save) {
    return write(__func__, args(mode, value, save), save, value);
}

int pelm_get_apply_picture_mode(int mode, pelm_apply_picture_mode_e* value, pelm_save_type_e save) {
    return read(__func__, args(mode, save), save, value);
}

int pelm_set_apply_picture_mode(int mode, pelm_apply_picture_mode_e value, pelm_save_type_e save) {
    return write(__func__, args(mode, value, save), save, value);
}

int pelm_get_dynamic_contrast(int mode, pelm_value_e* value, pelm_save_type_e save) {
    return read(__func__, args(mode, save), save, value);
}

int pelm_set_dynamic_contrast(int mode, pelm_value_e value, pelm_save_type_e save) {
    return write(__func__, args(mode, value, save), save, value);
}

int pelm_get_film_mode(int mode, pelm_film_mode_e* value, pelm_save_type_e save) {
    return read(__func__, args(mode, save), save, value);
}

int pelm_set_film_mode(int mode, pelm_film_mode_e value, pelm_save_type_e save) {
    return write(__func__, args(mode, value, save), save, value);
}

int pelm_get_color_tint(int mode, int* value, pelm_save_type_e save) {
    return read(__func__, args(mode, save), save, value);
}

int pelm_set_color_tint(int mode, unsigned char value, pelm_save_type_e save) {
    return write(__func__, args(mode, value, save), save, value);
}

int pelm_get_hdr_plus_mode(pelm_setting_on_off_e* value, pelm_save_type_e save) {
    return read(__func__, args(save), save, value);
}

int pelm_set_hdr_plus_mode(pelm_setting_on_off_e value, pelm_save_type_e save) {
    return write(__func__, args(value, save), save, value);
}

int pelm_get_gamma_config(pelm_gamma_config_e* value, pelm_save_type_e save) {
    return read(__func__, args(save), save, value);
}

int pelm_set_gamma_config(pelm_gamma_config_e value, pelm_save_type_e save) {
    return write(__func__, args(value, save), save, value);
}

int pelm_get_sound_mode(pelm_audio_sound_mode_e* value, pelm_save_type_e save) {
    return read(__func__, args(save), save, value);
}

int pelm_set_sound_mode(pelm_audio_sound_mode_e value, pelm_save_type_e save) {
    return write(__func__, args(value, save), save, value);
}

int pelm_get_delay(unsigned int* value, pelm_save_type_e save) {
    return read(__func__, args(save), save, value);
}

int pelm_set_delay(unsigned int value, pelm_save_type_e save) {
    return write(__func__, args(value, save), save, value);
}

int pelm_get_energy_saving(int mode, pelm_save_type_e save, pelm_energy_saving_e* value) {
    return read(__func__, args(mode, save), save, value);
}

int pelm_set_energy_saving(int mode, pelm_save_type_e save, pelm_energy_saving_e value) {
    return write(__func__, args(mode, save, value), save, value);
}

int pelm_get_eco_sensor(int mode, pelm_save_type_e save, int* value) {
    return read(__func__, args(mode, save), save, value);
}

int pelm_set_eco_sensor(int mode, pelm_save_type_e save, int value) {
    return write(__func__, args(mode, save, value), save, value);
}

int pelm_get_game_mode(int mode, pelm_save_type_e save, pelm_game_mode_e* value) {
    return read(__func__, args(mode, save), save, value);
}

int pelm_set_game_mode(int mode, pelm_save_type_e save, pelm_game_mode_e value) {
    return write(__func__, args(mode, save, value), save, value);
}

int pelm_get_video_gray_onoff(int* value) {
    return read(__func__, "", PELM_SAVE_STORED, value);
}

int pelm_set_video_gray_onoff(int value) {
    return write(__func__, args(value), PELM_SAVE_STORED, value);
}

int pelm_get_audio_format(int* value) {
    return read(__func__, "", PELM_SAVE_STORED, value);
}

int pelm_set_audio_format(int value) {
    return write(__func__, args(value), PELM_SAVE_STORED, value);
}

int pelm_get_motion_lighting(int mode, int* value) {
    return read(__func__, args(mode), PELM_SAVE_STORED, value);
}

int pelm_set_motion_lighting(int mode, int value) {
    return write(__func__, args(mode, value), PELM_SAVE_STORED, value);
}
