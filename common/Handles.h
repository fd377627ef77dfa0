#pragma once

#include <cstdlib>
#include <memory>
#include <string>

namespace KLX {

/// Deleter for `std::unique_ptr`: hands the pointer to the service's own release call. Results of
/// release calls are not examined.
template <auto release>
struct ReleasedBy {
    template <class Handle>
    void operator()(Handle* handle) const noexcept {
        release(handle);
    }
};

/// Text that a platform call allocated with `malloc` and that belongs to the caller.
using PlatformText = std::unique_ptr<char, ReleasedBy<&std::free>>;

/// A copy of the text; "" when there is none.
inline std::string copyOf(const PlatformText& text) {
    return text ? text.get() : "";
}

} // namespace KLX
