#include "Arguments.h"
#include "Commands.h"
#include "PropertyAccess.h"
#include "Streams.h"

#include <memory>

namespace {

const char* const details =
    "Prints the value of each property, one a line; of several, each behind its path and a tab.\n"
    "An empty value means that the set gives none. When some of the paths are unknown, the others\n"
    "are printed all the same.";

ExitStatus get(const std::vector<std::string>& paths) {
    std::vector<std::string> unknown;
    for (const std::string& path : paths) {
        const std::optional<std::string> value = readProperty(path);
        if (value) {
            writeOutput((paths.size() > 1 ? path + "\t" : "") + *value + "\n");
        } else {
            unknown.push_back(path);
        }
    }
    if (unknown.empty()) {
        return ExitStatus::Done;
    }
    reportUnknownPaths(unknown);
    return ExitStatus::WrongUsage;
}

} // namespace

void addGetCommand(CLI::App& app, Command& chosen) {
    CLI::App* const command = app.add_subcommand("get", "Print the values of properties");
    command->footer(details);
    const auto paths = std::make_shared<std::vector<std::string>>();
    addWords(*command, "PATH", *paths, "Full path of a property, such as /Picture/Backlight")
        ->required();
    command->callback([paths, &chosen] {
        chosen.work = [paths] {
            return get(*paths);
        };
    });
}
