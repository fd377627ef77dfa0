#include "FakeCore.h"
#include "network_control.h"

namespace klx::fake {

Scene& Scene::wifi(int enabled) {
    Access()->network.wifi = enabled;
    return *this;
}

Scene& Scene::wakeOnMobile(bool enabled) {
    Access()->network.wakeOnMobile = enabled;
    return *this;
}

} // namespace klx::fake

using namespace klx::fake;

int wifi_get_enable_kq(int* enabled) {
    return call(__func__, "", [&](State& state) { return give(state.network.wifi, enabled); });
}

int wifi_set_enable_kq(bool enable) {
    return call(__func__, args(enable), [&](State& state) {
        state.network.wifi = enable;
        return 0;
    });
}

int util_get_wakeOnMobile_mode(bool* enabled) {
    return call(__func__, "",
                [&](State& state) { return give(state.network.wakeOnMobile, enabled); });
}

int util_set_wakeOnMobile_mode(bool enable) {
    return call(__func__, args(enable), [&](State& state) {
        state.network.wakeOnMobile = enable;
        return 0;
    });
}
