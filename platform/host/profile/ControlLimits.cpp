#include "ControlLimits.h"

#include <algorithm>
#include <array>

namespace KLX::Host {
namespace {

struct Control {
    const char* name;
    ControlLimits limits;
};

constexpr ControlLimits byte{0, std::numeric_limits<unsigned char>::max()};
constexpr ControlLimits notNegative{0, std::numeric_limits<int>::max()};
constexpr ControlLimits percent{0, 100};
constexpr ControlLimits onOff{0, 1};

constexpr std::array<Control, 21> controls{{
    {"apply_picture_mode", anyInteger},
    {"audio_format", anyInteger},
    {"backlight", anyInteger},
    {"brightness", byte},
    {"color_strength", byte},
    {"color_tint", percent},
    {"contrast", byte},
    {"delay", notNegative},
    {"dynamic_contrast", anyInteger},
    {"eco_sensor", anyInteger},
    {"energy_saving", anyInteger},
    {"film_mode", anyInteger},
    {"game_mode", anyInteger},
    {"gamma", anyInteger},
    {"gamma_config", anyInteger},
    {"hdr_plus_mode", anyInteger},
    {"motion_lighting", onOff},
    {"picture_mode", anyInteger},
    {"sharpness", byte},
    {"sound_mode", anyInteger},
    {"video_gray_onoff", onOff},
}};

} // namespace

const ControlLimits* findControlLimits(const std::string& name) {
    const auto* const found =
        std::find_if(controls.begin(), controls.end(),
                     [&](const Control& control) { return name == control.name; });
    return found == controls.end() ? nullptr : &found->limits;
}

std::string controlNames() {
    std::string text;
    for (const Control& control : controls) {
        text += text.empty() ? control.name : std::string(", ") + control.name;
    }
    return text;
}

} // namespace KLX::Host
