#include "cec.h"

#include "../Boundary.h"
#include "../HostLog.h"
#include "../SetProfile.h"
#include "../store/Store.h"
#include "CecAdapter.h"
#include "dlog.h"

#include <system_error>

using namespace KLX::Host;

namespace {

constexpr auto storeKey = "switches/hdmi-cec";

int storedState() {
    return std::get<int>(
        Store::instance().read(storeKey).value_or(currentProfile().switches.hdmiCec));
}

int currentState() {
    try {
        const auto adapter = CecAdapter::open();
        return adapter ? static_cast<int>(adapter->isEnabled()) : storedState();
    } catch (const std::system_error& failure) {
        hostLog(DLOG_WARNING, std::string("HDMI-CEC is told as off: ") + failure.what());
        return 0;
    }
}

} // namespace

// Each request opens the adapter for itself, so overlapping brackets need no count.
int cec_init_proxy(void) {
    return static_cast<int>(HostError::None);
}

int cec_close_proxy(void) {
    return static_cast<int>(HostError::None);
}

int cec_is_enable(void) {
    int state = 0;
    // There is no status to answer beside the state, so what cannot be told is off.
    answer(__func__, [&] { state = currentState(); });
    return state;
}

int cec_set_enable(int enable) {
    return answer(__func__, [&] {
        if (enable != 0 && enable != 1) {
            throw HostFailure(HostError::OutOfRange,
                              "HDMI-CEC is 0 or 1, not " + std::to_string(enable));
        }
        if (const auto adapter = CecAdapter::open()) {
            adapter->enable(enable == 1);
        } else {
            Store::instance().write(storeKey, enable);
        }
    });
}
