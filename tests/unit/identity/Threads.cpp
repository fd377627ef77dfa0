#include "Threads.h"

#include <atomic>
#include <filesystem>
#include <iterator>
#include <system_error>

namespace {

std::atomic<std::chrono::milliseconds::rep> behind{0};
std::atomic<int> clockReadings{0};
std::atomic<bool> refusesThreads{false};

using SystemTime = std::chrono::system_clock::time_point;

} // namespace

ClockBehind::ClockBehind(std::chrono::milliseconds by) {
    behind = by.count();
    clockReadings = 0;
}

ClockBehind::~ClockBehind() {
    behind = 0;
}

int ClockBehind::readings() const {
    return clockReadings;
}

NoMoreThreads::NoMoreThreads() {
    refusesThreads = true;
}

NoMoreThreads::~NoMoreThreads() {
    refusesThreads = false;
}

std::size_t threadsOfProcess() {
    const std::filesystem::directory_iterator tasks("/proc/self/task");
    return static_cast<std::size_t>(std::distance(begin(tasks), end(tasks)));
}

// The linker's names for std::chrono::system_clock::now and std::thread::_M_start_thread and the
// functions that stand in for them.

SystemTime realNow() __asm__("__real__ZNSt6chrono3_V212system_clock3nowEv");
SystemTime wrappedNow() __asm__("__wrap__ZNSt6chrono3_V212system_clock3nowEv");

void realStart(std::thread* thread, void* state, void (*depend)()) __asm__(
    "__real__ZNSt6thread15_M_start_threadESt10unique_ptrINS_6_StateESt14default_deleteIS1_EEPFvvE");
void wrappedStart(std::thread* thread, void* state, void (*depend)()) __asm__(
    "__wrap__ZNSt6thread15_M_start_threadESt10unique_ptrINS_6_StateESt14default_deleteIS1_EEPFvvE");

SystemTime wrappedNow() {
    ++clockReadings;
    return realNow() - std::chrono::milliseconds(behind);
}

void wrappedStart(std::thread* thread, void* state, void (*depend)()) {
    if (refusesThreads) {
        throw std::system_error(std::make_error_code(std::errc::resource_unavailable_try_again));
    }
    realStart(thread, state, depend);
}
