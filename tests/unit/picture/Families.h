#pragma once

/**
 * @file
 * The four families of wrappers, each with the shape of the library functions that it adapts, so
 * that one test can be run for every value type that is in use.
 */

#include "commonUtil.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

/** Stands in for one pair of library functions: what they are called with and what they answer. */
struct Library {
    template <class... Arguments>
    void note(Arguments... arguments) {
        std::string call;
        ((call += (call.empty() ? "" : ", ") + textOf(arguments)), ...);
        calls.push_back("(" + call + ")");
    }

    template <class T>
    int answer(T* out) {
        before.push_back(static_cast<long long>(*out));
        if (writes) {
            *out = static_cast<T>(value);
        }
        return status;
    }

    int status = 0;
    int value = 0;
    bool writes = true;
    std::vector<std::string> calls;
    std::vector<long long> before; ///< What an output held when it was handed over.

private:
    static std::string textOf(const char* text) { return text; }
    template <class T>
    static std::string textOf(T number) {
        return std::to_string(static_cast<long long>(number));
    }
};

/** Library functions that take a picture-mode index first. */
template <class T>
struct Picture {
    using Getter = commonUtil::PictureGetter<T>;
    using Setter = commonUtil::PictureSetter<T>;
    static constexpr const char* readName = "getPelmPictureWrapper";
    static constexpr const char* writeName = "setPelmPictureWrapper";
    static constexpr const char* readOfStored = "(1, out, 1)";
    static constexpr const char* readOfDefault = "(1, out, 2)";
    static constexpr const char* writeOf7 = "(0, 7, 1)";

    static Getter getter(Library& library) {
        return [&library](int mode, T* out, pelm_save_type_e save) {
            library.note(mode, "out", save);
            return library.answer(out);
        };
    }

    static Setter setter(Library& library) {
        return [&library](int mode, T value, pelm_save_type_e save) {
            library.note(mode, value, save);
            return library.status;
        };
    }

    static std::string read(const Getter& get, pelm_save_type_e save) {
        return commonUtil::getPelmPictureWrapper<T>(get, save);
    }

    static void write(const Setter& set, const std::string& text) {
        commonUtil::setPelmPictureWrapper<T>(set, text);
    }
};

/** Library functions without a picture-mode index. */
template <class T>
struct Sound {
    using Getter = commonUtil::SoundGetter<T>;
    using Setter = commonUtil::SoundSetter<T>;
    static constexpr const char* readName = "getPelmSoundWrapper";
    static constexpr const char* writeName = "setPelmSoundWrapper";
    static constexpr const char* readOfStored = "(out, 1)";
    static constexpr const char* readOfDefault = "(out, 2)";
    static constexpr const char* writeOf7 = "(7, 1)";

    static Getter getter(Library& library) {
        return [&library](T* out, pelm_save_type_e save) {
            library.note("out", save);
            return library.answer(out);
        };
    }

    static Setter setter(Library& library) {
        return [&library](T value, pelm_save_type_e save) {
            library.note(value, save);
            return library.status;
        };
    }

    static std::string read(const Getter& get, pelm_save_type_e save) {
        return commonUtil::getPelmSoundWrapper<T>(get, save);
    }

    static void write(const Setter& set, const std::string& text) {
        commonUtil::setPelmSoundWrapper<T>(set, text);
    }
};

/** Library functions whose save type stands before the value. */
template <class T>
struct SaveBeforeValue {
    using Getter = commonUtil::EcoGetter<T>;
    using Setter = commonUtil::EcoSetter<T>;
    static constexpr const char* writeOf7 = "(0, 1, 7)";

    static Getter getter(Library& library) {
        return [&library](int mode, pelm_save_type_e save, T* out) {
            library.note(mode, save, "out");
            return library.answer(out);
        };
    }

    static Setter setter(Library& library) {
        return [&library](int mode, pelm_save_type_e save, T value) {
            library.note(mode, save, value);
            return library.status;
        };
    }
};

template <class T>
struct Eco : SaveBeforeValue<T> {
    static constexpr const char* readName = "getPelmEcoWrapper";
    static constexpr const char* writeName = "setPelmEcoWrapper";
    static constexpr const char* readOfStored = "(1, 1, out)";
    static constexpr const char* readOfDefault = "(1, 2, out)";

    static std::string read(const typename Eco::Getter& get, pelm_save_type_e save) {
        return commonUtil::getPelmEcoWrapper<T>(get, save);
    }

    static void write(const typename Eco::Setter& set, const std::string& text) {
        commonUtil::setPelmEcoWrapper<T>(set, text);
    }
};

template <class T>
struct Game : SaveBeforeValue<T> {
    static constexpr const char* readName = "pelmGetGameModeWrapper";
    static constexpr const char* writeName = "pelmSetGameModeWrapper";
    static constexpr const char* readOfStored = "(0, 1, out)";
    static constexpr const char* readOfDefault = "(0, 2, out)";

    static std::string read(const typename Game::Getter& get, pelm_save_type_e save) {
        return commonUtil::pelmGetGameModeWrapper<T>(get, save);
    }

    static void write(const typename Game::Setter& set, const std::string& text) {
        commonUtil::pelmSetGameModeWrapper<T>(set, text);
    }
};

/** Every pair of family and value type that is in use. */
using Instances = ::testing::Types<
    Picture<int>, Picture<unsigned char>, Picture<pelm_film_mode_e>, Picture<pelm_value_e>,
    Picture<pelm_apply_picture_mode_e>, Picture<mrtv_picture_mode_e>, Sound<unsigned int>,
    Sound<pelm_audio_sound_mode_e>, Sound<pelm_gamma_config_e>, Sound<pelm_setting_on_off_e>,
    Eco<int>, Eco<pelm_energy_saving_e>, Game<pelm_game_mode_e>>;

/** Names an instance by its family and its place in the list. */
struct InstanceName {
    template <class Family>
    static std::string GetName(int place) {
        return Family::readName + std::to_string(place);
    }
};
