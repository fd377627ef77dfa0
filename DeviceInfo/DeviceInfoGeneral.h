#pragma once

#include "ValueTypes.h"

#include <runtime_info.h>
#include <system_settings.h>

#include <string>

/// Adapters that read or write one value of the settings store, the system settings, the runtime
/// information or the TV's video control, as text.
///
/// Failures are logged and answered with "" (numeric reads: the text of 0); nothing is thrown. The
/// class keeps no state, so any thread may call it as far as the platform's calls allow.
class DeviceInfoGeneral {
public:
    /// @return the key's value; "0" when a number or flag cannot be read, "" when a text cannot
    std::string getVconfValueWrapper(const std::string& key, valueType type);

    /// Parses @p value as @p type demands and writes it; text that is no number writes nothing.
    void setVconfValueWrapper(const std::string& key, valueType type, std::string value);

    /// @return the platform's default for the key, "" when there is none
    std::string getVconfDefaultValue(const std::string& key, valueType type);

    /// Writes a system setting; only integers and flags can be written.
    void setSystemSettingsValue(valueType type, const std::string& value,
                                system_settings_key_e key);

    /// @param typeName "int", "bool", "double" (its fraction is dropped) or "string"
    std::string getRuntimeInfoValue(const std::string& typeName, runtime_info_key_e key);

    /// Switches between retail (0) and usage mode (anything else) unless the set is in that mode.
    void setSystemUseMode(const std::string& value);

    /// @return the platform's number for the picture size, "" on failure
    std::string getPictureSize(const std::string& ignored);

    void setPictureSize(const std::string& value);
};
