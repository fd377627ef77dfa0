#include "KlxctlTest.h"

namespace {

/// A set whose profile tells other figures than its hardware.
class HardwareTest : public KlxctlTest {
protected:
    HardwareTest() {
        writeFile(m_profile, R"({"model": "With hardware", "power": {"watchdogCount": 7},
            "tuner": {"snrHundredthsOfDecibel": 999}})");
    }

    std::string valueWith(const std::string& setting, const std::string& value,
                          const std::string& path) const {
        const Outcome outcome =
            tool()
                .environment("KLX_PROFILE", m_profile)
                .environment("LD_PRELOAD", KLXCTL_PLAYED_HARDWARE)
                .environment("ASAN_OPTIONS", "verify_asan_link_order=0:detect_leaks=0")
                .environment(setting, value)
                .run({"get", path});
        EXPECT_EQ(outcome.status, 0) << outcome.messages;
        return outcome.output;
    }

    std::string signalWith(const std::string& told) const {
        return valueWith("KLXCTL_TEST_CNR", told, "/SetInformation/SNRLevel");
    }

    std::string resetsWith(const std::string& bootStatus) const {
        return valueWith("KLXCTL_TEST_WATCHDOG", bootStatus, "/SetInformation/Watchdog_Count");
    }

private:
    const std::filesystem::path m_profile = folder() / "set.json";
};

} // namespace

TEST_F(HardwareTest, AReceiverThatMeasuresInDecibelTellsTheSignal) {
    EXPECT_EQ(signalWith("decibel 12340"), "12.34 dB\n");
    EXPECT_EQ(signalWith("decibel 12349"), "12.34 dB\n");
    EXPECT_EQ(signalWith("decibel -1500"), "-1.5 dB\n");
    EXPECT_EQ(signalWith("decibel 0"), "0 dB\n");
}

TEST_F(HardwareTest, AnyOtherReceiverLeavesTheSignalToTheProfile) {
    EXPECT_EQ(signalWith("relative 40000"), "9.99 dB\n");
    EXPECT_EQ(signalWith("silent"), "9.99 dB\n");
    EXPECT_EQ(signalWith("broken"), "9.99 dB\n");
}

TEST_F(HardwareTest, AWatchdogThatStartedTheMachineCountsAsOneReset) {
    EXPECT_EQ(resetsWith("32\n"), "1\n");
    EXPECT_EQ(resetsWith("33\n"), "1\n");
    EXPECT_EQ(resetsWith("0\n"), "0\n");
    EXPECT_EQ(resetsWith("31\n"), "0\n");
}

TEST_F(HardwareTest, AWatchdogThatTellsNothingLeavesTheCountToTheProfile) {
    EXPECT_EQ(resetsWith(""), "7\n");
    EXPECT_EQ(resetsWith("unknown\n"), "7\n");
}
