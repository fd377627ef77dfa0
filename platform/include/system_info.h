#pragma once

/**
 * @file
 * Facts about the set that do not change while it runs: model features, versions, identifiers.
 *
 * There are two families: facts known by number and custom features known by name, such as
 * "com.velmora/featureconf/product.tv_year". All calls may come from any thread and return 0 on
 * success or an error number. On failure the output is left alone.
 */

#include "klx_enum.h"

#include <stdbool.h>

#ifdef __cplusplus
extern "C" {
#endif
#pragma GCC visibility push(default)

/** Number of a fact. The numbers are the platform's; the library knows the ones it asks for. */
KLX_OPEN_ENUM(system_info_key_e);

/** Reads a numeric fact. */
int system_info_get_value_int(system_info_key_e key, int* value);

/**
 * Reads a text.
 *
 * @param key    number of the fact
 * @param value  receives a text allocated with `malloc` that the caller frees, or NULL for a fact
 *               that is known to be without a text
 */
int system_info_get_value_string(system_info_key_e key, char** value);

/** Reads a numeric feature by name. */
int system_info_get_custom_int(const char* key, int* value);

/** Reads a yes-or-no feature by name. */
int system_info_get_custom_bool(const char* key, bool* value);

/** Reads a text feature by name; ownership as for `system_info_get_value_string`. */
int system_info_get_custom_string(const char* key, char** value);

#pragma GCC visibility pop
#ifdef __cplusplus
}
#endif
