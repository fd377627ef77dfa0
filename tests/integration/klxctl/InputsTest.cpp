#include "KlxctlTest.h"

#include <gmock/gmock.h>
#include <json/json.h>

#include <sstream>

using testing::ContainsRegex;
using testing::HasSubstr;
using testing::StartsWith;

namespace {

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
