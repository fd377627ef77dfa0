#include "IdentityTest.h"
#include "Threads.h"

#include <atomic>
#include <cstdlib>
#include <filesystem>
#include <future>
#include <stdexcept>
#include <sys/wait.h>
#include <system_error>
#include <unistd.h>
#include <vector>

using ::testing::ElementsAre;
using ::testing::IsEmpty;

using namespace std::chrono_literals;

namespace {

constexpr const char* query = "appserver_get_used_memory";
constexpr const char* getter = "getSystemLumoraWidgetAppUsage";
constexpr auto limit = 20s;

class WidgetUsageTest : public IdentityTest {
protected:
    /** No query of one test reaches into the next. */
    void TearDown() override { EXPECT_TRUE(threadsEnd()); }

    std::string get() { return device.getSystemLumoraWidgetAppUsage(currentValue); }

    /** Lets the getter wait for no longer than this. */
    std::string getWithin(std::chrono::milliseconds time) {
        const ClockBehind clock(limit - time);
        return get();
    }

    /** Starts a getter that waits for the query's answer. */
    std::future<std::string> startWaiting() {
        const ClockBehind clock(0s);
        auto waiting = std::async(std::launch::async, [this] { return get(); });
        EXPECT_TRUE(eventually([&] { return clock.readings() > 0; }));
        return waiting;
    }

    bool threadsEnd() const {
        return eventually([this] { return threadsOfProcess() == threads; });
    }

    /** The thread sanitizer starts one of its own beside the first that is asked for. */
    static std::size_t threadsBetweenQueries() {
        std::filesystem::path task = "/proc/self/task";
        std::thread([&task] { task /= std::to_string(gettid()); }).join();
        // A thread that was joined may still be on its way out.
        EXPECT_TRUE(eventually([&task] { return !std::filesystem::exists(task); }));
        return threadsOfProcess();
    }

    const std::size_t threads = threadsBetweenQueries();
};

const auto timedOut = generalLine(5, getter, "Timed out");
const auto invalid = generalLine(5, "operator()", "Invalid value");
const auto noThread = generalLine(
    5, getter,
    "Exception :" + std::make_error_code(std::errc::resource_unavailable_try_again).message());

TEST_F(WidgetUsageTest, IsThePlatformsText) {
    scene.usedMemory("123456 kB");
    EXPECT_EQ(get(), "123456 kB");
    EXPECT_THAT(fake::history(), ElementsAre("appserver_get_used_memory()"));
}

TEST_F(WidgetUsageTest, MayBeEmpty) {
    scene.usedMemory("");
    EXPECT_EQ(get(), "");
    EXPECT_THAT(fake::logs(), IsEmpty());
}

TEST_F(WidgetUsageTest, IsAskedForEveryTime) {
    scene.usedMemory("1 kB");
    get();
    scene.usedMemory("2 kB");
    EXPECT_EQ(get(), "2 kB");
}

TEST_F(WidgetUsageTest, FailedQueryIsLoggedByTheTask) {
    scene.usedMemory("1 kB").fail(query, 17);
    EXPECT_EQ(get(), "");
    EXPECT_THAT(fake::logs(), ElementsAre(invalid));
}

TEST_F(WidgetUsageTest, TextOfAFailedQueryIsFreedAndNotUsed) {
    scene.usedMemory("1 kB").answer(query, 17);
    EXPECT_EQ(get(), "");
    EXPECT_THAT(fake::logs(), ElementsAre(invalid));
}

TEST_F(WidgetUsageTest, NullTextIsLoggedByTheTask) {
    scene.usedMemory(nullptr);
    EXPECT_EQ(get(), "");
    EXPECT_THAT(fake::logs(), ElementsAre(invalid));
}

TEST_F(WidgetUsageTest, HasNoDefault) {
    scene.usedMemory("1 kB");
    EXPECT_EQ(device.getSystemLumoraWidgetAppUsage(defaultValue), "");
    EXPECT_THAT(fake::history(), IsEmpty());
}

TEST_F(WidgetUsageTest, IsAskedForOnAThreadOfItsOwn) {
    std::atomic<std::thread::id> asking{std::this_thread::get_id()};
    scene.usedMemory("1 kB").onCall(query, [&] { asking = std::this_thread::get_id(); });
    get();
    EXPECT_NE(asking.load(), std::this_thread::get_id());
}

TEST_F(WidgetUsageTest, ThrowingQueryGivesNothing) {
    scene.throwFrom(query, std::runtime_error("no server"));
    EXPECT_EQ(get(), "");
    EXPECT_THAT(fake::logs(), ElementsAre(generalLine(5, getter, "Exception :no server")));
}

TEST_F(WidgetUsageTest, WithoutAThreadGivesNothing) {
    scene.usedMemory("1 kB");
    {
        const NoMoreThreads full;
        EXPECT_EQ(get(), "");
    }
    EXPECT_THAT(fake::logs(), ElementsAre(noThread));
    EXPECT_THAT(fake::calls(), IsEmpty());
    EXPECT_EQ(get(), "1 kB");
}

/** The application server takes its time. */
class SlowWidgetUsageTest : public WidgetUsageTest {
protected:
    SlowWidgetUsageTest() { scene.usedMemory("1 kB"); }

    void TearDown() override {
        gate.open();
        WidgetUsageTest::TearDown();
    }

    /// Whether a getter tries to start a query of its own instead of waiting. It does not get a
    /// thread, since the thread sanitizer ends a forked process that starts one.
    bool triesAQuery() {
        fake::clearHistory();
        const NoMoreThreads full;
        getWithin(5s);
        return ::testing::Matches(ElementsAre(noThread))(fake::logs());
    }

    static int statusOf(pid_t process) {
        int state = 0;
        EXPECT_EQ(waitpid(process, &state, 0), process);
        return WIFEXITED(state) ? WEXITSTATUS(state) : -1;
    }

    fake::Gate gate{query};
};

TEST_F(SlowWidgetUsageTest, IsWaitedFor) {
    auto waiting = startWaiting();
    EXPECT_EQ(waiting.wait_for(100ms), std::future_status::timeout);
    gate.open();
    EXPECT_EQ(waiting.get(), "1 kB");
    EXPECT_THAT(fake::history(), ElementsAre("appserver_get_used_memory()"));
}

TEST_F(SlowWidgetUsageTest, IsWaitedForTwentySecondsOnTheSystemClock) {
    constexpr auto time = 300ms;
    const auto start = std::chrono::steady_clock::now();
    EXPECT_EQ(getWithin(time), "");
    const auto waited = std::chrono::steady_clock::now() - start;
    EXPECT_GT(waited, time - 20ms);
    EXPECT_LT(waited, limit);
    EXPECT_THAT(fake::logs(), ElementsAre(timedOut));
}

TEST_F(SlowWidgetUsageTest, MayAnswerWhenTheCallerHasGone) {
    EXPECT_EQ(getWithin(20ms), "");
    ASSERT_TRUE(gate.waitForCaller());
    gate.open();
    EXPECT_TRUE(threadsEnd());
    EXPECT_THAT(fake::logs(), ElementsAre(timedOut));
}

TEST_F(SlowWidgetUsageTest, LateFailureIsLogged) {
    scene.fail(query, 17);
    getWithin(20ms);
    gate.open();
    EXPECT_TRUE(threadsEnd());
    EXPECT_THAT(fake::logs(), ElementsAre(timedOut, invalid));
}

TEST_F(SlowWidgetUsageTest, LateAnswerIsNotTakenForTheNextOne) {
    getWithin(20ms);
    gate.open();
    EXPECT_TRUE(threadsEnd());
    scene.usedMemory("2 kB");
    EXPECT_EQ(get(), "2 kB");
}

TEST_F(SlowWidgetUsageTest, NextCallerWaitsForTheQueryThatIsOut) {
    getWithin(20ms);
    auto waiting = startWaiting();
    gate.open();
    EXPECT_EQ(waiting.get(), "1 kB");
    EXPECT_THAT(fake::calls(), ElementsAre("appserver_get_used_memory()"));
}

TEST_F(SlowWidgetUsageTest, QueryThatNeverReturnsCostsOneThread) {
    for (int call = 0; call < 5; ++call) {
        EXPECT_EQ(getWithin(10ms), "");
        EXPECT_EQ(threadsOfProcess(), threads + 1);
    }
    ASSERT_TRUE(gate.waitForCaller());
    EXPECT_THAT(fake::calls(), ElementsAre("appserver_get_used_memory()"));
    EXPECT_THAT(fake::logs(), ElementsAre(timedOut, timedOut, timedOut, timedOut, timedOut));
}

TEST_F(SlowWidgetUsageTest, ForkedProcessDoesNotWaitForTheQueryOfItsParent) {
    getWithin(20ms);
    ASSERT_TRUE(gate.waitForCaller());
    const pid_t child = fork();
    if (child == 0) {
        _exit(triesAQuery() ? 0 : 1);
    }
    EXPECT_EQ(statusOf(child), 0);
}

TEST_F(SlowWidgetUsageTest, CallersTogetherCostOneThread) {
    constexpr int callers = 8;
    const ClockBehind clock(0s);
    std::vector<std::future<std::string>> calls;
    for (int call = 0; call < callers; ++call) {
        calls.push_back(std::async(std::launch::async, [this] { return get(); }));
    }
    EXPECT_TRUE(eventually([&] { return clock.readings() == callers; }));
    EXPECT_EQ(threadsOfProcess(), threads + callers + 1);
    gate.open();
    for (auto& call : calls) {
        EXPECT_EQ(call.get(), "1 kB");
    }
    EXPECT_THAT(fake::calls(), ElementsAre("appserver_get_used_memory()"));
}

using WidgetUsageDeathTest = SlowWidgetUsageTest;

TEST_F(WidgetUsageDeathTest, ProcessEndsWhileAQueryIsOut) {
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    const auto endWithQueryOut = [this] {
        getWithin(20ms);
        std::exit(0);
    };
    EXPECT_EXIT(endWithQueryOut(), ::testing::ExitedWithCode(0), "");
}

} // namespace
