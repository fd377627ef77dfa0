#pragma once

#include "CpuInfo.h"

#include <ctime>
#include <optional>
#include <string>

/// The storage for applications, in bytes.
struct StorageUse {
    long long used;
    long long free;
    long long total;
};

/// What the set told about its load at one time. Figures that it could not tell are missing.
struct Diagnostics {
    std::time_t time = 0;
    std::optional<int> cpuPercent; ///< busy share over one second
    std::optional<CPU_INFO> cpuTime;
    std::optional<long long> memoryUsed; ///< bytes, swap included
    std::optional<StorageUse> storage;
};

/// Measures all figures, which takes one second.
Diagnostics measureDiagnostics();

/// Names the figures that are missing, such as "memory and storage"; "" when there are all.
std::string missingFigures(const Diagnostics& diagnostics);
