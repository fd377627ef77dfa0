#include "KnowingScene.h"
#include "LogMatchers.h"
#include "Worker.h"

#include <gmock/gmock.h>

#include <atomic>
#include <thread>

using namespace klx::test;
namespace fake = klx::fake;

namespace {

/** Keeps the record of the platform from growing without end while others work. */
class Forgetting {
public:
    Forgetting() : m_thread([this] { forgetAndForget(); }) {}
    ~Forgetting() {
        m_ends = true;
        m_thread.join();
    }
    Forgetting(const Forgetting&) = delete;
    Forgetting& operator=(const Forgetting&) = delete;

private:
    void forgetAndForget() const {
        while (!m_ends) {
            std::this_thread::sleep_for(std::chrono::milliseconds(100));
            EXPECT_THAT(fake::misuses(), ::testing::IsEmpty());
            fake::clearHistory();
        }
    }

    std::atomic<bool> m_ends{false};
    std::thread m_thread;
};

// The only test of its executable: the process has to be untouched when it begins.
TEST(FakeLoadTest, SixteenClientsFromTheFirstMomentOnLoseNothing) {
    fake::Scene scene;
    programServices(scene);
    constexpr int threads = 16;
    std::vector<Worker> workers;
    for (int number = 0; number < threads; ++number) {
        workers.emplace_back(number, threads);
    }
    {
        const Forgetting forgetting;
        workTogether(workers);
    }
    Worker::expectFinalValues(threads);
    for (const std::string& handle : fake::openHandles()) {
        EXPECT_EQ(handle, "VideoControl");
    }
}

} // namespace
