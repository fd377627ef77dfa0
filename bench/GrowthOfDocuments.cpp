// What one record costs in a document of few and in one of many.

#include "Floor.h"
#include "Growth.h"

#include <json/json.h>

using namespace growth;

namespace {

void dump(benchmark::State& state, CDeviceInfoManager::DataFormatType format) {
    const DeviceInfoManagerSeam manager(records(state.range(0)));
    for (auto _ : state) {
        benchmark::DoNotOptimize(dumped(format));
    }
}

std::string documentOf(benchmark::IterationCount count, CDeviceInfoManager::DataFormatType format) {
    const DeviceInfoManagerSeam manager(records(count));
    return dumped(format);
}

void dumpXmlFloor(benchmark::State& state) {
    std::vector<floors::Element> elements = {{0, "menu", "Picture", nullptr}};
    for (benchmark::IterationCount i = 0; i < state.range(0); ++i) {
        elements.push_back({1, "property", nameOf(i), &integerSetting()});
    }
    floors::repeat(state, documentOf(state.range(0), xml),
                   [&elements] { return floors::xmlDocument(elements); });
}

void dumpJsonFloor(benchmark::State& state) {
    floors::repeat(state, documentOf(state.range(0), json), [&state] {
        Json::Value root;
        for (benchmark::IterationCount i = 0; i < state.range(0); ++i) {
            floors::addTo(root["Picture"][nameOf(i)], integerSetting());
        }
        return Json::writeString(Json::StreamWriterBuilder(), root);
    });
}

BENCHMARK_CAPTURE(dump, Xml, xml)->Apply(fewAndMany);
BENCHMARK(dumpXmlFloor)->Name("dump/Xml/floor")->Apply(fewAndMany);
BENCHMARK_CAPTURE(dump, Json, json)->Apply(fewAndMany);
BENCHMARK(dumpJsonFloor)->Name("dump/Json/floor")->Apply(fewAndMany);

} // namespace
