#include "factoryInfo.h"

#include "Handles.h"
#include "Log.h"
#include "commonUtil.h"

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
