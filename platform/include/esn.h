#pragma once

/**
 * @file
 * The set's electronic serial number.
 */

#ifdef __cplusplus
extern "C" {
#endif
#pragma GCC visibility push(default)

/**
 * Writes the electronic serial number. It may be called from any thread.
 *
 * @param buffer  receives the bytes; no terminating zero is needed
 * @param length  in: the room in `buffer`, in bytes; out: the bytes written, never more than the
 *                room. Zero or less is taken as a failure
 * @return 0 on success, otherwise an error number
 */
int esn_get(char* buffer, int* length);

#pragma GCC visibility pop
#ifdef __cplusplus
}
#endif
