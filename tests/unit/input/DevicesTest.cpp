#include "InputTest.h"

using fake::Line;
using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace {

class DeviceListTest : public InputTest {
protected:
    static std::vector<std::string> devicesOf(DeviceInfoInput inputs) {
        std::vector<std::string> devices{"left from before"};
        inputs.getInputDeviceList(devices);
        return devices;
    }
};

TEST_F(DeviceListTest, OrdinarySetHasFourteen) {
    EXPECT_THAT(devicesOf(input()),
                ElementsAre("HDMI1", "HDMI2", "HDMI3", "HDMI4", "AV1", "AV2", "COMP1", "COMP2",
                            "SCART1", "SCART2", "USB1", "USB2", "USB3", "USB4"));
}

TEST_F(DeviceListTest, TessaSetHasSixteen) {
    scene.feature(tessaFeature, 2);
    EXPECT_THAT(devicesOf(input()),
                ElementsAre("HDMI1", "HDMI2", "HDMI3", "HDMI4", "HDMI5", "HDMI6", "AV1", "AV2",
                            "COMP1", "COMP2", "SCART1", "SCART2", "USB1", "USB2", "USB3", "USB4"));
}

TEST_F(DeviceListTest, SetWithoutTheFeatureIsOrdinaryAndSaysSo) {
    scene.fail("system_info_get_custom_int", 7);
    const DeviceInfoInput made;
    EXPECT_THAT(fake::logs(),
                ElementsAre(Line(5, "IsTessa", std::string("fail to get ") + tessaFeature),
                            Line(3, "IsTessa", "Is PrismaTV :0")));
    EXPECT_EQ(devicesOf(made).size(), 14U);
}

TEST_F(DeviceListTest, ModelLineIsReadAnewEachTime) {
    DeviceInfoInput inputs = input();
    EXPECT_FALSE(inputs.IsTessa());
    scene.feature(tessaFeature, 3);
    EXPECT_TRUE(inputs.IsTessa());
    EXPECT_THAT(fake::messages(3), ElementsAre("Is PrismaTV :0", "Is PrismaTV :3"));
}

class PortStateTest : public InputTest {};

TEST_F(PortStateTest, KeyIsTheNameInLowerCase) {
    scene.store("memory/sysman/hdmi1", 1);
    EXPECT_EQ(input().getInputDeviceStatus("HDMI1"), "1");
    EXPECT_THAT(fake::calls(), ElementsAre("vconf_get_int(\"memory/sysman/hdmi1\")"));
    EXPECT_THAT(fake::logs(),
                ElementsAre(Line(3, "getInputDeviceStatus", "checking device=[HDMI1]"),
                            Line(3, "getInputDeviceStatus", "keyName=[memory/sysman/hdmi1]")));
}

TEST_F(PortStateTest, HdmiCountsTheOtherWayRound) {
    const std::pair<int, const char*> states[] = {{0, "2"},  {1, "1"},  {2, "0"},
                                                  {3, "-1"}, {5, "-1"}, {-1, "-1"}};
    for (const auto& [stored, told] : states) {
        scene.store("memory/sysman/hdmi2", stored);
        EXPECT_EQ(input().getInputDeviceStatus("HDMI2"), told) << stored;
    }
}

TEST_F(PortStateTest, OtherPortsAreConnectedOrNot) {
    const std::pair<int, const char*> states[] = {{0, "0"}, {1, "1"}, {2, "1"}, {-1, "1"}};
    for (const auto& [stored, told] : states) {
        scene.store("memory/sysman/scart1", stored);
        EXPECT_EQ(input().getInputDeviceStatus("SCART1"), told) << stored;
    }
}

TEST_F(PortStateTest, LowerCaseNameIsNoHdmiButReadsTheSameKey) {
    scene.store("memory/sysman/hdmi1", 0);
    EXPECT_EQ(input().getInputDeviceStatus("HDMI1"), "2");
    EXPECT_EQ(input().getInputDeviceStatus("hdmi1"), "0");
}

TEST_F(PortStateTest, NameMayHoldHdmiAnywhere) {
    scene.store("memory/sysman/xhdmix", 0);
    EXPECT_EQ(input().getInputDeviceStatus("xHDMIx"), "2");
}

TEST_F(PortStateTest, MissingKeyIsAFailure) {
    EXPECT_EQ(input().getInputDeviceStatus("HDMI3"), "-1");
    EXPECT_THAT(fake::logs(),
                Contains(Line(5, "getInputDeviceStatus", "Failed to get HDMI port status")));
    EXPECT_EQ(input().getInputDeviceStatus("AV1"), "0");
    EXPECT_THAT(fake::messages(5), ElementsAre("Failed to get port status"));
}

TEST_F(PortStateTest, EmptyNameReadsThePrefixAlone) {
    EXPECT_EQ(input().getInputDeviceStatus(""), "0");
    EXPECT_THAT(fake::calls(), ElementsAre("vconf_get_int(\"memory/sysman/\")"));
}

class UsbStatusTest : public InputTest {};

TEST_F(UsbStatusTest, IsPresentUpToTheNumberOfDevices) {
    scene.usbDevices({{}});
    EXPECT_EQ(input().getUSBStatus("USB1"), "1");
    EXPECT_EQ(input().getUSBStatus("USB2"), "0");
    scene.usbDevices({{}, {}});
    EXPECT_EQ(input().getUSBStatus("USB2"), "1");
    EXPECT_EQ(input().getUSBStatus("USB3"), "0");
}

TEST_F(UsbStatusTest, IndexOfZeroOrBelowIsPresentWheneverTheCountIsGiven) {
    scene.usbDevices({});
    EXPECT_EQ(input().getUSBStatus("USB0"), "1");
    EXPECT_EQ(input().getUSBStatus("USB/"), "1");
    EXPECT_EQ(input().getUSBStatus("USB1"), "0");
}

TEST_F(UsbStatusTest, ByteAboveAsciiIsANegativeIndex) {
    scene.usbDevices({});
    EXPECT_EQ(input().getUSBStatus("USB\xFF"), "1");
}

TEST_F(UsbStatusTest, FailedCountHasNoDevices) {
    scene.fail("usb_get_connected_device_number", -1);
    EXPECT_EQ(input().getUSBStatus("USB0"), "0");
}

TEST_F(UsbStatusTest, AsksForMassStorageBetweenInitAndFini) {
    scene.usbDevices({{}});
    input().getUSBStatus("USB1");
    EXPECT_THAT(fake::calls(),
                ElementsAre("usb_device_init()", "usb_get_connected_device_number(8)",
                            "usb_device_fini()"));
    EXPECT_THAT(fake::logs(), IsEmpty());
}

TEST_F(UsbStatusTest, EmptyNameIsNoDeviceWithoutACall) {
    EXPECT_EQ(input().getUSBStatus(""), "0");
    EXPECT_THAT(fake::calls(), IsEmpty());
}

} // namespace
