#include "DocumentText.h"

#include <algorithm>
#include <cstdint>

namespace {

struct Character {
    std::uint32_t code;
    std::size_t size;
};

constexpr Character illFormed{0, 1};

std::uint8_t byteAt(const std::string& text, std::size_t at) {
    return at < text.size() ? static_cast<std::uint8_t>(text[at]) : 0;
}

std::size_t sizeFromLead(std::uint8_t lead) {
    if (lead < 0x80) {
        return 1;
    }
    if (lead >= 0xC2 && lead <= 0xDF) {
        return 2;
    }
    if (lead >= 0xE0 && lead <= 0xEF) {
        return 3;
    }
    return lead >= 0xF0 && lead <= 0xF4 ? 4 : 0;
}

Character decode(const std::string& text, std::size_t at) {
    // What a lead byte of each size leaves for the code, and the smallest code that needs the size.
    constexpr std::uint32_t leadBits[] = {0, 0x7F, 0x1F, 0x0F, 0x07};
    constexpr std::uint32_t smallest[] = {0, 0, 0x80, 0x800, 0x10000};

    const std::uint8_t lead = byteAt(text, at);
    const std::size_t size = sizeFromLead(lead);
    std::uint32_t code = lead & leadBits[size];
    for (std::size_t i = 1; i < size; ++i) {
        const std::uint8_t next = byteAt(text, at + i);
        if ((next & 0xC0) != 0x80) {
            return illFormed;
        }
        code = (code << 6) | (next & 0x3Fu);
    }
    return size == 0 || code < smallest[size] ? illFormed : Character{code, size};
}

bool fitsXml(std::uint32_t code) {
    if (code < 0x20) {
        return code == '\t' || code == '\n' || code == '\r';
    }
    return code <= 0xD7FF || (code >= 0xE000 && code <= 0xFFFD) ||
           (code >= 0x10000 && code <= 0x10FFFF);
}

/// Most texts are such; they need not be taken apart.
bool isPlainText(const std::string& text) {
    return std::all_of(text.begin(), text.end(), [](char character) {
        const auto byte = static_cast<std::uint8_t>(character);
        return byte < 0x80 && fitsXml(byte);
    });
}

} // namespace

std::string documentText(std::string text) {
    if (isPlainText(text)) {
        return text;
    }
    std::string result;
    result.reserve(text.size());
    for (std::size_t at = 0; at < text.size();) {
        const Character character = decode(text, at);
        if (fitsXml(character.code)) {
            result.append(text, at, character.size);
        } else {
            result += "\xEF\xBF\xBD";
        }
        at += character.size;
    }
    return result;
}
