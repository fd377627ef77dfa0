#include "sound_manager.h"

#include "../Boundary.h"
#include "../SetProfile.h"
#include "../store/Store.h"
#include "SoundBackend.h"

using namespace KLX::Host;

namespace {

constexpr auto speakerKey = "sound/speaker";

} // namespace

int sound_manager_get_master_mute(bool* muted) {
    return answer(__func__, [&] {
        requirePointer(muted, "muted");
        *muted = soundBackend().isMuted();
    });
}

int sound_manager_set_master_mute(bool muted) {
    return answer(__func__, [&] { soundBackend().mute(muted); });
}

int sound_manager_get_speaker_selection(int* selection) {
    return answer(__func__, [&] {
        requirePointer(selection, "selection");
        const int defaultValue = currentProfile().sound.speaker.defaultValue;
        *selection = std::get<int>(Store::instance().read(speakerKey).value_or(defaultValue));
    });
}

int sound_manager_set_speaker_selection(int selection) {
    return answer(__func__, [&] {
        if (!currentProfile().sound.speaker.contains(selection)) {
            throw HostFailure(HostError::OutOfRange,
                              "the profile has no speaker " + std::to_string(selection));
        }
        Store::instance().write(speakerKey, selection);
    });
}
