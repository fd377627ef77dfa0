#include "Settings.h"

#include <stdexcept>

const std::vector<Setting>& settings() {
    static const std::vector<Setting> all{
        {"General & Privacy", "Parental Settings/Parental Lock", "db/menu/security/parental-lock",
         booleanValue},
        {"General & Privacy", "Parental Settings/Mark Adult Channels",
         "db/menu/broadcasting/adult_genre_enable", booleanValue},
        {"General & Privacy", "Parental Settings/Adult Content Lock",
         "db/menu/lumora/ontvsetting/adult_content_block", integerValue},
        {"General & Privacy", "Accessibility/Voice Guide Settings/Voice Guide",
         "db/menu/accessibility/tts", integerValue},
        {"General & Privacy", "Accessibility/Voice Guide Settings/Speed",
         "db/menu/system/accessibility/voiceguide/speed", integerValue},
        {"General & Privacy", "Accessibility/Colour Inversion",
         "db/menu/system/accessibility/nagative_colors", integerValue},
        {"General & Privacy", "Start screen option/Start with Lumora Home",
         "db/menu/lumora/ontvsetting/auto_start", integerValue},
        {"General & Privacy", "Start screen option/Autorun Last App", "db/menu/app_booting",
         integerValue},
        {"General & Privacy", "Start screen option/Autorun Multi View Mirroring",
         "db/menu/general/smart_features/autorun_multiview_mirroring", integerValue},
        {"General & Privacy", "Start screen option/Autorun Multi View Casting",
         "db/menu/contentcasting/multiview_autorun", integerValue},
        {"General & Privacy", "Accessibility/Audio Description Settings/Audio Description",
         "db/menu/system/accessibility/audio_description", integerValue},
        {"General & Privacy", "Accessibility/Caption Settings/Caption", "db/menu/caption/caption",
         integerValue},
        {"General & Privacy", "Accessibility/Caption Settings/Caption Mode",
         "db/menu/caption/captionmode", integerValue},
        {"General & Privacy", "Accessibility/Caption Settings/Caption Language",
         "db/menu/caption/captionlanguage", integerValue},
        {"General & Privacy", "Accessibility/Caption Settings/Auto Caption Position",
         "db/menu/caption/autocaptionposition", integerValue},
        {"General & Privacy", "Accessibility/Caption Settings/Separate Closed Caption",
         "db/menu/caption/captiondivisionmode", integerValue},
        {"General & Privacy", "Accessibility/High Contrast",
         "db/menu/system/accessibility/highcontrast", integerValue},
        {"General & Privacy", "Accessibility/Zoom Menu And Text",
         "db/menu/system/accessibility/focuszoom", integerValue},
        {"Support", "SoftwareUpdate_AutoUpdate", "db/menu/support/softwareupdate/autoupdate",
         integerValue},
        {"Support", "Software Update/Update with Cellular Network",
         "db/menu/support/softwareupdate/use_cellular", booleanValue},
        {"Broadcasting", "Apply Channel Lock", "db/menu/broadcasting/channel_lock", booleanValue},
        {"Broadcasting", "Service Provider", "db/ontv/menu_entry_support", stringValue},
        {"Broadcasting", "Audio Options/Preferred Language",
         "db/menu/broadcasting/audio_options/preffered_language", integerValue},
        {"Connection",
         "External Device Manager/Input Device Manager/Keyboard Settings/Keyboard Language",
         "db/ime/keyboard_language_name", stringValue},
        {"Connection",
         "External Device Manager/Input Device Manager/Keyboard Settings/Keyboard Type",
         "db/ime/hardware_keyboard_name", stringValue},
        {"Connection", "External Device Manager/Input Device Manager/Mouse Settings/Primary Button",
         "db/menu/system/device_manager/mouse_settings/mouse_option/primary_button", integerValue},
        {"Connection", "External Device Manager/Input Device Manager/Mouse Settings/Pointer Speed",
         "db/menu/system/device_manager/mouse_settings/pointer_speed", integerValue},
        {"Connection", "External Device Manager/Device Connect Manager/Access Notification",
         "db/menu/network/devicemanager/accessnoti", integerValue},
        {"General & Privacy", "System Manager/Language", "db/menu_widget/language", stringValue},
        {"General & Privacy", "Power and Energy Saving/Screen Saver",
         "db/menu/system/auto_protection_time", integerValue},
        {"General & Privacy", "Power and Energy Saving/Auto Power Saving",
         "db/menu/system/auto_screen_dimming", booleanValue},
    };
    return all;
}

const Setting& integerSetting() {
    for (const Setting& setting : settings()) {
        if (setting.type == integerValue) {
            return setting;
        }
    }
    throw std::logic_error("no integer setting");
}
