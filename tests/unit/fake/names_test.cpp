#include "FakeTest.h"
#include "IPowerControl.h"
#include "SettingsService.h"
#include "TvControlService.h"
#include "appserver.h"
#include "cec.h"
#include "connection.h"
#include "dlog.h"
#include "esn.h"
#include "network_control.h"
#include "pelm.h"
#include "runtime_info.h"
#include "sound_manager.h"
#include "system_info.h"
#include "system_settings.h"
#include "usb_device.h"
#include "vconf.h"

#include <libv4l2.h>
#include <linux/videodev2.h>

namespace klx {
namespace {

using ::testing::IsEmpty;
using ::testing::Not;

int anyNumber = 0;
bool anyFlag = false;
double anyFraction = 0;
char* anyText = nullptr;
unsigned char anyByte = 0;
constexpr auto kStored = PELM_SAVE_STORED;

template <typename T>
T* into() {
    static T value{};
    return &value;
}

void callStore() {
    vconf_get_int("k", &anyNumber);
    vconf_get_bool("k", &anyNumber);
    vconf_get_str("k");
    vconf_set_int("k", 1);
    vconf_set_bool("k", 1);
    vconf_set_str("l", "x");
    get_vconf_key_default_value("k", &anyNumber, &anyText);
}

void callSystem() {
    const auto fact = static_cast<system_info_key_e>(1);
    const auto setting = static_cast<system_settings_key_e>(1);
    const auto state = static_cast<runtime_info_key_e>(1);
    system_info_get_value_int(fact, &anyNumber);
    system_info_get_value_string(fact, &anyText);
    system_info_get_custom_int("f", &anyNumber);
    system_info_get_custom_bool("f", &anyFlag);
    system_info_get_custom_string("f", &anyText);
    system_settings_get_value_int(setting, &anyNumber);
    system_settings_get_value_string(setting, &anyText);
    system_settings_set_value_int(setting, 1);
    system_settings_set_value_bool(setting, true);
    system_settings_set_value_string(setting, "x");
    runtime_info_get_value_int(state, &anyNumber);
    runtime_info_get_value_bool(state, &anyFlag);
    runtime_info_get_value_double(state, &anyFraction);
    runtime_info_get_value_string(state, &anyText);
}

void callConnection() {
    connection_h connection = nullptr;
    connection_profile_h profile = nullptr;
    connection_profile_iterator_h walk = nullptr;
    connection_create(&connection);
    connection_get_type(connection, into<connection_type_e>());
    connection_get_current_profile(connection, &profile);
    connection_get_profile_iterator(connection, CONNECTION_ITERATOR_TYPE_REGISTERED, &walk);
    connection_profile_iterator_has_next(walk);
    connection_profile_iterator_next(walk, &profile);
    connection_destroy_profile_iterator(walk);
    connection_get_mac_address(connection, CONNECTION_TYPE_WIFI, &anyText);
    connection_get_wifi_state(connection, into<connection_wifi_state_e>());
    connection_get_cellular_state(connection, into<connection_cellular_state_e>());
    connection_get_ethernet_state(connection, into<connection_ethernet_state_e>());
    connection_destroy(connection);
}

void callProfile() {
    const auto ipv4 = CONNECTION_ADDRESS_FAMILY_IPV4;
    connection_profile_get_type(nullptr, into<connection_profile_type_e>());
    connection_profile_get_ip_address(nullptr, ipv4, &anyText);
    connection_profile_get_subnet_mask(nullptr, ipv4, &anyText);
    connection_profile_get_gateway_address(nullptr, ipv4, &anyText);
    connection_profile_get_dns_address(nullptr, 1, ipv4, &anyText);
    connection_profile_get_ip_config_type(nullptr, ipv4, into<connection_ip_config_type_e>());
    connection_profile_get_network_interface_name(nullptr, &anyText);
}

void callSwitchesAndSound() {
    wifi_get_enable_kq(&anyNumber);
    wifi_set_enable_kq(true);
    util_get_wakeOnMobile_mode(&anyFlag);
    util_set_wakeOnMobile_mode(true);
    sound_manager_get_master_mute(&anyFlag);
    sound_manager_set_master_mute(true);
    sound_manager_get_speaker_selection(&anyNumber);
    sound_manager_set_speaker_selection(1);
}

void callUsbAndCec() {
    usb_device_init();
    usb_get_connected_device_number(8);
    usb_device_get_device_list(8, into<usb_device_list_h>());
    usb_device_list_get_first(nullptr, into<usb_device_h>());
    usb_device_list_get_next(nullptr, into<usb_device_h>());
    usb_device_get_product(nullptr);
    usb_device_get_manufacturer(nullptr);
    usb_device_free_device_list(nullptr);
    usb_device_fini();
    cec_init_proxy();
    cec_is_enable();
    cec_set_enable(1);
    cec_close_proxy();
}

void readPelm() {
    pelm_get_backlight(1, &anyNumber, kStored);
    pelm_get_gamma(1, &anyNumber, kStored);
    pelm_get_contrast(1, &anyByte, kStored);
    pelm_get_brightness(1, &anyByte, kStored);
    pelm_get_sharpness(1, &anyByte, kStored);
    pelm_get_color_strength(1, &anyByte, kStored);
    pelm_get_picture_mode(1, into<mrtv_picture_mode_e>(), kStored);
    pelm_get_apply_picture_mode(1, into<pelm_apply_picture_mode_e>(), kStored);
    pelm_get_dynamic_contrast(1, into<pelm_value_e>(), kStored);
    pelm_get_film_mode(1, into<pelm_film_mode_e>(), kStored);
    pelm_get_color_tint(1, &anyNumber, kStored);
    pelm_get_hdr_plus_mode(into<pelm_setting_on_off_e>(), kStored);
    pelm_get_gamma_config(into<pelm_gamma_config_e>(), kStored);
    pelm_get_sound_mode(into<pelm_audio_sound_mode_e>(), kStored);
    pelm_get_delay(into<unsigned int>(), kStored);
    pelm_get_energy_saving(1, kStored, into<pelm_energy_saving_e>());
    pelm_get_eco_sensor(1, kStored, &anyNumber);
    pelm_get_game_mode(0, kStored, into<pelm_game_mode_e>());
    pelm_get_video_gray_onoff(&anyNumber);
    pelm_get_audio_format(&anyNumber);
    pelm_get_motion_lighting(0, &anyNumber);
}

void writePelm() {
    pelm_set_backlight(0, 1, kStored);
    pelm_set_gamma(0, 1, kStored);
    pelm_set_contrast(0, 1, kStored);
    pelm_set_brightness(0, 1, kStored);
    pelm_set_sharpness(0, 1, kStored);
    pelm_set_color_strength(0, 1, kStored);
    pelm_set_picture_mode(0, *into<mrtv_picture_mode_e>(), kStored);
    pelm_set_apply_picture_mode(0, *into<pelm_apply_picture_mode_e>(), kStored);
    pelm_set_dynamic_contrast(0, *into<pelm_value_e>(), kStored);
    pelm_set_film_mode(0, *into<pelm_film_mode_e>(), kStored);
    pelm_set_color_tint(0, 1, kStored);
    pelm_set_hdr_plus_mode(*into<pelm_setting_on_off_e>(), kStored);
    pelm_set_gamma_config(*into<pelm_gamma_config_e>(), kStored);
    pelm_set_sound_mode(*into<pelm_audio_sound_mode_e>(), kStored);
    pelm_set_delay(1, kStored);
    pelm_set_energy_saving(0, kStored, *into<pelm_energy_saving_e>());
    pelm_set_eco_sensor(0, kStored, 1);
    pelm_set_game_mode(0, kStored, *into<pelm_game_mode_e>());
    pelm_set_video_gray_onoff(1);
    pelm_set_audio_format(1);
    pelm_set_motion_lighting(0, 1);
}

void callTelevision() {
    ISourceControl* source = nullptr;
    ITunerControl* tuner = nullptr;
    IVideoControl* video = nullptr;
    TvControlService::CreateSourceControl(1, 0, &source);
    TvControlService::CreateTunerControl(1, 0, &tuner);
    TvControlService::CreateVideoControl(1, 0, &video);
    source->GetCurrentSourceInfo(into<TvSourceInfo>());
    source->ChangeSource(13, "a");
    tuner->GetSNRLevel(&anyNumber);
    video->GetPictureSize(&anyNumber);
    video->SetPictureSize(1, 1);
    TvControlService::Destroy(video);
    v4l2_ext_controls request{};
    v4l2_open("/dev/video21", 0);
    v4l2_ioctl(-1, VIDIOC_G_EXT_CTRLS, &request);
    v4l2_close(-1);
}

void callIdentity() {
    std::string value;
    SettingsService::Get()->GetItemValue("a", value, "");
    SettingsService::Get()->SetItemValue("a", "b", true);
    IPowerControl::getInstance()->getPowerFailCount(&anyNumber);
    IPowerControl::getInstance()->getWatchdogCount(&anyNumber);
    appserver_get_app_info("a", into<appserver_app_info_s>());
    appserver_get_debug_info(into<appserver_debug_info_s>());
    appserver_get_used_memory(&anyText);
    int room = 0;
    esn_get(nullptr, &room);
}

class NamesTest : public FakeTest {};

TEST_F(NamesTest, EveryFunctionIsRecordedUnderItsOwnName) {
    callStore();
    callSystem();
    callConnection();
    callProfile();
    callSwitchesAndSound();
    callUsbAndCec();
    readPelm();
    writePelm();
    callTelevision();
    callIdentity();
    for (const std::string& function : fake::functions()) {
        if (function != "__dlog_print") {
            EXPECT_THAT(fake::callsTo(function), Not(IsEmpty())) << function;
        }
    }
}

} // namespace
} // namespace klx
