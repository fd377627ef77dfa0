#include "KlxctlTest.h"

#include <gmock/gmock.h>

using testing::HasSubstr;

namespace {

const std::string cec = "/General/External Device Manager/Cordix+(HDMI-CEC)";

/// A machine with a CEC adapter that nobody has set yet.
class HdmiCecTest : public KlxctlTest {
protected:
    HdmiCecTest() { writeFile(m_adapter, ""); }

    ToolRun withAdapter() const {
        return onPlayedHardware().environment("KLXCTL_TEST_CEC", m_adapter);
    }

    static std::string state(const ToolRun& tool) {
        const Outcome outcome = tool.run({"get", cec});
        EXPECT_EQ(outcome.status, 0) << outcome.messages;
        return outcome.output;
    }

    static void set(const ToolRun& tool, const std::string& value) {
        const Outcome outcome = tool.run({"set", cec, value});
        EXPECT_EQ(outcome.status, 0) << outcome.messages;
    }

    /// What the adapter was told, one line each time.
    std::string told() const { return contentOf(m_adapter); }

private:
    const std::filesystem::path m_adapter = folder() / "adapter";
};

} // namespace

TEST_F(HdmiCecTest, IsOnWhereTheAdapterHoldsAnAddress) {
    EXPECT_EQ(state(withAdapter()), "0\n");
    set(withAdapter(), "1");
    EXPECT_EQ(state(withAdapter()), "1\n");
    set(withAdapter(), "0");
    EXPECT_EQ(state(withAdapter()), "0\n");
}

TEST_F(HdmiCecTest, GivesUpOldAddressesBeforeItClaimsATelevisions) {
    set(withAdapter(), "1");
    EXPECT_EQ(told(), "silent\ntelevision\n");
    set(withAdapter(), "1");
    EXPECT_EQ(told(), "silent\ntelevision\nsilent\ntelevision\n");
}

TEST_F(HdmiCecTest, ClaimsNothingWhenItIsSwitchedOff) {
    set(withAdapter(), "1");
    set(withAdapter(), "0");
    EXPECT_EQ(told(), "silent\ntelevision\nsilent\n");
}

TEST_F(HdmiCecTest, LeavesTheStoreAloneWhileAnAdapterServes) {
    EXPECT_EQ(state(onPlayedHardware()), "1\n");
    set(withAdapter(), "0");
    EXPECT_EQ(state(onPlayedHardware()), "1\n");
    set(onPlayedHardware(), "0");
    set(withAdapter(), "1");
    EXPECT_EQ(state(onPlayedHardware()), "0\n");
}

TEST_F(HdmiCecTest, IsThatOfTheAdapterThatIsNamed) {
    const ToolRun tool = withAdapter().environment("KLX_HOST_CEC", "/dev/cec7");
    set(tool, "1");
    EXPECT_EQ(told(), "silent\ntelevision\n");
    EXPECT_EQ(state(tool), "1\n");
}

TEST_F(HdmiCecTest, IsOffAndTellsWhyWhereTheNamedAdapterIsMissing) {
    const Outcome outcome = tool()
                                .environment("KLX_HOST_CEC", folder() / "missing")
                                .environment("KLX_LOG", "warning")
                                .run({"get", cec});
    EXPECT_EQ(outcome.output, "0\n");
    EXPECT_THAT(outcome.messages,
                HasSubstr((folder() / "missing").string() + ": No such file or directory\n"));
}
