#pragma once

#include <algorithm>
#include <cstdlib>
#include <ctime>
#include <iostream>

namespace klx::test {

/** Which of the steps of a sweep are taken, counted from 1. */
struct Stride {
    int first = 1;
    int step = 1;
};

/** A number from 1 to `most`, from the environment or else another one each day. */
inline int firstOf(int most) {
    constexpr std::time_t day = 24L * 60 * 60;
    const char* const text = std::getenv("KLX_SWEEP_FIRST");
    const int first =
        text != nullptr ? std::atoi(text) : 1 + static_cast<int>(std::time(nullptr) / day % most);
    return std::clamp(first, 1, most);
}

/**
 * Sweeps over thousands of steps, each with much work, take one in so many of them, beginning with
 * another one each day, so that in time each has its turn. KLX_SWEEP_STRIDE=1 takes each.
 */
inline Stride strideForLongSweeps(int usual = 13) {
    const char* const text = std::getenv("KLX_SWEEP_STRIDE");
    const int step = text != nullptr ? std::max(1, std::atoi(text)) : usual;
    const Stride stride{firstOf(step), step};
    if (step > 1) {
        std::cout << "KLX_SWEEP_STRIDE=" << stride.step << " KLX_SWEEP_FIRST=" << stride.first
                  << " does this again\n";
    }
    return stride;
}

} // namespace klx::test
