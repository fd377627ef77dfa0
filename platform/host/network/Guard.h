#pragma once

#include "NetworkErrors.h"

namespace KLX::Host {

/** The number of the exception in flight; what the system refused is told to the log. */
int numberOfCurrentException() noexcept;

/** The edge to C: turns the outcome of a network service into an error number. */
template <class Call>
int guarded(const Call& call) noexcept {
    try {
        return static_cast<int>(call());
    } catch (...) {
        return numberOfCurrentException();
    }
}

} // namespace KLX::Host
