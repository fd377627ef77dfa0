#pragma once

/**
 * @file
 * The set's own settings, known by number: language (13), date of purchase (10001), auto protection
 * time (10007), use mode (10008: 0 retail, anything else at home) and others.
 *
 * A porter keeps them across restarts. All calls may come from any thread and return 0 on success
 * or an error number. On failure an output is left alone and nothing is stored.
 */

#include "klx_enum.h"

#include <stdbool.h>

#ifdef __cplusplus
extern "C" {
#endif
#pragma GCC visibility push(default)

/** Number of a setting. The numbers are the platform's; the library knows the ones it uses. */
KLX_OPEN_ENUM(system_settings_key_e);

/** Reads a numeric setting. */
int system_settings_get_value_int(system_settings_key_e key, int* value);

/**
 * Reads a text.
 *
 * @param key    number of the setting
 * @param value  receives a text allocated with `malloc` that the caller frees, or NULL when the
 *               setting was never given one
 */
int system_settings_get_value_string(system_settings_key_e key, char** value);

/** Stores a number. */
int system_settings_set_value_int(system_settings_key_e key, int value);

/** Stores a yes or no. */
int system_settings_set_value_bool(system_settings_key_e key, bool value);

/** Stores a copy of a zero-terminated text. */
int system_settings_set_value_string(system_settings_key_e key, const char* value);

#pragma GCC visibility pop
#ifdef __cplusplus
}
#endif
