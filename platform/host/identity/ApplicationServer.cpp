#include "appserver.h"

#include "../Boundary.h"
#include "../SetProfile.h"

#include <cstring>

using namespace KLX::Host;

namespace {

template <typename Text>
const Text& required(const std::optional<Text>& text, const char* name) {
    if (!text) {
        throw HostFailure(HostError::NoValue, std::string("the profile has no ") + name);
    }
    return *text;
}

template <std::size_t size>
void fill(char (&field)[size], const std::string& text) {
    std::memset(field, 0, size);
    text.copy(field, size - 1);
}

} // namespace

int appserver_get_app_info(const char* application_id, appserver_app_info_s* info) {
    return answer(__func__, [&] {
        requirePointer(application_id, "application_id");
        requirePointer(info, "info");
        const auto& versions = currentProfile().applicationServer.versions;
        const auto found = versions.find(application_id);
        if (found == versions.end()) {
            throw HostFailure(HostError::UnknownKey,
                              std::string("there is no application ") + application_id);
        }
        fill(info->version, found->second);
    });
}

int appserver_get_debug_info(appserver_debug_info_s* info) {
    return answer(__func__, [&] {
        requirePointer(info, "info");
        fill(info->hub_site, required(currentProfile().applicationServer.hubSite, "hub site"));
    });
}

int appserver_get_used_memory(char** text) {
    return answer(__func__, [&] {
        requirePointer(text, "text");
        *text = handOut(
            required(currentProfile().applicationServer.usedMemory, "memory use of widgets"));
    });
}
