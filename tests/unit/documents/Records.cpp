#include "Records.h"

#include <json/json.h>

void DeviceInfoManagerSeam::install(PropertyAccessorMap records) {
    uninstall();
    CDeviceInfoManager::m_pDeviceInfoManager = new CDeviceInfoManager(std::move(records));
}

void DeviceInfoManagerSeam::uninstall() {
    delete CDeviceInfoManager::m_pDeviceInfoManager.exchange(nullptr);
}

PropertyAccessorMap& DeviceInfoManagerSeam::records() {
    return *CDeviceInfoManager::m_pDeviceInfoManager.load()->m_properties;
}

int DeviceInfoManagerSeam::restore(_xmlNode* first, const std::string& prefix,
                                   const std::string& only) {
    return CDeviceInfoManager::m_pDeviceInfoManager.load()->restore(first, prefix, only);
}

bool DeviceInfoManagerSeam::createJsonNode(std::string text, Json::Value& root) {
    return CDeviceInfoManager::m_pDeviceInfoManager.load()->createJsonNode(text, root);
}

Records::Records() {
    DeviceInfoManagerSeam::install({});
}

Records::~Records() {
    DeviceInfoManagerSeam::uninstall();
}

Records& Records::add(const std::string& path, const std::string& value,
                      boost::optional<std::string> fixedDefault) {
    m_values[path] = value;
    answering(
        path, [this, path](const std::string&) { return m_values[path]; },
        [](const std::string&) { return "0"; });
    std::get<fixedDefaultElement>(DeviceInfoManagerSeam::records()[path]) = std::move(fixedDefault);
    return onSet(path, [this, path](const std::string& written) { m_values[path] = written; });
}

Records& Records::answering(const std::string& path, PropertyGetter value,
                            PropertyGetter defaultGetter) {
    DeviceInfoManagerSeam::records()[path] =
        PropertyAccessor(std::move(value), std::move(defaultGetter), boost::none, nullptr, true);
    return *this;
}

Records& Records::onSet(const std::string& path, PropertySetter action) {
    const auto noteAndDo = [this, path, action](const std::string& value) {
        m_applied.push_back(path + " = " + value);
        action(value);
    };
    std::get<setterElement>(DeviceInfoManagerSeam::records()[path]) = noteAndDo;
    return *this;
}

std::string argumentInBrackets(const std::string& argument) {
    return "[" + argument + "]";
}
