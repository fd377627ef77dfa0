#include "RowKinds.h"

#include <iterator>

using klx::fake::Scene;

namespace {

/** The status of a source takes the port that it is asked for as its argument. */
CatalogueRow sourceStatus(const std::string& source) {
    return row("/Input/Source_Connect/" + source, flagClear)
        .given([](Scene& scene) { scene.store("memory/sysman/any argument", 1); })
        .reads({"vconf_get_int(\"memory/sysman/any argument\")"}, "1")
        .fixedDefault("0");
}

std::vector<CatalogueRow> expectedInput() {
    return {
        sourceStatus("HDMI"),
        sourceStatus("AV"),
        sourceStatus("COMP"),
        sourceStatus("SCART"),
        sourceStatus("USB"),
        row("/Input/Source", flagSet)
            .given([](Scene& scene) { scene.source(5); })
            .reads({"CreateSourceControl(1, 0)", "SourceControl.GetCurrentSourceInfo()",
                    "Destroy(SourceControl)"},
                   "5")
            .readsDefault({}, "0")
            .writes("7", {"CreateSourceControl(1, 0)", "SourceControl.ChangeSource(7, \"NoAppId\")",
                          "Destroy(SourceControl)"}),
        hdmiRow("/Input/HDMI_Vendor", "vendor"),
        hdmiRow("/Input/HDMI_Product", "product"),
    };
}

std::vector<CatalogueRow> expectedPictureAndSound() {
    return {
        pictureControl("/Picture/Picture Mode", "picture_mode"),
        pictureControl("/Picture/Backlight", "backlight"),
        pictureControl("/Picture/Contrast", "contrast"),
        pictureControl("/Picture/Brightness", "brightness"),
        pictureControl("/Picture/Sharpness", "sharpness"),
        pictureControl("/Picture/Color", "color_strength"),
        pictureControl("/Picture/Tint", "color_tint")
            .reads({"pelm_get_color_tint(1, 1)"}, "95/5")
            .readsDefault({"pelm_get_color_tint(1, 2)"}, "94/6")
            .writes("93/7", {"pelm_set_color_tint(0, 7, 1)"}),
        pictureControl("/Picture/Expert Settings/Apply Picture Settings", "apply_picture_mode"),
        pictureControl("/Picture/Contrast Enhancer", "dynamic_contrast").fixedDefault("3"),
        pictureControl("/Picture/Expert Settings/Film Mode", "film_mode"),
        soundStyleControl("/Picture/HDR+ Mode", "hdr_plus_mode"),
        soundStyleControl("/Picture/Gamma", "gamma_config"),
        pictureControl("/Picture/Gamma Value", "gamma"),
        row("/Picture/Picture Size Settings", flagSet)
            .given([](Scene& scene) {
                scene.pictureSize(5).storeDefault("db/menu/picture/picturesize/mode", "6");
            })
            .reads({"CreateVideoControl(1, 0)", "VideoControl.GetPictureSize()",
                    "Destroy(VideoControl)"},
                   "5")
            .readsDefault({"get_vconf_key_default_value(\"db/menu/picture/picturesize/mode\", 0)"},
                          "6")
            .writes("7", {"CreateVideoControl(1, 0)", "VideoControl.SetPictureSize(7, 1)"}),
        energyControl("/General/Eco Solution/Power Saving Mode", "energy_saving"),
        energyControl("/General/Eco Solution/Ambient Light Detection", "eco_sensor"),
        row("/General/Eco Solution/Motion Lighting", flagSet)
            .given([](Scene& scene) { scene.pelm("motion_lighting", 5); })
            .reads({"pelm_get_motion_lighting(0)"}, "5")
            .fixedDefault("1")
            .writes("7", {"pelm_set_motion_lighting(0, 7)"}),
        soundStyleControl("/Sound/Sound Mode", "sound_mode"),
        row("/Sound/Digital Output Audio Format", flagSet)
            .given([](Scene& scene) { scene.pelm("audio_format", 5); })
            .reads({"pelm_get_audio_format()"}, "5")
            .readsDefault({}, "")
            .writes("7", {"pelm_set_audio_format(7)"}),
        soundStyleControl("/Sound/Audio Delay", "delay"),
        row("/Sound/Mute", flagSet)
            .given([](Scene& scene) { scene.muted(true); })
            .reads({"sound_manager_get_master_mute()"}, "1")
            .readsDefault({}, "0")
            .writes("1", {"sound_manager_set_master_mute(true)"}),
        row("/Sound/Sound Output", flagClear)
            .given([](Scene& scene) { scene.speaker(5); })
            .reads({"sound_manager_get_speaker_selection()"}, "5")
            .readsDefault({}, "0")
            .writes("7", {"sound_manager_set_speaker_selection(7)"}),
        gameModeControl("/Connection/Game Mode"),
        gameModeControl("/Connection/Game Mode Setting/Game Mode"),
    };
}

std::vector<CatalogueRow> expectedGeneral() {
    return {
        systemSetting("/General/System Manager/Usage Mode", 10010, "db/menu/support/use_mode")
            .writes("7", {"system_settings_get_value_int(10008)",
                          "system_settings_set_value_int(10008, 7)"}),
        systemSetting("/General/System Manager/Auto Protection Time", 10007,
                      "db/menu/system/auto_protection_time"),
        systemSetting("/General/Eco Solution/Auto Power Off", 10006,
                      "db/menu/system/eco_solution/auto_power_off_default"),
        row("/General/External Device Manager/Cordix+(HDMI-CEC)", flagClear)
            .given([](Scene& scene) { scene.cec(1); })
            .reads({"cec_init_proxy()", "cec_is_enable()", "cec_close_proxy()"}, "1")
            .fixedDefault("1")
            .writes("7", {"cec_init_proxy()", "cec_set_enable(7)", "cec_close_proxy()"}),
        flagKey("/General & Privacy/Parental Settings/Parental Lock",
                "db/menu/security/parental-lock"),
        flagKey("/General & Privacy/Parental Settings/Mark Adult Channels",
                "db/menu/broadcasting/adult_genre_enable"),
        integerKey("/General & Privacy/Parental Settings/Adult Content Lock",
                   "db/menu/lumora/ontvsetting/adult_content_block"),
        integerKey("/General & Privacy/Accessibility/Voice Guide Settings/Voice Guide",
                   "db/menu/accessibility/tts"),
        integerKey("/General & Privacy/Accessibility/Voice Guide Settings/Speed",
                   "db/menu/system/accessibility/voiceguide/speed"),
        integerKey("/General & Privacy/Accessibility/Colour Inversion",
                   "db/menu/system/accessibility/nagative_colors"),
        integerKey("/General & Privacy/Start screen option/Start with Lumora Home",
                   "db/menu/lumora/ontvsetting/auto_start"),
        integerKey("/General & Privacy/Start screen option/Autorun Last App",
                   "db/menu/app_booting"),
        integerKey("/General & Privacy/Start screen option/Autorun Multi View Mirroring",
                   "db/menu/general/smart_features/autorun_multiview_mirroring"),
        integerKey("/General & Privacy/Start screen option/Autorun Multi View Casting",
                   "db/menu/contentcasting/multiview_autorun"),
        row("/General & Privacy/Start screen option/Autorun Multi View When Rotating", flagSet)
            .given([](Scene& scene) { scene.settingsItem("autorun-multiview-rotating", 5); })
            .reads({"SettingsService.Get()",
                    R"(SettingsService.GetItemValue("autorun-multiview-rotating", ""))"},
                   "5")
            .writes("7",
                    {"SettingsService.Get()",
                     R"(SettingsService.SetItemValue("autorun-multiview-rotating", "7", true))"}),
        integerKey("/General & Privacy/Accessibility/Audio Description Settings/Audio Description",
                   "db/menu/system/accessibility/audio_description"),
        integerKey("/General & Privacy/Accessibility/Caption Settings/Caption",
                   "db/menu/caption/caption"),
        integerKey("/General & Privacy/Accessibility/Caption Settings/Caption Mode",
                   "db/menu/caption/captionmode"),
        integerKey("/General & Privacy/Accessibility/Caption Settings/Caption Language",
                   "db/menu/caption/captionlanguage"),
        integerKey("/General & Privacy/Accessibility/Caption Settings/Auto Caption Position",
                   "db/menu/caption/autocaptionposition"),
        integerKey("/General & Privacy/Accessibility/Caption Settings/Separate Closed Caption",
                   "db/menu/caption/captiondivisionmode"),
        integerKey("/General & Privacy/Accessibility/High Contrast",
                   "db/menu/system/accessibility/highcontrast"),
        integerKey("/General & Privacy/Accessibility/Zoom Menu And Text",
                   "db/menu/system/accessibility/focuszoom"),
        row("/General & Privacy/Accessibility/Grayscale", flagSet)
            .given([](Scene& scene) { scene.pelm("video_gray_onoff", 5); })
            .reads({"pelm_get_video_gray_onoff()"}, "5")
            .writes("7", {"pelm_set_video_gray_onoff(7)"}),
        integerKey("/Support/SoftwareUpdate_AutoUpdate",
                   "db/menu/support/softwareupdate/autoupdate", flagClear),
        flagKey("/Support/Software Update/Update with Cellular Network",
                "db/menu/support/softwareupdate/use_cellular"),
        flagKey("/Broadcasting/Apply Channel Lock", "db/menu/broadcasting/channel_lock"),
        textKey("/Broadcasting/Service Provider", "db/ontv/menu_entry_support"),
        integerKey("/Broadcasting/Audio Options/Preferred Language",
                   "db/menu/broadcasting/audio_options/preffered_language"),
        textKey("/Connection/External Device Manager/Input Device Manager/Keyboard "
                "Settings/Keyboard Language",
                "db/ime/keyboard_language_name"),
        textKey("/Connection/External Device Manager/Input Device Manager/Keyboard "
                "Settings/Keyboard Type",
                "db/ime/hardware_keyboard_name"),
        integerKey("/Connection/External Device Manager/Input Device Manager/Mouse "
                   "Settings/Primary Button",
                   "db/menu/system/device_manager/mouse_settings/mouse_option/primary_button"),
        integerKey("/Connection/External Device Manager/Input Device Manager/Mouse "
                   "Settings/Pointer Speed",
                   "db/menu/system/device_manager/mouse_settings/pointer_speed"),
        integerKey("/Connection/External Device Manager/Device Connect Manager/Access "
                   "Notification",
                   "db/menu/network/devicemanager/accessnoti"),
        textKey("/General & Privacy/System Manager/Language", "db/menu_widget/language"),
        integerKey("/General & Privacy/Power and Energy Saving/Screen Saver",
                   "db/menu/system/auto_protection_time"),
        flagKey("/General & Privacy/Power and Energy Saving/Auto Power Saving",
                "db/menu/system/auto_screen_dimming"),
    };
}

std::vector<CatalogueRow> expectedSetInformation() {
    return {
        systemText("/SetInformation/Firmware_Version", 128),
        systemText("/SetInformation/SerialNumber", 187),
        row("/SetInformation/DUID", flagClear)
            .given([](Scene& scene) { scene.store("db/comss/hwduid", "BDCM5RN4"); })
            .reads({"vconf_get_str(\"db/comss/hwduid\")"}, "BDCM5RN4")
            .fixedDefault(""),
        row("/SetInformation/ProductYear", flagClear)
            .given(
                [](Scene& scene) { scene.feature("com.velmora/featureconf/product.tv_year", 21); })
            .reads({"system_info_get_custom_int(\"com.velmora/featureconf/product.tv_year\")"},
                   "2021")
            .fixedDefault(""),
        row("/SetInformation/LumoraVersion", flagClear)
            .given([](Scene& scene) { scene.appVersion("10140000000", "5.0.1"); })
            .reads({"appserver_get_app_info(\"10140000000\")"}, "5.0.1")
            .fixedDefault(""),
        row("/SetInformation/ProductType", flagClear)
            .given([](Scene& scene) {
                scene.feature("com.velmora/featureconf/product.product_type", 3);
            })
            .reads({"system_info_get_custom_int(\"com.velmora/featureconf/"
                    "product.product_type\")"},
                   "3"),
        systemText("/SetInformation/LocalSet", 90),
        systemText("/SetInformation/Release_Date", 8),
        row("/SetInformation/Watchdog_Count", flagClear)
            .given([](Scene& scene) { scene.watchdogCount(12); })
            .reads({"PowerControl.getInstance()", "PowerControl.getWatchdogCount()"}, "12")
            .fixedDefault("0"),
        row("/SetInformation/ESN", flagClear)
            .given([](Scene& scene) { scene.esn("NFANDROID2"); })
            .reads({"esn_get(16384)"}, "NFANDROID2")
            .fixedDefault(""),
        row("/SetInformation/Date_Of_Purchase", flagClear)
            .given([](Scene& scene) { scene.systemSetting(10001, "2024-02-29"); })
            .reads({"system_settings_get_value_string(10001)"}, "2024-02-29")
            .fixedDefault(""),
        systemNumber("/SetInformation/WiFi No Detection Count", 934, "0"),
        systemNumber("/SetInformation/WiFi Detachment Count", 933, "0"),
        systemNumber("/SetInformation/BT No Detection Count", 858, "0"),
        systemNumber("/SetInformation/BT Detachment Count", 856, "0"),
        row("/SetInformation/SNRLevel", flagClear)
            .given([](Scene& scene) { scene.snr(2534); })
            .reads(
                {"CreateTunerControl(1, 0)", "TunerControl.GetSNRLevel()", "Destroy(TunerControl)"},
                "25.34 dB")
            .fixedDefault(""),
        row("/SetInformation/HubSite", flagClear)
            .given([](Scene& scene) { scene.hubSite("prd-eu"); })
            .reads({"appserver_get_debug_info()"}, "prd-eu")
            .fixedDefault(""),
        row("/SetInformation/Vcc Fail Count", flagClear)
            .given([](Scene& scene) { scene.powerFailCount(4); })
            .reads({"PowerControl.getInstance()", "PowerControl.getPowerFailCount()"}, "4")
            .fixedDefault("0"),
        runtimeCounter("/SetInformation/AutoReset_Count", 10026),
        runtimeCounter("/SetInformation/FRC3D ER Count", 10036),
        runtimeCounter("/SetInformation/Fan Error Count", 10037),
        systemNumber("/SetInformation/Serdes Error Count", 910, "0"),
        systemNumber("/SetInformation/Serdes Reset Count", 911, "0"),
        systemNumber("/SetInformation/Camera ER Count", 920, "0"),
        systemNumber("/Factory/Panel_Time", 905, "0"),
        systemNumber("/Factory/Serial_Log", 912, ""),
        systemNumber("/Factory/Region_Kind", 127, ""),
        systemNumber("/Factory/RS232_Jack", 909, ""),
        systemNumber("/Factory/Wifi Vendor Type", 281, ""),
        systemNumber("/Factory/System Tuner Type", 131, ""),
        row("/Factory/Language", flagClear)
            .given([](Scene& scene) { scene.systemSetting(13, "de_DE"); })
            .reads({"system_settings_get_value_string(13)"}, "de_DE")
            .fixedDefault("")
            .writes("fr_FR", {"system_settings_set_value_string(13, \"fr_FR\")"}),
        systemText("/Factory/Wifi Version", 216),
        systemText("/Factory/Rexo Version", 209),
        systemText("/Factory/Submicom Version", 133),
        // Told by a file of the machine.
        row("/Factory/Image Type", flagClear).reads({}, "Perf Image").fixedDefault(""),
        systemText("/Factory/EManual Version", 138),
        systemText("/Factory/Type", 74),
        systemText("/Factory/Model", 292),
        row("/Factory/OrielServerType", flagClear)
            .given([](Scene& scene) { scene.systemInfo(126, 0); })
            .reads({"system_info_get_value_int(126)"}, "Operating")
            .fixedDefault(""),
        integerKey("/Factory/TCON_PMIC_ErrorCount", "db/frc_tcon/pmic_error_count", flagClear),
        row("/SystemInformation/LumoraWidgetAppUsage", flagClear)
            .given([](Scene& scene) { scene.usedMemory("123456 kB"); })
            .reads({"appserver_get_used_memory()"}, "123456 kB")
            .readsDefault({}, ""),
    };
}

std::vector<CatalogueRow> expectedNetwork() {
    return {
        connectionRow("/Network/DeviceName", "connection_profile_get_network_interface_name(home)",
                      "eth7"),
        connectionRow("/Network/MAC", "connection_get_mac_address(connection, 3)",
                      "02:00:00:00:00:07")
            .reads({"connection_create()", "connection_get_current_profile(connection)",
                    "connection_get_type(connection)", "connection_get_type(connection)",
                    "connection_get_mac_address(connection, 3)", "connection_destroy(connection)"},
                   "02:00:00:00:00:07"),
        connectionRow("/Network/IPMode", "connection_profile_get_ip_config_type(home, 0)", "Fixed")
            .fixedDefault("DHCP"),
        connectionRow("/Network/IP", "connection_profile_get_ip_address(home, 0)", "192.0.2.7"),
        connectionRow("/Network/SubnetMask", "connection_profile_get_subnet_mask(home, 0)",
                      "255.255.255.0"),
        connectionRow("/Network/Gateway", "connection_profile_get_gateway_address(home, 0)",
                      "192.0.2.1"),
        connectionRow("/Network/DNS", "connection_profile_get_dns_address(home, 1, 0)",
                      "192.0.2.53"),
        connectionRow("/Network/Type", "connection_get_type(connection)", "3").fixedDefault("0"),
        // The doubled blank is part of the name.
        row("/Connection/Network/Expert Settings/Power On with  Mobile", flagSet)
            .given([](Scene& scene) { scene.wakeOnMobile(true); })
            .reads({"util_get_wakeOnMobile_mode()"}, "1")
            .writes("1", {"util_set_wakeOnMobile_mode(true)"}),
        integerKey("/Connection/Network/Expert Settings/IP Remote",
                   "db/menu/network/ip_remote_support")
            .fixedDefault("0"),
        row("/Connection/Network/Expert Settings/Wi-Fi", flagSet)
            .given([](Scene& scene) { scene.wifi(5); })
            .reads({"wifi_get_enable_kq()"}, "5")
            .fixedDefault("1")
            .writes("1", {"wifi_set_enable_kq(true)",
                          "vconf_set_int(\"memory/menu/network/wifionui_enabled\", 1)"}),
        flagKey("/Connection/Network/Expert Settings/WiFi Direct Standby",
                "db/menu/network/wifidirect")
            .fixedDefault("1"),
    };
}

} // namespace

std::vector<CatalogueRow> expectedCatalogue() {
    std::vector<CatalogueRow> all;
    for (const auto rows : {expectedInput, expectedPictureAndSound, expectedGeneral,
                            expectedSetInformation, expectedNetwork}) {
        std::vector<CatalogueRow> part = rows();
        std::move(part.begin(), part.end(), std::back_inserter(all));
    }
    return all;
}
