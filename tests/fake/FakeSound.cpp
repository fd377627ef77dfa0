#include "FakeCore.h"
#include "SettingsService.h"
#include "sound_manager.h"

namespace klx::fake {

Scene& Scene::muted(bool muted) {
    Access()->muted = muted;
    return *this;
}

Scene& Scene::speaker(int selection) {
    Access()->speaker = selection;
    return *this;
}

Scene& Scene::settingsItem(const std::string& item, int result, const std::string& text) {
    Access()->settingsItems.insert_or_assign(item, SettingsItem{result, text});
    return *this;
}

} // namespace klx::fake

using namespace klx::fake;

int sound_manager_get_master_mute(bool* muted) {
    return call(__func__, "", [&](State& state) { return give(state.muted, muted); });
}

int sound_manager_set_master_mute(bool muted) {
    return call(__func__, args(muted), [&](State& state) {
        state.muted = muted;
        return 0;
    });
}

int sound_manager_get_speaker_selection(int* selection) {
    return call(__func__, "", [&](State& state) { return give(state.speaker, selection); });
}

int sound_manager_set_speaker_selection(int selection) {
    return call(__func__, args(selection), [&](State& state) {
        state.speaker = selection;
        return 0;
    });
}

SettingsService* SettingsService::Get() {
    static SettingsService instance;
    SettingsService* service = nullptr;
    call("SettingsService.Get", "", [&](State&) {
        service = &instance;
        return 0;
    });
    return service;
}

int SettingsService::GetItemValue(const std::string& item, std::string& value,
                                  const std::string& context) {
    return call("SettingsService.GetItemValue", args(item, context), [&](State& state) {
        const SettingsItem* const known = lookUp(state.settingsItems, item);
        if (known == nullptr) {
            return kNotProgrammed;
        }
        value = known->text;
        return known->result;
    });
}

int SettingsService::SetItemValue(const std::string& item, const std::string& value, bool enable) {
    return call("SettingsService.SetItemValue", args(item, value, enable),
                [](State&) { return 0; });
}
