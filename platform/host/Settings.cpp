#include "Settings.h"

#include "HostErrors.h"
#include "SharedValues.h"
#include "store/Store.h"

#include <cstring>
#include <optional>

namespace KLX::Host {
namespace {

constexpr std::size_t longestKey = 511; // LMDB's limit

[[noreturn]] void failType(const std::string& name, ValueType has, ValueType asked) {
    throw HostFailure(HostError::WrongType,
                      '"' + name + "\" is of type " + typeName(has) + ", not " + typeName(asked));
}

const SettingDeclaration* declarationOf(const std::string& key) {
    const auto& settings = currentProfile().settings;
    const auto found = settings.find(key);
    return found == settings.end() ? nullptr : &found->second;
}

std::optional<Value> valueOf(const Setting& setting) {
    auto value = Store::instance().read(setting.storeKey);
    if (!value && setting.declaration != nullptr) {
        value = setting.declaration->defaultValue;
    }
    return value;
}

[[noreturn]] void failMissing(const Setting& setting) {
    if (setting.declaration == nullptr) {
        throw HostFailure(HostError::UnknownKey,
                          "the profile declares no \"" + setting.name + "\" and nobody wrote it");
    }
    throw HostFailure(HostError::NoValue,
                      '"' + setting.name + "\" has no default and was never written");
}

} // namespace

Setting settingOf(const char* key) {
    if (key == nullptr) {
        throw HostFailure(HostError::NullPointer, "the key is null");
    }
    if (std::strlen(key) > longestKey) {
        throw HostFailure(HostError::KeyTooLong, "the key \"" + std::string(key, 32) +
                                                     "...\" has more than " +
                                                     std::to_string(longestKey) + " bytes");
    }
    const std::string name = key;
    if (name.rfind("db/", 0) != 0 && name.rfind("memory/", 0) != 0) {
        throw HostFailure(HostError::InvalidKey,
                          "the key \"" + name + "\" must begin with db/ or memory/");
    }
    return {name, name, declarationOf(name)};
}

Setting systemSettingOf(int number) {
    const std::string name = "system setting " + std::to_string(number);
    if (const auto key = settingBehindSystemSetting(number)) {
        if (const auto* const declaration = declarationOf(*key)) {
            return {name, *key, declaration};
        }
    }
    const auto& declared = currentProfile().systemSettings;
    const auto found = declared.find(number);
    if (found == declared.end()) {
        throw HostFailure(HostError::UnknownKey, "the profile declares no " + name);
    }
    return {name, storeKeyOfSystemSetting(number), &found->second};
}

bool hasValue(const Setting& setting) {
    return valueOf(setting).has_value();
}

Value readSetting(const Setting& setting, ValueType type) {
    if (setting.declaration != nullptr && setting.declaration->type != type) {
        failType(setting.name, setting.declaration->type, type);
    }
    auto value = valueOf(setting);
    if (!value) {
        failMissing(setting);
    }
    if (typeOf(*value) != type) {
        failType(setting.name, typeOf(*value), type);
    }
    return *std::move(value);
}

void writeSetting(const Setting& setting, const Value& value) {
    if (setting.declaration == nullptr) {
        Store::instance().update(setting.storeKey, [&](const std::optional<Value>& present) {
            if (present && typeOf(*present) != typeOf(value)) {
                failType(setting.name, typeOf(*present), typeOf(value));
            }
            return value;
        });
        return;
    }
    if (setting.declaration->type != typeOf(value)) {
        failType(setting.name, setting.declaration->type, typeOf(value));
    }
    Store::instance().write(setting.storeKey, value);
}

} // namespace KLX::Host
