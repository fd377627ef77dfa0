#include "system_settings.h"

#include "Boundary.h"
#include "Settings.h"

using namespace KLX::Host;

int system_settings_get_value_int(system_settings_key_e key, int* value) {
    return answer(__func__, [&] {
        requirePointer(value, "value");
        *value = std::get<int>(readSetting(systemSettingOf(key), ValueType::Integer));
    });
}

int system_settings_get_value_string(system_settings_key_e key, char** value) {
    return answer(__func__, [&] {
        requirePointer(value, "value");
        const Setting setting = systemSettingOf(key);
        const bool isNeverGiven =
            setting.declaration->type == ValueType::Text && !hasValue(setting);
        *value = isNeverGiven
                     ? nullptr
                     : handOut(std::get<std::string>(readSetting(setting, ValueType::Text)));
    });
}

int system_settings_set_value_int(system_settings_key_e key, int value) {
    return answer(__func__, [&] { writeSetting(systemSettingOf(key), value); });
}

int system_settings_set_value_bool(system_settings_key_e key, bool value) {
    return answer(__func__, [&] { writeSetting(systemSettingOf(key), value); });
}

int system_settings_set_value_string(system_settings_key_e key, const char* value) {
    return answer(__func__, [&] {
        requirePointer(value, "value");
        writeSetting(systemSettingOf(key), std::string(value));
    });
}
