#include "Controls.h"

#include "../HostErrors.h"
#include "../SetProfile.h"
#include "../store/Store.h"

#include <algorithm>
#include <array>
#include <string>

namespace KLX::Host {
namespace {

constexpr auto pictureMode = "picture_mode";

bool isKeptByPictureMode(const std::string& name) {
    constexpr std::array<const char*, 9> names{"backlight",  "brightness", "color_strength",
                                               "color_tint", "contrast",   "dynamic_contrast",
                                               "film_mode",  "gamma",      "sharpness"};
    return std::any_of(names.begin(), names.end(),
                       [&](const char* candidate) { return name == candidate; });
}

const ControlRange& rangeOf(const std::string& name) {
    const auto& controls = currentProfile().controls;
    const auto found = controls.find(name);
    if (found == controls.end()) {
        throw HostFailure(HostError::UnknownKey, "the profile has no control " + name);
    }
    return found->second;
}

std::string storeKey(const std::string& name) {
    return isKeptByPictureMode(name)
               ? "controls/" + std::to_string(readControl(pictureMode, PELM_SAVE_STORED)) + "/" +
                     name
               : "controls/" + name;
}

int defaultOf(const std::string& name) {
    const ControlRange& range = rangeOf(name);
    return isKeptByPictureMode(name) ? range.defaultIn(readControl(pictureMode, PELM_SAVE_STORED))
                                     : range.defaultValue;
}

[[noreturn]] void refuse(const std::string& name, const std::string& what) {
    throw HostFailure(HostError::OutOfRange, name + ": " + what);
}

} // namespace

int readControl(const char* name, pelm_save_type_e save) {
    if (save != PELM_SAVE_STORED && save != PELM_SAVE_DEFAULT) {
        refuse(name, "there is no save type " + std::to_string(static_cast<int>(save)));
    }
    const int defaultValue = defaultOf(name);
    if (save == PELM_SAVE_DEFAULT) {
        return defaultValue;
    }
    return std::get<int>(Store::instance().read(storeKey(name)).value_or(defaultValue));
}

void writeControl(const char* name, int value, pelm_save_type_e save) {
    if (save != PELM_SAVE_STORED) {
        refuse(name, "save type " + std::to_string(static_cast<int>(save)) + " cannot be written");
    }
    const ControlRange& range = rangeOf(name);
    if (!range.contains(value)) {
        refuse(name, std::to_string(value) + " is not within " + std::to_string(range.minimum) +
                         " to " + std::to_string(range.maximum));
    }
    Store::instance().write(storeKey(name), value);
}

} // namespace KLX::Host
