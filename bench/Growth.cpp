#include "Growth.h"

#include "DeviceProperty.h"

#include <stdexcept>

namespace growth {

std::string nameOf(benchmark::IterationCount number) {
    return "Setting " + std::to_string(100000 + number);
}

PropertyAccessorMap records(benchmark::IterationCount count) {
    PropertyAccessorMap catalogue;
    CDeviceProperty::GetInstance()->createPropertyAccessor(catalogue);
    const Setting& setting = integerSetting();
    const PropertyAccessor& record =
        catalogue.at(std::string("/") + setting.category + "/" + setting.path);
    PropertyAccessorMap records;
    for (benchmark::IterationCount i = 0; i < count; ++i) {
        records["/Picture/" + nameOf(i)] = record;
    }
    return records;
}

std::string dumped(CDeviceInfoManager::DataFormatType format) {
    std::string document;
    if (!CDeviceInfoManager::GetDeviceInfo({{"Picture", {"*"}}}, document, "", format)) {
        throw std::runtime_error("the document cannot be built");
    }
    return document;
}

void fewAndMany(benchmark::internal::Benchmark* benchmark) {
    benchmark->Arg(122)->Arg(1220)->Arg(12200);
}

} // namespace growth

BENCHMARK_MAIN();
