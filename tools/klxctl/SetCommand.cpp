#include "Commands.h"
#include "KnownProperties.h"
#include "Messages.h"
#include "PropertyAccess.h"
#include "SettingValue.h"

#include <memory>

namespace {

const char* const details =
    "Values are text: integers in decimal, flags as 1 or 0, enumerations as their number. The\n"
    "property is read again afterwards; exit status 3 tells that the set does not hold the value.\n"
    "Write \"--\" before a VALUE that begins with a hyphen and is no number.";

/// Not when that cannot be told.
bool isReadOnly(const std::string& path) {
    try {
        const KnownProperties known;
        const PropertyDescription* const property = known.find(path);
        return property != nullptr && !property->isWritable;
    } catch (const std::exception&) {
        return false;
    }
}

std::string notHeld(const std::string& path, const std::string& asked, const std::string& told,
                    bool unchanged) {
    std::string message =
        quoted(path) + " does not hold " + quoted(asked) + ": it holds " + quoted(told);
    if (!unchanged) {
        return message;
    }
    return message + " as before; " +
           (isReadOnly(path)
                ? "it is read-only"
                : "the set does not take this value; with KLX_LOG=debug lines of the log "
                  "may tell why");
}

ExitStatus set(const std::string& path, const std::string& value) {
    const std::optional<std::string> before = readProperty(path);
    if (!before) {
        reportUnknownPaths({path});
        return ExitStatus::WrongUsage;
    }
    writeProperty(path, value);
    const std::string after = readProperty(path).value_or("");
    if (isHeld(value, after)) {
        return ExitStatus::Done;
    }
    report(notHeld(path, value, after, after == *before));
    return ExitStatus::NotHeld;
}

} // namespace

void addSetCommand(CLI::App& app, Command& chosen) {
    CLI::App* const command = app.add_subcommand("set", "Change the value of a property");
    command->footer(details);
    struct Arguments {
        std::string path;
        std::string value;
    };
    const auto given = std::make_shared<Arguments>();
    command
        ->add_option("PATH", given->path, "Full path of the property, such as /Picture/Backlight")
        ->required()
        ->option_text(" ");
    command->add_option("VALUE", given->value, "The new value")->required()->option_text(" ");
    command->callback([given, &chosen] {
        chosen.work = [given] {
            return set(given->path, given->value);
        };
    });
}
