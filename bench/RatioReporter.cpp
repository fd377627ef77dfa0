#include "RatioReporter.h"

#include <iomanip>

void RatioReporter::ReportRuns(const std::vector<Run>& runs) {
    for (const Run& run : runs) {
        m_failed = m_failed || run.error_occurred;
        if (run.run_type == Run::RT_Aggregate ? run.aggregate_name == "median"
                                              : run.repetitions <= 1) {
            m_nanoseconds[run.run_name.function_name] =
                run.GetAdjustedCPUTime() * 1e9 / benchmark::GetTimeUnitMultiplier(run.time_unit);
        }
    }
    ConsoleReporter::ReportRuns(runs);
}

void RatioReporter::printRatios() {
    auto& out = GetOutputStream();
    out << "\n"
        << std::left << std::setw(16) << "operation" << std::right << std::setw(12) << "time (us)"
        << std::setw(12) << "floor (us)" << std::setw(8) << "ratio"
        << "\n";
    for (const auto& [name, time] : m_nanoseconds) {
        const auto floor = m_nanoseconds.find(name + "Floor");
        if (floor != m_nanoseconds.end()) {
            out << std::left << std::setw(16) << name << std::right << std::fixed
                << std::setprecision(2) << std::setw(12) << time / 1e3 << std::setw(12)
                << floor->second / 1e3 << std::setw(8) << time / floor->second << "\n";
        }
    }
}
