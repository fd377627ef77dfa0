#include "SoundBackend.h"

#include "../HostErrors.h"
#include "../HostLog.h"
#include "../SetProfile.h"
#include "../store/Store.h"
#include "SoundModule.h"

#include "dlog.h"

#include <atomic>
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

/** Whoever mistyped it sees it once; it is asked for at every call. */
[[noreturn]] void refuse(const std::string& wanted) {
    static std::atomic<bool> isTold{false};
    const std::string mistake = "KLX_HOST_SOUND is \"" + wanted + "\", but must be store or pulse";
    if (!isTold.exchange(true)) {
        hostLog(DLOG_WARNING, mistake + "; muting fails");
    }
    throw HostFailure(HostError::UnknownKey, mistake);
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
    refuse(wanted);
}

} // namespace KLX::Host
