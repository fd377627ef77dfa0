#pragma once

#include <stdexcept>
#include <string>

/// What the process tells its caller; documented in the manual page.
enum class ExitStatus : int {
    Done = 0,
    Failed = 1,     ///< input or output failed, or the library reported a failure
    WrongUsage = 2, ///< wrong arguments, or a path that names no property
    NotHeld = 3,    ///< the set does not hold a value that it was asked to hold
    // A comparison tells as diff(1) does, so that a failure is no difference.
    Different = 1, ///< what was compared is not the same
    Trouble = 2,   ///< wrong arguments, or something could not be compared
};

/// What a signal that ended the work early makes of the status: what a shell would show.
constexpr ExitStatus interruptedBy(int signal) {
    return static_cast<ExitStatus>(128 + signal);
}

/// Ends a command: a message for people, and the status that the process ends with.
class Failure : public std::runtime_error {
public:
    Failure(ExitStatus status, const std::string& message)
        : std::runtime_error(message), m_status(status) {}

    ExitStatus status() const { return m_status; }

private:
    ExitStatus m_status;
};
