#pragma once

#include "PropertyBinding.h"
#include "commonUtil.h"

#include <string_view>

/// Rows that are served by the picture/sound library: value and default are the same read, asked
/// for the stored value and for the library's default. A pair of functions whose value types
/// differ, or whose arguments are another family's, does not compile.

template <class Read, class Write>
PropertyBinding savedValue(PropertySource source, Read read, Write write) {
    return PropertyBinding(source, [read, write](CDeviceProperty&) {
        const auto asked = [read](pelm_save_type_e save) {
            return [read, save](const std::string&) {
                return read(save);
            };
        };
        return PropertyAccessor(asked(PELM_SAVE_STORED), asked(PELM_SAVE_DEFAULT), boost::none,
                                write, true);
    });
}

namespace pelmbinding {

/// The name of a library call, as the compiler spells it.
template <auto Call>
std::string_view nameOf() {
    const std::string_view spelled = __PRETTY_FUNCTION__;
    const std::size_t begin = spelled.find("pelm_get_");
    return spelled.substr(begin, spelled.find_first_of(";]", begin) - begin);
}

template <class T>
PropertyBinding withMode(PropertySource source, int (*get)(int, T*, pelm_save_type_e),
                         int (*set)(int, T, pelm_save_type_e)) {
    return savedValue(
        source,
        [get](pelm_save_type_e save) { return commonUtil::getPelmPictureWrapper<T>(get, save); },
        [set](const std::string& text) { commonUtil::setPelmPictureWrapper<T>(set, text); });
}

template <class T>
PropertyBinding withoutMode(PropertySource source, int (*get)(T*, pelm_save_type_e),
                            int (*set)(T, pelm_save_type_e)) {
    return savedValue(
        source,
        [get](pelm_save_type_e save) { return commonUtil::getPelmSoundWrapper<T>(get, save); },
        [set](const std::string& text) { commonUtil::setPelmSoundWrapper<T>(set, text); });
}

template <class T>
PropertyBinding withSaveTypeFirst(PropertySource source, int (*get)(int, pelm_save_type_e, T*),
                                  int (*set)(int, pelm_save_type_e, T)) {
    return savedValue(
        source,
        [get](pelm_save_type_e save) { return commonUtil::getPelmEcoWrapper<T>(get, save); },
        [set](const std::string& text) { commonUtil::setPelmEcoWrapper<T>(set, text); });
}

template <class T>
PropertyBinding withGameMode(PropertySource source, int (*get)(int, pelm_save_type_e, T*),
                             int (*set)(int, pelm_save_type_e, T)) {
    return savedValue(
        source,
        [get](pelm_save_type_e save) { return commonUtil::pelmGetGameModeWrapper<T>(get, save); },
        [set](const std::string& text) { commonUtil::pelmSetGameModeWrapper<T>(set, text); });
}

} // namespace pelmbinding

/// Library calls that take a picture-mode index first.
template <auto Get, auto Set>
PropertyBinding picture() {
    return pelmbinding::withMode({"picture control", pelmbinding::nameOf<Get>()}, Get, Set);
}

/// Picture settings whose library calls take no picture-mode index.
template <auto Get, auto Set>
PropertyBinding pictureOfAllModes() {
    return pelmbinding::withoutMode({"picture control", pelmbinding::nameOf<Get>()}, Get, Set);
}

template <auto Get, auto Set>
PropertyBinding sound() {
    return pelmbinding::withoutMode({"sound control", pelmbinding::nameOf<Get>()}, Get, Set);
}

/// Library calls whose save type stands before the value.
template <auto Get, auto Set>
PropertyBinding energy() {
    return pelmbinding::withSaveTypeFirst({"energy control", pelmbinding::nameOf<Get>()}, Get, Set);
}

/// As `energy`, but read with the leading 0 that the game mode wants.
template <auto Get, auto Set>
PropertyBinding gameMode() {
    return pelmbinding::withGameMode({"game mode control", pelmbinding::nameOf<Get>()}, Get, Set);
}
