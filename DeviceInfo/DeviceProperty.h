#pragma once

#include "DeviceInfoGeneral.h"
#include "DeviceInfoInput.h"
#include "DeviceInfoNetwork.h"
#include "PropertyAccessor.h"
#include "factoryInfo.h"

#include <atomic>

/// The registry: binds every property path to the accessors that serve it.
///
/// The one instance lives from the first `GetInstance` to the end of the process; what it puts into
/// a map refers to it, so copies of records stay valid as long. `GetInstance` takes no lock: the
/// manager makes the first call while it is being created.
class CDeviceProperty : public DeviceInfoNetwork,
                        public DeviceInfoGeneral,
                        public DeviceInfoInput,
                        public factoryInfo {
public:
    static CDeviceProperty* GetInstance();

    /// Stores every record of the catalogue, replacing what a path held before.
    void createPropertyAccessor(PropertyAccessorMap& properties);

private:
    CDeviceProperty() = default;

    static std::atomic<CDeviceProperty*> m_pDeviceProperty;
};

/// The setter of read-only properties: takes any value and does nothing.
void emptySetter(const std::string& value);
