// Restores an XML document that may be anything.

#include "FuzzedSet.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static FuzzedSet set(typicalPaths());
    set.reset();
    const std::string document = textOf(data, size);
    if (CDeviceInfoManager::SetDeviceInfo(document, CDeviceInfoManager::DATA_FORMAT_XML)) {
        require(isXml(document), "restored what is no document");
    }
    set.requireReadableDumps();
    return 0;
}
