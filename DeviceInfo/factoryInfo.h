#pragma once

#include <system_info.h>

#include <string>

/// Factory and identity values, as text. Failures are logged and answered with ""; nothing is
/// thrown. The class keeps no state, so any thread may call it as far as the platform's calls
/// allow.
class factoryInfo {
public:
    /// @param typeName "int" or "string"; any other is refused without a platform call
    std::string getSystemInfoValue(const std::string& typeName, system_info_key_e key);
};
