#pragma once

#include "pelm.h"

namespace KLX::Host {

/**
 * The adjustments of picture, sound and energy that the set profile describes, by the names that it
 * gives them, "backlight" for example. Picture adjustments are kept apart for each picture mode, so
 * that another mode shows other values. All functions may be called from any thread.
 */

/**
 * The stored value, or the profile's default, in the picture mode that is current. Throws
 * HostFailure: UnknownKey for a control that this set lacks, OutOfRange for another save type, or
 * the store's own failure.
 */
int readControl(const char* name, pelm_save_type_e save);

/**
 * Stores a value in the picture mode that is current. Throws HostFailure: OutOfRange for a value
 * that the profile does not allow and for a save type other than the stored one, UnknownKey, or the
 * store's own failure.
 */
void writeControl(const char* name, int value, pelm_save_type_e save);

} // namespace KLX::Host
