#include "DiagnosticsText.h"

#include "JsonText.h"

#include <json/value.h>

#include <array>
#include <cmath>
#include <cstdio>

namespace {

const char* const none = "-";

/// A line of six cells; the first is flush left, figures are flush right.
std::string tableLine(const std::array<std::string, 6>& cells) {
    std::array<char, 256> line = {};
    std::snprintf(line.data(), line.size(), "%-8s  %5s  %11s  %12s  %12s  %13s\n", cells[0].c_str(),
                  cells[1].c_str(), cells[2].c_str(), cells[3].c_str(), cells[4].c_str(),
                  cells[5].c_str());
    return line.data();
}

std::string timeText(const std::tm& time, const char* format) {
    std::array<char, 64> text = {};
    return {text.data(), std::strftime(text.data(), text.size(), format, &time)};
}

std::string localTime(std::time_t time) {
    std::tm parts{};
    localtime_r(&time, &parts);
    return timeText(parts, "%H:%M:%S");
}

std::string universalTime(std::time_t time) {
    std::tm parts{};
    gmtime_r(&time, &parts);
    return timeText(parts, "%Y-%m-%dT%H:%M:%SZ");
}

Json::Value jsonTicks(const CPU_INFO& time) {
    Json::Value ticks;
    ticks["user"] = Json::UInt64{time.user};
    ticks["nice"] = Json::UInt64{time.nice};
    ticks["system"] = Json::UInt64{time.system};
    ticks["idle"] = Json::UInt64{time.idle};
    ticks["iowait"] = Json::UInt64{time.iowait};
    ticks["irq"] = Json::UInt64{time.irq};
    ticks["softirq"] = Json::UInt64{time.softirq};
    return ticks;
}

Json::Value jsonBytes(long long bytes) {
    return Json::Int64{bytes};
}

Json::Value jsonStorage(const StorageUse& storage) {
    Json::Value figures;
    figures["usedBytes"] = jsonBytes(storage.used);
    figures["freeBytes"] = jsonBytes(storage.free);
    figures["totalBytes"] = jsonBytes(storage.total);
    return figures;
}

Json::Value jsonFigures(const Diagnostics& told) {
    Json::Value root;
    root["time"] = universalTime(told.time);
    root["cpu"]["busyPercent"] = told.cpuPercent ? Json::Value(*told.cpuPercent) : Json::Value();
    root["cpu"]["ticks"] = told.cpuTime ? jsonTicks(*told.cpuTime) : Json::Value();
    root["memory"]["usedBytes"] = told.memoryUsed ? jsonBytes(*told.memoryUsed) : Json::Value();
    root["storage"] = told.storage ? jsonStorage(*told.storage) : Json::Value();
    return root;
}

} // namespace

std::string tableHeader() {
    return tableLine(
        {"TIME", "CPU", "MEMORY USED", "STORAGE USED", "STORAGE FREE", "STORAGE TOTAL"});
}

std::string tableRow(const Diagnostics& told) {
    const auto& storage = told.storage;
    return tableLine({localTime(told.time),
                      told.cpuPercent ? std::to_string(*told.cpuPercent) + " %" : none,
                      told.memoryUsed ? readableBytes(*told.memoryUsed) : none,
                      storage ? readableBytes(storage->used) : none,
                      storage ? readableBytes(storage->free) : none,
                      storage ? readableBytes(storage->total) : none});
}

std::string jsonObject(const Diagnostics& told, bool onOneLine) {
    return onOneLine ? jsonLine(jsonFigures(told)) : jsonText(jsonFigures(told));
}

std::string readableBytes(long long bytes) {
    constexpr std::array<const char*, 5> units = {"KiB", "MiB", "GiB", "TiB", "PiB"};
    if (bytes > -1000 && bytes < 1000) {
        return std::to_string(bytes) + " B";
    }
    // What would be rounded to 1000.0 takes the next unit.
    constexpr double most = 999.95;
    double number = static_cast<double>(bytes) / 1024;
    std::size_t unit = 0;
    while (std::abs(number) >= most && unit + 1 < units.size()) {
        number /= 1024;
        ++unit;
    }
    std::array<char, 64> text = {};
    std::snprintf(text.data(), text.size(), "%.1f %s", number, units[unit]);
    return text.data();
}
