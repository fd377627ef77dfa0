#include "SharedValues.h"

namespace KLX::Host {
namespace {

constexpr int autoPowerOff = 10006;
constexpr int autoProtectionTime = 10007;
constexpr int useMode = 10008;
constexpr int useModeAtRuntime = 10010;

} // namespace

std::optional<std::string> settingBehindSystemSetting(int number) {
    switch (number) {
    case autoProtectionTime:
        return "db/menu/system/auto_protection_time";
    case useMode:
        return "db/menu/support/use_mode";
    default:
        return std::nullopt;
    }
}

std::string storeKeyOfSystemSetting(int number) {
    return settingBehindSystemSetting(number).value_or("system-settings/" + std::to_string(number));
}

std::optional<int> systemSettingBehindRuntime(int number) {
    switch (number) {
    case autoPowerOff:
    case autoProtectionTime:
        return number;
    case useModeAtRuntime:
        return useMode;
    default:
        return std::nullopt;
    }
}

} // namespace KLX::Host
