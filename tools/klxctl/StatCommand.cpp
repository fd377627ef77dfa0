#include "Commands.h"
#include "DiagnosticsText.h"
#include "Messages.h"
#include "Streams.h"

#include <unistd.h>

#include <algorithm>
#include <atomic>
#include <chrono>
#include <csignal>
#include <memory>
#include <thread>

namespace {

using Clock = std::chrono::steady_clock;

constexpr int longestInterval = 86400;

const char* const details =
    "CPU is the busy share of the processors over one second, for which the command measures.\n"
    "Memory counts swap as well; storage is that for applications. A figure that the set cannot\n"
    "tell is shown as \"-\", in JSON as null, and the exit status is 1. With --watch, SIGINT "
    "(Ctrl-C)\n"
    "and SIGTERM are the usual end: the exit status is then 0 when there were all figures.";

struct StatArguments {
    bool asJson = false;
    std::string interval;
};

std::atomic<int> statusWhenInterrupted{static_cast<int>(ExitStatus::Done)};

static_assert(std::atomic<int>::is_always_lock_free, "the signal handler must not lock");

// Each row goes out in one write, so none can be cut off by this.
void endByInterrupt(int /*number*/) {
    _exit(statusWhenInterrupted);
}

void catchInterrupts() {
    struct sigaction action = {};
    action.sa_handler = endByInterrupt;
    for (const int number : {SIGINT, SIGTERM}) {
        struct sigaction former = {};
        sigaction(number, nullptr, &former);
        // An ignored signal, as under nohup, stays ignored.
        if (former.sa_handler != SIG_IGN) {
            sigaction(number, &action, nullptr);
        }
    }
}

/// Measures once and prints it. @return the names of what the set could not tell
std::string printFigures(const StatArguments& given) {
    const Diagnostics diagnostics = measureDiagnostics();
    writeOutput(given.asJson ? jsonObject(diagnostics, !given.interval.empty())
                             : tableRow(diagnostics));
    return missingFigures(diagnostics);
}

void reportMissing(const std::string& missing) {
    report("the set does not tell " + missing + "; its lines above tell why");
}

[[noreturn]] void watch(const StatArguments& given) {
    const auto interval = std::chrono::seconds(std::stoi(given.interval));
    catchInterrupts();
    for (Clock::time_point next = Clock::now();; next = std::max(next + interval, Clock::now())) {
        std::this_thread::sleep_until(next);
        const std::string missing = printFigures(given);
        constexpr int failed = static_cast<int>(ExitStatus::Failed);
        if (!missing.empty() && statusWhenInterrupted.exchange(failed) != failed) {
            reportMissing(missing);
        }
    }
}

ExitStatus stat(const StatArguments& given) {
    if (!given.asJson) {
        writeOutput(tableHeader());
    }
    if (!given.interval.empty()) {
        watch(given);
    }
    const std::string missing = printFigures(given);
    if (missing.empty()) {
        return ExitStatus::Done;
    }
    reportMissing(missing);
    return ExitStatus::Failed;
}

bool isInterval(const std::string& text) {
    const std::size_t mostDigits = std::to_string(longestInterval).size();
    return !text.empty() && text.size() <= mostDigits &&
           text.find_first_not_of("0123456789") == std::string::npos && std::stoi(text) >= 1 &&
           std::stoi(text) <= longestInterval;
}

std::string checkInterval(const std::string& text) {
    return isInterval(text) ? ""
                            : quoted(text) +
                                  " is no interval; write a whole number of seconds "
                                  "from 1 to " +
                                  std::to_string(longestInterval);
}

} // namespace

void addStatCommand(CLI::App& app, Command& chosen) {
    CLI::App* const command =
        app.add_subcommand("stat", "Print the load of processors, memory and storage");
    command->footer(details);
    const auto given = std::make_shared<StatArguments>();
    command->add_flag("--json", given->asJson,
                      "Print JSON objects instead of a table; one a line with --watch");
    command
        ->add_option("--watch", given->interval,
                     "Print the figures again every so many seconds until interrupted")
        ->check(checkInterval)
        ->option_text("SECONDS");
    command->callback([given, &chosen] {
        chosen.work = [given] {
            return stat(*given);
        };
    });
}
