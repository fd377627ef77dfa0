#include "Commands.h"
#include "InputDocument.h"
#include "RestoreReport.h"

#include <algorithm>
#include <memory>

namespace {

const char* const details =
    "Reads what the set holds, has the library apply what differs, and reads again. The report "
    "tells\n"
    "of each property: applied, unchanged, refused, read-only, unknown, malformed, or left alone\n"
    "because the document has no value for it; klxctl(1) has the other words.\n"
    "Exit status 3 tells that not everything is held.\n"
    "FILE is a document of \"klxctl dump\"; - stands for standard input.";

struct FileArguments : RestoreArguments {
    std::string file;
    std::string format;
    bool settingsOnly = false;
};

std::vector<Setting> settingsIn(const SettingsDocument& document, const KnownProperties& known,
                                bool settingsOnly) {
    std::vector<Setting> settings = document.settings();
    const auto isFact = [&known](const Setting& setting) {
        const PropertyDescription* const property = known.find(setting.path);
        return property != nullptr && !property->isWritable;
    };
    if (settingsOnly) {
        settings.erase(std::remove_if(settings.begin(), settings.end(), isFact), settings.end());
    }
    return settings;
}

ExitStatus restoreFile(const FileArguments& given) {
    const SettingsDocument document = readDocument(given.file, given.format);
    const KnownProperties known;
    const Wishes wishes = [&document, &known, &given] {
        return settingsIn(document, known, given.settingsOnly);
    };
    return restoreAndTell(known, document.format(), wishes, given, "the document has no value");
}

} // namespace

void addRestoreCommand(CLI::App& app, Command& chosen) {
    CLI::App* const command =
        app.add_subcommand("restore", "Bring the set to hold the values of a document");
    command->footer(details);
    const auto given = std::make_shared<FileArguments>();
    command->add_option("FILE", given->file, "The document; - for standard input")
        ->required()
        ->check(checkInputName)
        ->option_text(" ");
    command
        ->add_option("--format", given->format,
                     "Form of the document: " + formatNames() + "; guessed when not given")
        ->check(checkFormat)
        ->option_text("FORMAT");
    command->add_flag("--settings-only", given->settingsOnly,
                      "Leave out what is read-only, as for a document of another set");
    addRestoreOptions(*command, *given);
    command->callback([given, &chosen] {
        chosen.work = [given] {
            return restoreFile(*given);
        };
    });
}
