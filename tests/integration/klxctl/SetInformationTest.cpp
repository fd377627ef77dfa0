#include "KlxctlTest.h"

#include <gmock/gmock.h>
#include <json/json.h>

#include <map>
#include <regex>
#include <sstream>

using testing::IsEmpty;
using testing::Not;

namespace {

using Values = std::map<std::string, std::string>;

struct Row {
    const char* path;
    testing::Matcher<std::string> value;
};

/// What the standard set tells about itself. Firmware and serial number are the machine's own where
/// it knows them.
std::vector<Row> expectedRows(const std::string& imageType) {
    return {
        {"SetInformation/Firmware_Version", Not(IsEmpty())},
        {"SetInformation/SerialNumber", Not(IsEmpty())},
        {"SetInformation/DUID", "KLX7QH2VN4D3M"},
        {"SetInformation/ProductYear", "2024"},
        {"SetInformation/LumoraVersion", "4.21.307"},
        {"SetInformation/ProductType", "0"},
        {"SetInformation/LocalSet", "EU"},
        {"SetInformation/Release_Date", "2024-03-18"},
        {"SetInformation/Watchdog_Count", "0"},
        {"SetInformation/ESN", "KLXTV-STD-0000417-7QH2VN4D3M"},
        {"SetInformation/Date_Of_Purchase", "2024-05-17"},
        {"SetInformation/WiFi No Detection Count", "0"},
        {"SetInformation/WiFi Detachment Count", "1"},
        {"SetInformation/BT No Detection Count", "0"},
        {"SetInformation/BT Detachment Count", "0"},
        {"SetInformation/SNRLevel", "25.34 dB"},
        {"SetInformation/HubSite", "hub-eu.klx.example"},
        {"SetInformation/Vcc Fail Count", "1"},
        {"SetInformation/AutoReset_Count", "2"},
        {"SetInformation/FRC3D ER Count", "0"},
        {"SetInformation/Fan Error Count", "0"},
        {"SetInformation/Serdes Error Count", "0"},
        {"SetInformation/Serdes Reset Count", "0"},
        {"SetInformation/Camera ER Count", "0"},
        {"Factory/Panel_Time", "1342"},
        {"Factory/Serial_Log", "0"},
        {"Factory/Region_Kind", "1"},
        {"Factory/RS232_Jack", "1"},
        {"Factory/Wifi Vendor Type", "2"},
        {"Factory/System Tuner Type", "3"},
        {"Factory/Language", "en_GB"},
        {"Factory/Wifi Version", "W-6.11.0"},
        {"Factory/Rexo Version", "R-2.7.1"},
        {"Factory/Submicom Version", "S-0412"},
        {"Factory/Image Type", imageType},
        {"Factory/EManual Version", "E-24.03"},
        {"Factory/Type", "55S1_EU"},
        {"Factory/Model", "KLX55S900"},
        {"Factory/OrielServerType", "Operating"},
        {"Factory/TCON_PMIC_ErrorCount", "0"},
        {"SystemInformation/LumoraWidgetAppUsage", "187342848"},
    };
}

/// None of these properties lies below another, so each is one line of its menu.
Values valuesOfXml(const std::string& document) {
    static const std::regex line(
        "<menu name=\"([^\"]*)\">|<property name=\"([^\"]*)\" default=\"[^\"]*\" "
        "value=\"([^\"]*)\"/>");
    Values values;
    std::string menu;
    for (std::sregex_iterator found(document.begin(), document.end(), line), end; found != end;
         ++found) {
        if ((*found)[1].matched) {
            menu = (*found)[1];
        } else {
            values[menu + "/" + (*found)[2].str()] = (*found)[3];
        }
    }
    return values;
}

Values valuesOfJson(const std::string& document) {
    Json::Value root;
    std::istringstream(document) >> root;
    Values values;
    for (const std::string& menu : root.getMemberNames()) {
        for (const std::string& name : root[menu].getMemberNames()) {
            values[menu + "/" + name] = root[menu][name]["Value"].asString();
        }
    }
    return values;
}

void expectAllRows(const Values& values, const std::string& imageType) {
    const std::vector<Row> rows = expectedRows(imageType);
    for (const Row& row : rows) {
        const auto found = values.find(row.path);
        ASSERT_NE(found, values.end()) << row.path;
        EXPECT_THAT(found->second, row.value) << row.path;
    }
    EXPECT_EQ(values.size(), rows.size());
}

class SetInformationTest : public KlxctlTest {
protected:
    std::string dumped(const std::string& format, const std::string& markers) const {
        const Outcome outcome = onPlayedHardware()
                                    .environment("KLXCTL_TEST_MARKERS", markers)
                                    .run({"dump", "SetInformation", "Factory", "SystemInformation",
                                          "--format", format});
        EXPECT_EQ(outcome.status, 0) << outcome.messages;
        return outcome.output;
    }
};

} // namespace

TEST_F(SetInformationTest, HasTheValueOfEveryRowInTheXmlDocument) {
    expectAllRows(valuesOfXml(dumped("xml", "/etc/debug")), "Debug Image");
    expectAllRows(valuesOfXml(dumped("xml", "")), "");
}

TEST_F(SetInformationTest, HasTheValueOfEveryRowInTheJsonDocument) {
    expectAllRows(valuesOfJson(dumped("json", "/etc/debug")), "Debug Image");
    expectAllRows(valuesOfJson(dumped("json", "")), "");
}

TEST_F(SetInformationTest, TellsTheFirstOfSeveralImageTypes) {
    expectAllRows(valuesOfXml(dumped("xml", "/etc/debug /etc/perf")), "Perf Image");
    expectAllRows(valuesOfXml(dumped("xml", "/etc/debug /etc/perf /etc/release")), "Release Image");
}
