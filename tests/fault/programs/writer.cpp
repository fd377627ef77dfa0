/**
 * Writes rising numbers under a key until it is killed, each with a text under one of a few other
 * keys, and tells every number on standard output once both writes were acknowledged.
 *
 * Usage: klx_fault_writer KEY FIRST
 */
#include "vconf.h"

#include <unistd.h>

#include <cstdlib>
#include <string>

namespace {

// Texts of different lengths make LMDB split, merge and chain pages.
bool writeOnce(const std::string& key, int number) {
    const std::string textKey = key + "/text" + std::to_string(number % 40);
    const std::string text(static_cast<std::size_t>(1 + number * 37 % 6000),
                           static_cast<char>('a' + number % 26));
    return vconf_set_str(textKey.c_str(), text.c_str()) == 0 &&
           vconf_set_int(key.c_str(), number) == 0;
}

} // namespace

int main(int argc, char** argv) {
    if (argc != 3) {
        return 2;
    }
    for (int number = std::atoi(argv[2]);; ++number) {
        if (!writeOnce(argv[1], number)) {
            return 1;
        }
        if (::write(STDOUT_FILENO, &number, sizeof number) != sizeof number) {
            return 0;
        }
    }
}
