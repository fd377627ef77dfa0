#pragma once

#include "CpuInfo.h"
#include "ValueTypes.h"

#include <runtime_info.h>
#include <system_settings.h>

#include <string>

/// Adapters that read or write one value of the settings store, the system settings, the runtime
/// information or the TV's video control, as text; and the set's identity and diagnostics.
///
/// Failures are logged and answered with "" (numeric reads: the text of 0); nothing is thrown. The
/// class keeps no state, so any thread may call it as far as the platform's calls allow.
class DeviceInfoGeneral {
public:
    /// @return the key's value; "0" when a number or flag cannot be read, "" when a text cannot
    std::string getVconfValueWrapper(const char* key, valueType type);

    /// Parses @p value as @p type demands and writes it; text that is no number writes nothing.
    void setVconfValueWrapper(const char* key, valueType type, std::string value);

    /// @return the platform's default for the key, "" when there is none
    std::string getVconfDefaultValue(const char* key, valueType type);

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

    std::string getDUID();
    std::string getnESN();
    std::string getProductType();
    /// @return four digits; the set stores years up to 2099 as two
    std::string getProductYear();
    std::string getDateOfPurchase();
    std::string getVccFailCount();
    std::string getWatchDogCount();
    std::string getLumoraVersion();
    std::string getHubSite();
    /// @return the tuner's signal-to-noise ratio, such as "25.34 dB"
    std::string getSNRLevel();

    /// Asks the application server on a thread of its own and waits at most 20 seconds. While a
    /// query is out, further calls wait for that one, so that a query which never returns costs one
    /// thread and no more.
    /// @return the answer; "" on failure, when the time runs out, and for the default
    std::string getSystemLumoraWidgetAppUsage(eMenuValueType kind);

    /// Takes a sample of the processor times.
    /// @return 1 on success, 0 on failure; the record is then zeroed
    static int getCPUInfoUtil(CPU_INFO& info);

    /// Takes two samples, a second apart.
    /// @param usage receives the busy share in percent
    /// @return 1 on success, 0 on failure; the output is then untouched
    static int getCPUusageUtil(int& usage);

    /// Measures the storage below "/opt", in bytes, less a small reserve.
    /// @return 1 on success, 0 on failure; the outputs are then untouched
    static int getMemInfoUtil(long long& free, long long& used, long long& total);

    /// @param used receives the memory in use, swap included, in bytes
    /// @return 1 on success, 0 on failure; the output is then untouched
    static int getMemoryUsageUtil(long long& used);
};
