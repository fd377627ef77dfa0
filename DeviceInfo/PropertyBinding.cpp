#include "PropertyBinding.h"

// The lambdas of this file only forward: a line logged inside one would carry the wrong name.

namespace {

PropertyGetter storeDefault(CDeviceProperty& device, const char* key, valueType type) {
    return [&device, text = std::string(key), type](const std::string&) {
        return device.getVconfDefaultValue(text, type);
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

const char* settingKind(valueType type) {
    switch (type) {
    case booleanValue:
        return "flag setting";
    case stringValue:
        return "text setting";
    default:
        return "integer setting";
    }
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
    const PropertySource source{settingKind(type), key};
    return PropertyBinding(source, [key, type](CDeviceProperty& device) {
        return PropertyAccessor(
            [&device, text = std::string(key), type](const std::string&) {
                return device.getVconfValueWrapper(text, type);
            },
            storeDefault(device, key, type), boost::none,
            [&device, text = std::string(key), type](const std::string& value) {
                device.setVconfValueWrapper(text, type, value);
            },
            true);
    });
}

PropertyBinding systemSetting(int key, const char* defaultKey) {
    const PropertySource source{"system setting", key};
    return PropertyBinding(source, [key, defaultKey](CDeviceProperty& device) {
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
    constexpr int runtimeKey = 10010;
    const PropertySource source{"usage mode", runtimeKey};
    return PropertyBinding(source, [defaultKey](CDeviceProperty& device) {
        return PropertyAccessor(
            runtimeNumber(device, runtimeKey), storeDefault(device, defaultKey, integerValue),
            boost::none, [&device](const std::string& value) { device.setSystemUseMode(value); },
            true);
    });
}

PropertyBinding pictureSize(const char* defaultKey) {
    const PropertySource source{"video control", "GetPictureSize"};
    return PropertyBinding(source, [defaultKey](CDeviceProperty& device) {
        return PropertyAccessor(
            [&device](const std::string& argument) { return device.getPictureSize(argument); },
            storeDefault(device, defaultKey, integerValue), boost::none,
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
