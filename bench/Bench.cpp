#include "DeviceInfoManager.h"
#include "Floor.h"
#include "RatioReporter.h"

#include <benchmark/benchmark.h>

#include <stdexcept>

namespace {

const Setting& anInteger() {
    for (const Setting& setting : settings()) {
        if (setting.type == integerValue) {
            return setting;
        }
    }
    throw std::logic_error("no integer setting");
}

std::map<std::string, std::list<std::string>> wholeRequest() {
    std::map<std::string, std::list<std::string>> request;
    for (const Setting& setting : settings()) {
        request[setting.category].emplace_back(setting.path);
    }
    return request;
}

std::string wholeDocument() {
    std::string document;
    if (!CDeviceInfoManager::GetDeviceInfo(wholeRequest(), document, "",
                                           CDeviceInfoManager::DATA_FORMAT_XML)) {
        throw std::runtime_error("the document cannot be built; see the log");
    }
    return document;
}

void oneGet(benchmark::State& state) {
    const Setting& setting = anInteger();
    std::string value;
    for (auto _ : state) {
        CDeviceInfoManager::GetDevicePropertyValue(setting.category, setting.path, value);
        benchmark::DoNotOptimize(value);
    }
}
BENCHMARK(oneGet);

void oneGetFloor(benchmark::State& state) {
    for (auto _ : state) {
        benchmark::DoNotOptimize(floors::get(anInteger()));
    }
}
BENCHMARK(oneGetFloor);

void pictureGet(benchmark::State& state) {
    std::string value;
    for (auto _ : state) {
        CDeviceInfoManager::GetDevicePropertyValue("Picture", "Backlight", value);
        benchmark::DoNotOptimize(value);
    }
}
BENCHMARK(pictureGet);

void pictureGetFloor(benchmark::State& state) {
    for (auto _ : state) {
        benchmark::DoNotOptimize(floors::getBacklight());
    }
}
BENCHMARK(pictureGetFloor);

void oneSet(benchmark::State& state) {
    const Setting& setting = anInteger();
    for (auto _ : state) {
        CDeviceInfoManager::SetDevicePropertyValue(setting.category, setting.path, "1");
    }
}
BENCHMARK(oneSet);

void oneSetFloor(benchmark::State& state) {
    for (auto _ : state) {
        floors::set(anInteger(), "1");
    }
}
BENCHMARK(oneSetFloor);

void xmlDocument(benchmark::State& state) {
    for (auto _ : state) {
        benchmark::DoNotOptimize(wholeDocument());
    }
}
BENCHMARK(xmlDocument)->Unit(benchmark::kMicrosecond);

void xmlDocumentFloor(benchmark::State& state) {
    const auto elements = floors::elementsOf(wholeDocument());
    if (floors::document(elements) != wholeDocument()) {
        state.SkipWithError("the floor builds another document than the library");
        return;
    }
    for (auto _ : state) {
        benchmark::DoNotOptimize(floors::document(elements));
    }
}
BENCHMARK(xmlDocumentFloor)->Unit(benchmark::kMicrosecond);

} // namespace

int main(int argc, char** argv) {
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv)) {
        return 2;
    }
    RatioReporter reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);
    reporter.printRatios();
    return reporter.hasFailed() ? 1 : 0;
}
