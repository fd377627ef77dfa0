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
