#pragma once

/**
 * @file
 * The sound manager: mute and the choice of loudspeakers.
 *
 * All calls may come from any thread and return 0 on success or an error number. On failure an
 * output is left alone and the sound stays as it was.
 */

#include <stdbool.h>

#ifdef __cplusplus
extern "C" {
#endif
#pragma GCC visibility push(default)

/** Tells whether all sound is muted. */
int sound_manager_get_master_mute(bool* muted);

/** Mutes all sound, or ends that. */
int sound_manager_set_master_mute(bool muted);

/** Tells the number of the chosen output. The numbers are the platform's. */
int sound_manager_get_speaker_selection(int* selection);

/** Chooses an output by number. A number the set does not have is an error. */
int sound_manager_set_speaker_selection(int selection);

#pragma GCC visibility pop
#ifdef __cplusplus
}
#endif
