#include "PropertyBinding.h"

// The lambdas of this file only forward: a line logged inside one would carry the wrong name.

namespace {

PropertyGetter storeDefault(CDeviceProperty& device, const std::string& key, valueType type) {
    return [&device, key, type](const std::string&) {
        return device.getVconfDefaultValue(key, type);
    };
}

PropertyGetter runtimeNumber(CDeviceProperty& device, int key) {
    return [&device, key](const std::string&) {
        return device.getRuntimeInfoValue("int", static_cast<runtime_info_key_e>(key));
    };
}

} // namespace

PropertyAccessor PropertyBinding::bindTo(CDeviceProperty& device) const {
    PropertyAccessor accessor = m_bind(device);
    if (m_fixedDefault) {
        std::get<defaultGetterElement>(accessor) = nullptr;
        std::get<fixedDefaultElement>(accessor) = m_fixedDefault;
    }
    if (m_flagClear) {
        std::get<flagElement>(accessor) = false;
    }
    return accessor;
}

PropertyBinding setting(const char* key, valueType type) {
    return PropertyBinding([key = std::string(key), type](CDeviceProperty& device) {
        return PropertyAccessor(
            [&device, key, type](const std::string&) {
                return device.getVconfValueWrapper(key, type);
            },
            storeDefault(device, key, type), boost::none,
            [&device, key, type](const std::string& value) {
                device.setVconfValueWrapper(key, type, value);
            },
            true);
    });
}

PropertyBinding systemSetting(int key, const char* defaultKey) {
    return PropertyBinding([key, defaultKey](CDeviceProperty& device) {
        return PropertyAccessor(
            runtimeNumber(device, key), storeDefault(device, defaultKey, integerValue), boost::none,
            [&device, key](const std::string& value) {
                device.setSystemSettingsValue(integerValue, value,
                                              static_cast<system_settings_key_e>(key));
            },
            true);
    });
}

PropertyBinding usageMode(const char* defaultKey) {
    return PropertyBinding([defaultKey](CDeviceProperty& device) {
        constexpr int runtimeKey = 10010;
        return PropertyAccessor(
            runtimeNumber(device, runtimeKey), storeDefault(device, defaultKey, integerValue),
            boost::none, [&device](const std::string& value) { device.setSystemUseMode(value); },
            true);
    });
}

PropertyBinding plain(std::string (*get)(const std::string&), void (*set)(const std::string&)) {
    return PropertyBinding([get, set](CDeviceProperty&) {
        return PropertyAccessor(get, nullptr, boost::none, set, true);
    });
}

PropertyBinding menuValue(std::string (*get)(eMenuValueType, const std::string&),
                          void (*set)(const std::string&)) {
    return PropertyBinding([get, set](CDeviceProperty&) {
        const auto asked = [get](eMenuValueType kind) {
            return [get, kind](const std::string& argument) {
                return get(kind, argument);
            };
        };
        return PropertyAccessor(asked(currentValue), asked(defaultValue), boost::none, set, true);
    });
}

PropertyBinding pictureSize(const char* defaultKey) {
    return PropertyBinding([defaultKey](CDeviceProperty& device) {
        return PropertyAccessor(
            [&device](const std::string& argument) { return device.getPictureSize(argument); },
            storeDefault(device, defaultKey, integerValue), boost::none,
            [&device](const std::string& value) { device.setPictureSize(value); }, true);
    });
}
