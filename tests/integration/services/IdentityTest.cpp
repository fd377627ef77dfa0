#include "HostTest.h"

#include "IPowerControl.h"
#include "appserver.h"
#include "esn.h"

#include <cstdlib>
#include <vector>

namespace KLX::Host {
namespace {

void useProfile(const std::string& file, const std::string& text) {
    writeFile(file, text);
    ASSERT_EQ(setenv("KLX_PROFILE", file.c_str(), 1), 0);
}

class Identity : public HostTest {};

TEST_F(Identity, TellsTheEsnAndItsLength) {
    std::vector<char> buffer(64, '#');
    auto length = static_cast<int>(buffer.size());
    ASSERT_EQ(esn_get(buffer.data(), &length), success);
    EXPECT_EQ(std::string(buffer.data(), static_cast<std::size_t>(length)),
              "KLXTV-STD-0000417-7QH2VN4D3M");
    EXPECT_EQ(buffer.at(static_cast<std::size_t>(length)), '#');
}

TEST_F(Identity, WritesNoEsnWhereTheRoomIsTooSmall) {
    char buffer[4] = {'#', '#', '#', '#'};
    int length = 4;
    EXPECT_EQ(esn_get(buffer, &length), numberOf(HostError::ValueTooLong));
    EXPECT_EQ(buffer[0], '#');
    EXPECT_EQ(esn_get(nullptr, &length), numberOf(HostError::NullPointer));
    EXPECT_EQ(esn_get(buffer, nullptr), numberOf(HostError::NullPointer));
}

TEST_F(Identity, TellsTheVersionOfAnApplication) {
    appserver_app_info_s info{};
    EXPECT_EQ(appserver_get_app_info("10140000000", &info), success);
    EXPECT_STREQ(info.version, "4.21.307");
    EXPECT_EQ(appserver_get_app_info("none", &info), numberOf(HostError::UnknownKey));
    EXPECT_EQ(appserver_get_app_info(nullptr, &info), numberOf(HostError::NullPointer));
}

TEST_F(Identity, TellsHubSiteAndMemory) {
    appserver_debug_info_s info{};
    EXPECT_EQ(appserver_get_debug_info(&info), success);
    EXPECT_STREQ(info.hub_site, "hub-eu.klx.example");
    char* text = nullptr;
    ASSERT_EQ(appserver_get_used_memory(&text), success);
    EXPECT_STREQ(text, "187342848");
    std::free(text);
}

TEST_F(Identity, FailsWhereTheProfileIsSilent) {
    useProfile(m_folder.path("bare.json"), R"({"model": "Bare"})");
    char* text = nullptr;
    appserver_debug_info_s info{};
    char buffer[64];
    int length = 64;
    int count = 0;
    EXPECT_EQ(appserver_get_used_memory(&text), numberOf(HostError::NoValue));
    EXPECT_EQ(appserver_get_debug_info(&info), numberOf(HostError::NoValue));
    EXPECT_EQ(esn_get(buffer, &length), numberOf(HostError::NoValue));
    EXPECT_LT(IPowerControl::getInstance()->getPowerFailCount(&count), 0);
}

TEST_F(Identity, CutsATextThatNoRecordHolds) {
    useProfile(m_folder.path("long.json"),
               R"({"model": "Long", "applicationServer": {"hubSite": ")" + std::string(5000, 'h') +
                   R"("}})");
    appserver_debug_info_s info{};
    EXPECT_EQ(appserver_get_debug_info(&info), success);
    EXPECT_EQ(std::string(info.hub_site), std::string(sizeof info.hub_site - 1, 'h'));
}

TEST_F(Identity, CountsPowerFailures) {
    int count = -1;
    EXPECT_GE(IPowerControl::getInstance()->getPowerFailCount(&count), 0);
    EXPECT_EQ(count, 1);
    EXPECT_LT(IPowerControl::getInstance()->getPowerFailCount(nullptr), 0);
}

TEST_F(Identity, CountsWatchdogResetsOfTheKernelOrTheProfile) {
    int count = -1;
    EXPECT_GE(IPowerControl::getInstance()->getWatchdogCount(&count), 0);
    EXPECT_GE(count, 0);
    EXPECT_LT(IPowerControl::getInstance()->getWatchdogCount(nullptr), 0);
}

} // namespace
} // namespace KLX::Host
