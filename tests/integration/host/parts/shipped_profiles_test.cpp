#include "HostTest.h"

#include "SetProfile.h"

#include <string>
#include <vector>

namespace KLX::Host {
namespace {

/** What both shipped models must have, so that every property has a value on them. */
class ShippedProfiles : public ::testing::TestWithParam<const char*> {
protected:
    const SetProfile m_profile = loadProfile(GetParam(), KLX_SHIPPED_PROFILES);

    void expectSettings(ValueType type, const std::vector<std::string>& keys) const {
        for (const std::string& key : keys) {
            const auto found = m_profile.settings.find(key);
            ASSERT_NE(found, m_profile.settings.end()) << key;
            EXPECT_EQ(found->second.type, type) << key;
            EXPECT_TRUE(found->second.defaultValue) << key;
        }
    }
};

TEST_P(ShippedProfiles, DeclareTheNumericMenuSettings) {
    expectSettings(ValueType::Integer,
                   {"db/frc_tcon/pmic_error_count",
                    "db/menu/accessibility/tts",
                    "db/menu/app_booting",
                    "db/menu/broadcasting/audio_options/preffered_language",
                    "db/menu/caption/autocaptionposition",
                    "db/menu/caption/caption",
                    "db/menu/caption/captiondivisionmode",
                    "db/menu/caption/captionlanguage",
                    "db/menu/caption/captionmode",
                    "db/menu/contentcasting/multiview_autorun",
                    "db/menu/general/smart_features/autorun_multiview_mirroring",
                    "db/menu/lumora/ontvsetting/adult_content_block",
                    "db/menu/lumora/ontvsetting/auto_start",
                    "db/menu/network/devicemanager/accessnoti",
                    "db/menu/network/ip_remote_support",
                    "db/menu/picture/picturesize/mode",
                    "db/menu/support/softwareupdate/autoupdate",
                    "db/menu/support/use_mode",
                    "db/menu/system/accessibility/audio_description",
                    "db/menu/system/accessibility/focuszoom",
                    "db/menu/system/accessibility/highcontrast",
                    "db/menu/system/accessibility/nagative_colors",
                    "db/menu/system/accessibility/voiceguide/speed",
                    "db/menu/system/auto_protection_time",
                    "db/menu/system/device_manager/mouse_settings/mouse_option/primary_button",
                    "db/menu/system/device_manager/mouse_settings/pointer_speed",
                    "db/menu/system/eco_solution/auto_power_off_default",
                    "memory/menu/network/wifionui_enabled"});
}

TEST_P(ShippedProfiles, DeclareTheYesOrNoMenuSettings) {
    expectSettings(ValueType::Boolean,
                   {"db/menu/broadcasting/adult_genre_enable", "db/menu/broadcasting/channel_lock",
                    "db/menu/network/wifidirect", "db/menu/security/parental-lock",
                    "db/menu/support/softwareupdate/use_cellular",
                    "db/menu/system/auto_screen_dimming"});
}

TEST_P(ShippedProfiles, DeclareTheTextMenuSettings) {
    expectSettings(ValueType::Text, {"db/comss/hwduid", "db/ime/hardware_keyboard_name",
                                     "db/ime/keyboard_language_name", "db/menu_widget/language",
                                     "db/ontv/menu_entry_support"});
}

TEST_P(ShippedProfiles, DeclareThePortsOfEveryInput) {
    std::vector<std::string> keys;
    for (const char* name : {"hdmi1", "hdmi2", "hdmi3", "hdmi4", "av1", "av2", "comp1", "comp2",
                             "scart1", "scart2", "usb1", "usb2", "usb3", "usb4"}) {
        keys.push_back(std::string("memory/sysman/") + name);
    }
    expectSettings(ValueType::Integer, keys);
}

TEST_P(ShippedProfiles, KnowEveryFactAndState) {
    for (const int number :
         {126, 127, 131, 281, 856, 858, 905, 909, 910, 911, 912, 920, 933, 934}) {
        EXPECT_EQ(typeOf(m_profile.systemInformation.at(number)), ValueType::Integer) << number;
    }
    for (const int number : {8, 74, 90, 128, 133, 138, 187, 209, 216, 292}) {
        EXPECT_EQ(typeOf(m_profile.systemInformation.at(number)), ValueType::Text) << number;
    }
    for (const int number : {10026, 10036, 10037}) {
        EXPECT_EQ(typeOf(m_profile.runtimeInformation.at(number)), ValueType::Integer) << number;
    }
    for (const int number : {13, 10001}) {
        EXPECT_EQ(m_profile.systemSettings.at(number).type, ValueType::Text) << number;
    }
    EXPECT_EQ(m_profile.systemSettings.at(10006).type, ValueType::Integer);
    for (const char* name : {"product.product_type", "product.tv_year", "the_tessa_version"}) {
        const Value& value =
            m_profile.customFeatures.at(std::string("com.velmora/featureconf/") + name);
        EXPECT_EQ(typeOf(value), ValueType::Integer) << name;
    }
}

TEST_P(ShippedProfiles, DescribeEveryControlAndSwitch) {
    EXPECT_EQ(m_profile.controls.size(), 21U);
    EXPECT_EQ(m_profile.controls.at("dynamic_contrast").defaultValue, 3);
    EXPECT_EQ(m_profile.controls.at("motion_lighting").defaultValue, 1);
    EXPECT_FALSE(m_profile.sound.isMuted);
    EXPECT_EQ(m_profile.sound.speaker.defaultValue, 0);
    EXPECT_EQ(m_profile.switches.hdmiCec, 1);
    EXPECT_EQ(m_profile.switches.wifi, 1);
    EXPECT_EQ(m_profile.settingsItems.count("autorun-multiview-rotating"), 1U);
}

TEST_P(ShippedProfiles, CarryTheIdentityThatOtherServicesTell) {
    EXPECT_TRUE(m_profile.esn);
    EXPECT_EQ(m_profile.applicationServer.versions.count("10140000000"), 1U);
    EXPECT_TRUE(m_profile.applicationServer.hubSite);
    EXPECT_TRUE(m_profile.applicationServer.usedMemory);
    EXPECT_TRUE(m_profile.power.powerFail);
    EXPECT_TRUE(m_profile.power.watchdog);
    EXPECT_TRUE(m_profile.snrHundredthsOfDecibel);
}

TEST_P(ShippedProfiles, HaveTheInputsOfTheirModel) {
    const bool isTessa = std::string(GetParam()) == "tessa";
    for (int input = 1; input <= 4; ++input) {
        EXPECT_EQ(m_profile.sources.at("HDMI" + std::to_string(input)).id, 12 + input);
    }
    EXPECT_EQ(m_profile.sources.count("HDMI5"), isTessa ? 1U : 0U);
    EXPECT_EQ(m_profile.settings.count("memory/sysman/hdmi6"), isTessa ? 1U : 0U);
    const Value& tessaVersion =
        m_profile.customFeatures.at("com.velmora/featureconf/the_tessa_version");
    EXPECT_EQ(tessaVersion != Value(0), isTessa);
    if (isTessa) {
        EXPECT_EQ(m_profile.sources.at("HDMI5").id, 38);
        EXPECT_EQ(m_profile.sources.at("HDMI6").id, 39);
    }
}

INSTANTIATE_TEST_SUITE_P(Models, ShippedProfiles, ::testing::Values("standard", "tessa"),
                         [](const auto& model) { return std::string(model.param); });

} // namespace
} // namespace KLX::Host
