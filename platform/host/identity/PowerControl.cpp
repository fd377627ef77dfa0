#include "IPowerControl.h"

#include "../Boundary.h"
#include "../SetProfile.h"

#include <fstream>
#include <optional>

using namespace KLX::Host;

namespace {

// WDIOF_CARDRESET: the watchdog started the machine last time.
constexpr unsigned int startedByWatchdog = 0x20;

/// What the kernel knows of the last start; nothing where there is no watchdog.
std::optional<int> watchdogResets() {
    std::ifstream file("/sys/class/watchdog/watchdog0/bootstatus");
    unsigned int status = 0;
    if (!(file >> status)) {
        return std::nullopt;
    }
    return (status & startedByWatchdog) != 0 ? 1 : 0;
}

int counted(const std::optional<int>& count, const char* name) {
    if (!count) {
        throw HostFailure(HostError::NoValue, std::string("the profile has no ") + name);
    }
    return *count;
}

class PowerControl : public IPowerControl {
public:
    int getPowerFailCount(int* count) override {
        return answer(__func__, [&] {
            requirePointer(count, "count");
            *count = counted(currentProfile().power.powerFail, "count of power failures");
        });
    }

    int getWatchdogCount(int* count) override {
        return answer(__func__, [&] {
            requirePointer(count, "count");
            const std::optional<int> resets = watchdogResets();
            *count = resets ? *resets
                            : counted(currentProfile().power.watchdog, "count of watchdog resets");
        });
    }
};

} // namespace

IPowerControl* IPowerControl::getInstance() {
    static PowerControl control;
    return &control;
}
