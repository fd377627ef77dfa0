#include "IdentityTest.h"
#include "Machine.h"

#include <array>
#include <climits>

using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace {

using Counters = std::array<unsigned long, 7>;

Counters countersOf(const CPU_INFO& info) {
    return {info.user, info.nice, info.system, info.idle, info.iowait, info.irq, info.softirq};
}

/** "/proc/stat" with these counters in its first line. */
std::string statHolding(const Counters& counters) {
    std::string line = "cpu ";
    for (const unsigned long counter : counters) {
        line += " " + std::to_string(counter);
    }
    return line + " 0 0 0\ncpu0 1 2 3 4 5 6 7 0 0 0\nintr 12345\n";
}

constexpr const char* openStat = "fopen(\"/proc/stat\", \"r\")";

class ProcessorTimesTest : public IdentityTest {
protected:
    /** Takes a sample. @return the result; the counters stay in `info` */
    int sample(const std::string& stat) {
        machine.processorTimes = {stat};
        return DeviceInfoGeneral::getCPUInfoUtil(info);
    }

    void expectFailure(const std::string& message) {
        EXPECT_EQ(countersOf(info), Counters{});
        EXPECT_THAT(fake::logs(), ElementsAre(generalLine(3, "getCPUInfoUtil", "getCPUInfo"),
                                              generalLine(5, "getCPUInfoUtil", message)));
    }

    Machine machine;
    CPU_INFO info{91, 92, 93, 94, 95, 96, 97};
};

TEST_F(ProcessorTimesTest, AreTheSevenCountersInOrder) {
    EXPECT_EQ(sample("cpu  2255 34 2290 22625563 6290 127 456 8 9 10\ncpu0 1 1 1 1 1 1 1\n"), 1);
    EXPECT_EQ(countersOf(info), (Counters{2255, 34, 2290, 22625563, 6290, 127, 456}));
    EXPECT_THAT(machine.asked, ElementsAre(openStat, "fclose"));
    EXPECT_THAT(fake::history(), ElementsAre("log(3) getCPUInfoUtil: getCPUInfo"));
    EXPECT_THAT(fake::logs(), ElementsAre(generalLine(3, "getCPUInfoUtil", "getCPUInfo")));
}

TEST_F(ProcessorTimesTest, TakeTheLargestCounters) {
    EXPECT_EQ(sample(statHolding({ULONG_MAX, ULONG_MAX - 1, 0, ULONG_MAX, 1, 2, ULONG_MAX})), 1);
    EXPECT_EQ(countersOf(info),
              (Counters{ULONG_MAX, ULONG_MAX - 1, 0, ULONG_MAX, 1, 2, ULONG_MAX}));
}

TEST_F(ProcessorTimesTest, OfAShortLineAreFilledWithZero) {
    EXPECT_EQ(sample("cpu  10 20 30\n"), 1);
    EXPECT_EQ(countersOf(info), (Counters{10, 20, 30, 0, 0, 0, 0}));
    EXPECT_EQ(sample("cpu 10"), 1);
    EXPECT_EQ(countersOf(info), (Counters{10, 0, 0, 0, 0, 0, 0}));
}

TEST_F(ProcessorTimesTest, OfALineThatBreaksOffAreFilledWithZero) {
    EXPECT_EQ(sample("cpu  10 20 x 40 50 60 70 0 0 0\n"), 1);
    EXPECT_EQ(countersOf(info), (Counters{10, 20, 0, 0, 0, 0, 0}));
}

TEST_F(ProcessorTimesTest, WithoutACounterAreAFailure) {
    for (const char* stat : {"", "cpu", "cpu  \n", "cpu x 1 2 3 4 5 6", "intr 1 2 3", "\xFF\xFE"}) {
        info = {91, 92, 93, 94, 95, 96, 97};
        machine.asked.clear();
        fake::clearHistory();
        EXPECT_EQ(sample(stat), 0) << stat;
        EXPECT_THAT(machine.asked, ElementsAre(openStat, "fclose"));
        expectFailure("error in cpu info read");
    }
}

TEST_F(ProcessorTimesTest, ThatCannotBeOpenedAreAFailure) {
    EXPECT_EQ(DeviceInfoGeneral::getCPUInfoUtil(info), 0);
    EXPECT_THAT(machine.asked, ElementsAre(openStat));
    expectFailure("open /proc/stat failed");
}

class CpuUsageTest : public IdentityTest {
protected:
    /** Measures between two samples. @return the percentage, which the call has to give */
    int usageBetween(const Counters& first, const Counters& second) {
        machine.processorTimes = {statHolding(first), statHolding(second)};
        int usage = -99;
        EXPECT_EQ(DeviceInfoGeneral::getCPUusageUtil(usage), 1);
        return usage;
    }

    /** What happened to `usage` in a call that has to fail. */
    int usageOfFailure() {
        int usage = -99;
        EXPECT_EQ(DeviceInfoGeneral::getCPUusageUtil(usage), 0);
        return usage;
    }

    Machine machine;
};

TEST_F(CpuUsageTest, TakesTwoSamplesASecondApart) {
    EXPECT_EQ(usageBetween({100, 0, 100, 800}, {150, 0, 125, 825}), 75);
    EXPECT_THAT(machine.asked,
                ElementsAre(openStat, "fclose", "nanosleep(1 s 0 ns)", openStat, "fclose"));
    EXPECT_THAT(fake::logs(), ElementsAre(generalLine(3, "getCPUusageUtil", "getCPUusage"),
                                          generalLine(3, "getCPUInfoUtil", "getCPUInfo"),
                                          generalLine(3, "getCPUInfoUtil", "getCPUInfo")));
}

TEST_F(CpuUsageTest, EveryCounterButIdleIsBusy) {
    for (const std::size_t busy : {0U, 1U, 2U, 4U, 5U, 6U}) {
        Counters second{};
        second[3] = 60;
        second[busy] += 40;
        EXPECT_EQ(usageBetween({}, second), 40) << busy;
    }
}

TEST_F(CpuUsageTest, ReachesBothEnds) {
    EXPECT_EQ(usageBetween({}, {0, 0, 0, 100}), 0);
    EXPECT_EQ(usageBetween({}, {100}), 100);
}

TEST_F(CpuUsageTest, DropsTheFraction) {
    EXPECT_EQ(usageBetween({}, {199, 0, 0, 1}), 99);
    EXPECT_EQ(usageBetween({}, {2, 0, 0, 1}), 66);
}

TEST_F(CpuUsageTest, IsComputedInSinglePrecision) {
    EXPECT_EQ(usageBetween({}, {29, 0, 0, 71}), 29);
    EXPECT_EQ(usageBetween({}, {53, 0, 0, 47}), 52);
}

TEST_F(CpuUsageTest, EqualSamplesGiveZero) {
    const Counters same{2255, 34, 2290, 22625563, 6290, 127, 456};
    EXPECT_EQ(usageBetween(same, same), 0);
}

TEST_F(CpuUsageTest, CountersMayWrap) {
    EXPECT_EQ(usageBetween({ULONG_MAX - 9, 0, 0, 100}, {20, 0, 0, 170}), 30);
    EXPECT_EQ(usageBetween({100, 0, 0, ULONG_MAX - 9}, {130, 0, 0, 60}), 30);
    EXPECT_EQ(usageBetween({ULONG_MAX, ULONG_MAX, 0, 0}, {29, ULONG_MAX, 0, 70}), 30);
}

TEST_F(CpuUsageTest, IdleThatGoesBackCountsAsBusy) {
    EXPECT_EQ(usageBetween({0, 0, 0, 105}, {15, 0, 0, 100}), 150);
}

TEST_F(CpuUsageTest, IdleThatRunsAheadOfTheTotal) {
    EXPECT_EQ(usageBetween({0, 0, 0, 0, 20}, {5, 0, 0, 100, 5}), -11);
}

TEST_F(CpuUsageTest, DifferencesAreTakenAsSignedNumbers) {
    EXPECT_EQ(usageBetween({}, {LONG_MAX, 0, 0, 1}), -100);
    EXPECT_EQ(usageBetween({}, {ULONG_MAX, 0, 0, ULONG_MAX}), 50);
}

TEST_F(CpuUsageTest, StaysWithinAnInteger) {
    EXPECT_EQ(usageBetween({ULONG_MAX}, {LONG_MAX, 0, 0, LONG_MAX}), INT_MAX);
}

TEST_F(CpuUsageTest, FailedFirstSampleLeavesTheOutputAlone) {
    EXPECT_EQ(usageOfFailure(), -99);
    EXPECT_THAT(machine.asked, ElementsAre(openStat));
}

TEST_F(CpuUsageTest, FailedSecondSampleLeavesTheOutputAlone) {
    machine.processorTimes = {statHolding({1, 2, 3, 4, 5, 6, 7})};
    EXPECT_EQ(usageOfFailure(), -99);
    machine.processorTimes = {statHolding({1, 2, 3, 4, 5, 6, 7}), "nothing"};
    EXPECT_EQ(usageOfFailure(), -99);
}

} // namespace
