#include "FakeTest.h"
#include "cec.h"
#include "usb_device.h"

namespace klx {
namespace {

using fake::UsbDevice;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

class UsbTest : public FakeTest {};

TEST_F(UsbTest, UnprogrammedUsbFails) {
    usb_device_list_h list = nullptr;
    EXPECT_EQ(usb_device_init(), 0);
    EXPECT_EQ(usb_get_connected_device_number(8), fake::kNotProgrammed);
    EXPECT_EQ(usb_device_get_device_list(8, &list), fake::kNotProgrammed);
    EXPECT_EQ(list, nullptr);
}

TEST_F(UsbTest, DevicesAreOfTheMassStorageClassOnly) {
    scene.usbDevices({{"Stick", "Maker"}});
    usb_device_list_h list = nullptr;
    EXPECT_EQ(usb_get_connected_device_number(8), 1);
    EXPECT_EQ(usb_get_connected_device_number(3), fake::kNotProgrammed);
    EXPECT_EQ(usb_device_get_device_list(3, &list), fake::kNotProgrammed);
}

TEST_F(UsbTest, AListIsWalkedToItsEnd) {
    scene.usbDevices({{"Stick", "Maker"}, {std::nullopt, "Other"}});
    usb_device_list_h list = nullptr;
    usb_device_h device = nullptr;
    ASSERT_EQ(usb_device_get_device_list(8, &list), 0);
    ASSERT_EQ(usb_device_list_get_first(list, &device), 0);
    EXPECT_STREQ(usb_device_get_product(device), "Stick");
    EXPECT_STREQ(usb_device_get_manufacturer(device), "Maker");
    ASSERT_EQ(usb_device_list_get_next(list, &device), 0);
    EXPECT_EQ(usb_device_get_product(device), nullptr);
    EXPECT_STREQ(usb_device_get_manufacturer(device), "Other");
    const usb_device_h last = device;
    EXPECT_EQ(usb_device_list_get_next(list, &device), fake::kNotProgrammed);
    EXPECT_EQ(device, last);
    EXPECT_EQ(fake::callsTo("usb_device_get_product"),
              std::vector<std::string>({"usb_device_get_product(usb device 1)",
                                        "usb_device_get_product(usb device 2)"}));
}

TEST_F(UsbTest, AnEmptyListHasNoFirstDevice) {
    scene.usbDevices({});
    usb_device_list_h list = nullptr;
    usb_device_h device = nullptr;
    EXPECT_EQ(usb_get_connected_device_number(8), 0);
    ASSERT_EQ(usb_device_get_device_list(8, &list), 0);
    EXPECT_EQ(usb_device_list_get_first(list, &device), fake::kNotProgrammed);
    EXPECT_EQ(device, nullptr);
}

TEST_F(UsbTest, ADeviceIsStaleOnceItsListIsFreed) {
    scene.usbDevices({{"Stick", "Maker"}});
    usb_device_list_h list = nullptr;
    usb_device_h device = nullptr;
    usb_device_get_device_list(8, &list);
    usb_device_list_get_first(list, &device);
    EXPECT_EQ(usb_device_free_device_list(list), 0);
    EXPECT_EQ(usb_device_get_product(device), nullptr);
    EXPECT_EQ(usb_device_free_device_list(list), fake::kBadHandle);
    EXPECT_THAT(fake::misuses(), ElementsAre("usb_device_get_product(stale usb device 1)",
                                             "usb_device_free_device_list(stale usb list)"));
}

TEST_F(UsbTest, ANullListFailsWithoutMisuse) {
    usb_device_h device = nullptr;
    EXPECT_EQ(usb_device_list_get_first(nullptr, &device), fake::kBadHandle);
    EXPECT_EQ(usb_device_list_get_next(nullptr, &device), fake::kBadHandle);
    EXPECT_EQ(usb_device_free_device_list(nullptr), fake::kBadHandle);
    EXPECT_THAT(fake::misuses(), IsEmpty());
}

TEST_F(UsbTest, SessionsNest) {
    usb_device_init();
    usb_device_init();
    usb_device_fini();
    EXPECT_THAT(fake::openHandles(), ElementsAre("usb session"));
    usb_device_fini();
    EXPECT_THAT(fake::openHandles(), IsEmpty());
}

class CecTest : public FakeTest {};

TEST_F(CecTest, TheStateIsTheAnswer) {
    EXPECT_EQ(cec_is_enable(), fake::kNotProgrammed);
    scene.cec(1);
    EXPECT_EQ(cec_is_enable(), 1);
    EXPECT_EQ(cec_set_enable(0), 0);
    EXPECT_EQ(cec_is_enable(), 0);
    EXPECT_THAT(fake::callsTo("cec_set_enable"), ElementsAre("cec_set_enable(0)"));
}

TEST_F(CecTest, ASessionIsOpenUntilItIsClosedEvenByAFailingClose) {
    scene.fail("cec_close_proxy", -1);
    EXPECT_EQ(cec_init_proxy(), 0);
    EXPECT_THAT(fake::openHandles(), ElementsAre("cec session"));
    EXPECT_EQ(cec_close_proxy(), -1);
    EXPECT_THAT(fake::openHandles(), IsEmpty());
}

TEST_F(CecTest, ACloseTooManyDoesNotHideTheNextSession) {
    cec_close_proxy();
    cec_init_proxy();
    EXPECT_THAT(fake::openHandles(), ElementsAre("cec session"));
}

} // namespace
} // namespace klx
