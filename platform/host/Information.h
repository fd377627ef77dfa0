#pragma once

#include "HostErrors.h"
#include "Value.h"

#include <map>
#include <string>

namespace KLX::Host {

inline std::string nameForMessage(int number) {
    return std::to_string(number);
}
inline std::string nameForMessage(const std::string& name) {
    return '"' + name + '"';
}

/**
 * Looks a fact of the set up by number or name. Throws HostFailure: UnknownKey when the profile
 * has none, WrongType when it is no `Wanted`.
 */
template <typename Wanted, typename Key>
const Wanted& factOf(const std::map<Key, Value>& facts, const Key& key) {
    const auto found = facts.find(key);
    if (found == facts.end()) {
        throw HostFailure(HostError::UnknownKey,
                          "the profile has no value for " + nameForMessage(key));
    }
    if (const auto* const value = std::get_if<Wanted>(&found->second)) {
        return *value;
    }
    throw HostFailure(HostError::WrongType, nameForMessage(key) + " is of type " +
                                                typeName(typeOf(found->second)) + ", not " +
                                                typeName(typeOf(Value(Wanted{}))));
}

} // namespace KLX::Host
