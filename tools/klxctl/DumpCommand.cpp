#include "Arguments.h"
#include "Commands.h"
#include "DocumentFormat.h"
#include "DumpSelection.h"
#include "LibraryDocument.h"
#include "OutputTarget.h"

#include <memory>

namespace {

const char* const details =
    "Without arguments the document holds what the library collects for \"*\": the ten categories\n"
    "Picture, General, Sound, Broadcasting, Factory, Input, Network, SetInformation,\n"
    "SystemInformation and Support. In XML, General brings \"General & Privacy\" along. Connection "
    "is\n"
    "not among them: name it to see it.";

struct DumpArguments {
    std::vector<std::string> selections;
    std::string format = "xml";
    std::string target = "-";
};

/// Only the XML document names every property in full, so selections are checked by that one.
bool asksForUnknown(const DumpSelection& selection, DocumentFormat format,
                    const std::string& document) {
    constexpr DocumentFormat checked = CDeviceInfoManager::DATA_FORMAT_XML;
    return !selection.isEverything() &&
           selection.reportUnknown(
               format == checked ? document : libraryDocument(selection.request(), checked));
}

ExitStatus dump(const DumpArguments& given) {
    const DumpSelection selection(given.selections);
    const DocumentFormat format = formatNamed(given.format);
    std::string document = libraryDocument(selection.request(), format);
    if (asksForUnknown(selection, format, document)) {
        return ExitStatus::WrongUsage;
    }
    // The library's JSON text ends without one.
    if (document.empty() || document.back() != '\n') {
        document += '\n';
    }
    writeTo(given.target, document);
    return ExitStatus::Done;
}

std::string checkTarget(const std::string& name) {
    return name.empty() ? "the file name is empty; write one, or - for standard output" : "";
}

} // namespace

void addDumpCommand(CLI::App& app, Command& chosen) {
    CLI::App* const command =
        app.add_subcommand("dump", "Print the current and default values as one document");
    command->footer(details);
    const auto given = std::make_shared<DumpArguments>();
    addWords(*command, "CATEGORY[/PATH]", given->selections,
             "A category, such as Sound, or a property, such as Picture/Backlight");
    command
        ->add_option("--format", given->format,
                     "Form of the document: " + formatNames() + "; " + given->format +
                         " when not given")
        ->check(checkFormat)
        ->option_text("FORMAT");
    command
        ->add_option("-o,--output", given->target,
                     "File to write the document to, replaced as a whole; - for standard output")
        ->check(checkTarget)
        ->option_text("FILE");
    command->callback([given, &chosen] {
        chosen.work = [given] {
            return dump(*given);
        };
    });
}
