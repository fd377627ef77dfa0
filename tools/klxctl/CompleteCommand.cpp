#include "Arguments.h"
#include "Commands.h"
#include "Completion.h"
#include "DeviceInfoManager.h"
#include "InputDevices.h"
#include "Streams.h"

#include <memory>

namespace {

const char* const details = "For the completion of shells: prints what the last WORD behind "
                            "\"klxctl\" could become, one a\n"
                            "line. The line \":file\" stands for the names of files.";

/// Reads no property, so that it takes no longer than somebody can press a key.
std::vector<std::string> propertyPaths() {
    std::vector<PropertyDescription> properties;
    CDeviceInfoManager::DescribeProperties(properties);
    std::vector<std::string> paths;
    paths.reserve(properties.size());
    for (const PropertyDescription& property : properties) {
        paths.push_back(property.path);
    }
    return paths;
}

ExitStatus complete(const CLI::App& app, const std::vector<std::string>& words) {
    std::string lines;
    for (const std::string& candidate : completions(app, words, {propertyPaths, portNames})) {
        lines += candidate + "\n";
    }
    writeOutput(lines);
    return ExitStatus::Done;
}

} // namespace

void addCompleteCommand(CLI::App& app, Command& chosen) {
    CLI::App* const command =
        app.add_subcommand("complete", "Print what the last of some words could become");
    command->footer(details);
    // Not shown among the commands, which people type.
    command->group("");
    const auto words = std::make_shared<std::vector<std::string>>();
    addWords(*command, "WORD", *words, R"(A word as it would follow "klxctl"; write "--" first)");
    command->callback([words, &app, &chosen] {
        chosen.work = [words, &app] {
            return complete(app, *words);
        };
    });
}
