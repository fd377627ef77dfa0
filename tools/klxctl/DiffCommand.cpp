#include "Commands.h"
#include "DocumentDifference.h"
#include "InputDocument.h"
#include "JsonText.h"
#include "LibraryDocument.h"
#include "Messages.h"
#include "PathParts.h"
#include "Progress.h"
#include "PropertyReading.h"
#include "Streams.h"
#include "Table.h"

#include <json/value.h>
#include <unistd.h>

#include <algorithm>
#include <memory>

namespace {

const char* const details =
    "Compares a document with what the set holds now, or two documents with each other; each may "
    "be\n"
    "XML or JSON. The set is asked for what the document tells of, and for nothing else. Exit "
    "status:\n"
    "0 no difference, 1 differences, 2 wrong arguments or trouble.";

struct DiffArguments {
    std::string file;
    std::string other; // "" for the set
    bool asJson = false;
};

/// What the set holds, in a document of the same form, which may show less than single reads do.
std::vector<Setting> settingsOfSet(const SettingsDocument& likeness, const KnownProperties& known) {
    Progress progress;
    progress.tell("reading the set");
    DocumentRequest request;
    for (const Setting& setting : likeness.settings()) {
        const std::optional<PathParts> parts = partsOf(setting.path);
        if (parts && known.find(setting.path) != nullptr) {
            request[parts->category].push_back(parts->rest);
        }
    }
    const DocumentFormat format = likeness.format();
    return SettingsDocument::parse(libraryDocument(request, format), format).settings();
}

/// A document of the set's cannot show every byte of a text; the set itself can tell it.
void dropWhatIsHeld(std::vector<Difference>& differences, const KnownProperties& known) {
    const auto isHeld = [&known](const Difference& difference) {
        const PropertyDescription* const property = known.find(difference.path);
        const std::optional<std::string>& wanted = difference.first.value;
        return property != nullptr && property->isText && wanted &&
               readingOf(difference.path).value == *wanted;
    };
    differences.erase(std::remove_if(differences.begin(), differences.end(), isHeld),
                      differences.end());
}

Cell cellOf(const Side& side) {
    if (side.value) {
        return quoted(*side.value);
    }
    if (side.isMalformed) {
        return {"(malformed)", Tone::Faint};
    }
    return {side.isPresent ? "(no value)" : "(not there)", Tone::Faint};
}

std::string textOf(const std::vector<Difference>& differences, const std::string& firstName,
                   const std::string& secondName) {
    Table table({"PROPERTY", firstName, secondName});
    for (const Difference& difference : differences) {
        table.add({difference.path, cellOf(difference.first), cellOf(difference.second)});
    }
    return table.isEmpty() ? "" : table.text(mayColour(STDOUT_FILENO));
}

void addSide(Json::Value& entry, const char* name, const Side& side) {
    if (side.isPresent) {
        entry[name] = side.value ? Json::Value(*side.value) : Json::Value();
        if (side.isMalformed) {
            entry["malformed"].append(name);
        }
    }
}

std::string jsonOf(const std::vector<Difference>& differences) {
    Json::Value root;
    root["differences"] = Json::Value(Json::arrayValue);
    for (const Difference& difference : differences) {
        Json::Value entry;
        entry["path"] = difference.path;
        addSide(entry, "first", difference.first);
        addSide(entry, "second", difference.second);
        root["differences"].append(entry);
    }
    return jsonText(root);
}

ExitStatus diff(const DiffArguments& given) {
    const bool isWithSet = given.other.empty();
    if (given.file == "-" && given.other == "-") {
        throw Failure(ExitStatus::Trouble, "standard input can be read but once");
    }
    const SettingsDocument first = readDocument(given.file);
    const KnownProperties known;
    const std::vector<Setting> second =
        isWithSet ? settingsOfSet(first, known) : readDocument(given.other).settings();
    auto differences = differencesBetween(first.settings(), second, known);
    if (isWithSet) {
        dropWhatIsHeld(differences, known);
    }
    writeOutput(given.asJson ? jsonOf(differences)
                             : textOf(differences, documentName(given.file),
                                      isWithSet ? "the set" : documentName(given.other)));
    return differences.empty() ? ExitStatus::Done : ExitStatus::Different;
}

} // namespace

void addDiffCommand(CLI::App& app, Command& chosen) {
    CLI::App* const command =
        app.add_subcommand("diff", "Compare a document with the set, or two documents");
    command->footer(details);
    const auto given = std::make_shared<DiffArguments>();
    command->add_option("FILE", given->file, "A document; - for standard input")
        ->required()
        ->check(checkInputName)
        ->option_text(" ");
    command->add_option("OTHER", given->other, "A second one; the set when not given")
        ->check(checkInputName)
        ->option_text(" ");
    command->add_flag("--json", given->asJson, "Print the differences as JSON");
    command->callback([given, &chosen] {
        chosen.onFailure = ExitStatus::Trouble;
        chosen.work = [given] {
            return diff(*given);
        };
    });
}
