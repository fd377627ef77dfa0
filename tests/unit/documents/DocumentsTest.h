#pragma once

#include "DeviceProperty.h"
#include "LogMatchers.h"
#include "Records.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <initializer_list>
#include <list>
#include <map>
#include <string>
#include <vector>

using Request = std::map<std::string, std::list<std::string>>;

constexpr auto json = CDeviceInfoManager::DATA_FORMAT_JSON;
constexpr auto xml = CDeviceInfoManager::DATA_FORMAT_XML;

inline std::string nameOf(CDeviceInfoManager::DataFormatType format) {
    return format == json ? "Json" : "Xml";
}

/** A fixture with a platform and records of its own. */
class DocumentsTest : public ::testing::Test {
protected:
    /** The registry asks for the model line when it is made, which is once in a process. */
    DocumentsTest() {
        CDeviceProperty::GetInstance();
        klx::fake::clearHistory();
    }

    std::string dump(const Request& request, CDeviceInfoManager::DataFormatType format) {
        std::string document;
        EXPECT_TRUE(CDeviceInfoManager::GetDeviceInfo(request, document, "", format));
        return document;
    }

    /** Restores; the log then holds the lines of this call only. */
    bool restore(const std::string& document, CDeviceInfoManager::DataFormatType format) {
        klx::fake::clearHistory();
        records.forgetApplied();
        return CDeviceInfoManager::SetDeviceInfo(document, format);
    }

    klx::fake::Scene scene;
    Records records;
};

/** An XML document whose "deviceInfo" holds these elements. */
inline std::string xmlDocument(const std::string& elements) {
    return "<?xml version=\"1.0\" encoding=\"utf-8\"?>\n<rm_as version=\"2.5\">"
           "<deviceInfo devicetype=\"TV\">" +
           elements + "</deviceInfo></rm_as>\n";
}

/** The same for one menu. */
inline std::string xmlMenu(const std::string& name, const std::string& elements) {
    return "<menu name=\"" + name + "\">" + elements + "</menu>";
}

inline std::string xmlProperty(const std::string& name, const std::string& value) {
    return "<property name=\"" + name + "\" default=\"\" value=\"" + value + "\"/>";
}

/** The lines of one function as "priority message". */
inline std::vector<std::string> linesOf(const std::string& function) {
    std::vector<std::string> lines;
    for (const klx::fake::LogLine& line : klx::fake::logs()) {
        if (line.function == function) {
            lines.push_back(std::to_string(line.priority) + " " + line.message);
        }
    }
    return lines;
}

/** The whole log as "priority function: message". */
inline std::vector<std::string> logText() {
    std::vector<std::string> lines;
    for (const klx::fake::LogLine& line : klx::fake::logs()) {
        lines.push_back(std::to_string(line.priority) + " " + line.function + ": " + line.message);
    }
    return lines;
}
