#pragma once

/**
 * @file
 * The settings store: typed values under text keys such as "db/menu/picture/picturesize/mode".
 *
 * A porter supplies a store that outlives the process for keys under "db/" and may forget keys
 * under "memory/" at a restart. A value has one type; a read of another type fails. Calls come from
 * any thread at any time and need no preparation.
 *
 * Unless noted, 0 is success and any other number an error number, which the library only logs.
 */

#ifdef __cplusplus
extern "C" {
#endif
#pragma GCC visibility push(default)

/**
 * Reads an integer.
 *
 * @param key    the key, zero-terminated
 * @param value  receives the value; left alone on failure
 */
int vconf_get_int(const char* key, int* value);

/**
 * Reads a boolean.
 *
 * @param key    the key, zero-terminated
 * @param value  receives 1 for true and 0 for false; left alone on failure
 */
int vconf_get_bool(const char* key, int* value);

/**
 * Reads a text.
 *
 * @return the text, allocated with `malloc` and released by the caller with `free`; NULL on failure
 */
char* vconf_get_str(const char* key);

/** Stores an integer under the key, creating the key where the store permits that. */
int vconf_set_int(const char* key, int value);

/** Stores a boolean: any number but 0 is true. */
int vconf_set_bool(const char* key, int value);

/** Stores a copy of a zero-terminated text. */
int vconf_set_str(const char* key, const char* value);

/**
 * Tells the factory default of a key, as text whatever its type: integers in decimal, booleans as
 * "1" or "0".
 *
 * @param key    the key, zero-terminated
 * @param type   in: the type the caller expects (0 integer, 1 boolean, 2 text); out: the type the
 *               default has
 * @param value  receives the text, allocated with `malloc`; the caller frees it whatever the result
 *               is. Left alone, or set to NULL, when there is none
 * @return exactly 1 on success; every other number, 0 included, is a failure
 */
int get_vconf_key_default_value(const char* key, int* type, char** value);

#pragma GCC visibility pop
#ifdef __cplusplus
}
#endif
