#include "JsonSettings.h"

#include "ExitStatus.h"
#include "PathParts.h"

#include <json/reader.h>
#include <json/value.h>
#include <json/writer.h>

#include <memory>

namespace {

// Its properties stand one level deeper, a device each.
const std::string sourceConnect = "Source_Connect";

std::string oneLine(std::string text) {
    text.erase(text.find_last_not_of('\n') + 1);
    for (char& character : text) {
        character = character == '\n' ? ' ' : character;
    }
    return text;
}

Json::Value parsed(const std::string& text) {
    // With the settings that the library reads with, so that both understand the same, but for what
    // stands behind the document: the library reads over it, and a second document would be lost.
    Json::CharReaderBuilder settings;
    settings["failIfExtra"] = true;
    const std::unique_ptr<Json::CharReader> reader(settings.newCharReader());
    Json::Value root;
    std::string errors;
    try {
        if (!reader->parse(text.data(), text.data() + text.size(), &root, &errors)) {
            throw Failure(ExitStatus::Failed, "it is not well-formed JSON: " + oneLine(errors));
        }
    } catch (const Json::Exception& error) {
        throw Failure(ExitStatus::Failed,
                      std::string("it is not well-formed JSON: ") + oneLine(error.what()));
    }
    return root;
}

Setting settingOf(const std::string& path, const Json::Value& node) {
    if (!node.isObject()) {
        return {path, std::nullopt, true};
    }
    const Json::Value& value = node["Value"];
    if (value.isNull()) {
        return {path, std::nullopt};
    }
    if (!value.isConvertibleTo(Json::stringValue)) {
        return {path, std::nullopt, true};
    }
    return {path, value.asString()};
}

void collectProperty(const std::string& path, const std::string& name, const Json::Value& node,
                     std::vector<Setting>& settings) {
    if (name != sourceConnect || !node.isObject()) {
        settings.push_back(settingOf(path, node));
        return;
    }
    for (const std::string& device : node.getMemberNames()) {
        settings.push_back(settingOf(path + "/" + device, node[device]));
    }
}

void collectMenu(const std::string& path, const Json::Value& menu, std::vector<Setting>& settings) {
    if (!menu.isObject()) {
        settings.push_back({path, std::nullopt, true});
        return;
    }
    for (const std::string& name : menu.getMemberNames()) {
        collectProperty(path + "/" + name, name, menu[name], settings);
    }
}

} // namespace

std::vector<Setting> jsonSettings(const std::string& text) {
    const Json::Value root = parsed(text);
    // The library's document without any property is null.
    if (!root.isObject() && !root.isNull()) {
        throw Failure(ExitStatus::Failed, "it is no document of a set: its root is no object");
    }
    std::vector<Setting> settings;
    for (const std::string& menu : root.getMemberNames()) {
        collectMenu("/" + menu, root[menu], settings);
    }
    return settings;
}

std::string jsonDocumentOf(const std::vector<Assignment>& assignments) {
    Json::Value root(Json::objectValue);
    for (const Assignment& assignment : assignments) {
        if (const std::optional<PathParts> parts = partsOf(assignment.path)) {
            root[parts->category][parts->rest]["Value"] = assignment.value;
        }
    }
    Json::StreamWriterBuilder writer;
    writer["indentation"] = "";
    // Bytes stay as they are, also where they are not UTF-8.
    writer["emitUTF8"] = true;
    return Json::writeString(writer, root);
}
