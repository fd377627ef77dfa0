#include "SoundBackend.h"

#include "../HostErrors.h"
#include "../SetProfile.h"
#include "../store/Store.h"
#include "SoundModule.h"

#include <cstdlib>
#include <string>

namespace KLX::Host {
namespace {

/** Keeps what it is told and makes no sound, so that nobody's desk falls silent by accident. */
class SilentBackend : public SoundBackend {
public:
    bool isMuted() override {
        return std::get<bool>(Store::instance().read(key).value_or(currentProfile().sound.isMuted));
    }

    void mute(bool on) override { Store::instance().write(key, on); }

private:
    static constexpr auto key = "sound/mute";
};

std::string wantedBackend() {
    const char* const wanted = std::getenv("KLX_HOST_SOUND");
    return wanted != nullptr ? wanted : "";
}

} // namespace

SoundBackend& soundBackend() {
    const std::string wanted = wantedBackend();
    if (wanted == "pulse") {
        return pulseBackend();
    }
    if (wanted.empty() || wanted == "store") {
        static SilentBackend silent;
        return silent;
    }
    throw HostFailure(HostError::UnknownKey,
                      "KLX_HOST_SOUND is \"" + wanted + "\"; it may be store or pulse");
}

} // namespace KLX::Host
