#pragma once

#include <cstddef>
#include <filesystem>
#include <iterator>

namespace klx::test {

/** The number of descriptors that this process has open. */
inline std::size_t openDescriptors() {
    const std::filesystem::directory_iterator descriptors("/proc/self/fd");
    return static_cast<std::size_t>(std::distance(begin(descriptors), end(descriptors)));
}

} // namespace klx::test
