#include "DeviceInfoGeneral.h"

#include "Exception.h"
#include "Handles.h"
#include "Log.h"
#include "commonUtil.h"

#include <TvControlService.h>
#include <vconf.h>

#include <algorithm>
#include <climits>
#include <cmath>
#include <cstdlib>

namespace {

using KLX::copyOf;
using KLX::PlatformText;

constexpr int tvProfile = 1;
constexpr auto systemUseMode = static_cast<system_settings_key_e>(10008);

using VideoControl = std::unique_ptr<IVideoControl, KLX::ReleasedBy<&TvControlService::Destroy>>;

VideoControl createVideoControl() {
    IVideoControl* control = nullptr;
    TvControlService::CreateVideoControl(tvProfile, 0, &control);
    return VideoControl(control);
}

int writeVconf(const std::string& key, valueType type, const std::string& value) {
    switch (type) {
    case integerValue:
        return vconf_set_int(key.c_str(), std::stoi(value));
    case booleanValue:
        return vconf_set_bool(key.c_str(), std::stoi(value));
    default:
        return vconf_set_str(key.c_str(), value.c_str());
    }
}

/// Drops the fraction. A number that no int can hold becomes the nearest int, not-a-number 0.
int truncated(double number) {
    if (std::isnan(number)) {
        return 0;
    }
    return static_cast<int>(
        std::clamp(number, static_cast<double>(INT_MIN), static_cast<double>(INT_MAX)));
}

struct RuntimeAnswer {
    int status;
    std::string text;
};

RuntimeAnswer readRuntimeInfo(const std::string& typeName, runtime_info_key_e key) {
    if (typeName == "int") {
        int number = 0;
        const int status = runtime_info_get_value_int(key, &number);
        return {status, commonUtil::intToStr(number)};
    }
    if (typeName == "bool") {
        bool flag = false;
        const int status = runtime_info_get_value_bool(key, &flag);
        return {status, commonUtil::intToStr(flag ? 1 : 0)};
    }
    if (typeName == "double") {
        double number = 0;
        const int status = runtime_info_get_value_double(key, &number);
        return {status, commonUtil::intToStr(truncated(number))};
    }
    if (typeName == "string") {
        char* text = nullptr;
        const int status = runtime_info_get_value_string(key, &text);
        return {status, copyOf(PlatformText(text))};
    }
    KLX_LOG_AS("getRuntimeInfoValue", LogError, "Wrong type parameter. type= %s", typeName.c_str());
    throw KLX::Exception("Wrong type parameter. type= %s", typeName);
}

} // namespace

std::string DeviceInfoGeneral::getVconfValueWrapper(const std::string& key, valueType type) {
    int number = 0;
    PlatformText text;
    bool failed = false;
    switch (type) {
    case integerValue:
        failed = vconf_get_int(key.c_str(), &number) != 0;
        break;
    case booleanValue:
        failed = vconf_get_bool(key.c_str(), &number) != 0;
        number = number != 0 ? 1 : 0;
        break;
    case stringValue:
        text.reset(vconf_get_str(key.c_str()));
        failed = text == nullptr;
        break;
    default:
        KLX_LOG(LogError, "Unrecognized type.");
        return "";
    }
    if (failed) {
        KLX_LOG(LogError, "Operation failed. Key %s valType %d", key.c_str(), type);
    }
    return type == stringValue ? copyOf(text) : commonUtil::intToStr(number);
}

void DeviceInfoGeneral::setVconfValueWrapper(const std::string& key, valueType type,
                                             std::string value) {
    if (type != integerValue && type != booleanValue && type != stringValue) {
        KLX_LOG(LogError, "Unrecognized type.");
        return;
    }
    try {
        if (writeVconf(key, type, value) != 0) {
            KLX_LOG(LogError, "Operation failed. Key %s valType %d nVal %s", key.c_str(), type,
                    value.c_str());
        }
    } catch (...) {
        KLX_LOG(LogError, "Operation failed.");
    }
}

std::string DeviceInfoGeneral::getVconfDefaultValue(const std::string& key, valueType type) {
    constexpr int success = 1;
    int typeInOut = type;
    char* answer = nullptr;
    const int status = get_vconf_key_default_value(key.c_str(), &typeInOut, &answer);
    const PlatformText text(answer);
    if (status != success) {
        KLX_LOG(LogError, "Failed to get value for %s [%d]", key.c_str(), status);
        return "";
    }
    return copyOf(text);
}

void DeviceInfoGeneral::setSystemSettingsValue(valueType type, const std::string& value,
                                               system_settings_key_e key) {
    if (type != integerValue && type != booleanValue) {
        KLX_LOG(LogError, "Failed. type %d, status: %d", type, 0);
        return;
    }
    int number = 0;
    try {
        number = std::stoi(value);
    } catch (const std::exception&) {
        KLX_LOG(LogError, "failed convert string: \"%s\" to %s", value.c_str(),
                type == integerValue ? "int" : "bool");
        return;
    }
    const int status = type == integerValue ? system_settings_set_value_int(key, number)
                                            : system_settings_set_value_bool(key, number != 0);
    if (status != 0) {
        KLX_LOG(LogError, "Failed. type %d, val: %s, status: %d", type, value.c_str(), status);
    }
}

std::string DeviceInfoGeneral::getRuntimeInfoValue(const std::string& typeName,
                                                   runtime_info_key_e key) {
    try {
        RuntimeAnswer answer = readRuntimeInfo(typeName, key);
        if (answer.status != 0) {
            KLX_LOG(LogError, "Failed getting %s, status: %d", typeName.c_str(), answer.status);
        }
        return std::move(answer.text);
    } catch (const KLX::Exception&) {
        KLX_LOG(LogError, "Failed getting [%s]", typeName.c_str());
        return "";
    }
}

void DeviceInfoGeneral::setSystemUseMode(const std::string& value) {
    int current = 0;
    system_settings_get_value_int(systemUseMode, &current);
    // long is wider than int on 64-bit machines only; the clamp answers there as on a set.
    const auto wanted = static_cast<int>(
        std::clamp<long>(std::strtol(value.c_str(), nullptr, 10), INT_MIN, INT_MAX));
    if (wanted == current) {
        KLX_LOG(LogInfo, "Already set value %s", current == 0 ? "Retail Mode" : "Usage Mode");
        return;
    }
    if (system_settings_set_value_int(systemUseMode, wanted) != 0) {
        KLX_LOG(LogError, "Failed to set the value of SystemUseMode");
    }
}

std::string DeviceInfoGeneral::getPictureSize(const std::string&) {
    const VideoControl control = createVideoControl();
    if (!control) {
        KLX_LOG(LogError, "VideoControl is NULL !!");
        return "";
    }
    int size = 0;
    if (control->GetPictureSize(&size) < 0) {
        KLX_LOG(LogError, "Failed to get PictureSize!!");
        return "";
    }
    return commonUtil::intToStr(size);
}

void DeviceInfoGeneral::setPictureSize(const std::string& value) {
    constexpr int apply = 1;
    VideoControl control = createVideoControl();
    const int size = commonUtil::strToInt(value);
    if (!control) {
        KLX_LOG(LogError, "VideoControl is NULL");
        return;
    }
    if (control->SetPictureSize(size, apply) < 0) {
        KLX_LOG(LogError, "Failed to set PictureSize!!");
        return;
    }
    // The TV service goes on applying the size through this control; destroying it now would stop
    // that.
    static_cast<void>(control.release());
}
