// For the sanitizers, which bring the C library's allocation functions themselves: the operators
// new and delete and what libxml2 calls.

#include "AllocationFaults.h"

#include <libxml/xmlmemory.h>

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <new>

using namespace klx::test;

namespace {

void* take(std::size_t size) {
    if (!mayAllocate()) {
        return nullptr;
    }
    void* const block = std::malloc(size != 0 ? size : 1);
    noteTaken(block);
    return block;
}

void giveBack(void* block) {
    noteGivenBack(block);
    std::free(block);
}

void* takeAnew(void* block, std::size_t size) {
    if (!mayAllocate()) {
        return nullptr;
    }
    noteGivenBack(block);
    void* const moved = std::realloc(block, size);
    noteTaken(moved);
    return moved;
}

char* takeCopy(const char* text) {
    const std::size_t size = std::strlen(text) + 1;
    void* const copy = take(size);
    return copy == nullptr ? nullptr : static_cast<char*>(std::memcpy(copy, text, size));
}

void* takeAlignedOrThrow(std::size_t size, std::align_val_t alignment) {
    const std::size_t wanted = std::max(std::size_t(alignment), sizeof(void*));
    void* block = nullptr;
    if (!mayAllocate() || posix_memalign(&block, wanted, size) != 0) {
        throw std::bad_alloc();
    }
    noteTaken(block);
    return block;
}

void* takeOrThrow(std::size_t size) {
    void* const block = take(size);
    if (block == nullptr) {
        throw std::bad_alloc();
    }
    return block;
}

// Before libxml2 takes its first memory.
[[maybe_unused]] const int replacesXml = xmlMemSetup(&giveBack, &take, &takeAnew, &takeCopy);

} // namespace

// An input buffer that cannot be filled is forgotten by libxml2 itself.
extern "C" __attribute__((visibility("default"))) const char* __lsan_default_suppressions() {
    return "leak:xmlParserInputBufferCreateMem";
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
