#pragma once

#include <stdexcept>
#include <string>

/// What the process tells its caller; documented in the manual page.
enum class ExitStatus : int {
    Done = 0,
    Failed = 1,     ///< input or output failed, or the library reported a failure
    WrongUsage = 2, ///< wrong arguments, or a path that names no property
    NotHeld = 3,    ///< the set does not hold a value after it was written
};

/// Ends a command: a message for people, and the status that the process ends with.
class Failure : public std::runtime_error {
public:
    Failure(ExitStatus status, const std::string& message)
        : std::runtime_error(message), m_status(status) {}

    ExitStatus status() const { return m_status; }

private:
    ExitStatus m_status;
};
