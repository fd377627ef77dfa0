// The peer's side of Values.cpp and Documents.cpp.

#include "Peer.h"

#include <benchmark/benchmark.h>

namespace {

void get(benchmark::State& state) {
    for (auto _ : state) {
        benchmark::DoNotOptimize(peer::get(integerSetting()));
    }
}
BENCHMARK(get)->Name("get/peer");

void set(benchmark::State& state) {
    // A value that is there already is written like any other, as by the library.
    for (auto _ : state) {
        peer::set(integerSetting(), "1");
    }
}
BENCHMARK(set)->Name("set/peer");

void dumpJson(benchmark::State& state) {
    for (auto _ : state) {
        benchmark::DoNotOptimize(peer::jsonDocument());
    }
}
BENCHMARK(dumpJson)->Name("dump/Json/peer");

void restoreJson(benchmark::State& state) {
    const std::string document = peer::jsonDocument();
    for (auto _ : state) {
        peer::restoreJson(document);
    }
}
BENCHMARK(restoreJson)->Name("restore/Json/peer");

} // namespace
