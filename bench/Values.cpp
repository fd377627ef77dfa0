// One value, read and written.

#include "DeviceInfoManager.h"
#include "Floor.h"

#include <benchmark/benchmark.h>

namespace {

void oneGet(benchmark::State& state) {
    const Setting& setting = integerSetting();
    std::string value;
    for (auto _ : state) {
        CDeviceInfoManager::GetDevicePropertyValue(setting.category, setting.path, value);
        benchmark::DoNotOptimize(value);
    }
}
BENCHMARK(oneGet)->Name("get");

void oneGetFloor(benchmark::State& state) {
    for (auto _ : state) {
        benchmark::DoNotOptimize(floors::get(integerSetting()));
    }
}
BENCHMARK(oneGetFloor)->Name("get/floor");

void pictureGet(benchmark::State& state) {
    std::string value;
    for (auto _ : state) {
        CDeviceInfoManager::GetDevicePropertyValue("Picture", "Backlight", value);
        benchmark::DoNotOptimize(value);
    }
}
BENCHMARK(pictureGet)->Name("getPicture");

void pictureGetFloor(benchmark::State& state) {
    for (auto _ : state) {
        benchmark::DoNotOptimize(floors::getBacklight());
    }
}
BENCHMARK(pictureGetFloor)->Name("getPicture/floor");

void oneSet(benchmark::State& state) {
    const Setting& setting = integerSetting();
    for (auto _ : state) {
        CDeviceInfoManager::SetDevicePropertyValue(setting.category, setting.path, "1");
    }
}
BENCHMARK(oneSet)->Name("set");

void oneSetFloor(benchmark::State& state) {
    for (auto _ : state) {
        floors::set(integerSetting(), "1");
    }
}
BENCHMARK(oneSetFloor)->Name("set/floor");

} // namespace

BENCHMARK_MAIN();
