#include "MutexFault.h"

#include <pthread.h>

#include <utility>

namespace klx::test {
namespace {

thread_local int pending = 0;

} // namespace

MutexFault::MutexFault(int error) {
    pending = error;
}

MutexFault::~MutexFault() {
    pending = 0;
}

} // namespace klx::test

using namespace klx::test;

// The linker's names for a wrapped function and the one behind it.
extern "C" {

int __real_pthread_mutex_lock(pthread_mutex_t* mutex);

int __wrap_pthread_mutex_lock(pthread_mutex_t* mutex) {
    const int error = std::exchange(pending, 0);
    return error != 0 ? error : __real_pthread_mutex_lock(mutex);
}
}
