#include "HostTest.h"

#include "runtime_info.h"
#include "system_settings.h"
#include "vconf.h"

#include <cstdlib>

namespace KLX::Host {
namespace {

constexpr auto useModeKey = "db/menu/support/use_mode";
constexpr auto protectionKey = "db/menu/system/auto_protection_time";
constexpr auto powerOffDefaultKey = "db/menu/system/eco_solution/auto_power_off_default";

constexpr int powerOffNumber = 10006;
constexpr int protectionNumber = 10007;
constexpr int useModeNumber = 10008;
constexpr int useModeAtRuntime = 10010;

int storeValue(const char* key) {
    int value = -1;
    EXPECT_EQ(vconf_get_int(key, &value), success) << key;
    return value;
}

int settingValue(int number) {
    int value = -1;
    EXPECT_EQ(system_settings_get_value_int(static_cast<system_settings_key_e>(number), &value),
              success)
        << number;
    return value;
}

int runtimeValue(int number) {
    int value = -1;
    EXPECT_EQ(runtime_info_get_value_int(static_cast<runtime_info_key_e>(number), &value), success)
        << number;
    return value;
}

int setSetting(int number, int value) {
    return system_settings_set_value_int(static_cast<system_settings_key_e>(number), value);
}

class SharedValues : public HostTest {};

TEST_F(SharedValues, TellTheUseModeAlikeOnEveryPath) {
    EXPECT_EQ(runtimeValue(useModeAtRuntime), 1);
    EXPECT_EQ(settingValue(useModeNumber), 1);
    ASSERT_EQ(setSetting(useModeNumber, 0), success);
    EXPECT_EQ(runtimeValue(useModeAtRuntime), 0);
    EXPECT_EQ(storeValue(useModeKey), 0);
    ASSERT_EQ(vconf_set_int(useModeKey, 2), success);
    EXPECT_EQ(runtimeValue(useModeAtRuntime), 2);
    EXPECT_EQ(settingValue(useModeNumber), 2);
}

TEST_F(SharedValues, TellTheProtectionTimeAlikeOnEveryPath) {
    ASSERT_EQ(setSetting(protectionNumber, 8), success);
    EXPECT_EQ(runtimeValue(protectionNumber), 8);
    EXPECT_EQ(storeValue(protectionKey), 8);
    ASSERT_EQ(vconf_set_int(protectionKey, 4), success);
    EXPECT_EQ(runtimeValue(protectionNumber), 4);
    EXPECT_EQ(settingValue(protectionNumber), 4);
}

TEST_F(SharedValues, LeaveTheDefaultOfAutoPowerOffAlone) {
    const int before = storeValue(powerOffDefaultKey);
    ASSERT_EQ(setSetting(powerOffNumber, before + 1), success);
    EXPECT_EQ(runtimeValue(powerOffNumber), before + 1);
    EXPECT_EQ(settingValue(powerOffNumber), before + 1);
    EXPECT_EQ(storeValue(powerOffDefaultKey), before);
}

TEST_F(SharedValues, AgreeBetweenProcesses) {
    ASSERT_EQ(inOwnProcess([] { return setSetting(useModeNumber, 5); }), success);
    EXPECT_EQ(runtimeValue(useModeAtRuntime), 5);
    EXPECT_EQ(inOwnProcess([] { return storeValue(useModeKey); }), 5);
}

TEST_F(SharedValues, BeginWithTheDefaultThatTheStoreTells) {
    struct Row {
        int runtime;
        const char* key;
    };
    for (const Row& row : {Row{useModeAtRuntime, useModeKey}, Row{protectionNumber, protectionKey},
                           Row{powerOffNumber, powerOffDefaultKey}}) {
        int type = 0;
        char* text = nullptr;
        ASSERT_EQ(get_vconf_key_default_value(row.key, &type, &text), 1);
        EXPECT_EQ(std::to_string(runtimeValue(row.runtime)), text) << row.key;
        std::free(text);
    }
}

} // namespace
} // namespace KLX::Host
