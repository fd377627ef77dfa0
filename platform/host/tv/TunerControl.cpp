#include "TvControlService.h"

#include "../Boundary.h"
#include "../SetProfile.h"
#include "Frontend.h"
#include "Screen.h"

using namespace KLX::Host;

namespace {

int signalToNoise() {
    if (const std::optional<int> measured = carrierToNoise()) {
        return *measured;
    }
    const auto& level = currentProfile().snrHundredthsOfDecibel;
    if (!level) {
        throw HostFailure(HostError::NoValue, "the profile has no signal-to-noise ratio");
    }
    return *level;
}

/// Callers may leave a control behind, so one without a state serves everybody.
class TunerControl : public ITunerControl {
public:
    int GetSNRLevel(int* hundredthsOfDecibel) override {
        constexpr int success = 1;
        const int error = answer(__func__, [&] {
            requirePointer(hundredthsOfDecibel, "hundredthsOfDecibel");
            *hundredthsOfDecibel = signalToNoise();
        });
        return error != 0 ? error : success;
    }
};

} // namespace

int TvControlService::CreateTunerControl(int profile, int index, ITunerControl** control) {
    return answer(__func__, [&] {
        static TunerControl tuner;
        handOutControl(profile, index, control, tuner);
    });
}
