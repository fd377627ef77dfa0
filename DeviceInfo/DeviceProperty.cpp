#include "DeviceProperty.h"

#include "PropertyCatalogue.h"

std::atomic<CDeviceProperty*> CDeviceProperty::m_pDeviceProperty{nullptr};

CDeviceProperty* CDeviceProperty::GetInstance() {
    CDeviceProperty* instance = m_pDeviceProperty.load(std::memory_order_acquire);
    if (instance == nullptr) {
        instance = new CDeviceProperty;
        m_pDeviceProperty.store(instance, std::memory_order_release);
    }
    return instance;
}

void CDeviceProperty::createPropertyAccessor(PropertyAccessorMap& properties) {
    visitCatalogue([this, &properties](const PropertyRow& row) {
        properties.insert_or_assign(row.path, row.binding.bindTo(*this));
    });
}

void emptySetter(const std::string&) {}
