#include "Interruption.h"

#include <atomic>

namespace {

// What a writing that fails for a reason of its own sends, too.
constexpr std::array<int, 2> writeSignals = {SIGPIPE, SIGXFSZ};

std::atomic<int> firstSignal{0};

static_assert(std::atomic<int>::is_always_lock_free, "the signal handler must not lock");

void note(int number) {
    int none = 0;
    firstSignal.compare_exchange_strong(none, number);
}

} // namespace

Interruption::Interruption() : m_formerActions(), m_formerWriteActions() {
    firstSignal = 0;
    for (std::size_t index = 0; index < endingSignals.size(); ++index) {
        struct sigaction action = {};
        action.sa_handler = note;
        // The library's calls to the system are not to fail for it.
        action.sa_flags = SA_RESTART;
        sigfillset(&action.sa_mask);
        sigaction(endingSignals[index], nullptr, &m_formerActions[index]);
        if (m_formerActions[index].sa_handler != SIG_IGN) {
            sigaction(endingSignals[index], &action, nullptr);
        }
    }
    struct sigaction ignoring = {};
    ignoring.sa_handler = SIG_IGN;
    for (std::size_t index = 0; index < writeSignals.size(); ++index) {
        sigaction(writeSignals[index], &ignoring, &m_formerWriteActions[index]);
    }
}

Interruption::~Interruption() {
    for (std::size_t index = 0; index < writeSignals.size(); ++index) {
        sigaction(writeSignals[index], &m_formerWriteActions[index], nullptr);
    }
    for (std::size_t index = 0; index < endingSignals.size(); ++index) {
        sigaction(endingSignals[index], &m_formerActions[index], nullptr);
    }
}

int Interruption::signal() const {
    return firstSignal;
}
