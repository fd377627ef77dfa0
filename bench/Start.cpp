// What a process pays for the library before its first call: prints the processor time of the
// initialisation in microseconds and the bytes of heap that are held afterwards.

#include "DeviceInfoManager.h"

#include <cstdio>
#include <ctime>
#include <malloc.h>

namespace {

double processorTime() {
    timespec time{};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &time);
    return static_cast<double>(time.tv_sec) * 1e6 + static_cast<double>(time.tv_nsec) / 1e3;
}

std::size_t heldBytes() {
    const auto heap = mallinfo2();
    return heap.uordblks + heap.hblkhd;
}

} // namespace

int main() {
    const std::size_t before = heldBytes();
    const double began = processorTime();
    if (!CDeviceInfoManager::Initialize()) {
        return 1;
    }
    const double ended = processorTime();
    std::printf("%.1f %zu\n", ended - began, heldBytes() - before);
    return 0;
}
