#pragma once

namespace KLX::Host {

/**
 * What the virtual television's master mute acts on. Calls may come from any thread; failures throw
 * a `std::exception`.
 */
class SoundBackend {
public:
    virtual ~SoundBackend() = default;

    virtual bool isMuted() = 0;
    virtual void mute(bool on) = 0;
};

/**
 * The backend that $KLX_HOST_SOUND asks for: "store" or nothing keeps the value in the settings
 * store, "pulse" drives the machine's default sink. Throws HostFailure for another one and for a
 * missing module.
 */
SoundBackend& soundBackend();

} // namespace KLX::Host
