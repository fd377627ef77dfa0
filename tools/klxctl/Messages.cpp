#include "Messages.h"

#include <array>
#include <cstdio>

void report(const std::string& message) {
    std::fprintf(stderr, "klxctl: %s\n", message.c_str());
}

std::string quoted(const std::string& text) {
    std::string result = "\"";
    for (const char character : text) {
        const auto code = static_cast<unsigned char>(character);
        if (code < 0x20 || code == 0x7f) {
            std::array<char, 5> escape = {};
            std::snprintf(escape.data(), escape.size(), "\\x%02x", static_cast<unsigned>(code));
            result += escape.data();
        } else {
            result += character;
        }
    }
    return result + "\"";
}
