#pragma once

/// Time that the set's processors have spent, in clock ticks since it was started, in the order of
/// the "cpu" line of "/proc/stat".
struct CPU_INFO {
    unsigned long user;
    unsigned long nice;
    unsigned long system;
    unsigned long idle;
    unsigned long iowait;
    unsigned long irq;
    unsigned long softirq;
};
