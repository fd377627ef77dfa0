#include "Arguments.h"
#include "Commands.h"
#include "LibraryDocument.h"
#include "Messages.h"
#include "NearestNames.h"
#include "PathParts.h"
#include "PropertyAccess.h"
#include "RestoreReport.h"
#include "XmlReading.h"
#include "XmlSettings.h"

#include <algorithm>
#include <memory>
#include <set>

namespace {

const char* const details =
    "Sets properties to their defaults and reports as \"klxctl restore\" does. PATH is a property "
    "or a\n"
    "menu, such as /Picture or /Sound/Mute; a menu stands for all settings below it, and for "
    "nothing\n"
    "else: /General does not stand for \"/General & Privacy\".";

struct ResetArguments : RestoreArguments {
    std::vector<std::string> words;
    bool isAll = false;
};

std::string pathOf(std::string word) {
    if (!word.empty() && word.back() == '/') {
        word.pop_back();
    }
    return word.compare(0, 1, "/") == 0 ? word : "/" + word;
}

bool isWritable(const PropertyDescription* property) {
    return property->isWritable;
}

void addWritable(const std::vector<const PropertyDescription*>& properties,
                 std::set<std::string>& paths) {
    for (const PropertyDescription* const property : properties) {
        if (isWritable(property)) {
            paths.insert(property->path);
        }
    }
}

/// The names of everything that can be written after "reset".
std::vector<std::string> namesIn(const KnownProperties& known) {
    std::set<std::string> names;
    for (const std::string& path : known.paths()) {
        std::string name;
        for (const std::string& segment : segmentsOf(path)) {
            name += pathSegment(segment);
            names.insert(name);
        }
    }
    return {names.begin(), names.end()};
}

/// @return false when there is no such property or menu, which people are told
bool addWord(const std::string& word, const KnownProperties& known, std::set<std::string>& paths) {
    const std::string path = pathOf(word);
    const std::vector<const PropertyDescription*> properties = known.below(path);
    if (properties.empty()) {
        report(unknownName("property or menu", path, nearestNames(path, namesIn(known))));
        return false;
    }
    const bool isSetting = known.find(path) != nullptr;
    if (!isSetting && std::none_of(properties.begin(), properties.end(), isWritable)) {
        throw Failure(ExitStatus::WrongUsage, "nothing below " + quoted(path) + " can be written");
    }
    addWritable(properties, paths);
    if (isSetting) {
        paths.insert(path);
    }
    return true;
}

std::set<std::string> selected(const ResetArguments& given, const KnownProperties& known) {
    std::set<std::string> paths;
    if (given.isAll) {
        addWritable(known.below(""), paths);
    }
    bool isKnown = true;
    for (const std::string& word : given.words) {
        isKnown = addWord(word, known, paths) && isKnown;
    }
    if (!isKnown) {
        throw Failure(ExitStatus::WrongUsage, "nothing was reset");
    }
    return paths;
}

std::vector<Setting> defaultsOf(const std::set<std::string>& paths) {
    DocumentRequest request;
    for (const std::string& path : paths) {
        if (const std::optional<PathParts> parts = partsOf(path)) {
            request[parts->category].push_back(parts->rest);
        }
    }
    return xmlSettings(libraryDocument(request, CDeviceInfoManager::DATA_FORMAT_XML), "default");
}

/// A menu may have settings without a default; a property that is named may not.
void requireDefaults(const ResetArguments& given, const KnownProperties& known,
                     const std::vector<Setting>& defaults) {
    for (const std::string& word : given.words) {
        const auto found = std::find_if(
            defaults.begin(), defaults.end(),
            [path = pathOf(word)](const Setting& setting) { return setting.path == path; });
        if (found != defaults.end() && !overwrites(*found, *known.find(found->path))) {
            throw Failure(ExitStatus::WrongUsage,
                          "the set tells no default for " + quoted(found->path));
        }
    }
}

ExitStatus reset(const ResetArguments& given) {
    if (given.isAll == !given.words.empty()) {
        throw Failure(ExitStatus::WrongUsage, "write either what is to be reset or --all");
    }
    const KnownProperties known;
    const std::set<std::string> paths = selected(given, known);
    requireDefaults(given, known, defaultsOf(paths));
    const Wishes wishes = [&paths] {
        return defaultsOf(paths);
    };
    return restoreAndTell(known, CDeviceInfoManager::DATA_FORMAT_XML, wishes, given,
                          "the set tells no default");
}

} // namespace

void addResetCommand(CLI::App& app, Command& chosen) {
    CLI::App* const command = app.add_subcommand("reset", "Set properties to their defaults");
    command->footer(details);
    const auto given = std::make_shared<ResetArguments>();
    addWords(*command, "PATH", given->words, "A property or a menu, such as /Picture/Backlight");
    command->add_flag("--all", given->isAll, "Reset every setting");
    addRestoreOptions(*command, *given);
    command->callback([given, &chosen] {
        chosen.work = [given] {
            return reset(*given);
        };
    });
}
