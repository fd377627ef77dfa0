#include "Messages.h"

#include <array>
#include <cstdio>

namespace {

std::string escapeOf(char character) {
    std::array<char, 5> escape = {};
    std::snprintf(escape.data(), escape.size(), "\\x%02x",
                  static_cast<unsigned>(static_cast<unsigned char>(character)));
    return escape.data();
}

bool isControl(char character) {
    return static_cast<unsigned char>(character) < 0x20 || character == 0x7f;
}

/// The second byte of one of Unicode's control characters U+0080 to U+009F.
bool endsControl(char character, char former) {
    const auto code = static_cast<unsigned char>(character);
    return former == '\xC2' && code >= 0x80 && code < 0xA0;
}

} // namespace

void report(const std::string& message) {
    std::fprintf(stderr, "klxctl: %s\n", message.c_str());
}

std::string escaped(const std::string& text) {
    std::string result;
    char former = '\0';
    for (const char character : text) {
        if (endsControl(character, former)) {
            result.pop_back();
            result += escapeOf(former) + escapeOf(character);
        } else if (isControl(character)) {
            result += escapeOf(character);
        } else {
            result += character;
        }
        former = character;
    }
    return result;
}

std::string quoted(const std::string& text) {
    return "\"" + escaped(text) + "\"";
}
