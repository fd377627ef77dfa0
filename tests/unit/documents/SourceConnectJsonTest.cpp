#include "DocumentsTest.h"
#include "InputSeam.h"

#include "Exception.h"

#include <json/json.h>

namespace fake = klx::fake;
using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace {

const Request sources = {{"Input", {"Source_Connect"}}};

std::string pathOf(const std::string& device) {
    return "/Input/Source_Connect/" + device;
}

class SourceConnectJsonTest : public DocumentsTest {
protected:
    /** The object of "Source_Connect". */
    Json::Value dumped(const Request& request = sources) {
        Json::Value root;
        EXPECT_TRUE(DeviceInfoManagerSeam::createJsonNode(dump(request, json), root));
        return root["Input"]["Source_Connect"];
    }
};

TEST_F(SourceConnectJsonTest, EachDeviceOfTheListIsAMember) {
    const InputSeam list({"HDMI2", "AV1", "HDMI1"});
    records.add(pathOf("HDMI1"), "1").add(pathOf("HDMI2"), "0").add(pathOf("AV1"), "2");
    const Json::Value devices = dumped();
    EXPECT_THAT(devices.getMemberNames(), ElementsAre("AV1", "HDMI1", "HDMI2"));
    EXPECT_EQ(devices["AV1"]["Value"], "2");
    EXPECT_EQ(devices["HDMI1"]["Value"], "1");
    EXPECT_EQ(devices["HDMI2"]["Value"], "0");
}

TEST_F(SourceConnectJsonTest, DevicesAreReadInTheOrderOfTheList) {
    const InputSeam list({"HDMI2", "AV1", "HDMI1"});
    std::vector<std::string> order;
    for (const std::string& device : list.devices) {
        records.answering(pathOf(device), [&order, device](const std::string&) {
            order.push_back(device);
            return "0";
        });
    }
    dumped();
    EXPECT_THAT(order, ElementsAre("HDMI2", "AV1", "HDMI1"));
}

TEST_F(SourceConnectJsonTest, DeviceWithoutARecordIsLoggedAndAddsNothing) {
    const InputSeam list({"HDMI1", "HDMI2"});
    records.add(pathOf("HDMI2"), "1");
    EXPECT_THAT(dumped().getMemberNames(), ElementsAre("HDMI2"));
    EXPECT_THAT(linesOf("m_getPropValue"),
                Contains("5 key=[/Input/Source_Connect/HDMI1] does not exist"));
}

TEST_F(SourceConnectJsonTest, ListWithoutDevicesAddsNothing) {
    const InputSeam list(std::vector<std::string>{});
    records.add(pathOf("HDMI1"), "1").add("/Input/Source_Connect", "1");
    EXPECT_EQ(dump(sources, json), "null");
    EXPECT_THAT(fake::messages(5), IsEmpty());
}

TEST_F(SourceConnectJsonTest, StarWalksTheDevicesForEachKeyThatItVisits) {
    const InputSeam list({"HDMI1"});
    records.add(pathOf("HDMI"), "1").add(pathOf("USB"), "1").add("/Input/Source", "3");
    EXPECT_EQ(dump({{"Input", {"*"}}}, json).find("Source_Connect"), std::string::npos);
    EXPECT_THAT(fake::messages(5), ElementsAre("key=[/Input/Source_Connect/HDMI1] does not exist",
                                               "key=[/Input/Source_Connect/HDMI1] does not exist"));
}

TEST_F(SourceConnectJsonTest, PathThatContainsTheNameWalksTheDevices) {
    const InputSeam list({"HDMI1"});
    records.add(pathOf("HDMI1"), "1").add("/Input/My Source_Connect/X", "7");
    EXPECT_THAT(dumped({{"Input", {"My Source_Connect/X"}}}).getMemberNames(),
                ElementsAre("HDMI1"));
}

TEST_F(SourceConnectJsonTest, EntriesAreReadWithTheEmptyArgument) {
    const InputSeam list({"HDMI1"});
    records.answering(pathOf("HDMI1"), argumentInBrackets, argumentInBrackets);
    EXPECT_EQ(dumped()["HDMI1"]["Value"], "[]");
    EXPECT_EQ(dumped()["HDMI1"]["Default"], "[]");
}

TEST_F(SourceConnectJsonTest, OwnListHasTheSetsDevices) {
    for (const char* device : {"AV1", "AV2", "COMP1", "COMP2", "HDMI1", "HDMI2", "HDMI3", "HDMI4",
                               "SCART1", "SCART2", "USB1", "USB2", "USB3", "USB4"}) {
        records.add(pathOf(device), "0");
    }
    EXPECT_EQ(dumped().size(), 14u);
    EXPECT_THAT(fake::messages(5), IsEmpty());
}

TEST_F(SourceConnectJsonTest, FailingListEndsTheDocument) {
    const InputSeam list(std::make_exception_ptr(KLX::Exception("no list")));
    records.add(pathOf("HDMI1"), "1");
    std::string document = "as before";
    EXPECT_FALSE(CDeviceInfoManager::GetDeviceInfo(sources, document, "", json));
    EXPECT_EQ(document, "as before");
    EXPECT_THAT(linesOf("GetDeviceInfo"), Contains("5 exception occured =[no list]"));
}

TEST_F(SourceConnectJsonTest, FailingListOfAnotherTypeEndsTheDocument) {
    const InputSeam list(std::make_exception_ptr(std::length_error("no list")));
    std::string document;
    EXPECT_FALSE(CDeviceInfoManager::GetDeviceInfo(sources, document, "", json));
    EXPECT_THAT(linesOf("GetDeviceInfo"), Contains("5 UNKNOWN exception occured"));
}

TEST_F(SourceConnectJsonTest, AttachedUsbDeviceHasAVendor) {
    const InputSeam list({"USB1"});
    scene.usbDevices({{"Stick", "Maker"}});
    records.add(pathOf("USB1"), "1");
    const Json::Value device = dumped()["USB1"];
    EXPECT_THAT(device.getMemberNames(), ElementsAre("Default", "Value", "vendor"));
    EXPECT_THAT(device["vendor"].getMemberNames(), ElementsAre("Default", "Value"));
    EXPECT_EQ(device["vendor"]["Default"], "0");
    EXPECT_TRUE(device["vendor"]["Value"].isString());
}

TEST_F(SourceConnectJsonTest, VendorIsTheDetailOfTheDevicesName) {
    InputSeam list({"USB2"});
    list.answerDetails("maker of ");
    records.add(pathOf("USB2"), "1");
    EXPECT_EQ(dumped()["USB2"]["vendor"]["Value"], "maker of USB2");
}

TEST_F(SourceConnectJsonTest, LibrarysOwnDetailOfADevicesNameIsZero) {
    const InputSeam list({"USB1"});
    scene.usbDevices({{"Stick", "Maker"}});
    records.add(pathOf("USB1"), "1");
    EXPECT_EQ(dumped()["USB1"]["vendor"]["Value"], "0");
    EXPECT_THAT(linesOf("getUSBDetail"), ElementsAre("3 Detail type seeked =[USB1]"));
}

TEST_F(SourceConnectJsonTest, UsbDeviceThatIsNotAttachedHasNoVendor) {
    const InputSeam list({"USB1", "USB2"});
    records.add(pathOf("USB1"), "0").add(pathOf("USB2"), "2");
    const Json::Value devices = dumped();
    EXPECT_THAT(devices["USB1"].getMemberNames(), ElementsAre("Default", "Value"));
    EXPECT_THAT(devices["USB2"].getMemberNames(), ElementsAre("Default", "Value"));
    EXPECT_THAT(linesOf("getUSBDetail"), IsEmpty());
}

TEST_F(SourceConnectJsonTest, DeviceThatIsNoUsbDeviceHasNoVendor) {
    const InputSeam list({"HDMI1"});
    records.add(pathOf("HDMI1"), "1");
    EXPECT_THAT(dumped()["HDMI1"].getMemberNames(), ElementsAre("Default", "Value"));
}

TEST_F(SourceConnectJsonTest, OrdinaryPropertyNamedUsbHasNoVendor) {
    records.add("/Menu/USB1", "1");
    Json::Value root;
    DeviceInfoManagerSeam::createJsonNode(dump({{"Menu", {"USB1"}}}, json), root);
    EXPECT_THAT(root["Menu"]["USB1"].getMemberNames(), ElementsAre("Default", "Value"));
}

} // namespace
