#include "factoryInfo.h"

#include "Handles.h"
#include "Log.h"
#include "commonUtil.h"

#include <system_settings.h>

#include <cstdlib>
#include <unistd.h>

namespace {

constexpr auto languageSetting = static_cast<system_settings_key_e>(13);
constexpr auto serverTypeKey = static_cast<system_info_key_e>(126);

struct FeatureAnswer {
    int status;
    std::string text;
};

FeatureAnswer readFeature(const std::string& key, const std::string& type) {
    if (type == "string") {
        char* answer = nullptr;
        const int status = system_info_get_custom_string(key.c_str(), &answer);
        return {status, KLX::copyOf(KLX::PlatformText(answer))};
    }
    if (type == "bool") {
        bool flag = false;
        const int status = system_info_get_custom_bool(key.c_str(), &flag);
        return {status, commonUtil::intToStr(flag ? 1 : 0)};
    }
    int number = 0;
    const int status = system_info_get_custom_int(key.c_str(), &number);
    return {status, commonUtil::intToStr(number)};
}

} // namespace

std::string factoryInfo::getSystemInfoValue(const std::string& typeName, system_info_key_e key) {
    KLX_LOG(LogInfo, "System info key value is [%d]", static_cast<int>(key));
    int status = -1;
    if (typeName == "string") {
        char* answer = nullptr;
        status = system_info_get_value_string(key, &answer);
        const KLX::PlatformText text(answer);
        if (status == 0) {
            return KLX::copyOf(text);
        }
    } else if (typeName == "int") {
        int number = 0;
        status = system_info_get_value_int(key, &number);
        if (status == 0) {
            return commonUtil::intToStr(number);
        }
    }
    KLX_LOG(LogError, "Failed getting %s, status: %d", typeName.c_str(), status);
    return "";
}

std::string factoryInfo::imageType() {
    struct Marker {
        const char* file;
        const char* image;
    };
    for (const Marker& marker :
         {Marker{"/etc/release", "Release Image"}, Marker{"/etc/perf", "Perf Image"},
          Marker{"/etc/debug", "Debug Image"}}) {
        if (access(marker.file, F_OK) == 0) {
            return marker.image;
        }
    }
    KLX_LOG(LogWarning, "FAILURE while getting image type");
    return "";
}

std::string factoryInfo::getServerType() {
    std::string type = serverTypeOf(getSystemInfoValue("int", serverTypeKey));
    KLX_LOG(LogInfo, "server type= [%s]", type.c_str());
    return type;
}

std::string factoryInfo::getLanguage() {
    char* answer = nullptr;
    const int status = system_settings_get_value_string(languageSetting, &answer);
    const KLX::PlatformText text(answer);
    if (status != 0) {
        KLX_LOG(LogWarning, "FAILURE while getting language\n");
        return "";
    }
    std::string language = KLX::copyOf(text);
    KLX_LOG(LogInfo, "language is  [%s]", language.c_str());
    return language;
}

void factoryInfo::setLanguage(const std::string& language) {
    KLX_LOG(LogInfo, "lang=[%s]", language.c_str());
    if (system_settings_set_value_string(languageSetting, language.c_str()) != 0) {
        KLX_LOG(LogWarning, "Language set failed");
    }
}

void factoryInfo::setFMSvalueUtil(std::string key, std::string value) {
    KLX_LOG(LogInfo, "FMS key is [%s]", key.c_str());
    const std::string command = "fconfigd -s " + key + " " + value;
    const int status = std::system(command.c_str());
    KLX_LOG(LogInfo, "cmd [%s] ret=[%d]", command.c_str(), status);
    // 256 is the shell's status for exit code 1; other exit codes count as done.
    if (status == -1 || status == 127 || status == 256) {
        KLX_LOG(LogWarning, "Failed to set FMS key  value %d", status);
        return;
    }
    KLX_LOG(LogInfo, "FMS key [%s] has been set with value [%s]", key.c_str(), value.c_str());
}

std::string factoryInfo::getFMSvalueUtil(std::string key, std::string type) {
    KLX_LOG(LogInfo, "FMS key is [%s]", key.c_str());
    FeatureAnswer answer = readFeature(key, type);
    if (answer.status != 0) {
        KLX_LOG(LogWarning, "Failed getting %s, status: %d", type.c_str(), answer.status);
        return "";
    }
    KLX_LOG(LogInfo, "Fetched FMS key value is [%s]", answer.text.c_str());
    return std::move(answer.text);
}
