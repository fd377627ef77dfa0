#pragma once

#include <cstdint>
#include <string_view>

namespace KLX::Host {

constexpr std::uint64_t hashSeed = 0xcbf29ce484222325U;

/** FNV-1a over 64 bits; `seed` continues an earlier hash. Not meant against attackers. */
constexpr std::uint64_t hashOf(std::string_view bytes, std::uint64_t seed = hashSeed) {
    constexpr std::uint64_t prime = 0x100000001b3U;
    std::uint64_t hash = seed;
    for (const char byte : bytes) {
        hash = (hash ^ static_cast<unsigned char>(byte)) * prime;
    }
    return hash;
}

} // namespace KLX::Host
