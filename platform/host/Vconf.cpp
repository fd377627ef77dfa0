#include "vconf.h"

#include "Boundary.h"
#include "Settings.h"

using namespace KLX::Host;

namespace {

constexpr int defaultFound = 1;

Value defaultOf(const Setting& setting) {
    if (setting.declaration == nullptr) {
        throw HostFailure(HostError::UnknownKey, "the profile declares no \"" + setting.name + '"');
    }
    if (!setting.declaration->defaultValue) {
        throw HostFailure(HostError::NoValue, '"' + setting.name + "\" has no default");
    }
    return *setting.declaration->defaultValue;
}

} // namespace

int vconf_get_int(const char* key, int* value) {
    return answer(__func__, [&] {
        requirePointer(value, "value");
        *value = std::get<int>(readSetting(settingOf(key), ValueType::Integer));
    });
}

int vconf_get_bool(const char* key, int* value) {
    return answer(__func__, [&] {
        requirePointer(value, "value");
        *value = std::get<bool>(readSetting(settingOf(key), ValueType::Boolean)) ? 1 : 0;
    });
}

char* vconf_get_str(const char* key) {
    char* text = nullptr;
    answer(__func__, [&] {
        text = handOut(std::get<std::string>(readSetting(settingOf(key), ValueType::Text)));
    });
    return text;
}

int vconf_set_int(const char* key, int value) {
    return answer(__func__, [&] { writeSetting(settingOf(key), value); });
}

int vconf_set_bool(const char* key, int value) {
    return answer(__func__, [&] { writeSetting(settingOf(key), value != 0); });
}

int vconf_set_str(const char* key, const char* value) {
    return answer(__func__, [&] {
        requirePointer(value, "value");
        writeSetting(settingOf(key), std::string(value));
    });
}

int get_vconf_key_default_value(const char* key, int* type, char** value) {
    const int error = answer(__func__, [&] {
        requirePointer(type, "type");
        requirePointer(value, "value");
        const Value found = defaultOf(settingOf(key));
        *value = handOut(toText(found));
        *type = static_cast<int>(typeOf(found));
    });
    return error == static_cast<int>(HostError::None) ? defaultFound : error;
}
