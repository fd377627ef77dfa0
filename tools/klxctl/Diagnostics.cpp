#include "Diagnostics.h"

#include "DeviceInfoManager.h"

#include <vector>

namespace {

std::optional<int> cpuPercent() {
    int percent = 0;
    return CDeviceInfoManager::getCPUusage(percent) == 1 ? std::optional(percent) : std::nullopt;
}

std::optional<CPU_INFO> cpuTime() {
    CPU_INFO time{};
    return CDeviceInfoManager::getCPUInfo(time) == 1 ? std::optional(time) : std::nullopt;
}

std::optional<long long> memoryUsed() {
    long long used = 0;
    return CDeviceInfoManager::getMemoryUsage(used) == 1 ? std::optional(used) : std::nullopt;
}

std::optional<StorageUse> storageUse() {
    StorageUse use{};
    const int result = CDeviceInfoManager::getMemInfo(use.free, use.used, use.total);
    return result == 1 ? std::optional(use) : std::nullopt;
}

} // namespace

Diagnostics measureDiagnostics() {
    Diagnostics measured;
    measured.cpuPercent = cpuPercent();
    measured.cpuTime = cpuTime();
    measured.memoryUsed = memoryUsed();
    measured.storage = storageUse();
    measured.time = std::time(nullptr);
    return measured;
}

std::string missingFigures(const Diagnostics& diagnostics) {
    std::vector<std::string> missing;
    if (!diagnostics.cpuPercent || !diagnostics.cpuTime) {
        missing.emplace_back("CPU");
    }
    if (!diagnostics.memoryUsed) {
        missing.emplace_back("memory");
    }
    if (!diagnostics.storage) {
        missing.emplace_back("storage");
    }
    std::string names;
    for (std::size_t index = 0; index < missing.size(); ++index) {
        const char* const separator = index + 1 == missing.size() ? " and " : ", ";
        names += (index == 0 ? "" : separator) + missing[index];
    }
    return names;
}
