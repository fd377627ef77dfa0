#include "DeviceInfoManager.h"

#include "DeviceProperty.h"
#include "DocumentText.h"
#include "Exception.h"
#include "KLXCommonUtil.h"
#include "Log.h"
#include "PropertyPath.h"
#include "XmlDocument.h"
#include "XmlErrors.h"

#include <boost/optional.hpp>
#include <boost/thread/lock_guard.hpp>
#include <boost/thread/mutex.hpp>
#include <libxml/parser.h>

#include <algorithm>

std::atomic<CDeviceInfoManager*> CDeviceInfoManager::m_pDeviceInfoManager{nullptr};
boost::mutex CDeviceInfoManager::m_mutex;

namespace {

const std::string wholeOf = "*";

/// The edge of a reading operation: turns the exception that is being handled into a line of its
/// log.
/// @return false, for the operation to return
bool logFailedRead(const char* operation) noexcept {
    try {
        throw;
    } catch (const KLX::Exception& error) {
        KLX_LOG_AS(operation, LogWarning, "exception occured =[%s]", error.what());
    } catch (...) {
        KLX_LOG_AS(operation, LogWarning, "UNKNOWN exception occured");
    }
    return false;
}

std::string keyOf(const std::string& menu, const std::string& property) {
    return "/" + menu + "/" + property;
}

bool contains(const std::string& text, const char* part) {
    return text.find(part) != std::string::npos;
}

/// The part behind the first slash up to the next one; a name without a slash is its own device.
std::string usbDeviceName(const std::string& property) {
    const std::size_t slash = property.find('/');
    const std::size_t begin = slash == std::string::npos ? 0 : slash + 1;
    return property.substr(begin, property.find('/', begin) - begin);
}

/// What a record's function is called with for the XML document.
std::string xmlArgument(const std::string& key) {
    return contains(key, "Source_Connect/") ? KLXCommonUtil::extractLastNumbers(key) : "";
}

/// A value for the XML document; a failure costs this value only.
std::string xmlValue(const PropertyGetter& getter, const std::string& key) {
    constexpr const char* operation = "m_getPropValue";
    try {
        return getter(xmlArgument(key));
    } catch (const KLX::Exception& error) {
        KLX_LOG_AS(operation, LogWarning, "Exception: %s", error.what());
    } catch (const std::bad_function_call& error) {
        KLX_LOG_AS(operation, LogWarning, "Exception: %s", error.what());
    } catch (...) {
        KLX_LOG_AS(operation, LogWarning, "Exception: ");
    }
    return "";
}

std::map<std::string, std::list<std::string>> everyCategory() {
    std::map<std::string, std::list<std::string>> request;
    for (const char* category : {"Picture", "General", "Sound", "Broadcasting", "Factory", "Input",
                                 "Network", "SetInformation", "SystemInformation", "Support"}) {
        request[category] = {wholeOf};
    }
    return request;
}

} // namespace

CDeviceInfoManager::CDeviceInfoManager() : CDeviceInfoManager(PropertyAccessorMap()) {
    KLX_LOG(LogInfo, "initializing deviceMap");
    CDeviceProperty::GetInstance()->createPropertyAccessor(*m_properties);
}

CDeviceInfoManager::CDeviceInfoManager(PropertyAccessorMap&& properties)
    : m_properties(std::make_unique<PropertyAccessorMap>(std::move(properties))),
      m_specialPaths{"/Factory/ND_ADJ", "/Picture/Expert Settings/HDR+ Mode",
                     "/Picture/Picture Mode"} {
    // Before the first document, so that no two threads initialise the parser at once.
    xmlInitParser();
}

CDeviceInfoManager::~CDeviceInfoManager() = default;

void CDeviceInfoManager::createInstance() {
    const boost::lock_guard<boost::mutex> lock(m_mutex);
    if (m_pDeviceInfoManager.load(std::memory_order_relaxed) != nullptr) {
        KLX_LOG_AS("Initialize", LogInfo, "Already initialized");
        return;
    }
    m_pDeviceInfoManager.store(new CDeviceInfoManager, std::memory_order_release);
}

CDeviceInfoManager& CDeviceInfoManager::instanceFor(const char* operation) {
    if (m_pDeviceInfoManager.load(std::memory_order_acquire) == nullptr) {
        KLX_LOG_AS(operation, LogInfo, "Not yet initialized");
        createInstance();
    }
    return *m_pDeviceInfoManager.load(std::memory_order_acquire);
}

bool CDeviceInfoManager::Initialize() {
    try {
        createInstance();
        return true;
    } catch (...) {
        return logFailedRead(__func__);
    }
}

bool CDeviceInfoManager::GetDevicePropertyValue(std::string menuItemName, std::string propertyName,
                                                std::string& propertyValue) {
    try {
        KLX_LOG(LogInfo, "GetDevicePropValue menuItemName = [%s] PropertyName = [%s]",
                menuItemName.c_str(), propertyName.c_str());
        instanceFor(__func__).m_getPropValue(std::move(menuItemName), std::move(propertyName),
                                             propertyValue);
        KLX_LOG(LogInfo, "propertyValue = [%s]", propertyValue.c_str());
        return true;
    } catch (...) {
        return logFailedRead(__func__);
    }
}

bool CDeviceInfoManager::SetDevicePropertyValue(std::string menuItemName, std::string propertyName,
                                                std::string propertyValue) {
    try {
        KLX_LOG(LogInfo,
                "SetDevicePropValue menuItemName = [%s] propertyName = [%s] propertyValue =[%s]",
                menuItemName.c_str(), propertyName.c_str(), propertyValue.c_str());
        instanceFor(__func__).m_setPropValue(std::move(menuItemName), std::move(propertyName),
                                             std::move(propertyValue));
        return true;
    } catch (const std::exception& error) {
        KLX_LOG(LogWarning, "exception: [%s]", error.what());
    } catch (...) {
        KLX_LOG(LogWarning, "Exception in SetDevicePropertyValue");
    }
    return false;
}

bool CDeviceInfoManager::GetDeviceInfo(std::map<std::string, std::list<std::string>> request,
                                       std::string& data, std::string filePath,
                                       DataFormatType format) {
    try {
        KLX_LOG(LogInfo, "GetDeviceInfo retDataFormat = [%d]", format);
        CDeviceInfoManager& manager = instanceFor(__func__);
        if (!request.empty() && request.begin()->first == wholeOf) {
            request = everyCategory();
        }
        if (format != DATA_FORMAT_XML) {
            KLX_LOG(LogInfo, "invalid data format");
            return false;
        }
        manager.prepareXMLData(request, data);
        if (!filePath.empty()) {
            KLX_LOG(LogInfo, "dataSize=[%zu] filePath = [%s]", data.size(), filePath.c_str());
            KLXCommonUtil::writeStrToFile(data, filePath);
        }
        return true;
    } catch (...) {
        return logFailedRead(__func__);
    }
}

const PropertyAccessor* CDeviceInfoManager::find(const std::string& key) const {
    const auto found = m_properties->find(key);
    return found != m_properties->end() ? &found->second : nullptr;
}

void CDeviceInfoManager::m_getPropValue(std::string menu, std::string property,
                                        std::string& value) {
    const std::string key = keyOf(menu, property);
    const PropertyAccessor* const accessor = find(key);
    if (accessor == nullptr) {
        if (contains(property, "USB")) {
            readUsbProperty(property, value);
        } else {
            KLX_LOG(LogWarning, "key=[%s] does not exist", key.c_str());
        }
        return;
    }
    std::string current;
    try {
        current = std::get<valueGetterElement>(*accessor)("");
    } catch (...) {
        KLX_LOG(LogWarning, "Exception caught");
    }
    value = std::move(current);
    KLX_LOG(LogInfo,
            "GetDevicePropInfo menuItemName = [%s] PropertyName = [%s] propertyValue = [%s]",
            menu.c_str(), property.c_str(), value.c_str());
}

// Attached devices come and go, so they have no records.
void CDeviceInfoManager::readUsbProperty(const std::string& property, std::string& value) {
    const std::string device = usbDeviceName(property);
    KLX_LOG_AS("m_getPropValue", LogInfo, "GetDevicePropInfo inputDeviceName = [%s]",
               device.c_str());
    if (contains(property, "vendor") || contains(property, "model")) {
        value = CDeviceProperty::GetInstance()->getUSBDetail(device);
    }
}

void CDeviceInfoManager::m_setPropValue(std::string menu, std::string property, std::string value) {
    std::string key = keyOf(menu, property);
    propertySet(key, value);
}

void CDeviceInfoManager::propertySet(std::string& key, std::string& value) {
    KLX_LOG(LogInfo, "mapKeyID=[%s] value=[%s]", key.c_str(), value.c_str());
    const PropertyAccessor* const accessor = find(key);
    if (accessor == nullptr) {
        KLX_LOG(LogInfo, "menuID [%s] not found", key.c_str());
        return;
    }
    try {
        std::get<setterElement> (*accessor)(value);
    } catch (const std::exception& error) {
        KLX_LOG(LogWarning, "mapKeyID=[%s] exception: [%s]", key.c_str(), error.what());
    } catch (...) {
        KLX_LOG(LogError, "Exception in propertySetter mapKeyID=[%s]", key.c_str());
    }
}

void CDeviceInfoManager::prepareXMLData(Request& request, std::string& data) {
    const auto noise = KLX::XmlErrorScope::toLog();
    const XmlDocument document = newXmlDocument();
    const xmlNodePtr root = addRoot(document, "rm_as");
    setAttribute(root, "version", "2.5");
    const xmlNodePtr deviceInfo = addElement(root, "deviceInfo");
    setAttribute(deviceInfo, "devicetype", "TV");
    for (const auto& [category, paths] : request) {
        for (const std::string& path : paths) {
            if (path == wholeOf) {
                addCategory(deviceInfo, category);
                continue;
            }
            const std::string key = keyOf(category, path);
            if (const PropertyAccessor* const accessor = find(key)) {
                m_getPropValue(deviceInfo, key, key, *accessor);
            }
        }
    }
    std::string text;
    KLXCommonUtil::xmlDocumentToString(document.get(), text);
    noise.requireMemory();
    data = std::move(text);
}

// The category is a mere prefix, with no slash asked for behind it: "General" also collects the
// keys of "General & Privacy".
void CDeviceInfoManager::addCategory(xmlNodePtr deviceInfo, const std::string& category) {
    const auto belongs = [&category](const std::string& key) {
        return key.compare(1, category.size(), category) == 0;
    };
    for (auto at = m_properties->lower_bound("/" + category);
         at != m_properties->end() && belongs(at->first); ++at) {
        m_getPropValue(deviceInfo, at->first, at->first, at->second);
    }
}

void CDeviceInfoManager::m_getPropValue(xmlNodePtr parent, const std::string& treePath,
                                        const std::string& key, const PropertyAccessor& accessor) {
    const xmlNodePtr leaf = createTree(parent, treePath, treePath);
    const auto& fixedDefault = std::get<fixedDefaultElement>(accessor);
    if (fixedDefault) {
        setAttribute(leaf, "default", *fixedDefault);
    } else {
        KLX_LOG(LogDebug, "There is NO fixed default value.");
        setAttribute(leaf, "default", xmlValue(std::get<defaultGetterElement>(accessor), key));
    }
    setAttribute(leaf, "value", xmlValue(std::get<valueGetterElement>(accessor), key));
}

xmlNodePtr CDeviceInfoManager::createTree(xmlNodePtr parent, const std::string& fullPath,
                                          const std::string& remaining) {
    const PathSegment segment = firstSegment(remaining, fullPath);
    const std::string name = documentText(segment.name);
    const auto matches = KLXCommonUtil::xmlFindNodes(parent, "*[@name='" + name + "']");
    if (matches.size() > 1) {
        throw KLX::Exception("XML tree has invalid structure");
    }
    xmlNodePtr element = nullptr;
    if (matches.empty()) {
        KLX_LOG(LogDebug, "Creating %s", segment.name.c_str());
        element = addElement(parent, remaining == fullPath ? "menu" : "property");
        setAttribute(element, "name", name);
    } else {
        element = matches.front();
    }
    if (segment.length < remaining.size()) {
        return createTree(element, fullPath, remaining.substr(segment.length));
    }
    return element;
}
