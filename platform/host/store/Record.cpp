#include "Record.h"

#include "Hash.h"

#include <array>
#include <cstdint>
#include <cstring>

namespace KLX::Host {
namespace {

constexpr std::array<char, 4> typeLetters{'i', 'b', 't', 'f'};
constexpr std::size_t checkSize = 4;

template <typename Number>
std::string littleEndian(Number number) {
    std::string bytes(sizeof(Number), '\0');
    for (char& byte : bytes) {
        byte = static_cast<char>(number & 0xffU);
        number = static_cast<Number>(number >> 8U);
    }
    return bytes;
}

template <typename Number>
Number fromLittleEndian(std::string_view bytes) {
    Number number = 0;
    for (std::size_t i = bytes.size(); i > 0; --i) {
        number = static_cast<Number>((number << 8U) | static_cast<unsigned char>(bytes[i - 1]));
    }
    return number;
}

std::string payloadOf(const Value& value) {
    if (const auto* number = std::get_if<int>(&value)) {
        return littleEndian(static_cast<std::uint32_t>(*number));
    }
    if (const auto* flag = std::get_if<bool>(&value)) {
        return std::string(1, *flag ? '\1' : '\0');
    }
    if (const auto* fraction = std::get_if<double>(&value)) {
        std::uint64_t bits = 0;
        std::memcpy(&bits, fraction, sizeof bits);
        return littleEndian(bits);
    }
    return std::get<std::string>(value);
}

std::string checkOf(std::string_view key, std::string_view body) {
    return littleEndian(static_cast<std::uint32_t>(hashOf(body, hashOf(key))));
}

std::optional<Value> valueOf(char letter, std::string_view payload) {
    if (letter == 'i' && payload.size() == sizeof(std::uint32_t)) {
        return Value(static_cast<int>(fromLittleEndian<std::uint32_t>(payload)));
    }
    if (letter == 'b' && payload.size() == 1) {
        return Value(payload[0] != '\0');
    }
    if (letter == 'f' && payload.size() == sizeof(std::uint64_t)) {
        const auto bits = fromLittleEndian<std::uint64_t>(payload);
        double fraction = 0;
        std::memcpy(&fraction, &bits, sizeof fraction);
        return Value(fraction);
    }
    if (letter == 't') {
        return Value(std::string(payload));
    }
    return std::nullopt;
}

} // namespace

std::string encodeRecord(std::string_view key, const Value& value) {
    std::string bytes(1, typeLetters[value.index()]);
    bytes += payloadOf(value);
    return bytes + checkOf(key, bytes);
}

std::optional<Value> decodeRecord(std::string_view key, std::string_view bytes) {
    if (bytes.size() <= checkSize) {
        return std::nullopt;
    }
    const std::string_view body = bytes.substr(0, bytes.size() - checkSize);
    if (bytes.substr(body.size()) != checkOf(key, body)) {
        return std::nullopt;
    }
    return valueOf(body[0], body.substr(1));
}

} // namespace KLX::Host
