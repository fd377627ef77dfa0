#pragma once

#include "ValueTypes.h"

#include <string>

/// Sound and motion-lighting settings, as text. Failures are logged. All members are static and
/// keep no state, so any thread may call them as far as the platform's calls allow.
///
/// The getters that take an `eMenuValueType` answer a fixed text unless they are asked for the
/// current value. The second argument of a getter is ignored.
class DeviceInfoAV {
public:
    DeviceInfoAV() = delete;

    /// @return "1" when the set is mute, "0" when not, "" on failure; the default is "0"
    static std::string getSoundMute(eMenuValueType kind, const std::string& ignored);
    /// @param value exactly "0" or "1"
    static void setSoundMute(const std::string& value);

    /// @return the speaker selection in decimal, "0" on failure; the default is "0"
    static std::string getTVSoundOutput(eMenuValueType kind, const std::string& ignored);
    static void setTVSoundOutput(const std::string& value);

    /// @return the format in decimal, "" on failure; there is no default
    static std::string getSoundDigitalAudioOutAudioFormat(eMenuValueType kind,
                                                          const std::string& ignored);
    static void setSoundDigitalAudioOutAudioFormat(const std::string& value);

    /// @return the setting in decimal, "0" on failure
    static std::string getPictureMotionLightning(const std::string& ignored);
    static void setPictureMotionLightning(const std::string& value);
};
