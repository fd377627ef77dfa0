/**
 * @file
 * What the sanitizers have to put up with from umockdev. Options of the environment come on top.
 */

extern "C" {
#pragma GCC visibility push(default)

const char* __asan_default_options();
const char* __tsan_default_suppressions();

// The wrapper preloads a library before the address sanitizer's, which refuses to start then. Both
// work in this order, too: the preloaded functions find the sanitizer's behind them.
const char* __asan_default_options() {
    return "verify_asan_link_order=0";
}

// The testbed has a thread of its own, which meets the test's under locks of GLib that the thread
// sanitizer does not see.
const char* __tsan_default_suppressions() {
    return "called_from_lib:libglib-2.0.so\n"
           "called_from_lib:libumockdev.so\n"
           "called_from_lib:libumockdev-preload.so\n";
}

#pragma GCC visibility pop
}
