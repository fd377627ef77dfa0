#pragma once

#include <benchmark/benchmark.h>

#include <map>
#include <string>

/// Prints the usual table, then each benchmark as a ratio to the one of the same name with "Floor"
/// behind it, measured in the same run.
class RatioReporter : public benchmark::ConsoleReporter {
public:
    void ReportRuns(const std::vector<Run>& runs) override;

    void printRatios();

    bool hasFailed() const { return m_failed; }

private:
    std::map<std::string, double> m_nanoseconds;
    bool m_failed = false;
};
