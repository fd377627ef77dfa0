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

/** Where a control is kept, and what it is when nothing is. */
struct Place {
    std::string key;
    int defaultValue;
};

/** Both for one picture mode, which others may change meanwhile. */
Place placeOf(const std::string& name) {
    const ControlRange& range = rangeOf(name);
    if (!isKeptByPictureMode(name)) {
        return {"controls/" + name, range.defaultValue};
    }
    const int mode = readControl(pictureMode, PELM_SAVE_STORED);
    return {"controls/" + std::to_string(mode) + "/" + name, range.defaultIn(mode)};
}

[[noreturn]] void refuse(const std::string& name, const std::string& what) {
    throw HostFailure(HostError::OutOfRange, name + ": " + what);
}

} // namespace

int readControl(const char* name, pelm_save_type_e save) {
    if (save != PELM_SAVE_STORED && save != PELM_SAVE_DEFAULT) {
        refuse(name, "there is no save type " + std::to_string(static_cast<int>(save)));
    }
    const Place place = placeOf(name);
    if (save == PELM_SAVE_DEFAULT) {
        return place.defaultValue;
    }
    return std::get<int>(Store::instance().read(place.key).value_or(place.defaultValue));
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
    Store::instance().write(placeOf(name).key, value);
}

} // namespace KLX::Host
