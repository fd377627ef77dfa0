#pragma once

#include "DeviceInfoManager.h"

#include <utility>

/**
 * Puts an instance with records of the test's own, or none at all, in place of the manager's
 * instance for as long as it lives. What an operation creates in the meantime is deleted, and the
 * instance of before is back afterwards. Keep no other thread inside the manager at either end.
 */
struct DeviceInfoManagerSeam {
    /** The manager is not created yet. */
    DeviceInfoManagerSeam() : m_before(exchange(nullptr)) {}

    explicit DeviceInfoManagerSeam(PropertyAccessorMap records)
        : m_before(exchange(new CDeviceInfoManager(std::move(records)))) {}

    ~DeviceInfoManagerSeam() { delete exchange(m_before); }

    DeviceInfoManagerSeam(const DeviceInfoManagerSeam&) = delete;
    DeviceInfoManagerSeam& operator=(const DeviceInfoManagerSeam&) = delete;

    /** The present instance, to be compared only; null when there is none. */
    const void* instance() const { return CDeviceInfoManager::m_pDeviceInfoManager.load(); }

    /** Deletes the present instance. */
    void forget() { delete exchange(nullptr); }

private:
    static CDeviceInfoManager* exchange(CDeviceInfoManager* instance) {
        return CDeviceInfoManager::m_pDeviceInfoManager.exchange(instance);
    }

    CDeviceInfoManager* const m_before;
};
