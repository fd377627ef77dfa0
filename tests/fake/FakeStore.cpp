#include "FakeCore.h"
#include "vconf.h"

namespace klx::fake {

Scene& Scene::store(const std::string& key, Value value) {
    Access()->store.insert_or_assign(key, std::move(value));
    return *this;
}

Scene& Scene::unset(const std::string& key) {
    Access()->store.erase(key);
    return *this;
}

Scene& Scene::storeDefault(const std::string& key, std::optional<std::string> text, int status,
                           std::optional<int> type) {
    Access()->storeDefaults.insert_or_assign(key, DefaultRecord{std::move(text), status, type});
    return *this;
}

} // namespace klx::fake

using namespace klx::fake;

int vconf_get_int(const char* key, int* value) {
    return call(__func__, args(key),
                [&](State& state) { return give<int>(lookUp(state.store, key), value); });
}

int vconf_get_bool(const char* key, int* value) {
    return call(__func__, args(key),
                [&](State& state) { return give<bool>(lookUp(state.store, key), value); });
}

char* vconf_get_str(const char* key) {
    char* text = nullptr;
    call(__func__, args(key),
         [&](State& state) { return giveText(lookUp(state.store, key), &text); });
    return text;
}

int vconf_set_int(const char* key, int value) {
    return call(__func__, args(key, value),
                [&](State& state) { return keep(state.store, key, value); });
}

int vconf_set_bool(const char* key, int value) {
    return call(__func__, args(key, value),
                [&](State& state) { return keep(state.store, key, value != 0); });
}

int vconf_set_str(const char* key, const char* value) {
    return call(__func__, args(key, value), [&](State& state) {
        return value == nullptr ? kBadHandle : keep(state.store, key, value);
    });
}

int get_vconf_key_default_value(const char* key, int* type, char** value) {
    return call(__func__, args(key, *type), [&](State& state) {
        const DefaultRecord* const record = lookUp(state.storeDefaults, key);
        if (record == nullptr) {
            return kNotProgrammed;
        }
        *type = record->type.value_or(*type);
        *value = record->text ? duplicate(*record->text) : nullptr;
        return record->status;
    });
}
