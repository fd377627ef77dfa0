#pragma once

#include <algorithm>
#include <cstdlib>

namespace klx::test {

/**
 * Sweeps over thousands of allocations, each with much work, fail one in so many of them;
 * KLX_SWEEP_STRIDE=1 fails each.
 */
inline int strideForLongSweeps() {
    const char* const text = std::getenv("KLX_SWEEP_STRIDE");
    constexpr int usual = 13;
    return text != nullptr ? std::max(1, std::atoi(text)) : usual;
}

} // namespace klx::test
