#pragma once

#include "SetProfile.h"
#include "Value.h"

#include <string>

namespace KLX::Host {

/** A typed value of the set: where the store keeps it and what the profile says about it. */
struct Setting {
    std::string name;                      ///< As its caller knows it, for messages.
    std::string storeKey;                  ///< Where the store keeps it.
    const SettingDeclaration* declaration; ///< Null where the profile does not know it.
};

/**
 * A settings-store key as callers give it. Throws HostFailure for a null, over-long or otherwise
 * impossible key; a key that the profile does not declare is possible.
 */
Setting settingOf(const char* key);

/** A numbered system setting. Throws HostFailure (UnknownKey) unless the profile declares it. */
Setting systemSettingOf(int number);

/** Whether the setting was written or has a default. */
bool hasValue(const Setting& setting);

/**
 * The value that was last written, else the declared default. Throws HostFailure: UnknownKey,
 * NoValue or WrongType, or the store's own failure.
 */
Value readSetting(const Setting& setting, ValueType type);

/**
 * Writes a value. The type must be the declared one; a key that nobody declared keeps the type of
 * its first write. Throws HostFailure: WrongType, or the store's own failure.
 */
void writeSetting(const Setting& setting, const Value& value);

} // namespace KLX::Host
