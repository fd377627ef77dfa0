#include "XmlMemory.h"

#include <libxml/xmlmemory.h>

#include <cstdlib>
#include <cstring>

namespace klx::test {
namespace {

thread_local int allocationsLeft = 0;

bool failsNow() {
    return allocationsLeft > 0 && --allocationsLeft == 0;
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
    allocationsLeft = nth;
    xmlMemSetup(&std::free, &allocate, &reallocate, &duplicate);
}

FailingXmlMemory::~FailingXmlMemory() {
    xmlMemSetup(&std::free, &std::malloc, &std::realloc, &strdup);
    allocationsLeft = 0;
}

} // namespace klx::test
