#pragma once

#include <chrono>
#include <cstddef>
#include <thread>

/**
 * @file
 * Control over the clock and the threads that an object of this executable asks the C++ library
 * for: the linker sends those calls through wrappers.
 */

/** For as long as it lives, the system clock reads earlier. One at a time. */
class ClockBehind {
public:
    explicit ClockBehind(std::chrono::milliseconds by);
    ~ClockBehind();
    ClockBehind(const ClockBehind&) = delete;
    ClockBehind& operator=(const ClockBehind&) = delete;

    /** How often the clock was read, on any thread. */
    int readings() const;
};

/** For as long as it lives, no thread can be started. */
class NoMoreThreads {
public:
    NoMoreThreads();
    ~NoMoreThreads();
    NoMoreThreads(const NoMoreThreads&) = delete;
    NoMoreThreads& operator=(const NoMoreThreads&) = delete;
};

/** The number of threads of this process, as the kernel counts them. */
std::size_t threadsOfProcess();

/** Waits, 10 seconds at most, until the condition holds. @return whether it does */
template <class Condition>
bool eventually(Condition holds) {
    const auto limit = std::chrono::steady_clock::now() + std::chrono::seconds(10);
    while (!holds()) {
        if (std::chrono::steady_clock::now() > limit) {
            return false;
        }
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
    }
    return true;
}
