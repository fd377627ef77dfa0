#include "HostTest.h"
#include "Program.h"
#include "StoreCalls.h"

#include <chrono>
#include <cstring>
#include <random>
#include <string>
#include <thread>

namespace KLX::Host {
namespace {

constexpr int rounds = 200;

/** The last number that a killed writer told of, or `before` when it told none. */
int lastAcknowledged(const std::string& output, int before) {
    int number = before;
    const std::size_t whole = output.size() / sizeof number;
    if (whole > 0) {
        std::memcpy(&number, output.data() + (whole - 1) * sizeof number, sizeof number);
    }
    return number;
}

/** Whether the texts that the writers left are whole. */
bool areTextsWhole(const std::string& key) {
    for (int i = 0; i < 40; ++i) {
        const std::string text = textOf(key + "/text" + std::to_string(i));
        if (text != "(failed)" && text.find_first_not_of(text[0]) != std::string::npos) {
            return false;
        }
    }
    return true;
}

/** Whether the number under a key rises above another, however slow the disk is. */
bool risesAbove(const std::string& key, int number) {
    const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(60);
    while (integerOr(key) <= number && std::chrono::steady_clock::now() < end) {
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
    }
    return integerOr(key) > number;
}

class Kill : public HostTest {
protected:
    /**
     * Runs a writer for a random while, which begins in two of three cases with its first
     * acknowledged write, else with its start. Answers the last number that it acknowledged.
     */
    int killOneWriter(const std::string& key, int stored) {
        constexpr int longestLife = 12000;
        const std::chrono::microseconds life(
            std::uniform_int_distribution<int>(0, longestLife)(m_random));
        Program writer(KLX_FAULT_WRITER, {key, std::to_string(stored + 1)});
        if (m_random() % 3 != 0) {
            EXPECT_TRUE(writer.waitForOutput());
        }
        std::this_thread::sleep_for(life);
        writer.kill();
        return lastAcknowledged(writer.takeOutput(), stored);
    }

    std::mt19937 m_random{20240611};
};

TEST_F(Kill, OfAWriterLosesNothingThatWasAcknowledged) {
    const std::string key = "db/kill";
    ASSERT_EQ(setInteger(key, 0), success);
    int stored = 0;
    int roundsWithWrites = 0;
    for (int round = 0; round < rounds; ++round) {
        const int acknowledged = killOneWriter(key, stored);
        roundsWithWrites += acknowledged > stored ? 1 : 0;
        stored = integerOr(key);
        ASSERT_GE(stored, acknowledged) << "round " << round;
        ASSERT_LE(stored, acknowledged + 1) << "round " << round;
        ASSERT_TRUE(areTextsWhole(key)) << "round " << round;
    }
    EXPECT_GT(roundsWithWrites, rounds / 2) << "the writers were killed before they wrote";
    EXPECT_EQ(inOwnProcess([&] { return integerOr(key) == stored ? 0 : 1; }), 0);
    EXPECT_EQ(setInteger(key, -1), success) << "a lock was left behind";
}

TEST_F(Kill, OfAWriterHoldsUpNobodyElse) {
    Program survivor(KLX_FAULT_WRITER, {"db/survivor", "1"});
    ASSERT_TRUE(survivor.waitForOutput());
    int stored = 0;
    int seen = 0;
    int acknowledged = 0;
    for (int round = 0; round < 40; ++round) {
        killOneWriter("db/victim", stored);
        stored = std::max(0, integerOr("db/victim"));
        ASSERT_TRUE(risesAbove("db/survivor", seen)) << "the survivor was held up";
        seen = integerOr("db/survivor");
        acknowledged = lastAcknowledged(survivor.takeOutput(), acknowledged);
        ASSERT_EQ(setInteger("db/bystander", round), success);
    }
    survivor.kill();
    acknowledged = lastAcknowledged(survivor.takeOutput(), acknowledged);
    EXPECT_GE(acknowledged, seen - 1);
    EXPECT_GE(integerOr("db/survivor"), acknowledged);
}

} // namespace
} // namespace KLX::Host
