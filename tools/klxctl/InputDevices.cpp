#include "InputDevices.h"

#include "DeviceInfoManager.h"
#include "ExitStatus.h"

std::vector<InputDevice> inputDevices() {
    std::vector<InputDevice> devices;
    if (!CDeviceInfoManager::ListInputDevices(devices)) {
        throw Failure(ExitStatus::Failed,
                      "the library could not list the inputs; its lines above tell why");
    }
    return devices;
}

bool isUsb(const std::string& inputName) {
    return inputName.rfind("USB", 0) == 0;
}

std::vector<std::string> portNames() {
    std::vector<std::string> names;
    for (const InputDevice& each : inputDevices()) {
        if (!isUsb(each.name)) {
            names.push_back(each.name);
        }
    }
    return names;
}
