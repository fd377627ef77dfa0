#include "RestoreReport.h"

#include "JsonText.h"
#include "Messages.h"
#include "NearestNames.h"
#include "Progress.h"
#include "Streams.h"
#include "Table.h"

#include <json/value.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <csignal>
#include <cstring>
#include <map>

namespace {

struct VerdictWord {
    Verdict verdict;
    const char* word; // for people and machines alike
    Tone tone;
    bool isGood;
};

// In the order of the summary.
constexpr std::array<VerdictWord, 12> words = {{
    {Verdict::Applied, "applied", Tone::Good, true},
    {Verdict::Foreseen, "would apply", Tone::Good, true},
    {Verdict::Unchanged, "unchanged", Tone::Faint, true},
    {Verdict::LeftAlone, "left alone", Tone::Faint, true},
    {Verdict::Refused, "refused", Tone::Bad, false},
    {Verdict::ReadOnly, "read-only", Tone::Bad, false},
    {Verdict::Unknown, "unknown", Tone::Bad, false},
    {Verdict::Malformed, "malformed", Tone::Bad, false},
    {Verdict::NotWritten, "not written", Tone::Bad, false},
    {Verdict::NotRead, "not read", Tone::Bad, false},
    {Verdict::PutBack, "put back", Tone::Bad, false},
    {Verdict::NotPutBack, "not put back", Tone::Bad, false},
}};

const VerdictWord& wordOf(Verdict verdict) {
    return *std::find_if(words.begin(), words.end(),
                         [verdict](const VerdictWord& word) { return word.verdict == verdict; });
}

std::size_t count(const Restoration& restoration, Verdict verdict) {
    return static_cast<std::size_t>(std::count_if(
        restoration.outcomes.begin(), restoration.outcomes.end(),
        [verdict](const PropertyOutcome& outcome) { return outcome.verdict == verdict; }));
}

bool isEverythingHeld(const Restoration& restoration) {
    return std::all_of(
        restoration.outcomes.begin(), restoration.outcomes.end(),
        [](const PropertyOutcome& outcome) { return wordOf(outcome.verdict).isGood; });
}

/// The names that are similar to an unknown path.
using SimilarNames = std::map<std::string, std::vector<std::string>>;

/// For the first hundred only, and for none that is no name at all: looking for them takes its
/// time.
SimilarNames similarNames(const Restoration& restoration, const KnownProperties& known) {
    constexpr std::size_t most = 100;
    constexpr std::size_t longest = 500;
    const std::vector<std::string> paths = known.paths();
    SimilarNames names;
    for (const PropertyOutcome& outcome : restoration.outcomes) {
        const bool isName = outcome.path.size() <= longest;
        if (outcome.verdict == Verdict::Unknown && isName && names.size() < most) {
            names.emplace(outcome.path, nearestNames(outcome.path, paths));
        }
    }
    return names;
}

std::vector<std::string> namesFor(const PropertyOutcome& outcome, const SimilarNames& similar) {
    const auto found = similar.find(outcome.path);
    return found != similar.end() ? found->second : std::vector<std::string>();
}

std::string wantedBut(const PropertyOutcome& outcome) {
    const std::string wanted = "wanted " + quoted(outcome.wanted.value_or(""));
    return outcome.held ? wanted + ", holds " + quoted(*outcome.held) : wanted;
}

std::string unknownDetail(const PropertyOutcome& outcome, const SimilarNames& similar) {
    std::string names;
    for (const std::string& name : namesFor(outcome, similar)) {
        names += (names.empty() ? "did you mean " : " or ") + quoted(name);
    }
    return names.empty() ? "there is no such property" : names + "?";
}

std::string detailOf(const PropertyOutcome& outcome, const SimilarNames& similar,
                     const std::string& noValue) {
    switch (outcome.verdict) {
    case Verdict::Applied:
    case Verdict::Foreseen:
        return quoted(*outcome.before) + " -> " + quoted(*outcome.wanted);
    case Verdict::Unchanged:
        return quoted(*outcome.held);
    case Verdict::LeftAlone:
        return noValue;
    case Verdict::Unknown:
        return unknownDetail(outcome, similar);
    case Verdict::Malformed:
        return "it does not stand as a property in a menu, with a text as its value";
    case Verdict::PutBack:
        return wantedBut(outcome) + " again";
    case Verdict::NotPutBack:
        return wantedBut(outcome) + ", held " + quoted(*outcome.before) + " before";
    case Verdict::Refused:
    case Verdict::ReadOnly:
    case Verdict::NotWritten:
    case Verdict::NotRead:
        break;
    }
    return wantedBut(outcome);
}

std::string summaryOf(const Restoration& restoration) {
    std::string summary = std::to_string(restoration.outcomes.size()) + " asked for";
    const char* separator = ": ";
    for (const VerdictWord& word : words) {
        if (const std::size_t number = count(restoration, word.verdict)) {
            summary += separator + std::to_string(number) + " " + word.word;
            separator = ", ";
        }
    }
    return summary;
}

std::string textOf(const Restoration& restoration, const SimilarNames& similar,
                   const std::string& noValue) {
    Table table({"PROPERTY", "RESULT", "VALUE"});
    for (const PropertyOutcome& outcome : restoration.outcomes) {
        const VerdictWord& word = wordOf(outcome.verdict);
        table.add({outcome.path, Cell(word.word, word.tone), detailOf(outcome, similar, noValue)});
    }
    return (table.isEmpty() ? "" : table.text(mayColour(STDOUT_FILENO)) + "\n") +
           summaryOf(restoration) + "\n";
}

Json::Value jsonOf(const PropertyOutcome& outcome, const SimilarNames& similar) {
    Json::Value entry;
    entry["path"] = outcome.path;
    entry["result"] = wordOf(outcome.verdict).word;
    const auto add = [&entry](const char* name, const std::optional<std::string>& value) {
        if (value) {
            entry[name] = *value;
        }
    };
    add("wanted", outcome.wanted);
    add("before", outcome.before);
    add("held", outcome.held);
    for (const std::string& name : namesFor(outcome, similar)) {
        entry["nearest"].append(name);
    }
    return entry;
}

std::string signalName(int signal) {
    return "SIG" + std::string(sigabbrev_np(signal));
}

/// What a dry run would write before it could tell what other settings hold: those of the picture
/// mode to come, for one.
std::vector<std::string> foreseenFirst(const Restoration& restoration) {
    std::vector<std::string> paths;
    for (const PropertyOutcome& outcome : restoration.outcomes) {
        if (outcome.verdict == Verdict::Foreseen && outcome.isLeading) {
            paths.push_back(outcome.path);
        }
    }
    return paths;
}

Json::Value jsonOf(const Restoration& restoration, const SimilarNames& similar) {
    Json::Value root;
    root["properties"] = Json::Value(Json::arrayValue);
    for (const PropertyOutcome& outcome : restoration.outcomes) {
        root["properties"].append(jsonOf(outcome, similar));
    }
    root["summary"]["asked for"] = static_cast<Json::UInt64>(restoration.outcomes.size());
    for (const VerdictWord& word : words) {
        root["summary"][word.word] = static_cast<Json::UInt64>(count(restoration, word.verdict));
    }
    root["dryRun"] = restoration.options.isDryRun;
    root["allOrNothing"] = restoration.options.isAllOrNothing;
    root["uncertain"] = !foreseenFirst(restoration).empty();
    root["held"] = isEverythingHeld(restoration);
    root["putBack"] = restoration.isPutBack;
    root["failed"] = restoration.hasFailed;
    if (restoration.signal != 0) {
        root["interruptedBy"] = signalName(restoration.signal);
    }
    return root;
}

void reportPutBack(const Restoration& restoration) {
    std::string stuck;
    for (const PropertyOutcome& outcome : restoration.outcomes) {
        if (outcome.verdict == Verdict::NotPutBack) {
            stuck += "\n  " + quoted(outcome.path);
        }
    }
    if (!stuck.empty()) {
        report("not everything could be held, and this could not be put back:" + stuck);
    } else if (count(restoration, Verdict::PutBack) > 0) {
        report("not everything could be held, so what had been changed was put back");
    } else {
        report("not everything could be held; the set is as it was");
    }
}

/// Whether it is clear without any writing that not everything can be held.
bool isHopeless(const Restoration& restoration) {
    return count(restoration, Verdict::ReadOnly) + count(restoration, Verdict::Unknown) +
               count(restoration, Verdict::Malformed) >
           0;
}

void reportCircumstances(const Restoration& restoration) {
    if (restoration.hasFailed) {
        report(restoration.failure.empty()
                   ? "the library could not apply what it was given; its lines above tell why"
                   : restoration.failure);
    }
    for (const std::string& path : foreseenFirst(restoration)) {
        report("with another " + quoted(path) +
               " the set may hold other values and defaults than those that are told here");
    }
    if (restoration.signal != 0) {
        report("interrupted by " + signalName(restoration.signal));
    }
    if (restoration.isPutBack) {
        reportPutBack(restoration);
    } else if (restoration.options.isAllOrNothing && isHopeless(restoration)) {
        report(std::string("nothing is written, for not everything can be held") +
               (count(restoration, Verdict::ReadOnly) > 0
                    ? "; \"klxctl restore --settings-only\" leaves out what is read-only"
                    : ""));
    }
}

ExitStatus statusOf(const Restoration& restoration) {
    if (restoration.signal != 0) {
        return interruptedBy(restoration.signal);
    }
    if (restoration.hasFailed) {
        return ExitStatus::Failed;
    }
    return isEverythingHeld(restoration) ? ExitStatus::Done : ExitStatus::NotHeld;
}

std::string reportOf(const Restoration& restoration, const KnownProperties& known,
                     const RestoreArguments& given, const std::string& noValue) {
    Progress progress;
    progress.tell("preparing the report");
    const SimilarNames similar = similarNames(restoration, known);
    return given.asJson ? jsonText(jsonOf(restoration, similar))
                        : textOf(restoration, similar, noValue);
}

/// Somebody has to learn what was done to the set.
ExitStatus tellWithoutReport(const Restoration& restoration, const std::exception& error) {
    report(error.what());
    report("the report is lost; it would have ended with: " + summaryOf(restoration));
    reportCircumstances(restoration);
    return ExitStatus::Failed;
}

} // namespace

void addRestoreOptions(CLI::App& command, RestoreArguments& given) {
    command.add_flag("--dry-run", given.options.isDryRun, "Tell what would happen; write nothing");
    command.add_flag("--all-or-nothing", given.options.isAllOrNothing,
                     "Put the former values back when anything is not held");
    command.add_flag("--json", given.asJson, "Print the report as JSON");
}

ExitStatus restoreAndTell(const KnownProperties& known, DocumentFormat format, const Wishes& wishes,
                          const RestoreArguments& given, const std::string& noValue) {
    const Interruption interruption;
    const Restoration restoration = restore(known, format, wishes, given.options, interruption);
    try {
        writeOutput(reportOf(restoration, known, given, noValue));
        closeOutput();
    } catch (const std::exception& error) {
        return tellWithoutReport(restoration, error);
    }
    reportCircumstances(restoration);
    return statusOf(restoration);
}
