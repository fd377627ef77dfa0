#pragma once

#include "CpuInfo.h"
#include "InputDevice.h"
#include "KLXExport.h"
#include "PropertyAccessor.h"
#include "PropertyDescription.h"

#include <atomic>
#include <list>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

struct _xmlNode;

namespace Json {
class Value;
}

namespace boost {
class mutex;
}

/// The library's public face: reads and changes a television's settings and device information.
///
/// Every item is a property, named by a menu (its category) and a property name, which together
/// make its path: menu "Picture" and property "Expert Settings/HDR+ Mode" name
/// "/Picture/Expert Settings/HDR+ Mode". Values are always text: integers in decimal, flags as "1"
/// or "0", enumerations as their number.
///
/// All operations are static, may be called from any thread at any time, and never throw. They
/// return `true` for success. A failure inside one property (an unknown path, a setting that the
/// platform refuses) is no failure of the operation: it shows in the platform's log only.
///
/// The one instance is created at the first call and lives until the process ends; the library is
/// not meant to be unloaded.
class CDeviceInfoManager {
public:
    /// Form of a document.
    enum DataFormatType : int {
        DATA_FORMAT_JSON = 0,
        DATA_FORMAT_XML = 1,
    };

    /// Creates the instance; the other operations do so on demand. Calling it again does nothing.
    /// @return false only when the creation failed, which a later call tries again
    /// @code
    /// bool isReady = CDeviceInfoManager::Initialize();   // so that no later call takes the time
    /// @endcode
    KLX_API static bool Initialize();

    /// Reads one property.
    /// @param menuItemName  category, such as "Picture"; may contain slashes
    /// @param propertyName  path within the category, such as "Backlight"
    /// @param propertyValue receives the value, "" when it cannot be read; left as it is when there
    ///                      is no such property
    /// @return true, also for an unknown property; false only when the instance cannot be created
    ///         or reading threw, because memory ran out or a platform call threw. The log tells.
    /// @code
    /// std::string value;
    /// CDeviceInfoManager::GetDevicePropertyValue("Picture", "Backlight", value);   // "20"
    /// @endcode
    KLX_API static bool GetDevicePropertyValue(std::string menuItemName, std::string propertyName,
                                               std::string& propertyValue);

    /// Changes one property.
    /// @param menuItemName  category, as for `GetDevicePropertyValue`
    /// @param propertyName  path within the category
    /// @param propertyValue the new value as text
    /// @return true, also for an unknown or read-only property and for a value that the platform
    ///         refuses; read the property back to see what it holds. false only when the instance
    ///         cannot be created, or when writing threw, as for `GetDevicePropertyValue`; whether
    ///         the platform took the value is not known then.
    /// @code
    /// CDeviceInfoManager::SetDevicePropertyValue("Picture", "Backlight", "35");
    /// @endcode
    KLX_API static bool SetDevicePropertyValue(std::string menuItemName, std::string propertyName,
                                               std::string propertyValue);

    /// Reads many properties into one document that holds the current and the default value of
    /// each.
    /// @param request  categories, each with a list of paths within it; the path "*" stands for all
    ///                 of the category, a first category "*" for the ten categories of the menu.
    ///                 Unknown paths are left out.
    /// @param data     receives the document (UTF-8)
    /// @param filePath a file to write the document to as well; none when empty
    /// @param format   the document's form
    /// @return false when the format is unknown, the document cannot be built or the file cannot be
    ///         written; @p data then holds what it was given before the failure
    /// @code
    /// std::string document;
    /// CDeviceInfoManager::GetDeviceInfo({{"Picture", {"*"}}}, document, "",
    ///                                   CDeviceInfoManager::DATA_FORMAT_XML);
    /// @endcode
    KLX_API static bool GetDeviceInfo(std::map<std::string, std::list<std::string>> request,
                                      std::string& data, std::string filePath,
                                      DataFormatType format);

    /// Restores: applies every value of a document of the form that `GetDeviceInfo` makes. What
    /// other settings depend on is applied first. Defaults are never applied; values are applied as
    /// they stand, empty ones included.
    /// @param data   the document; may come from anywhere, nothing that it refers to is loaded
    /// @param format the document's form
    /// @return false when the format is unknown, when the document is empty, cannot be read or has
    ///         no such form, when a property that must come first is unknown (XML only), when the
    ///         instance cannot be created, or when something threw; what was applied before stays
    ///         applied. Unknown properties and values that the platform refuses are logged.
    /// @code
    /// CDeviceInfoManager::SetDeviceInfo(document, CDeviceInfoManager::DATA_FORMAT_XML);
    /// @endcode
    KLX_API static bool SetDeviceInfo(std::string data, DataFormatType format);

    /// Lists what the library knows of each property: where it comes from, whether it can be
    /// written, its fixed default. Asks the platform for nothing and keeps nothing afterwards.
    /// @param properties receives one description for each property, in byte order of the paths;
    ///                   left as it is on failure
    /// @return false only when the creation of the instance failed or memory ran out
    /// @code
    /// std::vector<PropertyDescription> properties;
    /// CDeviceInfoManager::DescribeProperties(properties);
    /// for (const PropertyDescription& property : properties) {
    ///     std::cout << property.path << (property.isWritable ? "" : " (read-only)") << '\n';
    /// }
    /// @endcode
    KLX_API static bool DescribeProperties(std::vector<PropertyDescription>& properties);

    /// Lists the external inputs with their states and with what is attached to the USB ones, as
    /// one look at the set shows them. No property tells the latter for each device.
    /// @param devices receives the inputs in their fixed order, HDMI, AV, COMP, SCART, USB; left as
    ///                it is on failure
    /// @return false only when the creation of the instance failed, a platform call threw or memory
    ///         ran out. A port's state that cannot be read is logged and shows in that input only;
    ///         where the attached USB devices cannot be listed, each USB input has the state "0",
    ///         as if nothing were attached, and no line is logged.
    /// @code
    /// std::vector<InputDevice> devices;
    /// CDeviceInfoManager::ListInputDevices(devices);
    /// // devices.back(): {"USB4", "0", "", ""}
    /// @endcode
    KLX_API static bool ListInputDevices(std::vector<InputDevice>& devices);

    // The diagnostics below need no initialisation.

    /// Reads a custom value of the system information.
    /// @param key  its name
    /// @param type "string", "bool", or anything else for an integer
    /// @return the value, "" on failure
    /// @code
    /// CDeviceInfoManager::getFMSvalue("com.example/feature", "int");   // "1"
    /// @endcode
    KLX_API static std::string getFMSvalue(std::string key, std::string type);

    /// Writes a value of the set's configuration by a shell command. A shell reads both texts as
    /// they are, so they must never come from somebody who is not trusted. The outcome is logged.
    /// @param key   its name
    /// @param value the new value
    /// @code
    /// CDeviceInfoManager::setFMSvalue("com.example/feature", "1");
    /// @endcode
    KLX_API static void setFMSvalue(std::string key, std::string value);

    /// Takes a sample of the time that the processors have spent since the set was started.
    /// @param info receives clock ticks
    /// @return 1 on success; 0 on failure, the record is then zeroed
    /// @code
    /// CPU_INFO info{};
    /// CDeviceInfoManager::getCPUInfo(info);   // info.idle: 2412880
    /// @endcode
    KLX_API static int getCPUInfo(CPU_INFO& info);

    /// Measures the processors' load over one second, for which the call blocks.
    /// @param usage receives the busy share in percent, 0 to 100 unless the kernel's counters
    ///              started anew within the second
    /// @return 1 on success; 0 on failure, the output is then untouched
    /// @code
    /// int usage = 0;
    /// CDeviceInfoManager::getCPUusage(usage);   // 17
    /// @endcode
    KLX_API static int getCPUusage(int& usage);

    /// Measures the storage for applications, the file system of "/opt".
    /// @param free  receives bytes; of 71 and more, 70 are counted as used instead
    /// @param used  receives bytes
    /// @param total receives bytes
    /// @return 1 on success; 0 on failure, the outputs are then untouched
    /// @code
    /// long long free = 0, used = 0, total = 0;
    /// CDeviceInfoManager::getMemInfo(free, used, total);   // total: 4294967296
    /// @endcode
    KLX_API static int getMemInfo(long long& free, long long& used, long long& total);

    /// Measures the memory in use, swap included.
    /// @param used receives bytes
    /// @return 1 on success; 0 on failure, the output is then untouched
    /// @code
    /// long long used = 0;
    /// CDeviceInfoManager::getMemoryUsage(used);   // 812339200
    /// @endcode
    KLX_API static int getMemoryUsage(long long& used);

private:
    // Lets unit tests, which link the library's objects, bring records of their own.
    friend struct DeviceInfoManagerSeam;

    using Request = std::map<std::string, std::list<std::string>>;
    using Record = PropertyAccessorMap::value_type;

    CDeviceInfoManager();
    explicit CDeviceInfoManager(PropertyAccessorMap&& properties);
    CDeviceInfoManager(const CDeviceInfoManager&) = delete;
    CDeviceInfoManager& operator=(const CDeviceInfoManager&) = delete;
    ~CDeviceInfoManager();

    static void createInstance();
    static CDeviceInfoManager& instanceFor(const char* operation,
                                           const char* notice = "Not yet initialized");

    const PropertyAccessor* find(const std::string& key) const;

    void m_getPropValue(std::string menu, std::string property, std::string& value);
    void readUsbProperty(const std::string& property, std::string& value);
    void m_setPropValue(std::string menu, std::string property, std::string value);
    void propertySet(std::string& key, std::string& value);

    template <class Visit>
    void visitCategory(const std::string& category, Visit visit) const;

    std::size_t expectedProperties(const Request& request) const;
    void prepareXMLData(Request& request, std::string& data);
    void m_getPropValue(_xmlNode* parent, const std::string& treePath, const std::string& key,
                        const PropertyAccessor& accessor);
    _xmlNode* createTree(_xmlNode* parent, const std::string& fullPath, std::string_view remaining);

    void prepareDeviceInfoData(Request& request, std::string& data);
    void addVisited(const std::string& category, const std::string& key,
                    const PropertyAccessor& accessor, Json::Value& root);
    void addProperty(const std::string& category, const std::string& property, Json::Value& root);
    void m_getPropValue(std::string menu, std::string property, Json::Value& root,
                        std::string device);
    bool createJsonNode(std::string& text, Json::Value& root);

    void restoreXml(const std::string& data);
    int restore(_xmlNode* first, const std::string& prefix, const std::string& only);
    void restoreLeaf(_xmlNode* element, std::string& path, const std::string& only);
    void parseJsonData(Json::Value& root);
    void restore(const Json::Value& menuNode, const std::string& menu, const std::string& property);
    void restoreMenu(const Json::Value& menuNode, const std::string& menu);
    void restoreProperty(const Json::Value& node, std::string key, bool isSource);
    void restoreValue(const Json::Value& node, std::string key);

    const std::unique_ptr<PropertyAccessorMap> m_properties;
    // Restored before all others, in this order, because other settings depend on them.
    const std::vector<std::string> m_specialPaths;

    static std::atomic<CDeviceInfoManager*> m_pDeviceInfoManager;
    static boost::mutex m_mutex;
};
