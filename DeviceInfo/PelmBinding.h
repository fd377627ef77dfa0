#pragma once

#include "PropertyBinding.h"
#include "commonUtil.h"

/// Rows that are served by the picture/sound library: value and default are the same read, asked
/// for the stored value and for the library's default. A pair of functions whose value types
/// differ, or whose arguments are another family's, does not compile.

template <class Read, class Write>
PropertyBinding savedValue(Read read, Write write) {
    return PropertyBinding([read, write](CDeviceProperty&) {
        const auto asked = [read](pelm_save_type_e save) {
            return [read, save](const std::string&) {
                return read(save);
            };
        };
        return PropertyAccessor(asked(PELM_SAVE_STORED), asked(PELM_SAVE_DEFAULT), boost::none,
                                write, true);
    });
}

/// Library calls that take a picture-mode index first.
template <class T>
PropertyBinding picture(int (*get)(int, T*, pelm_save_type_e),
                        int (*set)(int, T, pelm_save_type_e)) {
    return savedValue(
        [get](pelm_save_type_e save) { return commonUtil::getPelmPictureWrapper<T>(get, save); },
        [set](const std::string& text) { commonUtil::setPelmPictureWrapper<T>(set, text); });
}

/// Library calls without a picture-mode index.
template <class T>
PropertyBinding soundStyle(int (*get)(T*, pelm_save_type_e), int (*set)(T, pelm_save_type_e)) {
    return savedValue(
        [get](pelm_save_type_e save) { return commonUtil::getPelmSoundWrapper<T>(get, save); },
        [set](const std::string& text) { commonUtil::setPelmSoundWrapper<T>(set, text); });
}

/// Library calls whose save type stands before the value.
template <class T>
PropertyBinding energy(int (*get)(int, pelm_save_type_e, T*),
                       int (*set)(int, pelm_save_type_e, T)) {
    return savedValue(
        [get](pelm_save_type_e save) { return commonUtil::getPelmEcoWrapper<T>(get, save); },
        [set](const std::string& text) { commonUtil::setPelmEcoWrapper<T>(set, text); });
}

/// As `energy`, but read with the leading 0 that the game mode wants.
template <class T>
PropertyBinding gameMode(int (*get)(int, pelm_save_type_e, T*),
                         int (*set)(int, pelm_save_type_e, T)) {
    return savedValue(
        [get](pelm_save_type_e save) { return commonUtil::pelmGetGameModeWrapper<T>(get, save); },
        [set](const std::string& text) { commonUtil::pelmSetGameModeWrapper<T>(set, text); });
}
