#include "FakeTest.h"
#include "appserver.h"
#include "vconf.h"

#include <atomic>
#include <optional>
#include <thread>

namespace klx {
namespace {

using ::testing::ElementsAre;

constexpr std::chrono::milliseconds kShort(20);

class GateTest : public FakeTest {
protected:
    ~GateTest() override {
        if (m_client.joinable()) {
            m_client.join();
        }
    }

    /** Calls a gated function on a thread of its own. */
    void startClient() {
        m_client = std::thread([this] {
            vconf_set_int("k", 1);
            returned = true;
        });
    }

    void finishClient() { m_client.join(); }

    std::atomic<bool> returned{false};

private:
    std::thread m_client;
};

TEST_F(GateTest, HoldsACallUntilItIsOpened) {
    fake::Gate gate("vconf_set_int");
    startClient();
    ASSERT_TRUE(gate.waitForCaller());
    EXPECT_FALSE(returned);
    EXPECT_THAT(fake::calls(), ElementsAre(R"(vconf_set_int("k", 1))"));
    gate.open();
    finishClient();
    EXPECT_TRUE(returned);
}

TEST_F(GateTest, LetsOtherFunctionsAndLaterCallsPass) {
    fake::Gate gate("vconf_set_int");
    startClient();
    ASSERT_TRUE(gate.waitForCaller());
    EXPECT_EQ(vconf_set_bool("k", 1), 0);
    gate.open();
    EXPECT_EQ(vconf_set_int("k", 2), 0);
    finishClient();
}

TEST_F(GateTest, WaitingForACallerRunsOut) {
    fake::Gate gate("vconf_set_int");
    EXPECT_FALSE(gate.waitForCaller(1, kShort));
    startClient();
    EXPECT_TRUE(gate.waitForCaller());
    EXPECT_FALSE(gate.waitForCaller(2, kShort));
    gate.open();
    finishClient();
}

TEST_F(GateTest, OpensWhenItIsDestroyed) {
    std::optional<fake::Gate> gate(std::in_place, "vconf_set_int");
    startClient();
    ASSERT_TRUE(gate->waitForCaller());
    gate.reset();
    finishClient();
    EXPECT_TRUE(returned);
}

TEST_F(GateTest, OpensWhenTheSceneIsReset) {
    fake::Gate gate("vconf_set_int");
    startClient();
    ASSERT_TRUE(gate.waitForCaller());
    fake::reset();
    finishClient();
    EXPECT_TRUE(returned);
}

TEST_F(GateTest, TheAnswerIsWorkedOutAfterTheWait) {
    fake::Gate gate("appserver_get_used_memory");
    std::atomic<int> status{0};
    std::thread query([&] {
        char* text = nullptr;
        status = appserver_get_used_memory(&text);
        std::free(text);
    });
    EXPECT_TRUE(gate.waitForCaller());
    scene.fail("appserver_get_used_memory", -9);
    gate.open();
    query.join();
    EXPECT_EQ(status, -9);
}

} // namespace
} // namespace klx
