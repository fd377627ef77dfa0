#include "system_info.h"

#include "Boundary.h"
#include "Information.h"
#include "SetProfile.h"

using namespace KLX::Host;

namespace {

template <typename Wanted>
const Wanted& numbered(system_info_key_e key) {
    return factOf<Wanted>(currentProfile().systemInformation, static_cast<int>(key));
}

template <typename Wanted>
const Wanted& custom(const char* key) {
    requirePointer(key, "key");
    return factOf<Wanted>(currentProfile().customFeatures, std::string(key));
}

} // namespace

int system_info_get_value_int(system_info_key_e key, int* value) {
    return answer(__func__, [&] {
        requirePointer(value, "value");
        *value = numbered<int>(key);
    });
}

int system_info_get_value_string(system_info_key_e key, char** value) {
    return answer(__func__, [&] {
        requirePointer(value, "value");
        *value = handOut(numbered<std::string>(key));
    });
}

int system_info_get_custom_int(const char* key, int* value) {
    return answer(__func__, [&] {
        requirePointer(value, "value");
        *value = custom<int>(key);
    });
}

int system_info_get_custom_bool(const char* key, bool* value) {
    return answer(__func__, [&] {
        requirePointer(value, "value");
        *value = custom<bool>(key);
    });
}

int system_info_get_custom_string(const char* key, char** value) {
    return answer(__func__, [&] {
        requirePointer(value, "value");
        *value = handOut(custom<std::string>(key));
    });
}
