#pragma once

#include "DeviceProperty.h"
#include "LogMatchers.h"
#include "ManagerSeam.h"
#include "Records.h"

#include <gmock/gmock.h>

#include <optional>
#include <string>

namespace fake = klx::fake;

namespace klx::test {

/** A line of the manager's own. */
inline fake::LineMatcher managerLine(int priority, const std::string& function,
                                     const std::string& message) {
    return fake::LineIn("DeviceInfoManager.cpp", priority, function, message);
}

/** The line with which a read begins. */
inline fake::LineMatcher readLine(const std::string& menu, const std::string& property) {
    return managerLine(4, "GetDevicePropertyValue",
                       "GetDevicePropValue menuItemName = [" + menu + "] PropertyName = [" +
                           property + "]");
}

/** The line with which a read tells what it found. */
inline fake::LineMatcher foundLine(const std::string& menu, const std::string& property,
                                   const std::string& value) {
    return managerLine(4, "m_getPropValue",
                       "GetDevicePropInfo menuItemName = [" + menu + "] PropertyName = [" +
                           property + "] propertyValue = [" + value + "]");
}

/** The line with which a read ends. */
inline fake::LineMatcher gaveLine(const std::string& value) {
    return managerLine(4, "GetDevicePropertyValue", "propertyValue = [" + value + "]");
}

/** The line with which a write begins. */
inline fake::LineMatcher writeLine(const std::string& menu, const std::string& property,
                                   const std::string& value) {
    return managerLine(4, "SetDevicePropertyValue",
                       "SetDevicePropValue menuItemName = [" + menu + "] propertyName = [" +
                           property + "] propertyValue =[" + value + "]");
}

/** The line with which a write tells the key. */
inline fake::LineMatcher keyLine(const std::string& key, const std::string& value) {
    return managerLine(4, "propertySet", "mapKeyID=[" + key + "] value=[" + value + "]");
}

/** Makes the registry's instance, which asks the platform once a process, out of a test's sight. */
inline void makeRegistry() {
    CDeviceProperty::GetInstance();
    fake::clearHistory();
}

/** Tests of the manager's operations over records of their own. */
class ManagerTest : public ::testing::Test {
protected:
    ManagerTest() { makeRegistry(); }

    using Request = std::map<std::string, std::list<std::string>>;

    void use(PropertyAccessorMap records) { seam.emplace(std::move(records)); }

    /** Lets the log throw when it is given a line with this message. */
    template <class E>
    void throwAtLine(const std::string& message, E exception) {
        scene.onCall("__dlog_print", [message, exception] {
            if (fake::logs().back().message == message) {
                throw exception;
            }
        });
    }

    /** The XML document for a request, which has to succeed. */
    static std::string documentFor(const Request& request) {
        std::string document;
        EXPECT_TRUE(CDeviceInfoManager::GetDeviceInfo(request, document, "",
                                                      CDeviceInfoManager::DATA_FORMAT_XML));
        return document;
    }

    fake::Scene scene;
    std::optional<DeviceInfoManagerSeam> seam{std::in_place};
};

} // namespace klx::test
