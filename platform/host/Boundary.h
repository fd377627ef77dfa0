#pragma once

#include "HostErrors.h"
#include "Value.h"

#include <string>

namespace KLX::Host {

/** Turns the exception in flight into its error number and tells the log at debug priority. */
int errorOfCurrentException(const char* service) noexcept;

/**
 * Runs the body of a service's function: 0 when it comes to its end, else the error number of what
 * it threw. No exception leaves a service.
 */
template <typename Body>
int answer(const char* service, const Body& body) noexcept {
    try {
        body();
        return static_cast<int>(HostError::None);
    } catch (...) {
        return errorOfCurrentException(service);
    }
}

/** Throws HostFailure (NullPointer) for a null argument. */
void requirePointer(const void* argument, const char* name);

/** A copy of a text that the caller releases with `free`. */
char* handOut(const std::string& text);

} // namespace KLX::Host
