#include "InputDevice.h"

#include "DeviceInfoManager.h"
#include "DeviceProperty.h"
#include "Log.h"

bool CDeviceInfoManager::ListInputDevices(std::vector<InputDevice>& devices) {
    try {
        // The registry's instance is made under the manager's lock.
        instanceFor(__func__);
        devices = CDeviceProperty::GetInstance()->describeInputDevices();
        return true;
    } catch (const std::exception& error) {
        KLX_LOG(LogWarning, "exception: [%s]", error.what());
    } catch (...) {
        KLX_LOG(LogWarning, "UNKNOWN exception occured");
    }
    return false;
}
