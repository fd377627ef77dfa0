#pragma once

/**
 * @file
 * States of the running set, known by number, read-only.
 *
 * All calls may come from any thread and return 0 on success or an error number. On failure the
 * output is left alone.
 */

#include "klx_enum.h"

#include <stdbool.h>

#ifdef __cplusplus
extern "C" {
#endif
#pragma GCC visibility push(default)

/** Number of a state. The numbers are the platform's; the library knows the ones it asks for. */
KLX_OPEN_ENUM(runtime_info_key_e);

/** Reads a numeric state. */
int runtime_info_get_value_int(runtime_info_key_e key, int* value);

/** Reads a yes-or-no state. */
int runtime_info_get_value_bool(runtime_info_key_e key, bool* value);

/** Reads a fractional state. The library cuts the fraction off. */
int runtime_info_get_value_double(runtime_info_key_e key, double* value);

/**
 * Reads a text.
 *
 * @param key    number of the state
 * @param value  receives a text allocated with `malloc` that the caller frees, or NULL
 */
int runtime_info_get_value_string(runtime_info_key_e key, char** value);

#pragma GCC visibility pop
#ifdef __cplusplus
}
#endif
