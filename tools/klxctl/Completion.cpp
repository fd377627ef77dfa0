#include "Completion.h"

#include <algorithm>
#include <map>
#include <set>

namespace {

using Candidates = std::set<std::string>;

bool beginsWith(const std::string& text, const std::string& beginning) {
    return text.compare(0, beginning.size(), beginning) == 0;
}

bool looksLikeOption(const std::string& word) {
    return word.size() > 1 && word.front() == '-';
}

bool takesValue(const CLI::Option& option) {
    return option.get_items_expected_max() > 0;
}

/// What an argument is called in the help, which tells what it takes.
std::string labelOf(const CLI::Option& option) {
    return option.get_positional() ? option.get_name(true) : option.get_option_text();
}

/// Where words lead to: a command with some of its arguments given.
class Place {
public:
    explicit Place(const CLI::App& app) : m_command(&app) {}

    /// Goes on by a word.
    void take(const std::string& word);

    const CLI::App& command() const { return *m_command; }
    bool mayBeCommand() const { return m_positionals == 0 && !m_onlyPositionals; }
    bool mayBeOption() const { return !m_onlyPositionals; }

    /// The option that the next word is the value of; null when there is none.
    const CLI::Option* awaiting() const { return m_awaiting; }

    /// The positional argument that the next word is; null when there are enough.
    const CLI::Option* positional() const;

private:
    void takeOption(const std::string& word);
    void takePlain(const std::string& word);

    const CLI::App* m_command;
    int m_positionals = 0;
    bool m_onlyPositionals = false;
    const CLI::Option* m_awaiting = nullptr;
};

void Place::take(const std::string& word) {
    if (m_awaiting != nullptr) {
        // Shells that divide words at "=" hand it over as a word of its own.
        m_awaiting = word == "=" ? m_awaiting : nullptr;
    } else if (m_onlyPositionals || !looksLikeOption(word)) {
        takePlain(word);
    } else if (word == "--") {
        m_onlyPositionals = true;
    } else {
        takeOption(word);
    }
}

void Place::takeOption(const std::string& word) {
    const CLI::Option* const option = m_command->get_option_no_throw(word);
    if (option != nullptr && takesValue(*option)) {
        m_awaiting = option;
    }
}

void Place::takePlain(const std::string& word) {
    const auto named =
        m_command->get_subcommands([&](const CLI::App* each) { return each->get_name() == word; });
    if (!named.empty() && mayBeCommand()) {
        m_command = named.front();
    } else {
        ++m_positionals;
    }
}

const CLI::Option* Place::positional() const {
    int before = m_positionals;
    for (const CLI::Option* const option : m_command->get_options()) {
        if (!option->get_positional()) {
            continue;
        }
        if (before < option->get_items_expected_max()) {
            return option;
        }
        before -= option->get_items_expected_max();
    }
    return nullptr;
}

/// The end of the level that goes on at a position: behind the next slash, or the path's end. A
/// doubled slash belongs to a name.
std::size_t endOfLevel(const std::string& path, std::size_t from) {
    std::size_t slash = path.find('/', from);
    while (slash != std::string::npos && path.compare(slash, 2, "//") == 0) {
        slash = path.find('/', slash + 2);
    }
    return slash == std::string::npos ? path.size() : slash + 1;
}

/// @param paths in whatever form the word is written, with a leading slash or without
Candidates levelsBelow(const std::vector<std::string>& paths, const std::string& word) {
    Candidates levels;
    for (const std::string& path : paths) {
        if (beginsWith(path, word)) {
            levels.insert(path.substr(0, endOfLevel(path, std::max<std::size_t>(word.size(), 1))));
        }
    }
    const bool isOneLevel = levels.size() == 1 && levels.begin()->back() == '/';
    return isOneLevel && *levels.begin() != word ? levelsBelow(paths, *levels.begin()) : levels;
}

std::vector<std::string> withoutLeadingSlash(std::vector<std::string> paths) {
    for (std::string& path : paths) {
        path.erase(0, 1);
    }
    return paths;
}

Candidates valuesOf(const CLI::Option& argument, const std::string& word, const KnownNames& known) {
    static const std::map<std::string, Candidates> fixed = {
        {"FILE", {anyFile}},
        {"FORMAT", {"json", "xml"}},
        {"OTHER", {anyFile}},
        {"STATE", {"connected", "disconnected"}},
        {"TYPE", {"bool", "int", "string"}},
    };
    const std::string label = labelOf(argument);
    if (label == "PATH") {
        return levelsBelow(known.paths(), word);
    }
    if (label == "CATEGORY[/PATH]") {
        const bool isWhole = beginsWith(word, "/");
        return levelsBelow(isWhole ? known.paths() : withoutLeadingSlash(known.paths()), word);
    }
    if (label == "NAME") {
        const std::vector<std::string> ports = known.ports();
        return {ports.begin(), ports.end()};
    }
    const auto found = fixed.find(label);
    return found != fixed.end() ? found->second : Candidates{};
}

Candidates optionNames(const CLI::App& command) {
    Candidates names;
    for (const CLI::Option* const option : command.get_options()) {
        for (const std::string& name : option->get_lnames()) {
            names.insert("--" + name);
        }
        for (const std::string& name : option->get_snames()) {
            names.insert("-" + name);
        }
    }
    return names;
}

Candidates commandNames(const CLI::App& command) {
    Candidates names;
    for (const CLI::App* const each : command.get_subcommands({})) {
        // A command without a group is not shown to people.
        if (!each->get_group().empty()) {
            names.insert(each->get_name());
        }
    }
    return names;
}

/// The values of "--option=value", with the option before each.
Candidates joinedValues(const CLI::App& command, const std::string& word, std::size_t equals,
                        const KnownNames& known) {
    const CLI::Option* const option = command.get_option_no_throw(word.substr(0, equals));
    Candidates joined;
    if (option != nullptr && takesValue(*option)) {
        for (const std::string& value : valuesOf(*option, "", known)) {
            joined.insert(value == anyFile ? value : word.substr(0, equals + 1) + value);
        }
    }
    return joined;
}

Candidates candidatesAt(const Place& place, const std::string& word, const KnownNames& known) {
    if (place.awaiting() != nullptr) {
        return valuesOf(*place.awaiting(), word, known);
    }
    if (place.mayBeOption() && beginsWith(word, "-")) {
        const std::size_t equals = word.find('=');
        return equals == std::string::npos ? optionNames(place.command())
                                           : joinedValues(place.command(), word, equals, known);
    }
    Candidates candidates = place.mayBeCommand() ? commandNames(place.command()) : Candidates{};
    if (const CLI::Option* const argument = place.positional()) {
        candidates.merge(valuesOf(*argument, word, known));
    }
    return candidates;
}

} // namespace

std::vector<std::string> completions(const CLI::App& app, const std::vector<std::string>& words,
                                     const KnownNames& known) {
    Place place(app);
    for (std::size_t index = 0; index + 1 < words.size(); ++index) {
        place.take(words[index]);
    }
    const std::string last = words.empty() ? "" : words.back();
    const std::string word = place.awaiting() != nullptr && last == "=" ? "" : last;
    std::vector<std::string> fitting;
    for (const std::string& candidate : candidatesAt(place, word, known)) {
        if (candidate == anyFile || beginsWith(candidate, word)) {
            fitting.push_back(candidate);
        }
    }
    return fitting;
}
