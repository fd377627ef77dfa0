#include "DeviceInfoInput.h"
#include "LogMatchers.h"

#include <gmock/gmock.h>

namespace fake = klx::fake;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace {

/** The index that "model" stands for: its last letter less the digit 0. */
constexpr int modelIndex = 'l' - '0';
constexpr int vendorIndex = 'r' - '0';

/** What is asked of the service before it comes to a list, and after. */
const std::string begun = "usb_device_init()";
const std::string counted = "usb_get_connected_device_number(8)";
const std::string ended = "usb_device_fini()";

class UsbDetailTest : public ::testing::Test {
protected:
    // What the construction asks is not looked at here.
    UsbDetailTest() { fake::clearHistory(); }

    /** Devices named "Stick 1" of "Maker 1" and so on. */
    void plugIn(int count) {
        std::vector<fake::UsbDevice> devices;
        for (int i = 1; i <= count; ++i) {
            devices.push_back({"Stick " + std::to_string(i), "Maker " + std::to_string(i)});
        }
        scene.usbDevices(std::move(devices));
    }

    std::string detail(const std::string& argument) { return input.getUSBDetail(argument); }

    void expectNothingOpen() {
        EXPECT_THAT(fake::openHandles(), IsEmpty());
        EXPECT_THAT(fake::misuses(), IsEmpty());
    }

    fake::Scene scene;
    DeviceInfoInput input;
};

TEST_F(UsbDetailTest, ArgumentIsLogged) {
    detail("USB1");
    EXPECT_THAT(fake::logs(), ElementsAre(fake::LineIn("DeviceInfoInput.cpp", 3, "getUSBDetail",
                                                       "Detail type seeked =[USB1]")));
}

TEST_F(UsbDetailTest, ModelIsTheProductOfItsDevice) {
    static_assert(modelIndex == 60);
    plugIn(60);
    EXPECT_EQ(detail("model"), "Stick 60");
    EXPECT_THAT(fake::callsTo("usb_device_get_product"),
                ElementsAre("usb_device_get_product(usb device 60)"));
    expectNothingOpen();
}

TEST_F(UsbDetailTest, VendorIsTheManufacturerOfItsDevice) {
    plugIn(vendorIndex + 1);
    EXPECT_EQ(detail("vendor"), "Maker 66");
    EXPECT_THAT(fake::callsTo("usb_device_get_manufacturer"),
                ElementsAre("usb_device_get_manufacturer(usb device 66)"));
    expectNothingOpen();
}

TEST_F(UsbDetailTest, TooFewDevicesGiveZeroWithoutAList) {
    plugIn(modelIndex - 1);
    EXPECT_EQ(detail("model"), "0");
    EXPECT_THAT(fake::calls(), ElementsAre(begun, counted, ended));
}

TEST_F(UsbDetailTest, CountThatCannotBeReadGivesZero) {
    EXPECT_EQ(detail("model"), "0");
    EXPECT_THAT(fake::calls(), ElementsAre(begun, counted, ended));
}

TEST_F(UsbDetailTest, ResultsOfBeginningAndEndingAreNotExamined) {
    plugIn(modelIndex);
    scene.answer("usb_device_init", -1).answer("usb_device_fini", -1);
    EXPECT_EQ(detail("model"), "Stick 60");
}

TEST_F(UsbDetailTest, DeviceNameGivesZeroAfterTheWalk) {
    plugIn(3);
    EXPECT_EQ(detail("USB3"), "0");
    EXPECT_THAT(fake::calls(), ElementsAre(begun, counted, "usb_device_get_device_list(8)",
                                           "usb_device_list_get_first(usb list)",
                                           "usb_device_list_get_next(usb list)",
                                           "usb_device_list_get_next(usb list)",
                                           "usb_device_free_device_list(usb list)", ended));
    expectNothingOpen();
}

TEST_F(UsbDetailTest, IndexBelowOneReachesTheFirstDevice) {
    plugIn(1);
    EXPECT_EQ(detail("USB0"), "0");
    EXPECT_EQ(detail("USB \xFF"), "0");
    EXPECT_THAT(fake::callsTo("usb_device_list_get_next"), IsEmpty());
    EXPECT_EQ(fake::callsTo("usb_device_list_get_first").size(), 2u);
}

TEST_F(UsbDetailTest, IndexBeyondTheListKeepsTheLastDevice) {
    plugIn(2);
    scene.answer("usb_get_connected_device_number", 100);
    EXPECT_EQ(detail("model"), "Stick 2");
    EXPECT_EQ(fake::callsTo("usb_device_list_get_next").size(), 2u);
    EXPECT_EQ(detail("vendor"), "Maker 2");
    expectNothingOpen();
}

TEST_F(UsbDetailTest, WalkStopsWhereTheNextDeviceCannotBeReached) {
    plugIn(modelIndex);
    scene.failNth("usb_device_list_get_next", 5, -1);
    EXPECT_EQ(detail("model"), "Stick 5");
    EXPECT_EQ(fake::callsTo("usb_device_list_get_next").size(), 5u);
}

TEST_F(UsbDetailTest, EmptyListGivesZeroAndIsFreed) {
    plugIn(0);
    scene.answer("usb_get_connected_device_number", 100);
    EXPECT_EQ(detail("vendor"), "0");
    EXPECT_THAT(fake::callsTo("usb_device_get_manufacturer"), IsEmpty());
    EXPECT_THAT(fake::callsTo("usb_device_free_device_list"),
                ElementsAre("usb_device_free_device_list(usb list)"));
    expectNothingOpen();
}

TEST_F(UsbDetailTest, ListThatCannotBeMadeGivesZero) {
    plugIn(modelIndex);
    scene.fail("usb_device_get_device_list", -1);
    EXPECT_EQ(detail("model"), "0");
    EXPECT_THAT(fake::callsTo("usb_device_get_product"), IsEmpty());
    EXPECT_EQ(fake::calls().back(), ended);
    expectNothingOpen();
}

TEST_F(UsbDetailTest, NullTextGivesZero) {
    scene.usbDevices(std::vector<fake::UsbDevice>(100));
    EXPECT_EQ(detail("model"), "0");
    EXPECT_EQ(detail("vendor"), "0");
    expectNothingOpen();
}

TEST_F(UsbDetailTest, EmptyTextOfADeviceIsGiven) {
    scene.usbDevices({100, {"", ""}});
    EXPECT_EQ(detail("model"), "");
}

TEST_F(UsbDetailTest, DetailsAreComparedWhole) {
    plugIn(100);
    EXPECT_EQ(detail("Model"), "0");
    EXPECT_EQ(detail("vendors"), "0");
    EXPECT_EQ(detail("USB1/model"), "0");
}

TEST_F(UsbDetailTest, EmptyArgumentGivesZeroWithoutACall) {
    plugIn(100);
    EXPECT_EQ(detail(""), "0");
    EXPECT_THAT(fake::calls(), IsEmpty());
    EXPECT_THAT(fake::messages(3), ElementsAre("Detail type seeked =[]"));
}

} // namespace
