#include "DeviceInfoGeneral.h"

#include "Exception.h"
#include "Handles.h"
#include "Log.h"
#include "commonUtil.h"

#include <IPowerControl.h>
#include <TvControlService.h>
#include <appserver.h>
#include <esn.h>
#include <system_info.h>
#include <vconf.h>

#include <algorithm>
#include <atomic>
#include <chrono>
#include <climits>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <future>
#include <mutex>
#include <sstream>
#include <sys/statvfs.h>
#include <sys/sysinfo.h>
#include <thread>
#include <unistd.h>
#include <vector>

namespace {

using KLX::copyOf;
using KLX::PlatformText;

constexpr int tvProfile = 1;
constexpr auto systemUseMode = static_cast<system_settings_key_e>(10008);

using VideoControl = std::unique_ptr<IVideoControl, KLX::ReleasedBy<&TvControlService::Destroy>>;

using TunerControl = std::unique_ptr<ITunerControl, KLX::ReleasedBy<&TvControlService::Destroy>>;
using File = std::unique_ptr<std::FILE, KLX::ReleasedBy<&std::fclose>>;

VideoControl createVideoControl() {
    IVideoControl* control = nullptr;
    TvControlService::CreateVideoControl(tvProfile, 0, &control);
    return VideoControl(control);
}

int writeVconf(const char* key, valueType type, const std::string& value) {
    switch (type) {
    case integerValue:
        return vconf_set_int(key, std::stoi(value));
    case booleanValue:
        return vconf_set_bool(key, std::stoi(value));
    default:
        return vconf_set_str(key, value.c_str());
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

template <std::size_t size>
std::string textWithin(const char (&field)[size]) {
    return {field, strnlen(field, size)};
}

using Counter = int (IPowerControl::*)(int*);

std::string powerCount(const char* operation, Counter counter, const char* failure) {
    IPowerControl* const power = IPowerControl::getInstance();
    int count = 0;
    if (power == nullptr || (power->*counter)(&count) < 0) {
        KLX_LOG_AS(operation, LogWarning, "%s", failure);
        return "";
    }
    return commonUtil::intToStr(count);
}

using UsageAnswer = std::shared_future<std::string>;

/// Starts the query on a thread that owns everything it touches, so that an answer which comes too
/// late finds nothing of a caller's.
UsageAnswer queryWidgetUsage() {
    std::packaged_task<std::string()> query([] {
        char* answer = nullptr;
        const int status = appserver_get_used_memory(&answer);
        const PlatformText text(answer);
        if (status != 0 || !text) {
            // This line is meant to carry the lambda's name, "operator()".
            KLX_LOG(LogWarning, "Invalid value"); // NOLINT(bugprone-lambda-function-name)
            return std::string();
        }
        return copyOf(text);
    });
    UsageAnswer answer = query.get_future().share();
    std::thread(std::move(query)).detach();
    return answer;
}

bool isReady(const UsageAnswer& answer) {
    return answer.wait_for(std::chrono::seconds(0)) == std::future_status::ready;
}

/// The answer that one process waits for.
struct Outstanding {
    const pid_t process = getpid();
    std::mutex mutex;
    UsageAnswer answer;
};

/// A forked process begins anew: the thread that would answer its parent's query is not in it. The
/// parent's answer and mutex are left as they are, since that thread may have been using them.
Outstanding& outstandingOfThisProcess() {
    static std::atomic<Outstanding*> latest{nullptr};
    Outstanding* found = latest.load();
    if (found != nullptr && found->process == getpid()) {
        return *found;
    }
    auto own = std::make_unique<Outstanding>();
    return latest.compare_exchange_strong(found, own.get()) ? *own.release() : *found;
}

UsageAnswer widgetUsage() {
    Outstanding& outstanding = outstandingOfThisProcess();
    const std::lock_guard<std::mutex> lock(outstanding.mutex);
    if (!outstanding.answer.valid() || isReady(outstanding.answer)) {
        outstanding.answer = queryWidgetUsage();
    }
    return outstanding.answer;
}

unsigned long totalOf(const CPU_INFO& info) {
    return info.user + info.nice + info.system + info.idle + info.iowait + info.irq + info.softirq;
}

int busyPercentage(const CPU_INFO& first, const CPU_INFO& second) {
    // Counters may wrap around, and the kernel's iowait may go back between two samples.
    const unsigned long total = totalOf(second) - totalOf(first);
    const auto busy = static_cast<long>(total - (second.idle - first.idle));
    if (total == 0) {
        return 0;
    }
    return truncated(static_cast<float>(busy) / static_cast<float>(static_cast<long>(total)) *
                     100.0f);
}

} // namespace

std::string DeviceInfoGeneral::getVconfValueWrapper(const char* key, valueType type) {
    int number = 0;
    PlatformText text;
    bool failed = false;
    switch (type) {
    case integerValue:
        failed = vconf_get_int(key, &number) != 0;
        break;
    case booleanValue:
        failed = vconf_get_bool(key, &number) != 0;
        number = number != 0 ? 1 : 0;
        break;
    case stringValue:
        text.reset(vconf_get_str(key));
        failed = text == nullptr;
        break;
    default:
        KLX_LOG(LogError, "Unrecognized type.");
        return "";
    }
    if (failed) {
        KLX_LOG(LogError, "Operation failed. Key %s valType %d", key, type);
    }
    return type == stringValue ? copyOf(text) : commonUtil::intToStr(number);
}

void DeviceInfoGeneral::setVconfValueWrapper(const char* key, valueType type, std::string value) {
    if (type != integerValue && type != booleanValue && type != stringValue) {
        KLX_LOG(LogError, "Unrecognized type.");
        return;
    }
    try {
        if (writeVconf(key, type, value) != 0) {
            KLX_LOG(LogError, "Operation failed. Key %s valType %d nVal %s", key, type,
                    value.c_str());
        }
    } catch (...) {
        KLX_LOG(LogError, "Operation failed.");
    }
}

std::string DeviceInfoGeneral::getVconfDefaultValue(const char* key, valueType type) {
    constexpr int success = 1;
    int typeInOut = type;
    char* answer = nullptr;
    const int status = get_vconf_key_default_value(key, &typeInOut, &answer);
    const PlatformText text(answer);
    if (status != success) {
        KLX_LOG(LogError, "Failed to get value for %s [%d]", key, status);
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

std::string DeviceInfoGeneral::getDUID() {
    return commonUtil::getOpenApiDUID();
}

std::string DeviceInfoGeneral::getnESN() {
    std::vector<char> buffer(16384);
    auto length = static_cast<int>(buffer.size());
    if (esn_get(buffer.data(), &length) != 0) {
        KLX_LOG(LogWarning, "FAILURE while getting ESN");
        return "";
    }
    if (length <= 0) {
        KLX_LOG(LogWarning, "FAILURE while to retrieving ESN");
        return "";
    }
    return {buffer.data(), std::min(static_cast<std::size_t>(length), buffer.size())};
}

std::string DeviceInfoGeneral::getProductType() {
    int type = 0;
    if (system_info_get_custom_int("com.velmora/featureconf/product.product_type", &type) != 0) {
        KLX_LOG(LogWarning, "FAILURE while getting product type");
        return "";
    }
    return commonUtil::intToStr(type);
}

std::string DeviceInfoGeneral::getProductYear() {
    int year = 0;
    if (system_info_get_custom_int("com.velmora/featureconf/product.tv_year", &year) != 0) {
        KLX_LOG(LogWarning, "Fail to get product year");
        return "";
    }
    return commonUtil::intToStr(year <= 99 ? year + 2000 : year);
}

std::string DeviceInfoGeneral::getDateOfPurchase() {
    constexpr auto dateOfPurchase = static_cast<system_settings_key_e>(10001);
    char* answer = nullptr;
    const int status = system_settings_get_value_string(dateOfPurchase, &answer);
    const PlatformText text(answer);
    if (status != 0) {
        KLX_LOG(LogWarning, "FAILURE");
        return "";
    }
    if (!text) {
        KLX_LOG(LogWarning, "Do not get date of purchase");
    }
    return copyOf(text);
}

std::string DeviceInfoGeneral::getVccFailCount() {
    return powerCount(__func__, &IPowerControl::getPowerFailCount, "fail to get power fail count");
}

std::string DeviceInfoGeneral::getWatchDogCount() {
    return powerCount(__func__, &IPowerControl::getWatchdogCount, "fail to get watchdog count");
}

std::string DeviceInfoGeneral::getLumoraVersion() {
    const auto info = std::make_unique<appserver_app_info_s>();
    const int status = appserver_get_app_info("10140000000", info.get());
    if (status != 0) {
        KLX_LOG(LogWarning, "Failed, status: %d", status);
    }
    return textWithin(info->version);
}

std::string DeviceInfoGeneral::getHubSite() {
    try {
        const auto info = std::make_unique<appserver_debug_info_s>();
        const int status = appserver_get_debug_info(info.get());
        if (status != 0) {
            KLX_LOG(LogWarning, "Failed, status: %d", status);
            throw KLX::Exception("Failed, status: %d", status);
        }
        return textWithin(info->hub_site);
    } catch (const KLX::Exception& error) {
        KLX_LOG(LogWarning, "Exception :%s", error.what());
        return "";
    }
}

std::string DeviceInfoGeneral::getSNRLevel() {
    constexpr int success = 1;
    KLX_LOG(LogDebug, "getting snr level");
    ITunerControl* created = nullptr;
    TvControlService::CreateTunerControl(tvProfile, 0, &created);
    TunerControl tuner(created);
    if (!tuner) {
        KLX_LOG(LogWarning, "FAILURE creating tuner control object");
        return "";
    }
    int level = 0;
    const int status = tuner->GetSNRLevel(&level);
    if (status != success) {
        KLX_LOG(LogWarning, "FAILURE while getting SNR level %d", status);
        // The TV service takes back a control whose query failed; destroying it here as well is not
        // allowed.
        static_cast<void>(tuner.release());
        return "";
    }
    std::ostringstream text;
    text.imbue(std::locale::classic());
    text << level / 100.0 << " dB";
    return text.str();
}

std::string DeviceInfoGeneral::getSystemLumoraWidgetAppUsage(eMenuValueType kind) {
    // A used-memory figure has no default.
    if (kind != currentValue) {
        return "";
    }
    try {
        const UsageAnswer answer = widgetUsage();
        const auto deadline = std::chrono::system_clock::now() + std::chrono::seconds(20);
        if (answer.wait_until(deadline) == std::future_status::ready) {
            return answer.get();
        }
        KLX_LOG(LogWarning, "Timed out");
    } catch (const std::exception& error) {
        KLX_LOG(LogWarning, "Exception :%s", error.what());
    }
    return "";
}

int DeviceInfoGeneral::getCPUInfoUtil(CPU_INFO& info) {
    KLX_LOG(LogDebug, "getCPUInfo");
    info = {};
    const File file(std::fopen("/proc/stat", "r"));
    if (!file) {
        KLX_LOG(LogWarning, "open /proc/stat failed");
        return 0;
    }
    const int items =
        std::fscanf(file.get(), "cpu %lu %lu %lu %lu %lu %lu %lu %*d %*d %*d\n", &info.user,
                    &info.nice, &info.system, &info.idle, &info.iowait, &info.irq, &info.softirq);
    if (items < 1) {
        KLX_LOG(LogWarning, "error in cpu info read");
        return 0;
    }
    return 1;
}

int DeviceInfoGeneral::getCPUusageUtil(int& usage) {
    KLX_LOG(LogDebug, "getCPUusage");
    CPU_INFO first{};
    CPU_INFO second{};
    if (getCPUInfoUtil(first) != 1) {
        return 0;
    }
    std::this_thread::sleep_for(std::chrono::seconds(1));
    if (getCPUInfoUtil(second) != 1) {
        return 0;
    }
    usage = busyPercentage(first, second);
    return 1;
}

int DeviceInfoGeneral::getMemInfoUtil(long long& free, long long& used, long long& total) {
    // The pair of thresholds is the set's own: from 71 bytes on, 70 are kept back.
    constexpr long long reserve = 70;
    struct statvfs storage {};
    // Numbers of 32 bits would make the call fail on a large file system.
    static_assert(sizeof storage.f_blocks == 8 && sizeof(off_t) == 8);
    if (statvfs("/opt", &storage) != 0) {
        KLX_LOG(LogWarning, "statvfs failed");
        return 0;
    }
    const auto blockSize = static_cast<long long>(storage.f_bsize);
    const long long available = blockSize * static_cast<long long>(storage.f_bavail);
    const long long occupied = blockSize * (static_cast<long long>(storage.f_blocks) -
                                            static_cast<long long>(storage.f_bfree));
    const long long moved = available > reserve ? reserve : available;
    free = available - moved;
    used = occupied + moved;
    total = free + used;
    KLX_LOG(LogInfo, "free=[%lld] used=[%lld] total=[%lld]", free, used, total);
    return 1;
}

int DeviceInfoGeneral::getMemoryUsageUtil(long long& used) {
    KLX_LOG(LogDebug, "getMemoryUsage");
    struct sysinfo memory {};
    if (sysinfo(&memory) != 0) {
        KLX_LOG(LogWarning, "sysinfo failed");
        return 0;
    }
    const auto inUse = [](unsigned long total, unsigned long free) {
        return static_cast<long long>(total) - static_cast<long long>(free);
    };
    used = (inUse(memory.totalswap, memory.freeswap) + inUse(memory.totalram, memory.freeram)) *
           static_cast<long long>(memory.mem_unit);
    KLX_LOG(LogInfo, "usedMem= [%lld]", used);
    return 1;
}
