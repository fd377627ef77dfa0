#pragma once

#include <optional>
#include <string>

namespace KLX::Host {

/**
 * One value is kept once. Some of the set's values are reached through several services; this is
 * the table of them, and docs/host-platform.md shows it.
 *
 * Answers the store key of a numbered system setting: the settings-store key that is the same
 * value, or a key of its own under "system-settings/".
 */
std::string storeKeyOfSystemSetting(int number);

/** The settings-store key that is the same value as a system setting, or nothing. */
std::optional<std::string> settingBehindSystemSetting(int number);

/** The system setting whose value a runtime information mirrors, or nothing. */
std::optional<int> systemSettingBehindRuntime(int number);

} // namespace KLX::Host
