#include "KlxctlTest.h"

#include <gmock/gmock.h>
#include <json/json.h>

#include <sstream>

using testing::ContainsRegex;
using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

namespace {

const char* const machineWithStick = R"(P: /devices/pci0000:00/usb1
E: SUBSYSTEM=usb
E: DEVTYPE=usb_device
A: bDeviceClass=09

P: /devices/pci0000:00/usb1/1-1
E: SUBSYSTEM=usb
E: DEVTYPE=usb_device
A: product=DataTraveler 3.0
A: manufacturer=Kingston

P: /devices/pci0000:00/usb1/1-1/1-1:1.0
E: SUBSYSTEM=usb
E: DEVTYPE=usb_interface
A: bInterfaceClass=08
)";

const char* const tableWithStick =
    R"(INPUT   STATE  MEANING            PRODUCT           MANUFACTURER
HDMI1   1      connected
HDMI2   0      nothing connected
HDMI3   0      nothing connected
HDMI4   0      nothing connected
AV1     0      nothing connected
AV2     0      nothing connected
COMP1   0      nothing connected
COMP2   0      nothing connected
SCART1  0      nothing connected
SCART2  0      nothing connected
USB1    1      connected          DataTraveler 3.0  Kingston
USB2    0      nothing connected
USB3    0      nothing connected
USB4    0      nothing connected
)";

class InputsTest : public KlxctlTest {
protected:
    static Json::Value devicesOf(const ToolRun& tool) {
        const Outcome outcome = tool.run({"inputs", "--json"});
        EXPECT_EQ(outcome.status, 0) << outcome.messages;
        Json::Value list;
        std::istringstream(outcome.output) >> list;
        return list;
    }

    /// The state that `inputs` shows.
    std::string stateOf(const std::string& name) const {
        for (const Json::Value& each : devicesOf(tool())) {
            if (each["name"] == name) {
                return each["state"].asString();
            }
        }
        return "no such input";
    }

    /// What the tool prints on a machine with a stick in its first USB port.
    std::string printedWithStick(const std::vector<std::string>& arguments) const {
        const std::filesystem::path machine = folder() / "machine.umockdev";
        writeFile(machine, machineWithStick);
        std::vector<std::string> command = {KLXCTL_UMOCKDEV_RUN, "--device", machine, "--",
                                            KLXCTL_TOOL};
        command.insert(command.end(), arguments.begin(), arguments.end());
        const Outcome outcome = tool().runProgram(command);
        EXPECT_EQ(outcome.status, 0) << outcome.messages;
        return outcome.output;
    }

    void expectRefused(const std::vector<std::string>& arguments, const std::string& message) {
        const Outcome outcome = run(arguments);
        EXPECT_EQ(outcome.status, 2);
        EXPECT_EQ(outcome.output, "");
        EXPECT_THAT(outcome.messages, HasSubstr(message));
    }
};

} // namespace

TEST_F(InputsTest, TableHasEveryInputOfTheSet) {
    const std::string table = run({"inputs"}).output;
    EXPECT_THAT(table, StartsWith("INPUT "));
    EXPECT_THAT(table, ContainsRegex("\nHDMI1 +1 +connected\n"));
    EXPECT_THAT(table, ContainsRegex("\nHDMI4 +0 +nothing connected\n"));
    EXPECT_EQ(devicesOf(tool()).size(), 14U);
    EXPECT_EQ(devicesOf(tool().environment("KLX_PROFILE", "tessa")).size(), 16U);
}

TEST_F(InputsTest, JsonNamesStateProductAndManufacturer) {
    const Json::Value first = devicesOf(tool())[0];
    EXPECT_EQ(first["name"], "HDMI1");
    EXPECT_EQ(first["state"], "1");
    EXPECT_EQ(first["product"], "");
    EXPECT_EQ(first["manufacturer"], "");
}

TEST_F(InputsTest, TableShowsTheAttachedUsbDevice) {
    EXPECT_EQ(printedWithStick({"inputs"}), tableWithStick);
}

TEST_F(InputsTest, JsonShowsTheAttachedUsbDevice) {
    EXPECT_THAT(printedWithStick({"inputs", "--json"}), HasSubstr(R"(
  {
    "manufacturer" : "Kingston",
    "name" : "USB1",
    "product" : "DataTraveler 3.0",
    "state" : "1"
  },
)"));
}

TEST_F(InputsTest, TableIsColouredOnATerminalOnly) {
    EXPECT_THAT(run({"inputs"}).output, Not(HasSubstr("\033")));
    EXPECT_THAT(onATerminal(tool(), {"inputs"}), HasSubstr("\033[32mconnected\033[0m"));
    EXPECT_THAT(onATerminal(tool(), {"inputs", "--json"}), Not(HasSubstr("\033")));
}

TEST_F(InputsTest, TableIsNeverColouredWithNoColor) {
    EXPECT_THAT(onATerminal(tool().environment("NO_COLOR", "1"), {"inputs"}),
                Not(HasSubstr("\033")));
}

TEST_F(InputsTest, HdmiSourceTellsNothingAndWhyWithoutItsProcessor) {
    if (std::filesystem::exists("/dev/video21")) {
        GTEST_SKIP() << "this machine has a device where a set has its HDMI processor";
    }
    ASSERT_EQ(run({"set", "/Input/Source", "13"}).status, 0);
    for (const char* path : {"/Input/HDMI_Vendor", "/Input/HDMI_Product"}) {
        const Outcome outcome = tool().environment("KLX_LOG", "warning").run({"get", path});
        EXPECT_EQ(outcome.status, 0);
        EXPECT_EQ(outcome.output, "\n");
        EXPECT_THAT(outcome.messages, HasSubstr("Cannot open HDMI processor, errno= 2\n"));
    }
}

TEST_F(InputsTest, PortThatIsPluggedInShowsIt) {
    for (const char* state : {"1", "2", "0"}) {
        ASSERT_EQ(run({"port", "HDMI2", state}).status, 0);
        EXPECT_EQ(stateOf("HDMI2"), state);
    }
    EXPECT_EQ(stateOf("HDMI3"), "0");
}

TEST_F(InputsTest, StatesHaveWords) {
    ASSERT_EQ(run({"port", "SCART2", "connected"}).status, 0);
    EXPECT_EQ(stateOf("SCART2"), "1");
    ASSERT_EQ(run({"port", "SCART2", "disconnected"}).status, 0);
    EXPECT_EQ(stateOf("SCART2"), "0");
}

TEST_F(InputsTest, UnknownPortNamesTheNearest) {
    expectRefused({"port", "hdmi2", "1"},
                  "there is no port \"hdmi2\"; did you mean\n  \"HDMI2\"\n");
    expectRefused({"port", "HDMI5", "1"}, "there is no port \"HDMI5\"");
}

TEST_F(InputsTest, UsbInputCannotBePlayed) {
    expectRefused({"port", "USB1", "1"}, "\"USB1\" shows what is plugged into this machine");
}

TEST_F(InputsTest, StateThatAPortDoesNotKnowIsTold) {
    expectRefused({"port", "AV1", "2"},
                  "AV1 has no state \"2\"; write 0 (disconnected) or 1 (connected)");
    expectRefused({"port", "HDMI1", "on"},
                  "HDMI1 has no state \"on\"; write 0 (disconnected), 1 (connected) or 2");
}

TEST_F(InputsTest, StateThatCannotBeStoredIsAFailure) {
    const Outcome outcome =
        tool().environment("KLX_PROFILE", "/no/such/profile.json").run({"port", "HDMI1", "1"});
    EXPECT_EQ(outcome.status, 1);
    EXPECT_THAT(outcome.messages, HasSubstr("the state of HDMI1 could not be stored"));
}
