#include "runtime_info.h"

#include "Boundary.h"
#include "Information.h"
#include "Settings.h"
#include "SharedValues.h"

using namespace KLX::Host;

namespace {

template <typename Wanted>
Wanted stateOf(runtime_info_key_e key) {
    if (const auto setting = systemSettingBehindRuntime(key)) {
        return std::get<Wanted>(readSetting(systemSettingOf(*setting), typeOf(Value(Wanted{}))));
    }
    return factOf<Wanted>(currentProfile().runtimeInformation, static_cast<int>(key));
}

} // namespace

int runtime_info_get_value_int(runtime_info_key_e key, int* value) {
    return answer(__func__, [&] {
        requirePointer(value, "value");
        *value = stateOf<int>(key);
    });
}

int runtime_info_get_value_bool(runtime_info_key_e key, bool* value) {
    return answer(__func__, [&] {
        requirePointer(value, "value");
        *value = stateOf<bool>(key);
    });
}

int runtime_info_get_value_double(runtime_info_key_e key, double* value) {
    return answer(__func__, [&] {
        requirePointer(value, "value");
        *value = stateOf<double>(key);
    });
}

int runtime_info_get_value_string(runtime_info_key_e key, char** value) {
    return answer(__func__, [&] {
        requirePointer(value, "value");
        *value = handOut(stateOf<std::string>(key));
    });
}
