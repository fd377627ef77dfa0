#include "TvControlService.h"

#include "../Boundary.h"
#include "../SetProfile.h"
#include "../store/Store.h"
#include "Screen.h"

#include <algorithm>

using namespace KLX::Host;

namespace {

constexpr auto currentSourceKey = "tv/current-source";
constexpr int success = 1;

bool isSource(int id) {
    const auto& sources = currentProfile().sources;
    return std::any_of(sources.begin(), sources.end(),
                       [id](const auto& source) { return source.second.id == id; });
}

int initialSource() {
    const SetProfile& profile = currentProfile();
    if (!profile.initialSource) {
        throw HostFailure(HostError::NoValue, "the profile names no initial source");
    }
    return profile.sources.at(*profile.initialSource).id;
}

int currentSource() {
    const std::optional<Value> stored = Store::instance().read(currentSourceKey);
    // Another profile may have had other sources.
    const bool isKnown = stored && isSource(std::get<int>(*stored));
    return isKnown ? std::get<int>(*stored) : initialSource();
}

/// Callers may leave a control behind, so one without a state serves everybody.
class SourceControl : public ISourceControl {
public:
    int GetCurrentSourceInfo(TvSourceInfo* info) override {
        const int error = answer(__func__, [&] {
            requirePointer(info, "info");
            info->sourceId = currentSource();
        });
        return error != 0 ? error : success;
    }

    int ChangeSource(int sourceId, const char* /*applicationId*/) override {
        const int error = answer(__func__, [&] {
            if (!isSource(sourceId)) {
                throw HostFailure(HostError::OutOfRange,
                                  "the profile has no source " + std::to_string(sourceId));
            }
            Store::instance().write(currentSourceKey, sourceId);
        });
        return error != 0 ? error : success;
    }
};

} // namespace

int TvControlService::CreateSourceControl(int profile, int index, ISourceControl** control) {
    return answer(__func__, [&] {
        static SourceControl source;
        handOutControl(profile, index, control, source);
    });
}
