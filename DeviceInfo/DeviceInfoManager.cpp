#include "DeviceInfoManager.h"

#include "DeviceProperty.h"
#include "DocumentText.h"
#include "Exception.h"
#include "KLXCommonUtil.h"
#include "Log.h"
#include "PropertyPath.h"
#include "XmlDocument.h"
#include "XmlDocumentBuilder.h"
#include "XmlErrors.h"

#include <boost/optional.hpp>
#include <boost/thread/lock_guard.hpp>
#include <boost/thread/mutex.hpp>
#include <json/json.h>
#include <libxml/parser.h>

#include <algorithm>
#include <climits>
#include <sstream>

std::atomic<CDeviceInfoManager*> CDeviceInfoManager::m_pDeviceInfoManager{nullptr};
boost::mutex CDeviceInfoManager::m_mutex;

namespace {

const std::string wholeOf = "*";
const std::string sourceConnect = "Source_Connect";

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

template <class Forward>
int forwarded(const char* operation, Forward forward) noexcept {
    try {
        return forward();
    } catch (...) {
        logFailedRead(operation);
        return 0;
    }
}

std::string joined(const std::string& path, const std::string& name) {
    std::string longer;
    longer.reserve(path.size() + 1 + name.size());
    longer += path;
    longer += '/';
    longer += name;
    return longer;
}

std::string keyOf(const std::string& menu, const std::string& property) {
    std::string key;
    key.reserve(menu.size() + property.size() + 2);
    key += '/';
    key += menu;
    key += '/';
    key += property;
    return key;
}

bool contains(const std::string& text, std::string_view part) {
    return text.find(part) != std::string::npos;
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

/// A value for the JSON document; a failure costs this value only.
std::string jsonValue(const PropertyGetter& getter, const char* failure) {
    try {
        return getter("");
    } catch (...) {
        KLX_LOG_AS("m_getPropValue", LogWarning, "%s", failure);
        return "";
    }
}

std::string jsonDefault(const PropertyAccessor& accessor) {
    constexpr const char* operation = "m_getPropValue";
    if (const auto& fixedDefault = std::get<fixedDefaultElement>(accessor)) {
        KLX_LOG_AS(operation, LogDebug, "There is fixed default value.");
        return *fixedDefault;
    }
    KLX_LOG_AS(operation, LogDebug, "There is NO fixed default value.");
    return jsonValue(std::get<defaultGetterElement>(accessor), "Exception: caught");
}

/// What the JSON document holds of one property.
struct JsonAnswers {
    std::string defaultText;
    std::string value;
};

JsonAnswers jsonAnswers(const PropertyAccessor& accessor) {
    // Asked in this order.
    std::string defaultText = jsonDefault(accessor);
    return {std::move(defaultText),
            jsonValue(std::get<valueGetterElement>(accessor), "Exception caught")};
}

// Names that no member takes a copy of.
const Json::StaticString defaultMember("Default");
const Json::StaticString valueMember("Value");

void setAnswers(Json::Value& entry, const JsonAnswers& answers) {
    entry[defaultMember] = documentText(answers.defaultText);
    entry[valueMember] = documentText(answers.value);
}

const Json::Value* memberOf(const Json::Value& object, std::string_view name) {
    return object.find(name.data(), name.data() + name.size());
}

/// What `Json::writeString` gives, but for want of memory that would give the half that is written.
std::string textOf(const Json::Value& root) {
    std::ostringstream text;
    text.exceptions(std::ios_base::failbit | std::ios_base::badbit);
    const std::unique_ptr<Json::StreamWriter> writer(Json::StreamWriterBuilder().newStreamWriter());
    writer->write(root, &text);
    return text.str();
}

/// @throws KLX::Exception, so that one odd member is logged and costs nothing else
const Json::Value& requireObject(const Json::Value& node) {
    if (!node.isObject()) {
        throw KLX::Exception("JSON object expected");
    }
    return node;
}

bool isNamed(xmlNodePtr element, const char* name) {
    return xmlStrEqual(element->name, reinterpret_cast<const xmlChar*>(name)) != 0;
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
    const auto noise = KLX::XmlErrorScope::toLog();
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

CDeviceInfoManager& CDeviceInfoManager::instanceFor(const char* operation, const char* notice) {
    if (m_pDeviceInfoManager.load(std::memory_order_acquire) == nullptr) {
        KLX_LOG_AS(operation, LogInfo, "%s", notice);
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
        if (format == DATA_FORMAT_JSON) {
            manager.prepareDeviceInfoData(request, data);
        } else if (format == DATA_FORMAT_XML) {
            manager.prepareXMLData(request, data);
        } else {
            KLX_LOG(LogInfo, "invalid data format");
            return false;
        }
        if (!filePath.empty()) {
            KLX_LOG(LogInfo, "dataSize=[%zu] filePath = [%s]", data.size(), filePath.c_str());
            KLXCommonUtil::writeStrToFile(data, filePath);
        }
        return true;
    } catch (...) {
        return logFailedRead(__func__);
    }
}

bool CDeviceInfoManager::SetDeviceInfo(std::string data, DataFormatType format) {
    try {
        KLX_LOG(LogInfo, "SetDeviceInfo start");
        if (data.empty()) {
            KLX_LOG(LogInfo, "deviceInfoData is empty");
            return false;
        }
        CDeviceInfoManager& manager = instanceFor(__func__, "Not yet initialized, initializing...");
        if (format == DATA_FORMAT_XML) {
            manager.restoreXml(data);
            return true;
        }
        if (format != DATA_FORMAT_JSON) {
            KLX_LOG(LogInfo, "invalid data format");
            return false;
        }
        Json::Value root;
        if (!manager.createJsonNode(data, root)) {
            KLX_LOG(LogInfo, "could not create jsonNode");
            return false;
        }
        manager.parseJsonData(root);
        return true;
    } catch (const std::exception& error) {
        KLX_LOG(LogWarning, "exception: [%s]", error.what());
    } catch (...) {
        KLX_LOG(LogError, "Exception in setDeviceInfo");
    }
    return false;
}

std::string CDeviceInfoManager::getFMSvalue(std::string key, std::string type) {
    try {
        return factoryInfo::getFMSvalueUtil(std::move(key), std::move(type));
    } catch (...) {
        logFailedRead(__func__);
        return "";
    }
}

void CDeviceInfoManager::setFMSvalue(std::string key, std::string value) {
    try {
        factoryInfo::setFMSvalueUtil(std::move(key), std::move(value));
    } catch (...) {
        logFailedRead(__func__);
    }
}

int CDeviceInfoManager::getCPUInfo(CPU_INFO& info) {
    return forwarded(__func__, [&info] { return DeviceInfoGeneral::getCPUInfoUtil(info); });
}

int CDeviceInfoManager::getCPUusage(int& usage) {
    return forwarded(__func__, [&usage] { return DeviceInfoGeneral::getCPUusageUtil(usage); });
}

int CDeviceInfoManager::getMemInfo(long long& free, long long& used, long long& total) {
    return forwarded(__func__,
                     [&] { return DeviceInfoGeneral::getMemInfoUtil(free, used, total); });
}

int CDeviceInfoManager::getMemoryUsage(long long& used) {
    return forwarded(__func__, [&used] { return DeviceInfoGeneral::getMemoryUsageUtil(used); });
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

// The category is a mere prefix, with no slash asked for behind it: "General" also collects the
// keys of "General & Privacy".
template <class Visit>
void CDeviceInfoManager::visitCategory(const std::string& category, Visit visit) const {
    const auto belongs = [&category](const std::string& key) {
        return key.compare(1, category.size(), category) == 0;
    };
    for (auto at = m_properties->lower_bound("/" + category);
         at != m_properties->end() && belongs(at->first); ++at) {
        visit(*at);
    }
}

/// How many properties the request brings at most. Unknown paths count, too: none is looked up.
std::size_t CDeviceInfoManager::expectedProperties(const Request& request) const {
    std::size_t expected = 0;
    for (const auto& [category, paths] : request) {
        for (const std::string& path : paths) {
            if (expected >= m_properties->size()) {
                return m_properties->size();
            }
            if (path == wholeOf) {
                visitCategory(category, [&expected](const Record&) { ++expected; });
            } else {
                ++expected;
            }
        }
    }
    return std::min(expected, m_properties->size());
}

void CDeviceInfoManager::prepareXMLData(Request& request, std::string& data) {
    const auto noise = KLX::XmlErrorScope::toLog();
    XmlDocumentBuilder builder(expectedProperties(request));
    const xmlNodePtr root = builder.addRoot("rm_as");
    builder.setAttribute(root, "version", "2.5");
    const xmlNodePtr deviceInfo = builder.addElement(root, "deviceInfo");
    builder.setAttribute(deviceInfo, "devicetype", "TV");
    const auto add = [this, deviceInfo](const Record& record) {
        const auto& [key, accessor] = record;
        m_getPropValue(deviceInfo, key, key, accessor);
    };
    for (const auto& [category, paths] : request) {
        for (const std::string& path : paths) {
            if (path == wholeOf) {
                visitCategory(category, add);
            } else if (const auto found = m_properties->find(keyOf(category, path));
                       found != m_properties->end()) {
                add(*found);
            }
        }
    }
    std::string text;
    KLXCommonUtil::xmlDocumentToString(builder.document(), text);
    noise.requireMemory();
    data = std::move(text);
}

void CDeviceInfoManager::m_getPropValue(xmlNodePtr parent, const std::string& treePath,
                                        const std::string& key, const PropertyAccessor& accessor) {
    const xmlNodePtr leaf = createTree(parent, treePath, treePath);
    XmlDocumentBuilder& builder = XmlDocumentBuilder::of(leaf);
    const auto& fixedDefault = std::get<fixedDefaultElement>(accessor);
    if (fixedDefault) {
        builder.setAttribute(leaf, "default", *fixedDefault);
    } else {
        KLX_LOG(LogDebug, "There is NO fixed default value.");
        builder.setAttribute(leaf, "default",
                             xmlValue(std::get<defaultGetterElement>(accessor), key));
    }
    builder.setAttribute(leaf, "value", xmlValue(std::get<valueGetterElement>(accessor), key));
}

xmlNodePtr CDeviceInfoManager::createTree(xmlNodePtr parent, const std::string& fullPath,
                                          std::string_view remaining) {
    const PathSegment segment = firstSegment(remaining, fullPath);
    const std::string name = documentText(segment.name);
    XmlDocumentBuilder& builder = XmlDocumentBuilder::of(parent);
    xmlNodePtr element = builder.childNamed(parent, name);
    if (element == nullptr) {
        KLX_LOG(LogDebug, "Creating %s", segment.name.c_str());
        const bool isFirst = remaining.size() == fullPath.size();
        element = builder.addNamedElement(parent, isFirst ? "menu" : "property", name);
    }
    if (segment.length < remaining.size()) {
        return createTree(element, fullPath, remaining.substr(segment.length));
    }
    return element;
}

void CDeviceInfoManager::prepareDeviceInfoData(Request& request, std::string& data) {
    KLX_LOG(LogDebug, "prepareDeviceInfoData");
    Json::Value root;
    for (const auto& [category, paths] : request) {
        const auto add = [&, &menu = category](const Record& record) {
            addVisited(menu, record.first, record.second, root);
        };
        for (const std::string& path : paths) {
            if (path == wholeOf) {
                visitCategory(category, add);
            } else {
                addProperty(category, path, root);
            }
        }
    }
    data = textOf(root);
}

void CDeviceInfoManager::addVisited(const std::string& category, const std::string& key,
                                    const PropertyAccessor& accessor, Json::Value& root) {
    const std::size_t cut = category.size() + 2;
    if (key.size() < cut) {
        return;
    }
    const std::string property = key.substr(cut);
    // Behind a mere prefix, and without a slash before it, the composed key is another one.
    const bool isComposed = key.front() == '/' && key[cut - 1] == '/';
    if (isComposed && !contains(property, sourceConnect)) {
        const JsonAnswers answers = jsonAnswers(accessor);
        setAnswers(root[documentText(category)][documentText(property)], answers);
    } else {
        addProperty(category, property, root);
    }
}

void CDeviceInfoManager::addProperty(const std::string& category, const std::string& property,
                                     Json::Value& root) {
    if (!contains(property, sourceConnect)) {
        m_getPropValue(category, property, root, "");
        return;
    }
    std::vector<std::string> devices;
    CDeviceProperty::GetInstance()->getInputDeviceList(devices);
    for (const std::string& device : devices) {
        m_getPropValue(category, sourceConnect, root, device);
    }
}

void CDeviceInfoManager::m_getPropValue(std::string menu, std::string property, Json::Value& root,
                                        std::string device) {
    const bool isSource = property == sourceConnect;
    const std::string key = keyOf(menu, property) + (isSource ? "/" + device : "");
    const PropertyAccessor* const accessor = find(key);
    if (accessor == nullptr) {
        KLX_LOG(LogWarning, "key=[%s] does not exist", key.c_str());
        return;
    }
    const JsonAnswers answers = jsonAnswers(*accessor);
    Json::Value& node = root[documentText(std::move(menu))][documentText(std::move(property))];
    Json::Value& entry = isSource ? node[documentText(device)] : node;
    setAnswers(entry, answers);
    if (isSource && contains(device, "USB") && answers.value == "1") {
        entry["vendor"]["Default"] = "0";
        entry["vendor"]["Value"] =
            documentText(CDeviceProperty::GetInstance()->getUSBDetail(device));
    }
}

bool CDeviceInfoManager::createJsonNode(std::string& text, Json::Value& root) {
    try {
        const std::unique_ptr<Json::CharReader> reader(Json::CharReaderBuilder().newCharReader());
        std::string errors;
        if (reader->parse(text.data(), text.data() + text.size(), &root, &errors)) {
            return true;
        }
        KLX_LOG(LogWarning, "could not read json data = [%s]", errors.c_str());
    } catch (const std::exception& error) {
        KLX_LOG(LogWarning, "exception: [%s]", error.what());
    } catch (...) {
        KLX_LOG(LogWarning, "unknown error occured");
    }
    return false;
}

void CDeviceInfoManager::restoreXml(const std::string& data) {
    const auto noise = KLX::XmlErrorScope::toLog();
    const XmlDocument document = parseXmlDocument(data);
    // The parser calls a document well-formed whose rest it had no memory for.
    noise.requireMemory();
    const xmlNodePtr root = xmlDocGetRootElement(document.get());
    for (xmlNodePtr node = root->children; node != nullptr; node = node->next) {
        if (node->type != XML_ELEMENT_NODE || !isNamed(node, "deviceInfo")) {
            continue;
        }
        for (const std::string& path : m_specialPaths) {
            restore(node->children, "", path);
        }
        restore(node->children, "", "");
    }
}

int CDeviceInfoManager::restore(xmlNodePtr first, const std::string& prefix,
                                const std::string& only) {
    int leaves = 0;
    xmlNodePtr next = nullptr;
    for (xmlNodePtr element = first; element != nullptr; element = next) {
        // The element may be gone afterwards.
        next = element->next;
        if (element->type != XML_ELEMENT_NODE) {
            continue;
        }
        std::string path =
            joined(prefix, withDoubledSlashes(KLXCommonUtil::xmlGetAttribute(element, "name")));
        if (isNamed(element, "menu") || isNamed(element, "property")) {
            const int below = restore(element->children, path, only);
            leaves += below;
            if (below != 0 || prefix.empty()) {
                continue;
            }
        }
        ++leaves;
        restoreLeaf(element, path, only);
    }
    return leaves;
}

void CDeviceInfoManager::restoreLeaf(xmlNodePtr element, std::string& path,
                                     const std::string& only) {
    constexpr const char* operation = "restore";
    if (xmlHasProp(element, reinterpret_cast<const xmlChar*>("value")) == nullptr) {
        KLX_LOG_AS(operation, LogInfo, "Path does not contain attribute value: %s", path.c_str());
        return;
    }
    std::string value = KLXCommonUtil::xmlGetAttribute(element, "value");
    KLX_LOG_AS(operation, LogInfo, "Restoring value of %s to %s", path.c_str(), value.c_str());
    if (only.empty()) {
        propertySet(path, value);
    } else if (path == only) {
        std::get<setterElement>(m_properties->at(path))(value);
        // The pass over all values must not apply it a second time.
        xmlUnlinkNode(element);
        xmlFreeNode(element);
    }
}

void CDeviceInfoManager::parseJsonData(Json::Value& root) {
    try {
        KLX_LOG(LogInfo, "start");
        const Json::Value& menus = root;
        for (const std::string& path : m_specialPaths) {
            const std::size_t slash = path.find('/', 1);
            const std::string menu = path.substr(1, slash - 1);
            if (!menus[menu].isNull()) {
                restore(menus[menu], menu, path.substr(slash + 1));
            }
        }
        for (auto menu = menus.begin(); menu != menus.end(); ++menu) {
            restoreMenu(*menu, menu.name());
        }
    } catch (const std::exception& error) {
        KLX_LOG(LogWarning, "exception: [%s]", error.what());
    } catch (...) {
        KLX_LOG(LogError, "Exception in parseJsonData");
    }
}

void CDeviceInfoManager::restoreMenu(const Json::Value& menuNode, const std::string& menu) {
    KLX_LOG_AS("parseJsonData", LogInfo, "menu=[%s]", menu.c_str());
    if (!menuNode.isObject()) {
        return;
    }
    for (auto property = menuNode.begin(); property != menuNode.end(); ++property) {
        restoreProperty(*property, keyOf(menu, property.name()), property.name() == sourceConnect);
    }
}

void CDeviceInfoManager::restore(const Json::Value& menuNode, const std::string& menu,
                                 const std::string& property) {
    try {
        if (const Json::Value* const node = memberOf(requireObject(menuNode), property)) {
            restoreProperty(*node, keyOf(menu, property), property == sourceConnect);
        }
    } catch (const std::exception& error) {
        KLX_LOG(LogWarning, "exception: [%s]", error.what());
    }
}

void CDeviceInfoManager::restoreProperty(const Json::Value& node, std::string key, bool isSource) {
    constexpr const char* operation = "restore";
    try {
        if (!isSource) {
            restoreValue(node, std::move(key));
            return;
        }
        for (const std::string& device : requireObject(node).getMemberNames()) {
            restoreValue(node[device], key + "/" + device);
        }
    } catch (const std::exception& error) {
        KLX_LOG_AS(operation, LogWarning, "exception: [%s]", error.what());
    }
}

void CDeviceInfoManager::restoreValue(const Json::Value& node, std::string key) {
    constexpr const char* operation = "restore";
    try {
        const Json::Value* const held = memberOf(requireObject(node), "Value");
        if (held == nullptr) {
            KLX_LOG_AS(operation, LogInfo, "Path does not contain attribute value: %s",
                       key.c_str());
            return;
        }
        std::string value = held->asString();
        propertySet(key, value);
    } catch (const std::exception& error) {
        KLX_LOG_AS(operation, LogWarning, "exception: [%s]", error.what());
    }
}
