#include "KlxctlTest.h"

#include <gmock/gmock.h>
#include <json/json.h>

#include <sys/statvfs.h>
#include <sys/sysinfo.h>
#include <sys/wait.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <csignal>
#include <ctime>
#include <fstream>
#include <regex>
#include <sstream>
#include <thread>

using testing::AllOf;
using testing::Ge;
using testing::HasSubstr;
using testing::Le;
using testing::SizeIs;

namespace {

const std::string headerLine =
    "TIME        CPU  MEMORY USED  STORAGE USED  STORAGE FREE  STORAGE TOTAL";

bool isTableRow(const std::string& line) {
    static const std::regex row(
        R"(\d\d:\d\d:\d\d +-?\d+ % +-?[0-9.]+ [KMGTP]?i?B +[0-9.]+ [KMGTP]?i?B +[0-9.]+ )"
        R"([KMGTP]?i?B +[0-9.]+ [KMGTP]?i?B)");
    return std::regex_match(line, row);
}

std::vector<std::string> linesOf(const std::string& text) {
    std::vector<std::string> lines;
    std::istringstream stream(text);
    for (std::string line; std::getline(stream, line);) {
        lines.push_back(line);
    }
    return lines;
}

Json::Value jsonOf(const std::string& text) {
    Json::Value root;
    std::istringstream stream(text);
    std::string errors;
    EXPECT_TRUE(Json::parseFromStream(Json::CharReaderBuilder(), stream, &root, &errors)) << errors;
    return root;
}

unsigned long long userTicks() {
    std::string name;
    unsigned long long ticks = 0;
    std::ifstream("/proc/stat") >> name >> ticks;
    return ticks;
}

double memoryInUse() {
    struct sysinfo machine {};
    EXPECT_EQ(sysinfo(&machine), 0);
    const double inUse =
        static_cast<double>(machine.totalram) + static_cast<double>(machine.totalswap) -
        static_cast<double>(machine.freeram) - static_cast<double>(machine.freeswap);
    return inUse * machine.mem_unit;
}

struct Storage {
    double free;
    double used;
};

Storage storageOfMachine() {
    struct statvfs machine {};
    EXPECT_EQ(statvfs("/opt", &machine), 0);
    return {static_cast<double>(machine.f_bavail * machine.f_bsize),
            static_cast<double>((machine.f_blocks - machine.f_bfree) * machine.f_bsize)};
}

/// Between what was so before and what was so afterwards, with a margin beyond either.
testing::Matcher<double> isWithin(double margin, double before, double after) {
    return AllOf(Ge(std::min(before, after) - margin), Le(std::max(before, after) + margin));
}

std::string universalTime() {
    const std::time_t now = std::time(nullptr);
    std::tm parts{};
    gmtime_r(&now, &parts);
    std::array<char, 32> text = {};
    return {text.data(), std::strftime(text.data(), text.size(), "%Y-%m-%dT%H:%M:%SZ", &parts)};
}

class StatTest : public KlxctlTest {
protected:
    Json::Value figures() const {
        const Outcome outcome = run({"stat", "--json"});
        EXPECT_EQ(outcome.status, 0) << outcome.messages;
        EXPECT_EQ(outcome.messages, "");
        return jsonOf(outcome.output);
    }

    /// The tool on a machine that cannot tell how full its storage is.
    ToolRun toolWithoutStorage() const {
        return tool()
            .environment("LD_PRELOAD", KLXCTL_FAULTY_DISK)
            .environment("KLXCTL_TEST_STATVFS", "fail")
            .environment("ASAN_OPTIONS", "verify_asan_link_order=0:detect_leaks=0");
    }
};

/// The tool printing figures again and again.
class WatchTest : public StatTest {
protected:
    pid_t start(const ToolRun& prepared, const std::vector<std::string>& arguments) const {
        return ToolRun(prepared).outputTo(m_file).start(arguments);
    }

    std::vector<std::string> printed() const { return linesOf(contentOf(m_file)); }

    bool printsLines(std::size_t count) const {
        const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(60);
        while (printed().size() < count && std::chrono::steady_clock::now() < end) {
            std::this_thread::sleep_for(std::chrono::milliseconds(10));
        }
        return printed().size() >= count;
    }

    /// Ends the tool by a signal. @return its exit status, -1 when the signal killed it
    static int endedBy(int signal, pid_t process) {
        kill(process, signal);
        int state = 0;
        waitpid(process, &state, 0);
        return WIFEXITED(state) ? WEXITSTATUS(state) : -1;
    }

    /// Lets the tool print so many lines and interrupts it.
    int statusAfter(std::size_t lines, const ToolRun& prepared,
                    const std::vector<std::string>& arguments) const {
        const pid_t process = start(prepared, arguments);
        EXPECT_TRUE(printsLines(lines)) << contentOf(m_file);
        return endedBy(SIGINT, process);
    }

    const std::filesystem::path m_file = outputFolder() / "figures";
};

} // namespace

TEST_F(StatTest, PrintsATable) {
    const Outcome outcome = run({"stat"});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.messages, "");
    const std::vector<std::string> lines = linesOf(outcome.output);
    ASSERT_THAT(lines, SizeIs(2));
    EXPECT_EQ(lines[0], headerLine);
    EXPECT_TRUE(isTableRow(lines[1])) << lines[1];
}

TEST_F(StatTest, TellsTheTimeInJson) {
    const std::string before = universalTime();
    const std::string told = figures()["time"].asString();
    EXPECT_THAT(told, AllOf(Ge(before), Le(universalTime())));
}

TEST_F(StatTest, TellsTheMachinesProcessorsInJson) {
    const unsigned long long before = userTicks();
    const Json::Value cpu = figures()["cpu"];
    EXPECT_TRUE(cpu["busyPercent"].isInt());
    EXPECT_THAT(cpu["ticks"]["user"].asUInt64(), AllOf(Ge(before), Le(userTicks())));
    EXPECT_THAT(cpu["ticks"].getMemberNames(),
                testing::UnorderedElementsAre("user", "nice", "system", "idle", "iowait", "irq",
                                              "softirq"));
}

TEST_F(StatTest, TellsTheMachinesMemoryInJson) {
    const double before = memoryInUse();
    const double told = figures()["memory"]["usedBytes"].asDouble();
    // Others take and give memory meanwhile.
    constexpr double margin = 2e9;
    EXPECT_THAT(told, isWithin(margin, before, memoryInUse()));
}

TEST_F(StatTest, TellsTheMachinesStorageInJson) {
    const Storage before = storageOfMachine();
    const Json::Value told = figures()["storage"];
    const Storage after = storageOfMachine();
    EXPECT_EQ(told["totalBytes"].asInt64(),
              told["usedBytes"].asInt64() + told["freeBytes"].asInt64());
    // Others write to the disk meanwhile.
    constexpr double margin = 1e9;
    EXPECT_THAT(told["freeBytes"].asDouble(), isWithin(margin, before.free, after.free));
    EXPECT_THAT(told["usedBytes"].asDouble(), isWithin(margin, before.used, after.used));
}

TEST_F(StatTest, NeedsNoSetProfile) {
    EXPECT_EQ(tool().environment("KLX_PROFILE", "/no/such/profile").run({"stat"}).status, 0);
}

TEST_F(StatTest, ShowsAHyphenForWhatTheSetCannotTell) {
    const Outcome outcome = toolWithoutStorage().run({"stat"});
    EXPECT_EQ(outcome.status, 1);
    EXPECT_THAT(outcome.output, testing::ContainsRegex("B +- +- +-\n$"));
    EXPECT_EQ(outcome.messages,
              "klxctl: the set does not tell storage; its lines above tell why\n");
}

TEST_F(StatTest, IsNullInJsonForWhatTheSetCannotTell) {
    const Outcome outcome = toolWithoutStorage().run({"stat", "--json"});
    EXPECT_EQ(outcome.status, 1);
    const Json::Value told = jsonOf(outcome.output);
    EXPECT_TRUE(told.isMember("storage"));
    EXPECT_TRUE(told["storage"].isNull());
    EXPECT_TRUE(told["memory"]["usedBytes"].isInt64());
}

TEST_F(StatTest, FailsWhenItsOutputIsFull) {
    EXPECT_EQ(tool().outputTo("/dev/full").run({"stat"}).status, 1);
    EXPECT_EQ(tool().outputTo("/dev/full").run({"stat", "--json"}).status, 1);
}

TEST_F(StatTest, RefusesWhatIsNoInterval) {
    for (const char* word :
         {"", "0", "-1", "1.5", "1s", "+1", " 1", "86401", "99999999999999999999"}) {
        const Outcome outcome = run({"stat", "--watch", word});
        EXPECT_EQ(outcome.status, 2) << word;
        EXPECT_EQ(outcome.output, "") << word;
        EXPECT_THAT(
            outcome.messages,
            HasSubstr("\"" + std::string(word) +
                      "\" is no interval; write a whole number of seconds from 1 to 86400"));
    }
}

TEST_F(StatTest, RefusesToWatchWithoutAnInterval) {
    EXPECT_EQ(run({"stat", "--watch"}).status, 2);
}

TEST_F(WatchTest, AddsRowsUnderOneHeaderUntilInterrupted) {
    EXPECT_EQ(statusAfter(3, tool(), {"stat", "--watch", "1"}), 0);
    EXPECT_EQ(printed().at(0), headerLine);
    EXPECT_TRUE(isTableRow(printed().at(1)));
    EXPECT_TRUE(isTableRow(printed().at(2)));
}

TEST_F(WatchTest, PrintsOneJsonObjectALine) {
    EXPECT_EQ(statusAfter(2, tool(), {"stat", "--json", "--watch", "1"}), 0);
    for (const std::string& line : printed()) {
        EXPECT_TRUE(jsonOf(line)["storage"]["freeBytes"].isInt64()) << line;
    }
}

TEST_F(WatchTest, LetsTheIntervalPassBetweenRows) {
    const auto begin = std::chrono::steady_clock::now();
    const pid_t process = start(tool(), {"stat", "--json", "--watch", "3"});
    EXPECT_TRUE(printsLines(2)) << contentOf(m_file);
    EXPECT_GE(std::chrono::steady_clock::now() - begin, std::chrono::seconds(3));
    EXPECT_EQ(endedBy(SIGINT, process), 0);
}

TEST_F(WatchTest, FailsInTheEndWhenAFigureWasMissing) {
    EXPECT_EQ(statusAfter(2, toolWithoutStorage(), {"stat", "--json", "--watch", "1"}), 1);
}

TEST_F(WatchTest, GoesOnWhereInterruptsAreIgnored) {
    const auto former = signal(SIGINT, SIG_IGN);
    const pid_t process = start(tool(), {"stat", "--json", "--watch", "1"});
    signal(SIGINT, former);
    EXPECT_TRUE(printsLines(1));
    kill(process, SIGINT);
    EXPECT_TRUE(printsLines(3));
    EXPECT_EQ(endedBy(SIGTERM, process), 0);
}
