#pragma once

#include "Handles.h"
#include "Log.h"

#include <SettingsService.h>
#include <pelm.h>
#include <vconf.h>

#include <exception>
#include <functional>
#include <string>

/// Conversions between text and the values that platform calls take, and the wrappers that give a
/// pair of picture/sound library functions the registry's string interface. All members are static
/// and keep no state, so any thread may call them as far as the library allows. Lines that they log
/// carry this header's name.
///
/// The wrappers come in four families, one for each order of arguments that the library uses. The
/// leading integer and the save type of a write are part of the contract with the library and are
/// the same for every property of a family. A failed read is logged and gives ""; a failed write is
/// logged.
class commonUtil {
public:
    commonUtil() = delete;

    /// @return the number in decimal; "" when it cannot be written
    static std::string intToStr(int number) {
        try {
            return std::to_string(number);
        } catch (...) {
            KLX_LOG(LogError, "Exception ERR std::to_string");
            return "";
        }
    }

    /// @return the number at the start of @p text (leading white space and a sign are accepted,
    ///         what follows the digits is ignored); 0 when there is none or it does not fit
    static int strToInt(const std::string& text) {
        try {
            return std::stoi(text);
        } catch (...) {
            KLX_LOG(LogError, "Exception ERR std::stoi");
            return 0;
        }
    }

    /// @return the set's unique id, "" when there is none
    static std::string getOpenApiDUID() {
        const KLX::PlatformText text(vconf_get_str("db/comss/hwduid"));
        if (!text) {
            KLX_LOG(LogWarning, "Failed getting DUID");
        }
        return KLX::copyOf(text);
    }

    template <class T>
    using PictureGetter = std::function<int(int, T*, pelm_save_type_e)>;
    template <class T>
    using PictureSetter = std::function<int(int, T, pelm_save_type_e)>;
    template <class T>
    using SoundGetter = std::function<int(T*, pelm_save_type_e)>;
    template <class T>
    using SoundSetter = std::function<int(T, pelm_save_type_e)>;
    template <class T>
    using EcoGetter = std::function<int(int, pelm_save_type_e, T*)>;
    template <class T>
    using EcoSetter = std::function<int(int, pelm_save_type_e, T)>;

    /// @throws std::bad_function_call when @p get is empty, as do the other get wrappers
    template <class T>
    static std::string getPelmPictureWrapper(const PictureGetter<T>& get, pelm_save_type_e save) {
        T value{};
        const int status = get(readMode, &value, save);
        return textOfRead(__func__, status, value);
    }

    /// @throws what @p set throws unless it is a `std::exception`, as do the other set wrappers
    template <class T>
    static void setPelmPictureWrapper(const PictureSetter<T>& set, const std::string& text) {
        write<T>(__func__, text, [&set](T value) { return set(writeMode, value, stored); });
    }

    template <class T>
    static std::string getPelmSoundWrapper(const SoundGetter<T>& get, pelm_save_type_e save) {
        T value{};
        const int status = get(&value, save);
        return textOfRead(__func__, status, value);
    }

    template <class T>
    static void setPelmSoundWrapper(const SoundSetter<T>& set, const std::string& text) {
        write<T>(__func__, text, [&set](T value) { return set(value, stored); });
    }

    template <class T>
    static std::string getPelmEcoWrapper(const EcoGetter<T>& get, pelm_save_type_e save) {
        T value{};
        const int status = get(readMode, save, &value);
        return textOfRead(__func__, status, value);
    }

    template <class T>
    static void setPelmEcoWrapper(const EcoSetter<T>& set, const std::string& text) {
        write<T>(__func__, text, [&set](T value) { return set(writeMode, stored, value); });
    }

    template <class T>
    static std::string pelmGetGameModeWrapper(const EcoGetter<T>& get, pelm_save_type_e save) {
        T value{};
        const int status = get(gameReadMode, save, &value);
        return textOfRead(__func__, status, value);
    }

    template <class T>
    static void pelmSetGameModeWrapper(const EcoSetter<T>& set, const std::string& text) {
        write<T>(__func__, text, [&set](T value) { return set(writeMode, stored, value); });
    }

    /// @return the tint as two numbers that add up to 100, "70/30" for a stored 30; "100/0" when it
    ///         cannot be read
    static std::string getPictureTintValue(pelm_save_type_e save) {
        const int red = strToInt(getPelmPictureWrapper<int>(pelm_get_color_tint, save));
        // Unsigned, so that the difference is defined whatever number the platform answers.
        const int green = static_cast<int>(100U - static_cast<unsigned>(red));
        KLX_LOG(LogDebug, "get picture red tint :[#%d] / green tint :[#%d]", red, green);
        return intToStr(green) + "/" + intToStr(red);
    }

    /// Stores the part behind the "/"; the part before it follows from that one.
    /// @throws std::out_of_range for a text of fewer than five characters without a "/"
    static void setPictureTintValue(std::string text) {
        const std::string tint = tintPart(text);
        KLX_LOG(LogDebug, "set picture tint value :[#%s]", tint.c_str());
        setPelmPictureWrapper<unsigned char>(pelm_set_color_tint, tint);
    }

    static std::string getGrayscaleValue(const std::string&) {
        int value = 0;
        pelm_get_video_gray_onoff(&value);
        KLX_LOG(LogDebug, "pelm_get_video_gray_onoff value = [%d]", value);
        return intToStr(value);
    }

    static void setGrayscaleValue(const std::string& text) {
        const int value = strToInt(text);
        pelm_set_video_gray_onoff(value);
        KLX_LOG(LogDebug, "pelm_set_video_gray_onoff value = [%d]", value);
    }

    /// @return the number that the settings service answers with
    static std::string getAutorunMultiviewRotation(const std::string&) {
        SettingsService* const service = SettingsService::Get();
        if (service == nullptr) {
            return "";
        }
        std::string unused;
        return intToStr(service->GetItemValue("autorun-multiview-rotating", unused, ""));
    }

    static void setAutorunMultiviewRotation(const std::string& text) {
        const bool enable = strToInt(text) != 0;
        if (SettingsService* const service = SettingsService::Get()) {
            service->SetItemValue("autorun-multiview-rotating", text, enable);
        }
    }

private:
    static constexpr int readMode = 1;
    static constexpr int gameReadMode = 0;
    static constexpr int writeMode = 0;
    static constexpr pelm_save_type_e stored = PELM_SAVE_STORED;

    template <class T>
    static std::string textOfRead(const char* wrapper, int status, T value) {
        if (status != 0) {
            KLX_LOG_AS(wrapper, LogError, "Operation failed, error: %d", status);
            return "";
        }
        return intToStr(static_cast<int>(value));
    }

    template <class T, class Set>
    static void write(const char* wrapper, const std::string& text, const Set& set) {
        try {
            const int status = set(static_cast<T>(std::stoi(text)));
            if (status != 0) {
                KLX_LOG_AS(wrapper, LogError, "Operation failed, error: %d", status);
            }
        } catch (const std::exception& error) {
            KLX_LOG_AS(wrapper, LogError, "[ERROR] %s", error.what());
        }
    }

    /// What stands behind the "/", cut so that the whole text counts at most five characters.
    static std::string tintPart(const std::string& text) {
        constexpr std::size_t length = 5;
        std::size_t slash = 0;
        while (slash < length && text.at(slash) != '/') {
            ++slash;
        }
        const bool splits = slash >= 1 && slash <= 3;
        return splits ? text.substr(slash + 1, length - 1 - slash) : "";
    }
};
