#include "PropertyBinding.h"

// The lambdas of this file only forward: a line logged inside one would carry the wrong name. What
// a setting's lambdas hold is small enough for std::function to keep without an allocation.

namespace {

template <valueType type>
PropertyGetter storeDefault(CDeviceProperty& device, const char* key) {
    return [&device, key](const std::string&) {
        return device.getVconfDefaultValue(key, type);
    };
}

PropertyGetter runtimeNumber(CDeviceProperty& device, int key) {
    return [&device, key](const std::string&) {
        return device.getRuntimeInfoValue("int", static_cast<runtime_info_key_e>(key));
    };
}

PropertyAccessor readOnlyRecord(PropertyGetter getter) {
    return PropertyAccessor(std::move(getter), nullptr, boost::none, emptySetter, false);
}

PropertyBinding systemInformation(const char* typeName, int key) {
    const PropertySource source{"system information", key};
    return PropertyBinding(source, [typeName, key](CDeviceProperty& device) {
        return readOnlyRecord([&device, typeName, key](const std::string&) {
            return device.getSystemInfoValue(typeName, static_cast<system_info_key_e>(key));
        });
    });
}

template <valueType type>
PropertyBinding settingOf(const char* kind, const char* key) {
    return PropertyBinding({kind, key}, [key](CDeviceProperty& device) {
        return PropertyAccessor(
            [&device, key](const std::string&) { return device.getVconfValueWrapper(key, type); },
            storeDefault<type>(device, key), boost::none,
            [&device, key](const std::string& value) {
                device.setVconfValueWrapper(key, type, value);
            },
            true);
    });
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
    switch (type) {
    case booleanValue:
        return settingOf<booleanValue>("flag setting", key);
    case stringValue:
        return settingOf<stringValue>("text setting", key);
    default:
        return settingOf<integerValue>("integer setting", key);
    }
}

PropertyBinding systemSetting(int key, const char* defaultKey) {
    const PropertySource source{"system setting", key};
    return PropertyBinding(source, [key, defaultKey](CDeviceProperty& device) {
        return PropertyAccessor(
            runtimeNumber(device, key), storeDefault<integerValue>(device, defaultKey), boost::none,
            [&device, key](const std::string& value) {
                device.setSystemSettingsValue(integerValue, value,
                                              static_cast<system_settings_key_e>(key));
            },
            true);
    });
}

PropertyBinding usageMode(const char* defaultKey) {
    constexpr int runtimeKey = 10010;
    const PropertySource source{"usage mode", runtimeKey};
    return PropertyBinding(source, [defaultKey](CDeviceProperty& device) {
        return PropertyAccessor(
            runtimeNumber(device, runtimeKey), storeDefault<integerValue>(device, defaultKey),
            boost::none, [&device](const std::string& value) { device.setSystemUseMode(value); },
            true);
    });
}

PropertyBinding pictureSize(const char* defaultKey) {
    const PropertySource source{"video control", "GetPictureSize"};
    return PropertyBinding(source, [defaultKey](CDeviceProperty& device) {
        return PropertyAccessor(
            [&device](const std::string& argument) { return device.getPictureSize(argument); },
            storeDefault<integerValue>(device, defaultKey), boost::none,
            [&device](const std::string& value) { device.setPictureSize(value); }, true);
    });
}

PropertyBinding systemText(int key) {
    return systemInformation("string", key);
}

PropertyBinding systemNumber(int key) {
    return systemInformation("int", key);
}

PropertyBinding runtimeCounter(int key) {
    const PropertySource source{"runtime information", key};
    return PropertyBinding(source, [key](CDeviceProperty& device) {
        return readOnlyRecord(runtimeNumber(device, key));
    });
}

PropertyBinding hdmiInfo(eHDMIinfo which) {
    const PropertySource source{"HDMI processor", "/dev/video21"};
    return PropertyBinding(source, [which](CDeviceProperty& device) {
        return readOnlyRecord(
            [&device, which](const std::string&) { return device.getHDMIinfo(which); });
    });
}

PropertyBinding macAddress(DeviceInfoNetwork::connectionProfileType type) {
    const PropertySource source{"network connection", "connection_get_mac_address"};
    return PropertyBinding(source, [type](CDeviceProperty& device) {
        return readOnlyRecord(
            [&device, type](const std::string&) { return device.getNetworkMAC(type); });
    });
}
