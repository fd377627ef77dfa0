// Restores a JSON document that may be anything.

#include "FuzzedSet.h"

#include <json/json.h>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static FuzzedSet set(typicalPaths());
    set.reset();
    const std::string document = textOf(data, size);
    Json::Value root;
    const bool readable = DeviceInfoManagerSeam::createJsonNode(document, root);
    require(CDeviceInfoManager::SetDeviceInfo(document, CDeviceInfoManager::DATA_FORMAT_JSON) ==
                (readable && !document.empty()),
            "the result does not tell whether the document was read");
    set.requireReadableDumps();
    return 0;
}
