// The C library's allocation functions, replaced for the whole process, operator new and libxml2
// included, which both come here in the end.

#include "AllocationFaults.h"

#include <cerrno>
#include <cstddef>
#include <cstring>

using namespace klx::test;

namespace {

void* refuse() {
    errno = ENOMEM;
    return nullptr;
}

void* noted(void* block) {
    noteTaken(block);
    return block;
}

} // namespace

// The C library's own names for what stands behind its allocation functions.
extern "C" {

void* __libc_malloc(std::size_t size);
void* __libc_calloc(std::size_t count, std::size_t size);
void* __libc_realloc(void* block, std::size_t size);
void* __libc_memalign(std::size_t alignment, std::size_t size);
void __libc_free(void* block);

#pragma GCC visibility push(default)

void* malloc(std::size_t size) {
    return mayAllocate() ? noted(__libc_malloc(size)) : refuse();
}

void* calloc(std::size_t count, std::size_t size) {
    return mayAllocate() ? noted(__libc_calloc(count, size)) : refuse();
}

void* realloc(void* block, std::size_t size) {
    if (!mayAllocate()) {
        return refuse();
    }
    noteGivenBack(block);
    return noted(__libc_realloc(block, size));
}

void* memalign(std::size_t alignment, std::size_t size) {
    return mayAllocate() ? noted(__libc_memalign(alignment, size)) : refuse();
}

void* aligned_alloc(std::size_t alignment, std::size_t size) {
    return memalign(alignment, size);
}

int posix_memalign(void** block, std::size_t alignment, std::size_t size) {
    *block = memalign(alignment, size);
    return *block != nullptr ? 0 : ENOMEM;
}

void free(void* block) {
    noteGivenBack(block);
    __libc_free(block);
}

char* strdup(const char* text) {
    if (!mayAllocate()) {
        return static_cast<char*>(refuse());
    }
    const std::size_t size = std::strlen(text) + 1;
    void* const copy = __libc_malloc(size);
    noteText(copy);
    return copy == nullptr ? nullptr : static_cast<char*>(std::memcpy(copy, text, size));
}

#pragma GCC visibility pop
}
