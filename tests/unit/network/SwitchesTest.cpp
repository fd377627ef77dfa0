#include "NetworkTest.h"

using fake::Line;
using ::testing::Contains;
using ::testing::ElementsAre;

namespace {

class WifiSwitchTest : public NetworkTest {};

TEST_F(WifiSwitchTest, IsReadFromTheNetworkLibraryAlone) {
    scene.wifi(1);
    EXPECT_EQ(network.getWiFiEnabled(""), "1");
    EXPECT_THAT(fake::calls(), ElementsAre("wifi_get_enable_kq()"));
    EXPECT_THAT(fake::logs(), ElementsAre(Line(3, "getWiFiEnabled", "wifi_get_enable_kq==1")));
}

TEST_F(WifiSwitchTest, IsZeroWhenItCannotBeRead) {
    EXPECT_EQ(network.getWiFiEnabled(""), "0");
    EXPECT_THAT(fake::logs(), ElementsAre(Line(3, "getWiFiEnabled", "Wifi get Enabled KQ Error"),
                                          Line(3, "getWiFiEnabled", "wifi_get_enable_kq==0")));
}

TEST_F(WifiSwitchTest, GivesTheFlagThatCameWithAFailure) {
    scene.wifi(2).answer("wifi_get_enable_kq", 7);
    EXPECT_EQ(network.getWiFiEnabled(""), "2");
}

TEST_F(WifiSwitchTest, WritesTheSwitchAndTheNumberAsItIs) {
    network.setWiFiEnabled("5");
    EXPECT_THAT(fake::calls(),
                ElementsAre("wifi_set_enable_kq(true)",
                            "vconf_set_int(\"memory/menu/network/wifionui_enabled\", 5)"));
    EXPECT_THAT(fake::logs(), ::testing::IsEmpty());
}

TEST_F(WifiSwitchTest, TakesATextThatIsNoNumberForZero) {
    network.setWiFiEnabled("abc");
    EXPECT_THAT(fake::calls(),
                ElementsAre("wifi_set_enable_kq(false)",
                            "vconf_set_int(\"memory/menu/network/wifionui_enabled\", 0)"));
    EXPECT_THAT(fake::logs(), ElementsAre(fake::LineIn("commonUtil.h", 6, "strToInt",
                                                       "Exception ERR std::stoi")));
}

TEST_F(WifiSwitchTest, WritesTheNumberAlthoughTheSwitchFailed) {
    scene.fail("wifi_set_enable_kq", 7).fail("vconf_set_int", 8);
    network.setWiFiEnabled("1");
    EXPECT_THAT(fake::logs(),
                ElementsAre(Line(3, "setWiFiEnabled", "Wifi set Enabled KQ Error"),
                            Line(5, "setWiFiEnabled", "Operation failed. value : 1")));
}

class MobileSwitchTest : public NetworkTest {};

TEST_F(MobileSwitchTest, IsReadAsZeroOrOne) {
    scene.wakeOnMobile(true);
    EXPECT_EQ(network.getPowerOnMobileMode(""), "1");
    EXPECT_THAT(fake::logs(),
                ElementsAre(Line(3, "getPowerOnMobileMode", "util_get_wakeOnMobile_mode is [1]")));
    scene.wakeOnMobile(false);
    EXPECT_EQ(network.getPowerOnMobileMode(""), "0");
}

TEST_F(MobileSwitchTest, IsZeroWhenItCannotBeRead) {
    EXPECT_EQ(network.getPowerOnMobileMode(""), "0");
    EXPECT_THAT(fake::logs(), ElementsAre(Line(3, "getPowerOnMobileMode",
                                               "failed to get util_get_wakeOnMobile_mode value")));
}

TEST_F(MobileSwitchTest, IsWrittenAsAFlagAndToldAsTheNumber) {
    network.setPowerOnMobileMode("5");
    EXPECT_THAT(fake::calls(), ElementsAre("util_set_wakeOnMobile_mode(true)"));
    EXPECT_THAT(fake::logs(), ElementsAre(Line(3, "setPowerOnMobileMode",
                                               "util_set_wakeOnMobile_mode is set to [5]")));
}

TEST_F(MobileSwitchTest, LogsAWriteThatFailed) {
    scene.fail("util_set_wakeOnMobile_mode", 7);
    network.setPowerOnMobileMode("0");
    EXPECT_THAT(fake::calls(), ElementsAre("util_set_wakeOnMobile_mode(false)"));
    EXPECT_THAT(fake::logs(), ElementsAre(Line(3, "setPowerOnMobileMode",
                                               "failed to set util_set_wakeOnMobile_mode")));
}

} // namespace
