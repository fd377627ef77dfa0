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
        const Outcome outcome = onPlayedHardware()
                                    .environment("KLX_PROFILE", m_profile)
                                    .environment(setting, value)
                                    .run({"get", path});
        EXPECT_EQ(outcome.status, 0) << outcome.messages;
        return outcome.output;
    }

    void plugReceiver(const std::string& name, const std::string& told) const {
        create_directories((m_receivers / name).parent_path());
        writeFile(m_receivers / name, told);
    }

    std::string signal() const {
        return valueWith("KLXCTL_TEST_DVB", m_receivers, "/SetInformation/SNRLevel");
    }

    std::string signalWith(const std::string& told) const {
        plugReceiver("adapter0/frontend0", told);
        return signal();
    }

    std::string resetsWith(const std::string& bootStatus) const {
        return valueWith("KLXCTL_TEST_WATCHDOG", bootStatus, "/SetInformation/Watchdog_Count");
    }

private:
    const std::filesystem::path m_profile = folder() / "set.json";
    const std::filesystem::path m_receivers = folder() / "dvb";
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

TEST_F(HardwareTest, NoReceiverAtAllLeavesTheSignalToTheProfile) {
    EXPECT_EQ(signal(), "9.99 dB\n");
}

TEST_F(HardwareTest, TheReceiverNeedNotBeTheFirstAdaptersFirst) {
    plugReceiver("adapter1/frontend1", "decibel 12340");
    EXPECT_EQ(signal(), "12.34 dB\n");
}

TEST_F(HardwareTest, ReceiversThatDoNotMeasureArePassedOver) {
    plugReceiver("adapter0/frontend0", "broken");
    plugReceiver("adapter0/frontend1", "silent");
    plugReceiver("adapter1/frontend0", "relative 40000");
    plugReceiver("adapter2/frontend0", "decibel 12340");
    EXPECT_EQ(signal(), "12.34 dB\n");
}

TEST_F(HardwareTest, TheFirstReceiverByNumberTellsTheSignal) {
    plugReceiver("adapter10/frontend0", "decibel 10000");
    plugReceiver("adapter2/frontend1", "decibel 21000");
    EXPECT_EQ(signal(), "21 dB\n");
    plugReceiver("adapter2/frontend0", "decibel 20000");
    EXPECT_EQ(signal(), "20 dB\n");
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
