#pragma once

#include "EndingSignals.h"

/// While it lives, SIGHUP, SIGINT and SIGTERM are noted and end nothing, so that work can come to
/// an orderly end. A signal that was ignored, as under nohup, stays ignored. SIGPIPE is ignored, so
/// that a reader who went away, even of standard error, does not end the work in the middle either,
/// and so is SIGXFSZ: a file that may grow no further makes a writing fail.
///
/// Only one may exist at a time, because signals are the whole process's affair.
class Interruption {
public:
    Interruption();
    Interruption(const Interruption&) = delete;
    Interruption& operator=(const Interruption&) = delete;
    ~Interruption();

    /// The first signal that came; 0 for none.
    int signal() const;

private:
    std::array<struct sigaction, endingSignals.size()> m_formerActions;
    std::array<struct sigaction, 2> m_formerWriteActions;
};
