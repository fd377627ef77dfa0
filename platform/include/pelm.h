#pragma once

/**
 * @file
 * Picture and sound control: one get and one set function for each adjustment.
 *
 * There are three shapes, and the order of their arguments differs:
 *
 * | shape           | get                   | set                  |
 * |-----------------|-----------------------|----------------------|
 * | picture         | (mode, &value, save)  | (mode, value, save)  |
 * | sound style     | (&value, save)        | (value, save)        |
 * | energy and game | (mode, save, &value)  | (mode, save, value)  |
 *
 * - `mode` picks a picture mode for which the value holds. The library reads with 1 (energy
 *   included, but 0 for the game mode) and writes with 0.
 * - `save` picks the copy: `PELM_SAVE_STORED` is the value in force, `PELM_SAVE_DEFAULT` the one a
 *   reset would bring back. The library writes the stored copy only.
 * - Values pass through unchanged. Ranges are the platform's; a value outside is an error.
 *
 * Every function may be called from any thread and returns 0 on success or an error number. On
 * failure an output is left alone and the adjustment stays as it was.
 */

#include "klx_enum.h"

#ifdef __cplusplus
extern "C" {
#endif
#pragma GCC visibility push(default)

/** Which copy of a value is meant. */
typedef enum pelm_save_type_e KLX_BASE_INT {
    PELM_SAVE_STORED = 1,
    PELM_SAVE_DEFAULT = 2,
} pelm_save_type_e;

/* The values of these are the platform's and travel as plain numbers. */
KLX_OPEN_ENUM(mrtv_picture_mode_e);
KLX_OPEN_ENUM(pelm_apply_picture_mode_e);
KLX_OPEN_ENUM(pelm_value_e);
KLX_OPEN_ENUM(pelm_film_mode_e);
KLX_OPEN_ENUM(pelm_gamma_config_e);
KLX_OPEN_ENUM(pelm_setting_on_off_e);
KLX_OPEN_ENUM(pelm_energy_saving_e);
KLX_OPEN_ENUM(pelm_game_mode_e);
KLX_OPEN_ENUM(pelm_audio_sound_mode_e);

/** @name Picture */
/**@{*/
int pelm_get_backlight(int mode, int* value, pelm_save_type_e save);
int pelm_set_backlight(int mode, int value, pelm_save_type_e save);

int pelm_get_gamma(int mode, int* value, pelm_save_type_e save);
int pelm_set_gamma(int mode, int value, pelm_save_type_e save);

int pelm_get_contrast(int mode, unsigned char* value, pelm_save_type_e save);
int pelm_set_contrast(int mode, unsigned char value, pelm_save_type_e save);

int pelm_get_brightness(int mode, unsigned char* value, pelm_save_type_e save);
int pelm_set_brightness(int mode, unsigned char value, pelm_save_type_e save);

int pelm_get_sharpness(int mode, unsigned char* value, pelm_save_type_e save);
int pelm_set_sharpness(int mode, unsigned char value, pelm_save_type_e save);

int pelm_get_color_strength(int mode, unsigned char* value, pelm_save_type_e save);
int pelm_set_color_strength(int mode, unsigned char value, pelm_save_type_e save);

int pelm_get_picture_mode(int mode, mrtv_picture_mode_e* value, pelm_save_type_e save);
int pelm_set_picture_mode(int mode, mrtv_picture_mode_e value, pelm_save_type_e save);

int pelm_get_apply_picture_mode(int mode, pelm_apply_picture_mode_e* value, pelm_save_type_e save);
int pelm_set_apply_picture_mode(int mode, pelm_apply_picture_mode_e value, pelm_save_type_e save);

/** Dynamic contrast: the contrast enhancer. */
int pelm_get_dynamic_contrast(int mode, pelm_value_e* value, pelm_save_type_e save);
int pelm_set_dynamic_contrast(int mode, pelm_value_e value, pelm_save_type_e save);

int pelm_get_film_mode(int mode, pelm_film_mode_e* value, pelm_save_type_e save);
int pelm_set_film_mode(int mode, pelm_film_mode_e value, pelm_save_type_e save);

/** Tint: the share of red, 0 to 100; the rest is green. Written as a byte, read as an `int`. */
int pelm_get_color_tint(int mode, int* value, pelm_save_type_e save);
int pelm_set_color_tint(int mode, unsigned char value, pelm_save_type_e save);
/**@}*/

/** @name Sound style: no mode */
/**@{*/
int pelm_get_hdr_plus_mode(pelm_setting_on_off_e* value, pelm_save_type_e save);
int pelm_set_hdr_plus_mode(pelm_setting_on_off_e value, pelm_save_type_e save);

int pelm_get_gamma_config(pelm_gamma_config_e* value, pelm_save_type_e save);
int pelm_set_gamma_config(pelm_gamma_config_e value, pelm_save_type_e save);

int pelm_get_sound_mode(pelm_audio_sound_mode_e* value, pelm_save_type_e save);
int pelm_set_sound_mode(pelm_audio_sound_mode_e value, pelm_save_type_e save);

/** Audio delay: how far the sound is held back behind the picture, in the platform's steps. */
int pelm_get_delay(unsigned int* value, pelm_save_type_e save);
int pelm_set_delay(unsigned int value, pelm_save_type_e save);
/**@}*/

/** @name Energy and game: the save type stands before the value */
/**@{*/
int pelm_get_energy_saving(int mode, pelm_save_type_e save, pelm_energy_saving_e* value);
int pelm_set_energy_saving(int mode, pelm_save_type_e save, pelm_energy_saving_e value);

int pelm_get_eco_sensor(int mode, pelm_save_type_e save, int* value);
int pelm_set_eco_sensor(int mode, pelm_save_type_e save, int value);

int pelm_get_game_mode(int mode, pelm_save_type_e save, pelm_game_mode_e* value);
int pelm_set_game_mode(int mode, pelm_save_type_e save, pelm_game_mode_e value);
/**@}*/

/** @name Without a save type: there is only the value in force */
/**@{*/

/** Greyscale picture: 1 on, 0 off. */
int pelm_get_video_gray_onoff(int* value);
int pelm_set_video_gray_onoff(int value);

/** Format of the digital audio output. */
int pelm_get_audio_format(int* value);
int pelm_set_audio_format(int value);

/** Motion lighting: 1 on, 0 off. The library passes mode 0. */
int pelm_get_motion_lighting(int mode, int* value);
int pelm_set_motion_lighting(int mode, int value);
/**@}*/

#pragma GCC visibility pop
#ifdef __cplusplus
}
#endif
