#include "FakeCore.h"

#include "FakeGate.h"

#include <algorithm>
#include <cstdlib>
#include <stdexcept>

namespace klx::fake {
namespace {

struct Platform {
    std::mutex mutex;
    State state;
};

/** Never destroyed: a thread that outlives the tests may still be inside a call. */
Platform& platform() {
    static Platform& instance = *new Platform;
    return instance;
}

thread_local int depth = 0;

Plan planOf(const std::string& function) {
    return Access()->plans[function];
}

} // namespace

Inside::Inside() {
    ++depth;
}

Inside::~Inside() {
    --depth;
}

bool isInside() {
    return depth > 0;
}

Access::Access() : m_lock(platform().mutex), m_state(platform().state) {}

std::string show(const char* text) {
    return text == nullptr ? "null" : show(std::string(text));
}

std::string show(const std::string& text) {
    return '"' + text + '"';
}

std::string show(bool flag) {
    return flag ? "true" : "false";
}

std::string show(const void* handle) {
    return Access()->handles.describe(handle);
}

int pass(const std::string& function) {
    requireKnown(function);
    const int ordinal = ++Access()->plans[function].calls;
    if (const auto action = planOf(function).action) {
        action();
    }
    if (const auto gate = planOf(function).gate) {
        gate->pass();
    }
    if (const auto thrower = planOf(function).thrower) {
        thrower();
    }
    return ordinal;
}

int enter(const std::string& function, const std::string& arguments) {
    Access()->events.push_back({function, function + '(' + arguments + ')', std::nullopt});
    return pass(function);
}

std::optional<int> plannedFailure(State& state, const std::string& function, int ordinal) {
    const Plan& plan = state.plans[function];
    const auto single = plan.failures.find(ordinal);
    return single == plan.failures.end() ? plan.failure : single->second;
}

int plannedAnswer(State& state, const std::string& function, int status) {
    return state.plans[function].answer.value_or(status);
}

char* duplicate(const std::string& text) {
    return ::strdup(text.c_str());
}

int giveText(const Value* value, char** out) {
    if (value == nullptr) {
        return kNotProgrammed;
    }
    if (std::holds_alternative<std::nullptr_t>(*value)) {
        *out = nullptr;
        return 0;
    }
    const auto* const text = std::get_if<std::string>(value);
    if (text == nullptr) {
        return kWrongType;
    }
    *out = duplicate(*text);
    return 0;
}

int keep(std::map<std::string, Value>& map, const char* key, Value value) {
    if (key == nullptr) {
        return kBadHandle;
    }
    map.insert_or_assign(key, std::move(value));
    return 0;
}

int giveBytes(const std::string& bytes, char* out, std::size_t room) {
    return static_cast<int>(bytes.copy(out, room));
}

void reset() {
    State forgotten;
    {
        const Access state;
        std::swap(*state, forgotten);
    }
    for (const auto& [function, plan] : forgotten.plans) {
        if (plan.gate) {
            plan.gate->open();
        }
    }
}

Scene::Scene() {
    reset();
}

Scene::~Scene() {
    reset();
}

Scene& Scene::fail(const std::string& function, int status) {
    requireKnown(function);
    Access()->plans[function].failure = status;
    return *this;
}

Scene& Scene::failNth(const std::string& function, int nth, int status) {
    requireKnown(function);
    const Access state;
    Plan& plan = state->plans[function];
    plan.failures[plan.calls + nth] = status;
    return *this;
}

Scene& Scene::answer(const std::string& function, int status) {
    requireKnown(function);
    Access()->plans[function].answer = status;
    return *this;
}

Scene& Scene::throwWith(const std::string& function, std::function<void()> thrower) {
    requireKnown(function);
    Access()->plans[function].thrower = std::move(thrower);
    return *this;
}

Scene& Scene::onCall(const std::string& function, std::function<void()> action) {
    requireKnown(function);
    Access()->plans[function].action = std::move(action);
    return *this;
}

Scene& Scene::restore(const std::string& function) {
    requireKnown(function);
    const Access state;
    Plan& plan = state->plans[function];
    const int calls = plan.calls;
    plan = Plan{};
    plan.calls = calls;
    return *this;
}

} // namespace klx::fake
