#pragma once

#include "DeviceInfoManager.h"
#include "Settings.h"

#include <benchmark/benchmark.h>
#include <boost/optional.hpp>

#include <string>

/// The library's seam for records that are not the catalogue's.
struct DeviceInfoManagerSeam {
    explicit DeviceInfoManagerSeam(PropertyAccessorMap records) {
        CDeviceInfoManager::m_pDeviceInfoManager = new CDeviceInfoManager(std::move(records));
    }
    ~DeviceInfoManagerSeam() { delete CDeviceInfoManager::m_pDeviceInfoManager.exchange(nullptr); }
    DeviceInfoManagerSeam(const DeviceInfoManagerSeam&) = delete;
    DeviceInfoManagerSeam& operator=(const DeviceInfoManagerSeam&) = delete;
};

/// What the benchmarks of few and of many records share: the records are all in one category, and
/// each is the catalogue's own record of one setting in the store.
namespace growth {

constexpr auto json = CDeviceInfoManager::DATA_FORMAT_JSON;
constexpr auto xml = CDeviceInfoManager::DATA_FORMAT_XML;

/// Names of one length, so that they cost the same.
std::string nameOf(benchmark::IterationCount number);

PropertyAccessorMap records(benchmark::IterationCount count);

/// The document of all records.
/// @throws std::runtime_error
std::string dumped(CDeviceInfoManager::DataFormatType format);

/// How many records there are in a benchmark.
void fewAndMany(benchmark::internal::Benchmark* benchmark);

} // namespace growth
