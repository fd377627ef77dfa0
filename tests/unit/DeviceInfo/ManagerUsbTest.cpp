#include "ManagerTest.h"

using namespace klx::test;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace {

const std::vector<std::string> noDevice = {
    "usb_device_init()", "usb_get_connected_device_number(8)", "usb_device_fini()"};

/** Properties of attached USB devices, which have no records. */
class ManagerUsbTest : public ManagerTest {
protected:
    ManagerUsbTest() { use({}); }

    std::string get(const std::string& property) {
        std::string value = "as it was";
        EXPECT_TRUE(CDeviceInfoManager::GetDevicePropertyValue("Input", property, value));
        return value;
    }

    /** The device name that the read of a property settles on. */
    std::string deviceOf(const std::string& property) {
        fake::clearHistory();
        get(property);
        const std::string before = "GetDevicePropInfo inputDeviceName = [";
        const std::string line = fake::logs().at(1).message;
        EXPECT_EQ(line.substr(0, before.size()), before);
        return line.substr(before.size(), line.size() - before.size() - 1);
    }
};

TEST_F(ManagerUsbTest, AsksForTheDetailOfTheDevice) {
    EXPECT_EQ(get("Source_Connect/USB1/vendor"), "0");
    EXPECT_THAT(fake::logs(), ElementsAre(readLine("Input", "Source_Connect/USB1/vendor"),
                                          managerLine(4, "m_getPropValue",
                                                      "GetDevicePropInfo inputDeviceName = [USB1]"),
                                          fake::LineIn("DeviceInfoInput.cpp", 3, "getUSBDetail",
                                                       "Detail type seeked =[USB1]"),
                                          gaveLine("0")));
    EXPECT_EQ(fake::calls(), noDevice);
}

TEST_F(ManagerUsbTest, AsksForTheModelAsWell) {
    EXPECT_EQ(get("Source_Connect/USB4/model"), "0");
    EXPECT_EQ(fake::calls(), noDevice);
}

TEST_F(ManagerUsbTest, AnyOtherDetailLeavesTheOutputAlone) {
    EXPECT_EQ(get("Source_Connect/USB1"), "as it was");
    EXPECT_THAT(fake::calls(), IsEmpty());
    EXPECT_THAT(fake::messages(5), IsEmpty());
    EXPECT_THAT(fake::messages(4),
                ElementsAre("GetDevicePropValue menuItemName = [Input] PropertyName = "
                            "[Source_Connect/USB1]",
                            "GetDevicePropInfo inputDeviceName = [USB1]",
                            "propertyValue = [as it was]"));
}

TEST_F(ManagerUsbTest, DeviceIsWhatStandsBetweenTheFirstTwoSlashes) {
    EXPECT_EQ(deviceOf("Source_Connect/USB2/model"), "USB2");
    EXPECT_EQ(deviceOf("Source_Connect/USB2"), "USB2");
    EXPECT_EQ(deviceOf("USB/vendor/of/all"), "vendor");
    EXPECT_EQ(deviceOf("/USB3/model"), "USB3");
}

TEST_F(ManagerUsbTest, NameWithoutASlashIsItsOwnDevice) {
    EXPECT_EQ(deviceOf("USB7"), "USB7");
    EXPECT_EQ(deviceOf("USB7 model"), "USB7 model");
}

TEST_F(ManagerUsbTest, EmptyDeviceNameReadsAsNoDevice) {
    EXPECT_EQ(deviceOf("USB vendor/"), "");
    EXPECT_EQ(deviceOf("USB vendor//x"), "");
    EXPECT_EQ(get("USB vendor/"), "0");
    EXPECT_THAT(fake::calls(), IsEmpty());
}

TEST_F(ManagerUsbTest, GivesTheTextOfADeviceWhereTheNameIsThatOfADetail) {
    scene.usbDevices({66, {"Stick", "Maker"}});
    EXPECT_EQ(get("USB/vendor"), "Maker");
}

TEST_F(ManagerUsbTest, UsbInTheMenuAloneIsNoDevice) {
    std::string value = "as it was";
    EXPECT_TRUE(CDeviceInfoManager::GetDevicePropertyValue("USB", "x/y/vendor", value));
    EXPECT_EQ(value, "as it was");
    EXPECT_THAT(fake::messages(5), ElementsAre("key=[/USB/x/y/vendor] does not exist"));
}

TEST_F(ManagerUsbTest, RecordComesBeforeTheDevice) {
    use({{"/Input/Source_Connect/USB", record(answering("1"))}});
    EXPECT_EQ(get("Source_Connect/USB"), "1");
    EXPECT_THAT(fake::calls(), IsEmpty());
}

TEST_F(ManagerUsbTest, FailureOfTheQueryEndsTheRead) {
    scene.throwFrom("usb_device_init", std::runtime_error("unplugged"));
    std::string value = "as it was";
    EXPECT_FALSE(
        CDeviceInfoManager::GetDevicePropertyValue("Input", "Source_Connect/USB1/model", value));
    EXPECT_EQ(value, "as it was");
    EXPECT_THAT(fake::messages(5), ElementsAre("UNKNOWN exception occured"));
}

} // namespace
