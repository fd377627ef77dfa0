#pragma once

#include "FakePlatform.h"

#include <condition_variable>
#include <mutex>

namespace klx::fake {

/** Shared by the gate, the plan that refers to it, and the callers inside. */
struct Gate::State {
    void pass();
    void open();
    bool waitForCaller(int callers, std::chrono::milliseconds limit);

    std::mutex mutex;
    std::condition_variable changed;
    int arrived = 0;
    bool isOpen = false;
};

} // namespace klx::fake
