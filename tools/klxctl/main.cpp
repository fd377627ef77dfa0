#include "Commands.h"
#include "Messages.h"
#include "NearestNames.h"
#include "PropertyAccess.h"
#include "Streams.h"

#include <CLI/CLI.hpp>

#include <exception>
#include <new>

namespace {

const char* const details =
    "\"klxctl COMMAND --help\" tells more about a command.\n\n"
    "Exit status: 0 done, 1 the operation failed, 2 wrong arguments or unknown path, 3 the set "
    "does\n"
    "not hold the value that was written. Lines of the platform's log go to standard error; "
    "KLX_LOG\n"
    "(debug, info, warning, error, off) sets which. The manual page klxctl(1) has the rest.";

void declare(CLI::App& app, Command& chosen) {
    app.set_help_flag("-h,--help", "Print this help and exit");
    app.set_version_flag("--version", "klxctl " KLXCTL_VERSION, "Print the version and exit");
    app.footer(details);
    app.require_subcommand(0, 1);
    addGetCommand(app, chosen);
    addSetCommand(app, chosen);
    addDumpCommand(app, chosen);
    addListCommand(app, chosen);
    addInputsCommand(app, chosen);
#ifdef KLXCTL_PLAYS_PORTS
    addPortCommand(app, chosen);
#endif
    addStatCommand(app, chosen);
    addFmsCommand(app, chosen);
    addRestoreCommand(app, chosen);
    addResetCommand(app, chosen);
    addDiffCommand(app, chosen);
    addCompleteCommand(app, chosen);
}

/// The command that the arguments name, or the tool itself when they name none.
const CLI::App& namedCommand(const CLI::App& app) {
    const auto commands = app.get_subcommands();
    return commands.empty() ? app : namedCommand(*commands.front());
}

std::string commandLine(const CLI::App& command) {
    const CLI::App* const parent = command.get_parent();
    return (parent != nullptr ? commandLine(*parent) + " " : "") + command.get_name();
}

/// The commands that can follow.
std::vector<std::string> commandsOf(const CLI::App& command) {
    std::vector<std::string> names;
    for (const CLI::App* const each : command.get_subcommands({})) {
        if (!each->get_group().empty()) {
            names.push_back(each->get_name());
        }
    }
    return names;
}

/// The same as text: "get, set or dump".
std::string commandNames(const CLI::App& command) {
    const std::vector<std::string> commands = commandsOf(command);
    std::string names;
    for (const std::string& each : commands) {
        const char* const separator = &each == &commands.back() ? " or " : ", ";
        names += (names.empty() ? "" : separator) + each;
    }
    return names;
}

[[noreturn]] void failUsage(const CLI::App& app, const std::string& message) {
    throw Failure(ExitStatus::WrongUsage, message + "\nSee \"" + commandLine(namedCommand(app)) +
                                              " --help\" for what can be written.");
}

/// An option without its value, or with several.
std::string explained(const CLI::ArgumentMismatch& error) {
    std::string message = error.what();
    const std::size_t end = message.find(": ");
    if (end == std::string::npos) {
        return message;
    }
    const bool isMissing = message.find("missing") != std::string::npos;
    return message.substr(0, end) +
           (isMissing ? " needs a value behind it" : " may be given once only");
}

/// A value such as "-x" is taken for an option and then missing.
std::string explained(const CLI::App& app, const CLI::ParseError& error) {
    if (const auto* const mismatch = dynamic_cast<const CLI::ArgumentMismatch*>(&error)) {
        return explained(*mismatch);
    }
    const std::vector<std::string> surplus = app.remaining(true);
    const CLI::App& command = namedCommand(app);
    const bool isCommandMissing = !command.get_subcommands({}).empty();
    if (isCommandMissing && !surplus.empty() && surplus.front().compare(0, 1, "-") != 0) {
        return unknownName("command", surplus.front(),
                           nearestNames(surplus.front(), commandsOf(command)),
                           commandLine(command) + " --help");
    }
    const bool isMissing = dynamic_cast<const CLI::RequiredError*>(&error) != nullptr;
    if (!isMissing || surplus.empty()) {
        return error.what();
    }
    return std::string(error.what()) + "; " + quoted(surplus.front()) +
           " is no option here: if it is meant as a value, write \"--\" before it";
}

ExitStatus run(int argc, char** argv, Command& chosen) {
    CLI::App app("Read and change a television's settings and device information", "klxctl");
    declare(app, chosen);
    try {
        app.parse(argc, argv);
    } catch (const CLI::CallForHelp&) {
        writeOutput(app.help());
        return ExitStatus::Done;
    } catch (const CLI::CallForVersion& version) {
        writeOutput(std::string(version.what()) + "\n");
        return ExitStatus::Done;
    } catch (const CLI::ParseError& error) {
        failUsage(app, explained(app, error));
    }
    if (!chosen.work) {
        failUsage(app, "no command is given; write " + commandNames(namedCommand(app)));
    }
    return chosen.work();
}

} // namespace

int main(int argc, char** argv) {
    Command chosen;
    ExitStatus status = ExitStatus::Failed;
    try {
        reserveStandardStreams();
        status = run(argc, argv, chosen);
        closeOutput();
    } catch (const Failure& failure) {
        report(failure.what());
        status = failure.status() == ExitStatus::Failed ? chosen.onFailure : failure.status();
    } catch (const std::bad_alloc&) {
        report("there is not enough memory for this");
        status = chosen.onFailure;
    } catch (const std::exception& error) {
        report(error.what());
        status = chosen.onFailure;
    }
    return static_cast<int>(status);
}
