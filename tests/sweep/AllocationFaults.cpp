#include "AllocationFaults.h"

#include "FakePlatform.h"

#include <array>
#include <atomic>
#include <mutex>

namespace klx::test {
namespace {

/** Room for the blocks that one operation holds at once; itself it takes no memory. */
constexpr std::size_t room = std::size_t{1} << 14;

std::atomic<bool> armed{false};
std::atomic<int> remaining{0};
std::atomic<bool> met{false};

/** Open addressing with linear probing; null is free. */
std::array<void*, room> blocks;
std::atomic<std::size_t> held{0};
std::mutex access;

std::size_t homeOf(const void* block) {
    return (reinterpret_cast<std::size_t>(block) >> 4) * 0x9E3779B97F4A7C15u % room;
}

std::size_t after(std::size_t place) {
    return (place + 1) % room;
}

std::size_t placeOf(const void* block) {
    std::size_t place = homeOf(block);
    while (blocks[place] != nullptr && blocks[place] != block) {
        place = after(place);
    }
    return place;
}

/** Moves those behind a freed place up, so that no search ends before them. */
void closeGap(std::size_t gap) {
    for (std::size_t place = after(gap); blocks[place] != nullptr; place = after(place)) {
        const std::size_t home = homeOf(blocks[place]);
        const bool reachesGap = (place - home + room) % room >= (place - gap + room) % room;
        if (reachesGap) {
            blocks[gap] = blocks[place];
            gap = place;
        }
    }
    blocks[gap] = nullptr;
}

void remember(void* block) {
    const std::lock_guard<std::mutex> lock(access);
    if (block != nullptr && held < room / 2) {
        blocks[placeOf(block)] = block;
        ++held;
    }
}

} // namespace

AllocationFaults::AllocationFaults(int nth) {
    remaining = nth;
    met = false;
    blocks.fill(nullptr);
    held = 0;
    armed = true;
}

AllocationFaults::~AllocationFaults() {
    disarm();
}

void AllocationFaults::disarm() {
    armed = false;
    remaining = 0;
}

bool AllocationFaults::metFault() const {
    return met;
}

std::size_t AllocationFaults::blocksLeft() const {
    return held;
}

bool mayAllocate() {
    if (remaining <= 0 || fake::isInside() || --remaining != 0) {
        return true;
    }
    met = true;
    return false;
}

void noteTaken(void* block) {
    if (armed && !fake::isInside()) {
        remember(block);
    }
}

void noteText(void* block) {
    if (armed) {
        remember(block);
    }
}

void noteGivenBack(void* block) {
    if (held == 0 || block == nullptr) {
        return;
    }
    const std::lock_guard<std::mutex> lock(access);
    const std::size_t place = placeOf(block);
    if (blocks[place] != nullptr) {
        closeGap(place);
        --held;
    }
}

} // namespace klx::test
