#include "Screen.h"

namespace KLX::Host {

void checkScreen(int profile, int index) {
    constexpr int mainScreen = 1;
    if (profile != mainScreen || index != 0) {
        throw HostFailure(HostError::OutOfRange, "only profile 1, index 0 is there, not " +
                                                     std::to_string(profile) + ", " +
                                                     std::to_string(index));
    }
}

} // namespace KLX::Host
