#include "XmlMemory.h"

#include <libxml/xmlmemory.h>

#include <cstdlib>
#include <cstring>

namespace klx::test {
namespace {

thread_local int remaining = 0;

bool failsNow() {
    return remaining > 0 && --remaining == 0;
}

void* allocate(std::size_t size) {
    return failsNow() ? nullptr : std::malloc(size);
}

void* reallocate(void* block, std::size_t size) {
    return failsNow() ? nullptr : std::realloc(block, size);
}

char* duplicate(const char* text) {
    return failsNow() ? nullptr : strdup(text);
}

} // namespace

FailingXmlMemory::FailingXmlMemory(int nth) {
    remaining = nth;
    xmlMemSetup(&std::free, &allocate, &reallocate, &duplicate);
}

FailingXmlMemory::~FailingXmlMemory() {
    xmlMemSetup(&std::free, &std::malloc, &std::realloc, &strdup);
    remaining = 0;
}

} // namespace klx::test
