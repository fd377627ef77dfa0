#include "Commands.h"
#include "DeviceInfoManager.h"
#include "FmsValue.h"
#include "Messages.h"
#include "Streams.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <memory>

namespace {

const char* const details =
    "These are the values by which a model of a set is configured: its features. They are no\n"
    "properties and have no paths; a key is a name such as\n"
    "com.velmora/featureconf/product.tv_year.";

const char* const getDetails =
    "Prints the value on a line. The type has to be the one that the set keeps: a text is not "
    "told\n"
    "as a number. An empty text cannot be told from a missing one; both give exit status 1.";

const char* const setDetails =
    "Runs the set's own command, \"fconfigd -s KEY VALUE\", by a shell. Because a shell reads "
    "them,\n"
    "both may hold letters, digits and the characters . _ / : + - only. The key is read again\n"
    "afterwards; exit status 3 tells that the set does not tell the value.";

struct FmsArguments {
    std::string key;
    std::string value;
    std::string type = "int";
};

ExitStatus get(const FmsArguments& given) {
    const std::string value = CDeviceInfoManager::getFMSvalue(given.key, given.type);
    if (value.empty()) {
        throw Failure(ExitStatus::Failed, "the set tells no value of type " + given.type + " for " +
                                              quoted(given.key) +
                                              "; check the key, or name another type by --type");
    }
    writeOutput(value + "\n");
    return ExitStatus::Done;
}

/// While it lives, what is written to standard output goes to standard error: a program that is run
/// writes what it likes, and the tool's own output is data.
class OutputAside {
public:
    OutputAside() : m_output(fcntl(STDOUT_FILENO, F_DUPFD_CLOEXEC, STDERR_FILENO + 1)) {
        if (m_output < 0) {
            throw Failure(ExitStatus::Failed,
                          std::string("cannot keep standard output: ") + std::strerror(errno));
        }
        dup2(STDERR_FILENO, STDOUT_FILENO);
    }
    OutputAside(const OutputAside&) = delete;
    OutputAside& operator=(const OutputAside&) = delete;
    ~OutputAside() {
        dup2(m_output, STDOUT_FILENO);
        close(m_output);
    }

private:
    const int m_output;
};

ExitStatus set(const FmsArguments& given) {
    {
        const OutputAside aside;
        CDeviceInfoManager::setFMSvalue(given.key, given.value);
    }
    if (isFmsHeld(given.key, given.value)) {
        return ExitStatus::Done;
    }
    report(quoted(given.key) + " does not hold " + quoted(given.value) +
           " after it was written; lines of the log tell more (see KLX_LOG)");
    return ExitStatus::NotHeld;
}

std::string checkType(const std::string& name) {
    const bool known = name == "string" || name == "bool" || name == "int";
    return known ? "" : "there is no type " + quoted(name) + "; write string, bool or int";
}

std::string checkKey(const std::string& key) {
    return key.empty() ? "the key is empty; write one such as com.velmora/featureconf/x" : "";
}

using Work = ExitStatus (*)(const FmsArguments&);

void runWhenParsed(CLI::App& command, const std::shared_ptr<FmsArguments>& given, Work work,
                   Command& chosen) {
    command.callback([given, work, &chosen] {
        chosen.work = [given, work] {
            return work(*given);
        };
    });
}

void addGet(CLI::App& fms, Command& chosen) {
    CLI::App* const command = fms.add_subcommand("get", "Print a configured value");
    command->footer(getDetails);
    const auto given = std::make_shared<FmsArguments>();
    command->add_option("KEY", given->key, "Name of the value")
        ->required()
        ->check(checkKey)
        ->option_text(" ");
    command
        ->add_option("--type", given->type,
                     "Type of the value: string, bool or int; " + given->type + " when not given")
        ->check(checkType)
        ->option_text("TYPE");
    runWhenParsed(*command, given, get, chosen);
}

void addSet(CLI::App& fms, Command& chosen) {
    CLI::App* const command = fms.add_subcommand("set", "Change a configured value");
    command->footer(setDetails);
    const auto given = std::make_shared<FmsArguments>();
    command->add_option("KEY", given->key, "Name of the value")
        ->required()
        ->check(mistakeOfFmsText)
        ->option_text(" ");
    command->add_option("VALUE", given->value, "The new value")
        ->required()
        ->check(mistakeOfFmsText)
        ->option_text(" ");
    runWhenParsed(*command, given, set, chosen);
}

} // namespace

void addFmsCommand(CLI::App& app, Command& chosen) {
    CLI::App* const command =
        app.add_subcommand("fms", "Read and change the values that configure the set");
    command->footer(details);
    command->require_subcommand(0, 1);
    addGet(*command, chosen);
    addSet(*command, chosen);
}
