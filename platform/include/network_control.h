#pragma once

/**
 * @file
 * Two network switches of the set.
 *
 * All calls may come from any thread and return 0 on success or an error number. On failure an
 * output is left alone and the switch stays as it was.
 */

#include <stdbool.h>

#ifdef __cplusplus
extern "C" {
#endif
#pragma GCC visibility push(default)

/** Tells whether Wi-Fi is on: 1 on, 0 off. */
int wifi_get_enable_kq(int* enabled);

/** Switches Wi-Fi on or off. */
int wifi_set_enable_kq(bool enable);

/** Tells whether a mobile device on the network may switch the set on. */
int util_get_wakeOnMobile_mode(bool* enabled);

/** Lets a mobile device on the network switch the set on, or forbids it. */
int util_set_wakeOnMobile_mode(bool enable);

#pragma GCC visibility pop
#ifdef __cplusplus
}
#endif
