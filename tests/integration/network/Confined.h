#pragma once

#include <functional>

namespace klx::network {

/** Runs something on a thread that has to keep to the permissions of files, as root has not. */
void withoutRightsToFiles(const std::function<void()>& body);

/**
 * Runs something on a thread on which a system call answers with `error` instead of being made:
 * when its first argument is `argument`, or always for a negative one.
 */
void withoutSystemCall(long number, int argument, int error, const std::function<void()>& body);

} // namespace klx::network
