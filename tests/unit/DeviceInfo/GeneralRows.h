#pragma once

#include <ostream>
#include <string>
#include <vector>

namespace klx::test {

/** What serves a menu setting, as the platform knows it. */
enum class Backing {
    integerKey, ///< A key of the settings store, for value, default and change.
    booleanKey,
    textKey,
    systemSetting, ///< A runtime information and system setting of one number.
    usageMode      ///< The same for reading, but changed through the use mode.
};

struct GeneralRow {
    std::string path;
    Backing backing;
    std::string key; ///< Of the settings store; of the default where a number serves the value.
    int number;      ///< Of the runtime information and system setting; 0 where a key serves.
    bool flag;
};

inline std::ostream& operator<<(std::ostream& out, const GeneralRow& row) {
    return out << row.path;
}

/** The menu settings that are kept in the settings store or the system settings, one by one. */
inline const std::vector<GeneralRow>& expectedGeneralRows() {
    constexpr auto number = Backing::integerKey;
    constexpr auto yesNo = Backing::booleanKey;
    constexpr auto text = Backing::textKey;
    // clang-format off
    static const std::vector<GeneralRow> rows = {
        {"/General/System Manager/Usage Mode",
         Backing::usageMode, "db/menu/support/use_mode", 10010, true},
        {"/General/System Manager/Auto Protection Time",
         Backing::systemSetting, "db/menu/system/auto_protection_time", 10007, true},
        {"/General/Eco Solution/Auto Power Off",
         Backing::systemSetting, "db/menu/system/eco_solution/auto_power_off_default", 10006, true},
        {"/General & Privacy/Parental Settings/Parental Lock",
         yesNo, "db/menu/security/parental-lock", 0, true},
        {"/General & Privacy/Parental Settings/Mark Adult Channels",
         yesNo, "db/menu/broadcasting/adult_genre_enable", 0, true},
        {"/General & Privacy/Parental Settings/Adult Content Lock",
         number, "db/menu/lumora/ontvsetting/adult_content_block", 0, true},
        {"/General & Privacy/Accessibility/Voice Guide Settings/Voice Guide",
         number, "db/menu/accessibility/tts", 0, true},
        {"/General & Privacy/Accessibility/Voice Guide Settings/Speed",
         number, "db/menu/system/accessibility/voiceguide/speed", 0, true},
        {"/General & Privacy/Accessibility/Colour Inversion",
         number, "db/menu/system/accessibility/nagative_colors", 0, true},
        {"/General & Privacy/Start screen option/Start with Lumora Home",
         number, "db/menu/lumora/ontvsetting/auto_start", 0, true},
        {"/General & Privacy/Start screen option/Autorun Last App",
         number, "db/menu/app_booting", 0, true},
        {"/General & Privacy/Start screen option/Autorun Multi View Mirroring",
         number, "db/menu/general/smart_features/autorun_multiview_mirroring", 0, true},
        {"/General & Privacy/Start screen option/Autorun Multi View Casting",
         number, "db/menu/contentcasting/multiview_autorun", 0, true},
        {"/General & Privacy/Accessibility/Audio Description Settings/Audio Description",
         number, "db/menu/system/accessibility/audio_description", 0, true},
        {"/General & Privacy/Accessibility/Caption Settings/Caption",
         number, "db/menu/caption/caption", 0, true},
        {"/General & Privacy/Accessibility/Caption Settings/Caption Mode",
         number, "db/menu/caption/captionmode", 0, true},
        {"/General & Privacy/Accessibility/Caption Settings/Caption Language",
         number, "db/menu/caption/captionlanguage", 0, true},
        {"/General & Privacy/Accessibility/Caption Settings/Auto Caption Position",
         number, "db/menu/caption/autocaptionposition", 0, true},
        {"/General & Privacy/Accessibility/Caption Settings/Separate Closed Caption",
         number, "db/menu/caption/captiondivisionmode", 0, true},
        {"/General & Privacy/Accessibility/High Contrast",
         number, "db/menu/system/accessibility/highcontrast", 0, true},
        {"/General & Privacy/Accessibility/Zoom Menu And Text",
         number, "db/menu/system/accessibility/focuszoom", 0, true},
        {"/Support/SoftwareUpdate_AutoUpdate",
         number, "db/menu/support/softwareupdate/autoupdate", 0, false},
        {"/Support/Software Update/Update with Cellular Network",
         yesNo, "db/menu/support/softwareupdate/use_cellular", 0, true},
        {"/Broadcasting/Apply Channel Lock",
         yesNo, "db/menu/broadcasting/channel_lock", 0, true},
        {"/Broadcasting/Service Provider",
         text, "db/ontv/menu_entry_support", 0, true},
        {"/Broadcasting/Audio Options/Preferred Language",
         number, "db/menu/broadcasting/audio_options/preffered_language", 0, true},
        {"/Connection/External Device Manager/Input Device Manager/Keyboard Settings/Keyboard Language",
         text, "db/ime/keyboard_language_name", 0, true},
        {"/Connection/External Device Manager/Input Device Manager/Keyboard Settings/Keyboard Type",
         text, "db/ime/hardware_keyboard_name", 0, true},
        {"/Connection/External Device Manager/Input Device Manager/Mouse Settings/Primary Button",
         number, "db/menu/system/device_manager/mouse_settings/mouse_option/primary_button", 0, true},
        {"/Connection/External Device Manager/Input Device Manager/Mouse Settings/Pointer Speed",
         number, "db/menu/system/device_manager/mouse_settings/pointer_speed", 0, true},
        {"/Connection/External Device Manager/Device Connect Manager/Access Notification",
         number, "db/menu/network/devicemanager/accessnoti", 0, true},
        {"/General & Privacy/System Manager/Language",
         text, "db/menu_widget/language", 0, true},
        {"/General & Privacy/Power and Energy Saving/Screen Saver",
         number, "db/menu/system/auto_protection_time", 0, true},
        {"/General & Privacy/Power and Energy Saving/Auto Power Saving",
         yesNo, "db/menu/system/auto_screen_dimming", 0, true},
    };
    // clang-format on
    return rows;
}

} // namespace klx::test
