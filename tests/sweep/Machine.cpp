// What the library asks the machine for that a sweep has no time for, or must not do: the linker
// sends these calls here.

#include "LinkedNames.h"

#include <ctime>

extern "C" {

int __wrap_nanosleep(const timespec*, timespec*) __asm__("__wrap_" KLX_LINKED_NANOSLEEP);

int __wrap_nanosleep(const timespec*, timespec*) {
    return 0;
}

int __wrap_system(const char*) {
    return 0;
}
}
