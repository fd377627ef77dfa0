#include "FakeCore.h"
#include "cec.h"

#include <algorithm>

namespace klx::fake {

Scene& Scene::cec(int state) {
    Access()->cec = state;
    return *this;
}

} // namespace klx::fake

using namespace klx::fake;

int cec_init_proxy() {
    return call(__func__, "", [](State& state) {
        ++state.cecSessions;
        return 0;
    });
}

int cec_is_enable() {
    return call(__func__, "", [](State& state) { return state.cec.value_or(kNotProgrammed); });
}

int cec_set_enable(int enable) {
    return call(__func__, args(enable), [&](State& state) {
        state.cec = enable;
        return 0;
    });
}

int cec_close_proxy() {
    return callReleasing(__func__, "", [](State& state) {
        state.cecSessions = std::max(0, state.cecSessions - 1);
        return 0;
    });
}
