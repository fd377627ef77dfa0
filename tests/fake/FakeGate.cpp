#include "FakeGate.h"

#include "FakeCore.h"

namespace klx::fake {

void Gate::State::pass() {
    std::unique_lock<std::mutex> lock(mutex);
    ++arrived;
    changed.notify_all();
    changed.wait(lock, [this] { return isOpen; });
}

void Gate::State::open() {
    const std::lock_guard<std::mutex> lock(mutex);
    isOpen = true;
    changed.notify_all();
}

bool Gate::State::waitForCaller(int callers, std::chrono::milliseconds limit) {
    std::unique_lock<std::mutex> lock(mutex);
    return changed.wait_for(lock, limit, [&] { return arrived >= callers; });
}

Gate::Gate(const std::string& function) : m_state(std::make_shared<State>()) {
    requireKnown(function);
    Access()->plans[function].gate = m_state;
}

Gate::~Gate() {
    open();
}

void Gate::open() {
    m_state->open();
}

bool Gate::waitForCaller(int callers, std::chrono::milliseconds limit) const {
    return m_state->waitForCaller(callers, limit);
}

} // namespace klx::fake
