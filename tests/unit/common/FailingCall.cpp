#include "FailingCall.h"

#include <array>
#include <cstddef>
#include <cstdlib>
#include <cstring>
#include <new>
#include <openssl/bio.h>

namespace klx::test {
namespace {

constexpr std::size_t functions = 7;

/** Calls left until the one that fails; 0 while none is to fail. */
thread_local std::array<int, functions> remaining{};

int& remainingCalls(Failing function) {
    return remaining[static_cast<std::size_t>(function)];
}

bool failsNow(Failing function) {
    int& left = remainingCalls(function);
    return left > 0 && --left == 0;
}

thread_local PretendedBioWrites* pretended = nullptr;

} // namespace

PretendedBioWrites::PretendedBioWrites() {
    pretended = this;
}

PretendedBioWrites::~PretendedBioWrites() {
    pretended = nullptr;
}

FailingCall::FailingCall(Failing function, int nth) : m_function(function) {
    remainingCalls(function) = nth;
}

FailingCall::~FailingCall() {
    remainingCalls(m_function) = 0;
}

} // namespace klx::test

using namespace klx::test;

// The linker's names for a wrapped function and the one behind it.
extern "C" {

void* __real_malloc(std::size_t size);
void* __real_calloc(std::size_t count, std::size_t size);
char* __real_strdup(const char* text);
void* __real_operator_new(std::size_t size) __asm__("__real_" KLX_OPERATOR_NEW);
void* __wrap_operator_new(std::size_t size) __asm__("__wrap_" KLX_OPERATOR_NEW);
BIO* __real_BIO_new(const BIO_METHOD* method);
int __real_BIO_write(BIO* bio, const void* data, int size);
long __real_BIO_ctrl(BIO* bio, int command, long number, void* argument);

void* __wrap_malloc(std::size_t size) {
    return failsNow(Failing::malloc) ? nullptr : __real_malloc(size);
}

void* __wrap_calloc(std::size_t count, std::size_t size) {
    return failsNow(Failing::calloc) ? nullptr : __real_calloc(count, size);
}

char* __wrap_strdup(const char* text) {
    return failsNow(Failing::strdup) ? nullptr : __real_strdup(text);
}

void* __wrap_operator_new(std::size_t size) {
    if (failsNow(Failing::operatorNew)) {
        throw std::bad_alloc();
    }
    return __real_operator_new(size);
}

BIO* __wrap_BIO_new(const BIO_METHOD* method) {
    return failsNow(Failing::bioNew) ? nullptr : __real_BIO_new(method);
}

int __wrap_BIO_write(BIO* bio, const void* data, int size) {
    if (pretended != nullptr) {
        pretended->sizes.push_back(size);
        return size;
    }
    return failsNow(Failing::bioWrite) ? -1 : __real_BIO_write(bio, data, size);
}

long __wrap_BIO_ctrl(BIO* bio, int command, long number, void* argument) {
    const bool fails = command == BIO_CTRL_FLUSH && failsNow(Failing::bioFlush);
    return fails ? 0 : __real_BIO_ctrl(bio, command, number, argument);
}
}
