#include "Commands.h"
#include "InputDevices.h"
#include "JsonText.h"
#include "Streams.h"
#include "Table.h"

#include <json/value.h>

#include <unistd.h>

#include <map>
#include <memory>

namespace {

const char* const details =
    "State 0 is nothing connected, 1 something connected; HDMI inputs also know 2, and -1 where\n"
    "the set does not tell. USB inputs are the storage devices in the order of their ports.";

const std::map<std::string, Cell>& meanings() {
    static const std::map<std::string, Cell> meanings = {
        {"-1", {"unknown", Tone::Bad}},
        {"0", {"nothing connected", Tone::Faint}},
        {"1", {"connected", Tone::Good}},
        {"2", {"connected", Tone::Good}},
    };
    return meanings;
}

std::string tableOf(const std::vector<InputDevice>& devices) {
    Table table({"INPUT", "STATE", "MEANING", "PRODUCT", "MANUFACTURER"});
    for (const InputDevice& each : devices) {
        const auto meaning = meanings().find(each.state);
        table.add({each.name, each.state, meaning != meanings().end() ? meaning->second : Cell(""),
                   each.product, each.manufacturer});
    }
    return table.text(mayColour(STDOUT_FILENO));
}

std::string jsonOf(const std::vector<InputDevice>& devices) {
    Json::Value list(Json::arrayValue);
    for (const InputDevice& each : devices) {
        Json::Value object;
        object["name"] = each.name;
        object["state"] = each.state;
        object["product"] = each.product;
        object["manufacturer"] = each.manufacturer;
        list.append(object);
    }
    return jsonText(list);
}

} // namespace

void addInputsCommand(CLI::App& app, Command& chosen) {
    CLI::App* const command =
        app.add_subcommand("inputs", "Print the inputs with what is connected to them");
    command->footer(details);
    const auto asJson = std::make_shared<bool>(false);
    command->add_flag("--json", *asJson, "Print JSON instead of a table");
    command->callback([asJson, &chosen] {
        chosen.work = [asJson] {
            const std::vector<InputDevice> devices = inputDevices();
            writeOutput(*asJson ? jsonOf(devices) : tableOf(devices));
            return ExitStatus::Done;
        };
    });
}
