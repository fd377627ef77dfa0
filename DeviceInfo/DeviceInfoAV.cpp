#include "DeviceInfoAV.h"

#include "Log.h"
#include "commonUtil.h"

#include <pelm.h>
#include <sound_manager.h>

namespace {

constexpr int lightingMode = 0;

} // namespace

std::string DeviceInfoAV::getSoundMute(eMenuValueType kind, const std::string&) {
    if (kind != currentValue) {
        return "0";
    }
    bool muted = false;
    const int status = sound_manager_get_master_mute(&muted);
    if (status != 0) {
        KLX_LOG(LogError, "Operation failed, error: %d", status);
        return "";
    }
    return muted ? "1" : "0";
}

void DeviceInfoAV::setSoundMute(const std::string& value) {
    if (value != "0" && value != "1") {
        KLX_LOG(LogError, "[ERROR] Wrong argument");
        return;
    }
    const int status = sound_manager_set_master_mute(value == "1");
    if (status != 0) {
        KLX_LOG(LogError, "Operation failed, error: %d", status);
    }
}

std::string DeviceInfoAV::getTVSoundOutput(eMenuValueType kind, const std::string&) {
    if (kind != currentValue) {
        return "0";
    }
    int selection = 0;
    if (sound_manager_get_speaker_selection(&selection) != 0) {
        KLX_LOG(LogError, "Operation failed.");
    }
    return commonUtil::intToStr(selection);
}

void DeviceInfoAV::setTVSoundOutput(const std::string& value) {
    try {
        if (sound_manager_set_speaker_selection(std::stoi(value)) != 0) {
            KLX_LOG(LogError, "Operation failed.");
        }
    } catch (const std::exception&) {
        KLX_LOG(LogError, "Conversion failed. Input string: %s", value.c_str());
    }
}

std::string DeviceInfoAV::getSoundDigitalAudioOutAudioFormat(eMenuValueType kind,
                                                             const std::string&) {
    if (kind != currentValue) {
        return "";
    }
    int format = 0;
    const int status = pelm_get_audio_format(&format);
    if (status != 0) {
        KLX_LOG(LogError, "Operation failed, error: %d", status);
        return "";
    }
    return commonUtil::intToStr(format);
}

void DeviceInfoAV::setSoundDigitalAudioOutAudioFormat(const std::string& value) {
    try {
        const int status = pelm_set_audio_format(std::stoi(value));
        if (status != 0) {
            KLX_LOG(LogError, "Operation failed, error: %d", status);
        }
    } catch (const std::exception& error) {
        KLX_LOG(LogError, "[ERROR] %s", error.what());
    }
}

std::string DeviceInfoAV::getPictureMotionLightning(const std::string&) {
    int value = 0;
    if (pelm_get_motion_lighting(lightingMode, &value) != 0) {
        KLX_LOG(LogError, "Operation failed.");
        return "0";
    }
    return commonUtil::intToStr(value);
}

void DeviceInfoAV::setPictureMotionLightning(const std::string& value) {
    try {
        if (pelm_set_motion_lighting(lightingMode, std::stoi(value)) != 0) {
            KLX_LOG(LogError, "Operation failed.");
        }
    } catch (const std::exception&) {
        KLX_LOG(LogError, "Conversion failed. Input string: %s", value.c_str());
    }
}
