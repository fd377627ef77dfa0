#include "FakeCore.h"
#include "runtime_info.h"
#include "system_info.h"
#include "system_settings.h"

namespace klx::fake {

Scene& Scene::systemInfo(int key, Value value) {
    Access()->systemInfo.insert_or_assign(key, std::move(value));
    return *this;
}

Scene& Scene::feature(const std::string& name, Value value) {
    Access()->features.insert_or_assign(name, std::move(value));
    return *this;
}

Scene& Scene::systemSetting(int key, Value value) {
    Access()->systemSettings.insert_or_assign(key, std::move(value));
    return *this;
}

Scene& Scene::runtimeInfo(int key, Value value) {
    Access()->runtimeInfo.insert_or_assign(key, std::move(value));
    return *this;
}

} // namespace klx::fake

using namespace klx::fake;

int system_info_get_value_int(system_info_key_e key, int* value) {
    return call(__func__, args(key),
                [&](State& state) { return give<int>(lookUp(state.systemInfo, key), value); });
}

int system_info_get_value_string(system_info_key_e key, char** value) {
    return call(__func__, args(key),
                [&](State& state) { return giveText(lookUp(state.systemInfo, key), value); });
}

int system_info_get_custom_int(const char* key, int* value) {
    return call(__func__, args(key),
                [&](State& state) { return give<int>(lookUp(state.features, key), value); });
}

int system_info_get_custom_bool(const char* key, bool* value) {
    return call(__func__, args(key),
                [&](State& state) { return give<bool>(lookUp(state.features, key), value); });
}

int system_info_get_custom_string(const char* key, char** value) {
    return call(__func__, args(key),
                [&](State& state) { return giveText(lookUp(state.features, key), value); });
}

int system_settings_get_value_int(system_settings_key_e key, int* value) {
    return call(__func__, args(key),
                [&](State& state) { return give<int>(lookUp(state.systemSettings, key), value); });
}

int system_settings_get_value_string(system_settings_key_e key, char** value) {
    return call(__func__, args(key),
                [&](State& state) { return giveText(lookUp(state.systemSettings, key), value); });
}

int system_settings_set_value_int(system_settings_key_e key, int value) {
    return call(__func__, args(key, value), [&](State& state) {
        state.systemSettings.insert_or_assign(key, value);
        return 0;
    });
}

int system_settings_set_value_bool(system_settings_key_e key, bool value) {
    return call(__func__, args(key, value), [&](State& state) {
        state.systemSettings.insert_or_assign(key, value);
        return 0;
    });
}

int system_settings_set_value_string(system_settings_key_e key, const char* value) {
    return call(__func__, args(key, value), [&](State& state) {
        if (value == nullptr) {
            return kBadHandle;
        }
        state.systemSettings.insert_or_assign(key, value);
        return 0;
    });
}

int runtime_info_get_value_int(runtime_info_key_e key, int* value) {
    return call(__func__, args(key),
                [&](State& state) { return give<int>(lookUp(state.runtimeInfo, key), value); });
}

int runtime_info_get_value_bool(runtime_info_key_e key, bool* value) {
    return call(__func__, args(key),
                [&](State& state) { return give<bool>(lookUp(state.runtimeInfo, key), value); });
}

int runtime_info_get_value_double(runtime_info_key_e key, double* value) {
    return call(__func__, args(key),
                [&](State& state) { return give<double>(lookUp(state.runtimeInfo, key), value); });
}

int runtime_info_get_value_string(runtime_info_key_e key, char** value) {
    return call(__func__, args(key),
                [&](State& state) { return giveText(lookUp(state.runtimeInfo, key), value); });
}
