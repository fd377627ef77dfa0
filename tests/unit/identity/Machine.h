#pragma once

#include <deque>
#include <functional>
#include <optional>
#include <set>
#include <string>
#include <sys/statvfs.h>
#include <sys/sysinfo.h>
#include <vector>

/**
 * The machine as the library sees it for as long as this lives: "/proc/stat", marker files,
 * storage, memory, the shell, and sleep that takes no time. One at a time, on one thread.
 */
class Machine {
public:
    Machine();
    ~Machine();
    Machine(const Machine&) = delete;
    Machine& operator=(const Machine&) = delete;

    /** What "/proc/stat" holds each time it is opened; when none is left, opening it fails. */
    std::deque<std::string> processorTimes;

    /** The files that exist. */
    std::set<std::string> files;

    /** Missing when the figures cannot be had. */
    std::optional<struct statvfs> storage;
    std::optional<struct sysinfo> memory;

    /** What a command answers; may throw. */
    std::function<int(const std::string& command)> shell = [](const std::string&) {
        return 0;
    };

    /**
     * What was asked, in order: `fopen("/proc/stat", "r")`, `fclose`, `access("/etc/perf", 0)`,
     * `statvfs("/opt")`, `sysinfo`, `system("...")`, `nanosleep(1 s 0 ns)`.
     */
    std::vector<std::string> asked;
};
