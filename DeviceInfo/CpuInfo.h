#pragma once

/// Time that the set's processors have spent, in clock ticks since it was started, in the order of
/// the "cpu" line of "/proc/stat". A tick is a hundredth of a second on most sets; on a 32-bit set
/// each counter starts again from 0 at 2^32.
struct CPU_INFO {
    unsigned long user;    ///< in programs
    unsigned long nice;    ///< in programs of low priority
    unsigned long system;  ///< in the kernel
    unsigned long idle;    ///< with nothing to do
    unsigned long iowait;  ///< with nothing to do but to wait for storage
    unsigned long irq;     ///< in interrupts
    unsigned long softirq; ///< in what interrupts left to be done
};
