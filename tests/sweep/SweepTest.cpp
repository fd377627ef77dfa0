#include "SweepTest.h"

#include <sys/stat.h>

#include <algorithm>
#include <chrono>
#include <thread>

namespace klx::test {
namespace {

/** A folder has a link from itself, one from above, and one from each folder in it. */
std::size_t threadsOfProcess() {
    struct stat tasks {};
    ::stat("/proc/self/task", &tasks);
    return static_cast<std::size_t>(tasks.st_nlink) - 2;
}

const std::size_t threadsAtFirst = threadsOfProcess();

} // namespace

std::size_t Observed::failures() const {
    return static_cast<std::size_t>(std::count_if(
        lines.begin(), lines.end(), [](const fake::LogLine& line) { return line.priority >= 5; }));
}

Observed observe(const PreparedCall& call) {
    Observed observed;
    const PreparedCall once = call;
    fake::clearHistory();
    once(observed.answer);
    waitForThreadsToEnd();
    observed.calls = fake::calls();
    observed.lines = fake::logs();
    return observed;
}

SweepTest::SweepTest() {
    CDeviceInfoManager::Initialize();
    fake::clearHistory();
}

void SweepTest::expectHandlesInOrder() {
    EXPECT_THAT(fake::misuses(), ::testing::IsEmpty());
    for (const std::string& handle : fake::openHandles()) {
        EXPECT_THAT(handle, ::testing::AnyOf("VideoControl", "TunerControl"));
    }
}

void waitForThreadsToEnd() {
    const auto limit = std::chrono::steady_clock::now() + std::chrono::seconds(10);
    while (threadsOfProcess() > threadsAtFirst && std::chrono::steady_clock::now() < limit) {
        std::this_thread::yield();
    }
}

std::string nameOf(const ::testing::TestParamInfo<Operation>& info) {
    return info.param.name;
}

} // namespace klx::test
