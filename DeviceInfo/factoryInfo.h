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

    /// @return "Release Image", "Perf Image" or "Debug Image" by the first marker file that exists
    std::string imageType();

    /// @return "Operating" or "Development"; the latter when it cannot be read, too
    std::string getServerType();

    /// @param text what the set tells of its server; exactly "0" stands for the operating one
    static std::string serverTypeOf(const std::string& text) {
        return text == "0" ? "Operating" : "Development";
    }

    std::string getLanguage();
    void setLanguage(const std::string& language);

    /// Runs the set's configuration command with both texts as they are; a shell reads them, so
    /// they are the caller's responsibility.
    static void setFMSvalueUtil(std::string key, std::string value);

    /// @param type "string", "bool", or anything else for an integer
    static std::string getFMSvalueUtil(std::string key, std::string type);
};
