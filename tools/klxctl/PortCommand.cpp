#include "Commands.h"
#include "InputDevices.h"
#include "Messages.h"
#include "NearestNames.h"
#include "PropertyAccess.h"

#include <vconf.h>

#include <algorithm>
#include <cctype>
#include <map>
#include <memory>

namespace {

const char* const details =
    "Plays a cable on the machine that stands in for a set: NAME is an input of \"klxctl "
    "inputs\",\n"
    "STATE is the state that it shall show, 0 for nothing connected or 1 for something connected;\n"
    "HDMI inputs also take 2. The words disconnected and connected stand for 0 and 1. USB inputs\n"
    "show what is plugged into the machine and cannot be set. States last until the machine is\n"
    "restarted.";

struct PortArguments {
    std::string name;
    std::string state;
};

void requirePort(const std::string& name) {
    if (isUsb(name)) {
        throw Failure(ExitStatus::WrongUsage,
                      quoted(name) + " shows what is plugged into this machine and cannot be set; "
                                     "write an HDMI, AV, COMP or SCART input");
    }
    const std::vector<std::string> names = portNames();
    if (std::find(names.begin(), names.end(), name) == names.end()) {
        throw Failure(ExitStatus::WrongUsage,
                      unknownName("port", name, nearestNames(name, names), "klxctl inputs"));
    }
}

/// The number that stands in the store for a state that the input shall show: HDMI counts the
/// other way round there.
int storedState(const PortArguments& given) {
    static const std::map<std::string, int> shown = {
        {"0", 0}, {"disconnected", 0}, {"1", 1}, {"connected", 1}, {"2", 2}};
    const bool isHdmi = given.name.rfind("HDMI", 0) == 0;
    const auto state = shown.find(given.state);
    if (state == shown.end() || (state->second == 2 && !isHdmi)) {
        throw Failure(ExitStatus::WrongUsage,
                      given.name + " has no state " + quoted(given.state) +
                          "; write 0 (disconnected)" +
                          (isHdmi ? ", 1 (connected) or 2" : " or 1 (connected)"));
    }
    return isHdmi ? 2 - state->second : state->second;
}

std::string keyOf(const std::string& name) {
    std::string key = "memory/sysman/";
    for (const char character : name) {
        key += static_cast<char>(std::tolower(static_cast<unsigned char>(character)));
    }
    return key;
}

ExitStatus setPort(const PortArguments& given) {
    requirePort(given.name);
    const int stored = storedState(given);
    if (vconf_set_int(keyOf(given.name).c_str(), stored) != 0) {
        throw Failure(ExitStatus::Failed, "the state of " + given.name +
                                              " could not be stored; the lines above tell why");
    }
    return ExitStatus::Done;
}

} // namespace

void addPortCommand(CLI::App& app, Command& chosen) {
    CLI::App* const command =
        app.add_subcommand("port", "Play something that is connected to an input, or nothing");
    command->footer(details);
    const auto given = std::make_shared<PortArguments>();
    command->add_option("NAME", given->name, "Name of an input, such as HDMI1")
        ->required()
        ->option_text(" ");
    command->add_option("STATE", given->state, "The state that it shall show")
        ->required()
        ->option_text(" ");
    command->callback([given, &chosen] {
        chosen.work = [given] {
            return setPort(*given);
        };
    });
}
