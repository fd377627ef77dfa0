// Documents of all settings, and applying them.

#include "DeviceInfoManager.h"
#include "Floor.h"

#include <benchmark/benchmark.h>

#include <stdexcept>

namespace {

constexpr auto json = CDeviceInfoManager::DATA_FORMAT_JSON;
constexpr auto xml = CDeviceInfoManager::DATA_FORMAT_XML;

const std::map<std::string, std::list<std::string>>& request() {
    static const auto whole = [] {
        std::map<std::string, std::list<std::string>> request;
        for (const Setting& setting : settings()) {
            request[setting.category].emplace_back(setting.path);
        }
        return request;
    }();
    return whole;
}

std::string dumped(CDeviceInfoManager::DataFormatType format) {
    std::string document;
    if (!CDeviceInfoManager::GetDeviceInfo(request(), document, "", format)) {
        throw std::runtime_error("the document cannot be built; see the log");
    }
    return document;
}

/// A document in which every value is the one that it will be applied with.
std::string documentToRestore(CDeviceInfoManager::DataFormatType format) {
    for (const Setting& setting : settings()) {
        CDeviceInfoManager::SetDevicePropertyValue(setting.category, setting.path, "1");
    }
    return dumped(format);
}

void dump(benchmark::State& state, CDeviceInfoManager::DataFormatType format) {
    for (auto _ : state) {
        benchmark::DoNotOptimize(dumped(format));
    }
}
BENCHMARK_CAPTURE(dump, Xml, xml);
BENCHMARK_CAPTURE(dump, Json, json);

void dumpXmlFloor(benchmark::State& state) {
    const auto elements = floors::elementsOf(dumped(xml));
    floors::repeat(state, dumped(xml), [&elements] { return floors::xmlDocument(elements); });
}
BENCHMARK(dumpXmlFloor)->Name("dump/Xml/floor");

void dumpJsonFloor(benchmark::State& state) {
    floors::repeat(state, dumped(json), floors::jsonDocument);
}
BENCHMARK(dumpJsonFloor)->Name("dump/Json/floor");

void restore(benchmark::State& state, CDeviceInfoManager::DataFormatType format) {
    const std::string document = documentToRestore(format);
    for (auto _ : state) {
        if (!CDeviceInfoManager::SetDeviceInfo(document, format)) {
            state.SkipWithError("the document cannot be restored; see the log");
        }
    }
}
BENCHMARK_CAPTURE(restore, Xml, xml);
BENCHMARK_CAPTURE(restore, Json, json);

void restoreXmlFloor(benchmark::State& state) {
    const std::string document = documentToRestore(xml);
    for (auto _ : state) {
        floors::restoreXml(document, "1");
    }
}
BENCHMARK(restoreXmlFloor)->Name("restore/Xml/floor");

void restoreJsonFloor(benchmark::State& state) {
    const std::string document = documentToRestore(json);
    for (auto _ : state) {
        floors::restoreJson(document, "1");
    }
}
BENCHMARK(restoreJsonFloor)->Name("restore/Json/floor");

} // namespace
