#include "Arguments.h"
#include "Commands.h"
#include "JsonText.h"
#include "PropertyList.h"
#include "Streams.h"
#include "Table.h"

#include <json/value.h>

#include <unistd.h>

#include <algorithm>
#include <memory>

namespace {

const char* const details =
    "A setting is changed when its value differs from its default; what cannot be written never "
    "is.\n"
    "An empty default is none to differ from. Values come from the set as the command runs: a\n"
    "number that cannot be read is told as 0, or as nothing, and the log has a line about it.\n"
    "With --json, an array of objects is printed; \"default\" is null where there is none.";

struct ListArguments {
    std::vector<std::string> categories;
    bool changedOnly = false;
    bool writableOnly = false;
    bool asJson = false;
};

std::string tableOf(const std::vector<ListedProperty>& properties) {
    Table table({"PROPERTY", "VALUE", "DEFAULT", "DIFFERS", "WRITABLE"});
    for (const ListedProperty& each : properties) {
        const bool isChanged = each.isChanged();
        const Tone tone = !each.isWritable ? Tone::Faint : isChanged ? Tone::Good : Tone::Plain;
        table.add({each.path,
                   {each.value, tone},
                   {each.defaultValue.value_or(""), Tone::Faint},
                   {each.differs ? "yes" : "", tone},
                   {each.isWritable ? "yes" : "no", tone}});
    }
    return table.text(mayColour(STDOUT_FILENO));
}

std::string jsonOf(const std::vector<ListedProperty>& properties) {
    Json::Value list(Json::arrayValue);
    for (const ListedProperty& each : properties) {
        Json::Value object;
        object["path"] = each.path;
        object["value"] = each.value;
        object["default"] = each.defaultValue ? Json::Value(*each.defaultValue) : Json::Value();
        object["differs"] = each.differs;
        object["changed"] = each.isChanged();
        object["writable"] = each.isWritable;
        object["flag"] = each.flag;
        list.append(object);
    }
    return jsonText(list);
}

template <class Items, class Predicate>
void keepOnly(Items& items, Predicate isWanted) {
    items.erase(std::remove_if(items.begin(), items.end(),
                               [&isWanted](const auto& each) { return !isWanted(each); }),
                items.end());
}

ExitStatus list(const ListArguments& given) {
    const KnownProperties known;
    std::vector<const PropertyDescription*> selected = selectedProperties(known, given.categories);
    if (given.writableOnly || given.changedOnly) {
        keepOnly(selected, [](const PropertyDescription* each) { return each->isWritable; });
    }
    std::vector<ListedProperty> properties = listedProperties(selected);
    if (given.changedOnly) {
        keepOnly(properties, [](const ListedProperty& each) { return each.isChanged(); });
    }
    writeOutput(given.asJson ? jsonOf(properties) : tableOf(properties));
    return ExitStatus::Done;
}

} // namespace

void addListCommand(CLI::App& app, Command& chosen) {
    CLI::App* const command =
        app.add_subcommand("list", "Print properties in one table, with their defaults");
    command->footer(details);
    const auto given = std::make_shared<ListArguments>();
    addWords(*command, "CATEGORY[/PATH]", given->categories,
             "A category, such as Sound, or a menu in it, such as \"Picture/Expert Settings\"; all "
             "when not given");
    command->add_flag("--changed", given->changedOnly,
                      "Print settings only that have another value than their default");
    command->add_flag("--writable", given->writableOnly, "Print what can be written only");
    command->add_flag("--json", given->asJson, "Print JSON instead of a table");
    command->callback([given, &chosen] {
        chosen.work = [given] {
            return list(*given);
        };
    });
}
