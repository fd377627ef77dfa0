// Loaded before the library, plays one that fails to read properties for a while: the reading with
// the first number of KLXCTL_TEST_READS, "FIRST LAST", and all up to the last one.

#include "DeviceInfoManager.h"

#include <dlfcn.h>

#include <cstdlib>
#include <sstream>
#include <string>

namespace {

bool isToFail() {
    static int reads = 0;
    const char* const setting = std::getenv("KLXCTL_TEST_READS");
    std::istringstream numbers(setting != nullptr ? setting : "0 0");
    int first = 0;
    int last = 0;
    numbers >> first >> last;
    ++reads;
    return first <= reads && reads <= last;
}

} // namespace

__attribute__((visibility("default"))) bool
CDeviceInfoManager::GetDevicePropertyValue(std::string menuItemName, std::string propertyName,
                                           std::string& propertyValue) {
    using Read = bool (*)(std::string, std::string, std::string&);
    static const auto real = reinterpret_cast<Read>(
        dlsym(RTLD_NEXT, "_ZN18CDeviceInfoManager22GetDevicePropertyValueENSt7__cxx1112basic_"
                         "stringIcSt11char_traitsIcESaIcEEES5_RS5_"));
    return !isToFail() && real(std::move(menuItemName), std::move(propertyName), propertyValue);
}
