#include <DeviceInfoManager.h>
#include <Exception.h>
#include <KLXCommonUtil.h>

#include <iostream>
#include <string>

namespace {

const std::string menu = "General & Privacy";
const std::string property = "Accessibility/Colour Inversion";

bool changesAProperty() {
    std::string value;
    return CDeviceInfoManager::SetDevicePropertyValue(menu, property, "1") &&
           CDeviceInfoManager::GetDevicePropertyValue(menu, property, value) && value == "1";
}

bool writesADocument() {
    std::string document;
    return CDeviceInfoManager::GetDeviceInfo({{menu, {property}}}, document, "",
                                             CDeviceInfoManager::DATA_FORMAT_XML) &&
           document.find("<property name=\"Colour Inversion\"") != std::string::npos;
}

bool catchesTheLibrarysException() {
    try {
        KLXCommonUtil::readStrFromFile("no such folder/no such file");
    } catch (const KLX::Exception& exception) {
        return std::string(exception.what()) == "file[no such folder/no such file] open failed";
    }
    return false;
}

int report(const char* what, bool done) {
    std::cout << what << (done ? ": yes\n" : ": NO\n");
    return done ? 0 : 1;
}

} // namespace

int main() {
    return report("changes a property", changesAProperty()) +
           report("writes a document", writesADocument()) +
           report("catches the library's exception", catchesTheLibrarysException());
}
