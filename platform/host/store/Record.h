#pragma once

#include "../Value.h"

#include <optional>
#include <string>
#include <string_view>

namespace KLX::Host {

/**
 * Writes a value as the bytes of a store record: a letter for the type, the value in little-endian
 * order, and four bytes that check both together with the key.
 */
std::string encodeRecord(std::string_view key, const Value& value);

/** Reads the bytes of a record; nothing when they are not what was written under the key. */
std::optional<Value> decodeRecord(std::string_view key, std::string_view bytes);

} // namespace KLX::Host
