#include "SettingsService.h"

#include "../Boundary.h"
#include "../SetProfile.h"
#include "../store/Store.h"

using namespace KLX::Host;

namespace {

int defaultOf(const std::string& item) {
    const auto& items = currentProfile().settingsItems;
    const auto found = items.find(item);
    if (found == items.end()) {
        throw HostFailure(HostError::UnknownKey, "the profile has no item " + item);
    }
    return found->second;
}

std::string storeKey(const std::string& item) {
    return "settings-service/" + item;
}

} // namespace

SettingsService* SettingsService::Get() {
    static SettingsService service;
    return &service;
}

// The number that is returned is the item's state where there is one, as callers show it.
int SettingsService::GetItemValue(const std::string& item, std::string& value,
                                  const std::string& /*context*/) {
    int state = 0;
    const int error = answer(__func__, [&] {
        const bool isOnAtFirst = defaultOf(item) != 0;
        const Value kept = Store::instance().read(storeKey(item)).value_or(isOnAtFirst);
        state = std::get<bool>(kept) ? 1 : 0;
        value = std::to_string(state);
    });
    return error != 0 ? error : state;
}

int SettingsService::SetItemValue(const std::string& item, const std::string& /*value*/,
                                  bool enable) {
    return answer(__func__, [&] {
        defaultOf(item);
        Store::instance().write(storeKey(item), enable);
    });
}
