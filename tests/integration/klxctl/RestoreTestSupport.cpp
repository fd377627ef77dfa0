#include "RestoreTest.h"

#include <sstream>

std::string Report::of(const std::string& path, const std::string& member) const {
    for (const Json::Value& entry : root["properties"]) {
        if (entry["path"] == path) {
            return entry[member].asString();
        }
    }
    return "";
}

Report reportIn(const Outcome& outcome) {
    return {outcome.status, outcome.messages, jsonFrom(outcome.output)};
}

std::string RestoreTest::fileOf(const std::string& document) const {
    const std::filesystem::path file = outputFolder() / "document";
    writeFile(file, document);
    return file;
}

Report RestoreTest::report(std::vector<std::string> arguments) const {
    arguments.emplace_back("--json");
    return reportIn(run(arguments));
}

Report RestoreTest::restore(const std::string& document, const std::string& option) const {
    std::vector<std::string> arguments = {"restore", fileOf(document)};
    if (!option.empty()) {
        arguments.push_back(option);
    }
    return report(arguments);
}

ToolRun RestoreTest::toolOverDisk(const std::string& behaviour) const {
    // A store that exists already is not brought to the disk when it is opened.
    run({"get", mute});
    return tool()
        .environment("LD_PRELOAD", KLXCTL_FAULTY_DISK)
        .environment("KLXCTL_TEST_FSYNC", behaviour + " in " + stateFolder().string())
        .environment("ASAN_OPTIONS", sanitizerOptions);
}

Json::Value jsonFrom(const std::string& text) {
    Json::Value root;
    std::istringstream stream(text);
    std::string errors;
    EXPECT_TRUE(Json::parseFromStream(Json::CharReaderBuilder(), stream, &root, &errors))
        << errors << text;
    return root;
}

std::string jsonOf(const std::string& menu, const std::vector<std::vector<std::string>>& values) {
    Json::Value root;
    for (const std::vector<std::string>& pair : values) {
        root[menu][pair[0]]["Value"] = pair[1];
    }
    return Json::writeString(Json::StreamWriterBuilder(), root);
}

std::string xmlOf(const std::string& elements) {
    return "<?xml version=\"1.0\" encoding=\"utf-8\"?>\n<rm_as version=\"2.5\">\n"
           "  <deviceInfo devicetype=\"TV\">" +
           elements + "</deviceInfo>\n</rm_as>\n";
}
