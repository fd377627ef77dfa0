#include "DeviceInfoManager.h"
#include "InputTest.h"

#include <stdexcept>

using ::testing::AllOf;
using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::Field;
using ::testing::IsEmpty;

namespace {

class InputListTest : public InputTest {
protected:
    std::vector<InputDevice> list() { return input().describeInputDevices(); }

    /** The texts of the USB inputs that have something attached. */
    std::vector<std::string> attached() {
        std::vector<std::string> texts;
        for (const InputDevice& each : list()) {
            if (each.name.compare(0, 3, "USB") == 0 && each.state == "1") {
                texts.push_back(each.name + " " + each.product + " by " + each.manufacturer);
            }
        }
        return texts;
    }
};

auto is(const char* name, const char* state) {
    return AllOf(Field(&InputDevice::name, name), Field(&InputDevice::state, state));
}

TEST_F(InputListTest, HoldsEveryInputInItsOrder) {
    std::vector<std::string> names;
    for (const InputDevice& each : list()) {
        names.push_back(each.name);
    }
    EXPECT_THAT(names, ElementsAre("HDMI1", "HDMI2", "HDMI3", "HDMI4", "AV1", "AV2", "COMP1",
                                   "COMP2", "SCART1", "SCART2", "USB1", "USB2", "USB3", "USB4"));
}

TEST_F(InputListTest, TessaSetHasTwoMore) {
    scene.feature(tessaFeature, 1);
    EXPECT_EQ(list().size(), 16U);
}

TEST_F(InputListTest, StatesAreThoseOfThePorts) {
    scene.store("memory/sysman/hdmi1", 0).store("memory/sysman/hdmi2", 2);
    scene.store("memory/sysman/av2", 1);
    const std::vector<InputDevice> devices = list();
    EXPECT_THAT(devices, Contains(is("HDMI1", "2")));
    EXPECT_THAT(devices, Contains(is("HDMI2", "0")));
    EXPECT_THAT(devices, Contains(is("HDMI3", "-1")));
    EXPECT_THAT(devices, Contains(is("AV1", "0")));
    EXPECT_THAT(devices, Contains(is("AV2", "1")));
}

TEST_F(InputListTest, TellsProductAndManufacturerOfEachAttachedDevice) {
    scene.usbDevices({{"DataTraveler", "Kingston"}, {"Ultra", "SanDisk"}});
    EXPECT_THAT(attached(), ElementsAre("USB1 DataTraveler by Kingston", "USB2 Ultra by SanDisk"));
}

TEST_F(InputListTest, DeviceWithoutTextsIsConnectedAllTheSame) {
    scene.usbDevices({{std::nullopt, "Kingston"}, {"Ultra", std::nullopt}});
    EXPECT_THAT(attached(), ElementsAre("USB1  by Kingston", "USB2 Ultra by "));
}

TEST_F(InputListTest, NoMoreDevicesThanUsbInputsAreTold) {
    scene.usbDevices({{"1", ""}, {"2", ""}, {"3", ""}, {"4", ""}, {"5", ""}});
    EXPECT_THAT(attached(), ElementsAre("USB1 1 by ", "USB2 2 by ", "USB3 3 by ", "USB4 4 by "));
}

TEST_F(InputListTest, OneListServesAllUsbInputs) {
    scene.usbDevices({{"Stick", "Maker"}});
    list();
    EXPECT_THAT(fake::callsTo("usb_device_get_device_list"),
                ElementsAre("usb_device_get_device_list(8)"));
    EXPECT_THAT(fake::callsTo("usb_device_fini"), ElementsAre("usb_device_fini()"));
}

TEST_F(InputListTest, FailedUsbListHasNoDevices) {
    scene.usbDevices({{"Stick", "Maker"}}).fail("usb_device_get_device_list", -5);
    EXPECT_THAT(attached(), IsEmpty());
}

TEST_F(InputListTest, ListThatEndsEarlyEndsThere) {
    scene.usbDevices({{"Stick", "Maker"}, {"Gone", "Maker"}}).fail("usb_device_list_get_next", -5);
    EXPECT_THAT(attached(), ElementsAre("USB1 Stick by Maker"));
}

TEST_F(InputListTest, IsHandedOutByTheManager) {
    scene.usbDevices({{"Stick", "Maker"}});
    std::vector<InputDevice> devices(1);
    EXPECT_TRUE(CDeviceInfoManager::ListInputDevices(devices));
    EXPECT_EQ(devices.size(), 14U);
    EXPECT_EQ(devices[10].product, "Stick");
    EXPECT_EQ(devices[10].manufacturer, "Maker");
}

TEST_F(InputListTest, IsLeftAloneWhenAPlatformCallThrows) {
    CDeviceInfoManager::Initialize();
    scene.throwFrom("usb_device_get_device_list", std::runtime_error("gone"));
    std::vector<InputDevice> devices(3);
    EXPECT_FALSE(CDeviceInfoManager::ListInputDevices(devices));
    EXPECT_EQ(devices.size(), 3U);
    EXPECT_THAT(fake::logs(), Contains(fake::LineIn("InputDevice.cpp", 5, "ListInputDevices",
                                                    "exception: [gone]")));
}

} // namespace
