#include "HeapWatch.h"

#include <libxml/xmlmemory.h>

#include <algorithm>
#include <atomic>
#include <climits>
#include <cstdlib>
#include <cstring>
#include <malloc.h>
#include <new>

namespace {

std::atomic<long long> held{0};
std::atomic<long long> highest{0};
std::atomic<int> pieces{0};
std::atomic<long long> limit{LLONG_MAX};

void raiseHighest(long long now) {
    long long known = highest;
    while (known < now && !highest.compare_exchange_weak(known, now)) {
    }
}

/** Tells whether that many more bytes are within the limit. */
bool grants(std::size_t size) {
    const long long wanted = held + static_cast<long long>(size);
    if (wanted > limit) {
        raiseHighest(wanted);
    }
    return wanted <= limit;
}

void* counted(void* block) {
    raiseHighest(held += static_cast<long long>(malloc_usable_size(block)));
    return block;
}

void* take(std::size_t size) {
    return grants(size) ? counted(std::malloc(size != 0 ? size : 1)) : nullptr;
}

void giveBack(void* block) {
    held -= static_cast<long long>(malloc_usable_size(block));
    std::free(block);
}

void* takeAnew(void* block, std::size_t size) {
    const auto before = static_cast<long long>(malloc_usable_size(block));
    if (!grants(size)) {
        return nullptr;
    }
    void* const moved = std::realloc(block, size);
    if (moved != nullptr) {
        held -= before;
    }
    return counted(moved);
}

char* takeCopy(const char* text) {
    const std::size_t size = std::strlen(text) + 1;
    void* const copy = take(size);
    return copy == nullptr ? nullptr : static_cast<char*>(std::memcpy(copy, text, size));
}

void* takeAlignedOrThrow(std::size_t size, std::align_val_t alignment) {
    const std::size_t wanted = std::max(std::size_t(alignment), sizeof(void*));
    void* block = nullptr;
    if (!grants(size) || posix_memalign(&block, wanted, size) != 0) {
        throw std::bad_alloc();
    }
    ++pieces;
    return counted(block);
}

void* takeOrThrow(std::size_t size) {
    void* const block = take(size);
    if (block == nullptr) {
        throw std::bad_alloc();
    }
    return block;
}

// Before libxml2 takes its first memory.
[[maybe_unused]] const int countsXml = xmlMemSetup(&giveBack, &take, &takeAnew, &takeCopy);

} // namespace

HeapWatch::HeapWatch(std::size_t bytes) : m_before(held), m_piecesBefore(pieces) {
    highest = m_before;
    limit = m_before + static_cast<long long>(bytes);
}

HeapWatch::~HeapWatch() {
    limit = LLONG_MAX;
}

std::size_t HeapWatch::peak() const {
    return static_cast<std::size_t>(highest - m_before);
}

int HeapWatch::piecesOfResources() const {
    return pieces - m_piecesBefore;
}

long long HeapWatch::grown() const {
    return held - m_before;
}

void* operator new(std::size_t size) {
    return takeOrThrow(size);
}
void* operator new[](std::size_t size) {
    return takeOrThrow(size);
}
void* operator new(std::size_t size, const std::nothrow_t&) noexcept {
    return take(size);
}
void* operator new[](std::size_t size, const std::nothrow_t&) noexcept {
    return take(size);
}
void operator delete(void* block) noexcept {
    giveBack(block);
}
void operator delete[](void* block) noexcept {
    giveBack(block);
}
void operator delete(void* block, std::size_t) noexcept {
    giveBack(block);
}
void operator delete[](void* block, std::size_t) noexcept {
    giveBack(block);
}
void operator delete(void* block, const std::nothrow_t&) noexcept {
    giveBack(block);
}
void operator delete[](void* block, const std::nothrow_t&) noexcept {
    giveBack(block);
}

// Memory resources take theirs here, however small the alignment.
void* operator new(std::size_t size, std::align_val_t alignment) {
    return takeAlignedOrThrow(size, alignment);
}
void operator delete(void* block, std::align_val_t) noexcept {
    giveBack(block);
}
void operator delete(void* block, std::size_t, std::align_val_t) noexcept {
    giveBack(block);
}
