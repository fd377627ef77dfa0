#include "IdentityTest.h"

using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace {

constexpr const char* portal = "10140000000";

using PowerCountersTest = IdentityTest;

TEST_F(PowerCountersTest, AreNumbers) {
    scene.powerFailCount(3).watchdogCount(12);
    EXPECT_EQ(device.getVccFailCount(), "3");
    EXPECT_EQ(device.getWatchDogCount(), "12");
    EXPECT_THAT(fake::history(),
                ElementsAre("PowerControl.getInstance()", "PowerControl.getPowerFailCount()",
                            "PowerControl.getInstance()", "PowerControl.getWatchdogCount()"));
}

TEST_F(PowerCountersTest, PositiveStatusIsASuccess) {
    scene.powerFailCount(3).answer("PowerControl.getPowerFailCount", 1);
    scene.watchdogCount(12).answer("PowerControl.getWatchdogCount", 1);
    EXPECT_EQ(device.getVccFailCount(), "3");
    EXPECT_EQ(device.getWatchDogCount(), "12");
}

TEST_F(PowerCountersTest, NegativeStatusIsLogged) {
    scene.powerFailCount(3).answer("PowerControl.getPowerFailCount", -1);
    scene.watchdogCount(12).answer("PowerControl.getWatchdogCount", -1);
    EXPECT_EQ(device.getVccFailCount(), "");
    EXPECT_EQ(device.getWatchDogCount(), "");
    EXPECT_THAT(fake::logs(),
                ElementsAre(generalLine(5, "getVccFailCount", "fail to get power fail count"),
                            generalLine(5, "getWatchDogCount", "fail to get watchdog count")));
}

TEST_F(PowerCountersTest, WithoutPowerControlAreLogged) {
    scene.powerFailCount(3).watchdogCount(12).fail("PowerControl.getInstance", 17);
    EXPECT_EQ(device.getVccFailCount(), "");
    EXPECT_EQ(device.getWatchDogCount(), "");
    EXPECT_THAT(fake::calls(),
                ElementsAre("PowerControl.getInstance()", "PowerControl.getInstance()"));
    EXPECT_THAT(fake::logs(),
                ElementsAre(generalLine(5, "getVccFailCount", "fail to get power fail count"),
                            generalLine(5, "getWatchDogCount", "fail to get watchdog count")));
}

using PortalVersionTest = IdentityTest;

TEST_F(PortalVersionTest, IsTheRecordsText) {
    scene.appVersion(portal, std::string("5.0.1\0junk", 10));
    EXPECT_EQ(device.getLumoraVersion(), "5.0.1");
    EXPECT_THAT(fake::history(), ElementsAre("appserver_get_app_info(\"10140000000\")"));
}

TEST_F(PortalVersionTest, WithoutTerminatorEndsWithTheRecord) {
    scene.appVersion(portal, std::string(5000, 'v'));
    EXPECT_EQ(device.getLumoraVersion(), std::string(2572, 'v'));
}

TEST_F(PortalVersionTest, FailureLeavesTheRecordZeroed) {
    scene.appVersion(portal, "5.0.1").fail("appserver_get_app_info", 17);
    EXPECT_EQ(device.getLumoraVersion(), "");
    EXPECT_THAT(fake::logs(),
                ElementsAre(generalLine(5, "getLumoraVersion", "Failed, status: 17")));
}

using HubSiteTest = IdentityTest;

TEST_F(HubSiteTest, IsTheRecordsText) {
    scene.hubSite(std::string("prd-eu\0junk", 11));
    EXPECT_EQ(device.getHubSite(), "prd-eu");
    EXPECT_THAT(fake::history(), ElementsAre("appserver_get_debug_info()"));
}

TEST_F(HubSiteTest, WithoutTerminatorEndsWithTheRecord) {
    scene.hubSite(std::string(5000, 'h'));
    EXPECT_EQ(device.getHubSite(), std::string(2304, 'h'));
}

TEST_F(HubSiteTest, FailureIsLoggedTwice) {
    scene.hubSite("prd-eu").answer("appserver_get_debug_info", -17);
    EXPECT_EQ(device.getHubSite(), "");
    EXPECT_THAT(fake::logs(),
                ElementsAre(generalLine(5, "getHubSite", "Failed, status: -17"),
                            generalLine(5, "getHubSite", "Exception :Failed, status: -17")));
}

} // namespace
