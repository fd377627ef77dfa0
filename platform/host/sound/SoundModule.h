#pragma once

#include "SoundBackend.h"

namespace KLX::Host {

/**
 * The backend of the PulseAudio module. The module is a library of its own beside this one, so that
 * a machine without PulseAudio needs none of its libraries; it is loaded at the first call and
 * stays. Throws HostFailure (UnknownKey) where it is not installed.
 */
SoundBackend& pulseBackend();

/** The name and the type of the one function that a module offers. */
constexpr auto soundModuleEntry = "klx_host_sound_backend";
using SoundModuleEntry = SoundBackend* (*)();

} // namespace KLX::Host
