#include "UsbBus.h"
#include "UsbClient.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <filesystem>
#include <fstream>

namespace KLX::Host::Test {
namespace {

constexpr int hidClass = 3;
constexpr int hubClass = 9;

class UsbTest : public testing::Test {
protected:
    void SetUp() override {
        ASSERT_TRUE(UsbBus::isInPlace()) << "start this program through umockdev-wrapper";
    }

    UsbBus bus;
};

using UsbDevicesTest = UsbTest;
using UsbWalkTest = UsbTest;
using UsbHandlesTest = UsbTest;
using UsbQueriesTest = UsbTest;

} // namespace

TEST_F(UsbDevicesTest, NothingPluggedInIsAnEmptyListAndNoError) {
    const DeviceList list;
    EXPECT_EQ(count(), 0);
    EXPECT_EQ(list.error(), 0);
    EXPECT_NE(list.handle(), nullptr);
    EXPECT_EQ(devicesIn(list).size(), 0U);
}

TEST_F(UsbDevicesTest, OneStickTellsItsProductAndManufacturer) {
    bus.plug(stick("1-1", "DataTraveler 3.0", "Kingston"));
    const DeviceList list;
    const std::vector<usb_device_h> devices = devicesIn(list);
    EXPECT_EQ(count(), 1);
    ASSERT_EQ(devices.size(), 1U);
    EXPECT_STREQ(usb_device_get_product(devices[0]), "DataTraveler 3.0");
    EXPECT_STREQ(usb_device_get_manufacturer(devices[0]), "Kingston");
}

TEST_F(UsbDevicesTest, TextsKeepTheirSpacesAndForeignLetters) {
    bus.plug(stick("1-1", " Mémoire  USB ", "Ünal & Søn"));
    const DeviceList list;
    const std::vector<usb_device_h> devices = devicesIn(list);
    ASSERT_EQ(devices.size(), 1U);
    EXPECT_STREQ(usb_device_get_product(devices[0]), " Mémoire  USB ");
    EXPECT_STREQ(usb_device_get_manufacturer(devices[0]), "Ünal & Søn");
}

TEST_F(UsbDevicesTest, DevicesComeByPortInNaturalOrderHoweverTheyWerePlugged) {
    for (const char* port : {"10-1", "1-10", "2-1", "1-2", "1-9"}) {
        bus.plug(stick(port, port));
    }
    EXPECT_EQ(count(), 5);
    EXPECT_EQ(products(), (Texts{"1-2", "1-9", "1-10", "2-1", "10-1"}));
}

TEST_F(UsbDevicesTest, DevicesOnAHubComeBetweenTheNeighboursOfTheHub) {
    bus.plug({"1-2", {"09"}, "Hub"});
    for (const char* port : {"1-20", "1-3", "1-2.10", "1-2.3", "1-1"}) {
        bus.plug(stick(port, port));
    }
    EXPECT_EQ(products(), (Texts{"1-1", "1-2.3", "1-2.10", "1-3", "1-20"}));
}

TEST_F(UsbDevicesTest, AbsentTextsAreNullEachByItself) {
    bus.plug({"1-1", {"08"}});
    bus.plug({"1-2", {"08"}, "Stick"});
    bus.plug({"1-3", {"08"}, std::nullopt, "Maker"});
    const DeviceList list;
    const std::vector<usb_device_h> devices = devicesIn(list);
    ASSERT_EQ(devices.size(), 3U);
    EXPECT_EQ(usb_device_get_product(devices[0]), nullptr);
    EXPECT_EQ(usb_device_get_manufacturer(devices[0]), nullptr);
    EXPECT_STREQ(usb_device_get_product(devices[1]), "Stick");
    EXPECT_EQ(usb_device_get_manufacturer(devices[1]), nullptr);
    EXPECT_EQ(usb_device_get_product(devices[2]), nullptr);
    EXPECT_STREQ(usb_device_get_manufacturer(devices[2]), "Maker");
}

TEST_F(UsbDevicesTest, CompositeDeviceCountsByAnyOfItsInterfaces) {
    bus.plug({"1-1", {"03", "ff", "08"}, "Camera"});
    EXPECT_EQ(count(), 1);
    EXPECT_EQ(products(), Texts{"Camera"});
    EXPECT_EQ(products(hidClass), Texts{"Camera"});
    EXPECT_EQ(products(0xff), Texts{"Camera"});
}

TEST_F(UsbDevicesTest, DeviceWithSeveralInterfacesOfTheClassCountsOnce) {
    bus.plug({"1-1", {"08", "08", "08"}, "Card reader"});
    EXPECT_EQ(count(), 1);
    EXPECT_EQ(products(), Texts{"Card reader"});
}

TEST_F(UsbDevicesTest, HubsAndKeyboardsAreNoStorage) {
    bus.plug({"1-1", {"09"}, "Hub"});
    bus.plug({"1-1.1", {"03", "03"}, "Keyboard"});
    bus.plug(stick("1-1.2"));
    EXPECT_EQ(count(), 1);
    EXPECT_EQ(products(), Texts{"Stick"});
}

TEST_F(UsbDevicesTest, OtherClassesCanBeAskedFor) {
    bus.plug({"1-1", {"09"}, "Hub"});
    bus.plug({"1-1.1", {"03"}, "Keyboard"});
    EXPECT_EQ(products(hidClass), Texts{"Keyboard"});
    EXPECT_EQ(products(hubClass), (Texts{"Host Controller", "Hub"}));
}

TEST_F(UsbDevicesTest, DeviceWithoutAConfigurationDoesNotCount) {
    bus.plug({"1-1", {}, "Refused"});
    EXPECT_EQ(count(), 0);
    EXPECT_EQ(products(), Texts{});
}

TEST_F(UsbDevicesTest, CountFollowsPluggingAndUnplugging) {
    EXPECT_EQ(count(), 0);
    bus.plug(stick("1-1"));
    EXPECT_EQ(count(), 1);
    bus.plug(stick("1-2"));
    EXPECT_EQ(count(), 2);
    bus.unplug("1-1");
    EXPECT_EQ(count(), 1);
    bus.unplug("1-2");
    EXPECT_EQ(count(), 0);
}

// As between the removal of a device and that of its interfaces' entries.
TEST_F(UsbDevicesTest, HubDoesNotCountForTheDeviceThatWasJustPulledOutOfIt) {
    bus.plug({"1-1", {"09"}, "Hub"});
    bus.plug(stick("1-1.1", "Gone"));
    bus.plug(stick("1-2", "Gone, too"));
    bus.plug(stick("1-3", "There"));
    for (const char* port : {"1-1.1", "1-2"}) {
        std::filesystem::remove(std::filesystem::path(bus.sysFolder()) / "bus/usb/devices" / port /
                                "uevent");
    }
    EXPECT_EQ(count(), 1);
    EXPECT_EQ(products(), Texts{"There"});
}

TEST_F(UsbDevicesTest, ListStaysAsItWasWhenADeviceIsUnplugged) {
    bus.plug(stick("1-1", "First"));
    bus.plug(stick("1-2", "Second"));
    const DeviceList list;
    bus.unplug("1-1");
    bus.unplug("1-2");
    EXPECT_EQ(productsIn(list), (Texts{"First", "Second"}));
    EXPECT_EQ(products(), Texts{});
}

TEST_F(UsbDevicesTest, ListStaysAsItWasWhenADeviceIsPluggedIn) {
    bus.plug(stick("1-2", "Old"));
    const DeviceList list;
    bus.plug(stick("1-1", "New"));
    EXPECT_EQ(productsIn(list), Texts{"Old"});
    EXPECT_EQ(products(), (Texts{"New", "Old"}));
}

TEST_F(UsbDevicesTest, ClassesOutsideAByteAreRefused) {
    bus.plug(stick("1-1"));
    for (const int wrong : {-1, 256, 264, -248}) {
        EXPECT_EQ(count(wrong), numberOf(UsbError::InvalidClass)) << wrong;
        const DeviceList list(wrong);
        EXPECT_EQ(list.error(), numberOf(UsbError::InvalidClass)) << wrong;
        EXPECT_EQ(list.handle(), nullptr) << wrong;
    }
    EXPECT_EQ(count(0), 0);
    EXPECT_EQ(count(255), 0);
}

TEST_F(UsbWalkTest, NextAtTheEndFailsAndLeavesTheLastDevice) {
    bus.plug(stick("1-1", "First"));
    bus.plug(stick("1-2", "Last"));
    const DeviceList list;
    usb_device_h device = nullptr;
    EXPECT_EQ(usb_device_list_get_first(list.handle(), &device), 0);
    EXPECT_EQ(usb_device_list_get_next(list.handle(), &device), 0);
    for (int attempt = 0; attempt < 3; ++attempt) {
        EXPECT_EQ(usb_device_list_get_next(list.handle(), &device),
                  numberOf(UsbError::NoMoreDevices));
        EXPECT_STREQ(usb_device_get_product(device), "Last");
    }
}

TEST_F(UsbWalkTest, FirstAndNextOfAnEmptyListFailAndLeaveTheDeviceAlone) {
    const DeviceList list;
    int untouched = 0;
    usb_device_h device = &untouched;
    EXPECT_EQ(usb_device_list_get_first(list.handle(), &device), numberOf(UsbError::NoMoreDevices));
    EXPECT_EQ(usb_device_list_get_next(list.handle(), &device), numberOf(UsbError::NoMoreDevices));
    EXPECT_EQ(device, &untouched);
}

TEST_F(UsbWalkTest, FirstStartsOver) {
    bus.plug(stick("1-1", "First"));
    bus.plug(stick("1-2", "Second"));
    const DeviceList list;
    EXPECT_EQ(productsIn(list), (Texts{"First", "Second"}));
    EXPECT_EQ(productsIn(list), (Texts{"First", "Second"}));
}

TEST_F(UsbWalkTest, NextWithoutFirstBeginsTheWalk) {
    bus.plug(stick("1-1", "First"));
    bus.plug(stick("1-2", "Second"));
    const DeviceList list;
    usb_device_h device = nullptr;
    EXPECT_EQ(usb_device_list_get_next(list.handle(), &device), 0);
    EXPECT_STREQ(usb_device_get_product(device), "First");
}

TEST_F(UsbWalkTest, ListsAreWalkedIndependently) {
    bus.plug(stick("1-1", "First"));
    bus.plug(stick("1-2", "Second"));
    const DeviceList one;
    const DeviceList other;
    usb_device_h secondOfOne = nullptr;
    usb_device_h firstOfOther = nullptr;
    EXPECT_EQ(usb_device_list_get_first(one.handle(), &secondOfOne), 0);
    EXPECT_EQ(usb_device_list_get_next(one.handle(), &secondOfOne), 0);
    EXPECT_EQ(usb_device_list_get_next(other.handle(), &firstOfOther), 0);
    EXPECT_STREQ(usb_device_get_product(secondOfOne), "Second");
    EXPECT_STREQ(usb_device_get_product(firstOfOther), "First");
}

TEST_F(UsbHandlesTest, NullArgumentsAreRefused) {
    bus.plug(stick("1-1"));
    const DeviceList list;
    usb_device_h device = nullptr;
    const int refused = numberOf(UsbError::NullPointer);
    EXPECT_EQ(usb_device_get_device_list(massStorage, nullptr), refused);
    EXPECT_EQ(usb_device_list_get_first(nullptr, &device), refused);
    EXPECT_EQ(usb_device_list_get_next(nullptr, &device), refused);
    EXPECT_EQ(usb_device_list_get_first(list.handle(), nullptr), refused);
    EXPECT_EQ(usb_device_list_get_next(list.handle(), nullptr), refused);
    EXPECT_EQ(usb_device_free_device_list(nullptr), refused);
    EXPECT_EQ(usb_device_get_product(nullptr), nullptr);
    EXPECT_EQ(usb_device_get_manufacturer(nullptr), nullptr);
    EXPECT_EQ(device, nullptr);
}

TEST_F(UsbHandlesTest, RefusedCallDoesNotMoveTheWalk) {
    bus.plug(stick("1-1", "First"));
    const DeviceList list;
    usb_device_h device = nullptr;
    EXPECT_NE(usb_device_list_get_next(list.handle(), nullptr), 0);
    EXPECT_EQ(usb_device_list_get_next(list.handle(), &device), 0);
    EXPECT_STREQ(usb_device_get_product(device), "First");
}

TEST_F(UsbHandlesTest, ForeignPointersAreRefused) {
    bus.plug(stick("1-1"));
    const DeviceList list;
    int mine = 0;
    usb_device_h device = nullptr;
    const int refused = numberOf(UsbError::UnknownHandle);
    EXPECT_EQ(usb_device_list_get_first(&mine, &device), refused);
    EXPECT_EQ(usb_device_list_get_next(&mine, &device), refused);
    EXPECT_EQ(usb_device_free_device_list(&mine), refused);
    EXPECT_EQ(usb_device_get_product(&mine), nullptr);
    EXPECT_EQ(usb_device_get_manufacturer(&mine), nullptr);
    EXPECT_EQ(device, nullptr);
}

TEST_F(UsbHandlesTest, ListsAndDevicesAreNotTakenForEachOther) {
    bus.plug(stick("1-1"));
    const DeviceList list;
    const std::vector<usb_device_h> devices = devicesIn(list);
    ASSERT_EQ(devices.size(), 1U);
    EXPECT_EQ(usb_device_free_device_list(devices[0]), numberOf(UsbError::UnknownHandle));
    EXPECT_EQ(usb_device_get_product(list.handle()), nullptr);
    EXPECT_STREQ(usb_device_get_product(devices[0]), "Stick");
}

TEST_F(UsbHandlesTest, HandleBesideTheLastDeviceIsNoDevice) {
    bus.plug(stick("1-1"));
    const DeviceList list;
    usb_device_h device = nullptr;
    EXPECT_EQ(usb_device_list_get_first(list.handle(), &device), 0);
    device = reinterpret_cast<usb_device_h>(reinterpret_cast<std::uintptr_t>(device) + 1);
    EXPECT_EQ(usb_device_get_product(device), nullptr);
    EXPECT_EQ(usb_device_get_manufacturer(device), nullptr);
}

TEST_F(UsbHandlesTest, FreedListIsUnknownEvenWhenANewOneWasMade) {
    bus.plug(stick("1-1"));
    usb_device_list_h freed = nullptr;
    usb_device_h device = nullptr;
    EXPECT_EQ(usb_device_get_device_list(massStorage, &freed), 0);
    EXPECT_EQ(usb_device_list_get_first(freed, &device), 0);
    EXPECT_EQ(usb_device_free_device_list(freed), 0);
    const DeviceList list;
    EXPECT_EQ(usb_device_free_device_list(freed), numberOf(UsbError::UnknownHandle));
    EXPECT_EQ(usb_device_list_get_first(freed, &device), numberOf(UsbError::UnknownHandle));
    EXPECT_EQ(usb_device_get_product(device), nullptr);
    EXPECT_EQ(productsIn(list), Texts{"Stick"});
}

TEST_F(UsbQueriesTest, InitAndFiniNestAndASurplusFiniIsTold) {
    EXPECT_EQ(usb_device_init(), 0);
    EXPECT_EQ(usb_device_init(), 0);
    EXPECT_EQ(usb_device_fini(), 0);
    EXPECT_EQ(usb_device_fini(), 0);
    EXPECT_EQ(usb_device_fini(), numberOf(UsbError::NotInitialized));
    EXPECT_EQ(usb_device_init(), 0);
    EXPECT_EQ(usb_device_fini(), 0);
}

TEST_F(UsbQueriesTest, CallsAnswerWithoutInit) {
    bus.plug(stick("1-1"));
    EXPECT_EQ(count(), 1);
    EXPECT_EQ(products(), Texts{"Stick"});
}

TEST_F(UsbQueriesTest, BusThatCannotBeReadIsAnErrorAndNotAnEmptyBus) {
    const std::filesystem::path busFolder(bus.sysFolder() + "/bus/usb");
    std::filesystem::create_directories(busFolder);
    std::ofstream(busFolder / "devices") << "not a folder";
    const DeviceList list;
    EXPECT_EQ(count(), numberOf(UsbError::ScanFailed));
    EXPECT_EQ(list.error(), numberOf(UsbError::ScanFailed));
    EXPECT_EQ(list.handle(), nullptr);
}

TEST_F(UsbQueriesTest, ListOutlivesTheFiniOfItsQuery) {
    bus.plug(stick("1-1"));
    EXPECT_EQ(usb_device_init(), 0);
    const DeviceList list;
    EXPECT_EQ(usb_device_fini(), 0);
    EXPECT_EQ(productsIn(list), Texts{"Stick"});
}

} // namespace KLX::Host::Test
