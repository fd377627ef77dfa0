#include "FakeCore.h"
#include "IPowerControl.h"
#include "appserver.h"
#include "esn.h"

#include <algorithm>

namespace klx::fake {
namespace {

class PowerControl : public IPowerControl {
public:
    int getPowerFailCount(int* count) override {
        return call("PowerControl.getPowerFailCount", "",
                    [&](State& state) { return give(state.powerFailCount, count); });
    }

    int getWatchdogCount(int* count) override {
        return call("PowerControl.getWatchdogCount", "",
                    [&](State& state) { return give(state.watchdogCount, count); });
    }
};

/** Fills a text of a record, leaving what lies behind it alone. */
template <std::size_t room>
int giveRecordText(const std::string* bytes, char (&text)[room]) {
    if (bytes == nullptr) {
        return kNotProgrammed;
    }
    giveBytes(*bytes, text, room);
    return 0;
}

} // namespace

Scene& Scene::powerFailCount(int count) {
    Access()->powerFailCount = count;
    return *this;
}

Scene& Scene::watchdogCount(int count) {
    Access()->watchdogCount = count;
    return *this;
}

Scene& Scene::appVersion(const std::string& applicationId, const std::string& bytes) {
    Access()->appVersions.insert_or_assign(applicationId, bytes);
    return *this;
}

Scene& Scene::hubSite(const std::string& bytes) {
    Access()->hubSite = bytes;
    return *this;
}

Scene& Scene::usedMemory(Value text) {
    Access()->usedMemory = std::move(text);
    return *this;
}

Scene& Scene::esn(const std::string& bytes, std::optional<int> claimed) {
    Access()->esn = EsnRecord{bytes, claimed};
    return *this;
}

} // namespace klx::fake

using namespace klx::fake;

IPowerControl* IPowerControl::getInstance() {
    static PowerControl instance;
    IPowerControl* control = nullptr;
    call("PowerControl.getInstance", "", [&](State&) {
        control = &instance;
        return 0;
    });
    return control;
}

int appserver_get_app_info(const char* application_id, appserver_app_info_s* info) {
    return call(__func__, args(application_id), [&](State& state) {
        return giveRecordText(lookUp(state.appVersions, application_id), info->version);
    });
}

int appserver_get_debug_info(appserver_debug_info_s* info) {
    return call(__func__, "", [&](State& state) {
        return giveRecordText(state.hubSite ? &*state.hubSite : nullptr, info->hub_site);
    });
}

int appserver_get_used_memory(char** text) {
    return call(__func__, "", [&](State& state) {
        return giveText(state.usedMemory ? &*state.usedMemory : nullptr, text);
    });
}

int esn_get(char* buffer, int* length) {
    return call(__func__, args(*length), [&](State& state) {
        if (!state.esn) {
            return kNotProgrammed;
        }
        const auto room = static_cast<std::size_t>(std::max(0, *length));
        const int written = giveBytes(state.esn->bytes, buffer, room);
        *length = state.esn->claimed.value_or(written);
        return 0;
    });
}
