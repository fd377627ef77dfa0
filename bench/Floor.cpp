#include "Floor.h"

#include <dlog.h>
#include <json/json.h>
#include <libxml/parser.h>
#include <libxml/tree.h>
#include <pelm.h>
#include <vconf.h>

#include <cstdlib>
#include <memory>
#include <stdexcept>

namespace floors {

namespace {

using Document = std::unique_ptr<xmlDoc, decltype(&xmlFreeDoc)>;

const xmlChar* xmlText(const char* text) {
    return reinterpret_cast<const xmlChar*>(text);
}

template <class... Arguments>
void log(int priority, const char* format, Arguments... arguments) {
    __dlog_print(DLOG_ID_MAIN, priority, "KLX", format, "Floor.cpp", "log", 1, arguments...);
}

std::string owned(char* text) {
    const std::unique_ptr<char, decltype(&std::free)> holder(text, &std::free);
    return text != nullptr ? text : "";
}

std::string read(const Setting& setting) {
    int number = 0;
    switch (setting.type) {
    case integerValue:
        vconf_get_int(setting.key, &number);
        return std::to_string(number);
    case booleanValue:
        vconf_get_bool(setting.key, &number);
        return std::to_string(number);
    default:
        return owned(vconf_get_str(setting.key));
    }
}

std::string readDefault(const Setting& setting) {
    int type = setting.type;
    char* text = nullptr;
    get_vconf_key_default_value(setting.key, &type, &text);
    return owned(text);
}

void write(const Setting& setting, const std::string& value) {
    switch (setting.type) {
    case integerValue:
        vconf_set_int(setting.key, std::stoi(value));
        return;
    case booleanValue:
        vconf_set_bool(setting.key, std::stoi(value));
        return;
    default:
        vconf_set_str(setting.key, value.c_str());
    }
}

void logRestoring(const std::string& value) {
    for (const Setting& setting : settings()) {
        log(DLOG_INFO, "%s: %s(%d) > Restoring value of %s to %s", setting.path, value.c_str());
    }
}

std::string pathOf(const Setting& setting) {
    return std::string("/") + setting.category + "/" + setting.path;
}

const Setting* settingAt(const std::string& path) {
    for (const Setting& setting : settings()) {
        if (pathOf(setting) == path) {
            return &setting;
        }
    }
    return nullptr;
}

void collect(xmlNodePtr first, std::size_t depth, const std::string& prefix,
             std::vector<Element>& elements) {
    for (xmlNodePtr node = first; node != nullptr; node = node->next) {
        if (node->type != XML_ELEMENT_NODE) {
            continue;
        }
        xmlChar* const attribute = xmlGetProp(node, xmlText("name"));
        const std::string name = reinterpret_cast<const char*>(attribute);
        xmlFree(attribute);
        const std::string path = prefix + "/" + name;
        elements.push_back(
            {depth, reinterpret_cast<const char*>(node->name), name, settingAt(path)});
        collect(node->children, depth + 1, path, elements);
    }
}

Document parsedDocument(const std::string& document) {
    Document parsed(
        xmlReadMemory(document.data(), static_cast<int>(document.size()), "document", nullptr, 0),
        &xmlFreeDoc);
    if (!parsed) {
        throw std::runtime_error("the library's document cannot be read");
    }
    return parsed;
}

std::string serialised(xmlDocPtr document) {
    xmlChar* text = nullptr;
    int size = 0;
    xmlDocDumpFormatMemoryEnc(document, &text, &size, "utf-8", 1);
    std::string result(reinterpret_cast<const char*>(text), static_cast<std::size_t>(size));
    xmlFree(text);
    return result;
}

template <class Read>
std::string get(const char* category, const char* path, Read readValue) {
    log(DLOG_INFO, "%s: %s(%d) > GetDevicePropValue menuItemName = [%s] PropertyName = [%s]",
        category, path);
    std::string value = readValue();
    log(DLOG_INFO,
        "%s: %s(%d) > GetDevicePropInfo menuItemName = [%s] PropertyName = [%s] propertyValue = "
        "[%s]",
        category, path, value.c_str());
    log(DLOG_INFO, "%s: %s(%d) > propertyValue = [%s]", value.c_str());
    return value;
}

} // namespace

std::string get(const Setting& setting) {
    return get(setting.category, setting.path, [&setting] { return read(setting); });
}

std::string getBacklight() {
    return get("Picture", "Backlight", [] {
        int value = 0;
        pelm_get_backlight(1, &value, PELM_SAVE_STORED);
        return std::to_string(value);
    });
}

void apply(const Setting& setting, const std::string& value) {
    log(DLOG_INFO, "%s: %s(%d) > mapKeyID=[%s] value=[%s]", setting.path, value.c_str());
    write(setting, value);
}

void set(const Setting& setting, const std::string& value) {
    log(DLOG_INFO,
        "%s: %s(%d) > SetDevicePropValue menuItemName = [%s] propertyName = [%s] propertyValue "
        "=[%s]",
        setting.category, setting.path, value.c_str());
    apply(setting, value);
}

std::vector<Element> elementsOf(const std::string& document) {
    const Document parsed = parsedDocument(document);
    std::vector<Element> elements;
    collect(xmlFirstElementChild(xmlDocGetRootElement(parsed.get()))->children, 0, "", elements);
    return elements;
}

std::string xmlDocument(const std::vector<Element>& elements) {
    log(DLOG_INFO, "%s: %s(%d) > GetDeviceInfo retDataFormat = [%d]", 1);
    const Document built(xmlNewDoc(xmlText("1.0")), &xmlFreeDoc);
    const xmlNodePtr root = xmlNewDocNode(built.get(), nullptr, xmlText("rm_as"), nullptr);
    xmlDocSetRootElement(built.get(), root);
    xmlNewProp(root, xmlText("version"), xmlText("2.5"));
    const xmlNodePtr deviceInfo = xmlNewChild(root, nullptr, xmlText("deviceInfo"), nullptr);
    xmlNewProp(deviceInfo, xmlText("devicetype"), xmlText("TV"));

    std::vector<xmlNodePtr> parents{deviceInfo};
    for (const Element& element : elements) {
        parents.resize(element.depth + 1);
        log(DLOG_DEBUG, "%s: %s(%d) > Creating %s", element.name.c_str());
        const xmlNodePtr node =
            xmlNewChild(parents.back(), nullptr, xmlText(element.kind.c_str()), nullptr);
        xmlNewProp(node, xmlText("name"), xmlText(element.name.c_str()));
        if (element.setting != nullptr) {
            log(DLOG_DEBUG, "%s: %s(%d) > There is NO fixed default value.");
            xmlNewProp(node, xmlText("default"), xmlText(readDefault(*element.setting).c_str()));
            xmlNewProp(node, xmlText("value"), xmlText(read(*element.setting).c_str()));
        }
        parents.push_back(node);
    }
    return serialised(built.get());
}

void addTo(Json::Value& property, const Setting& setting) {
    log(DLOG_DEBUG, "%s: %s(%d) > There is NO fixed default value.");
    property["Default"] = readDefault(setting);
    property["Value"] = read(setting);
}

std::string jsonDocument() {
    log(DLOG_INFO, "%s: %s(%d) > GetDeviceInfo retDataFormat = [%d]", 0);
    log(DLOG_DEBUG, "%s: %s(%d) > prepareDeviceInfoData");
    Json::Value root;
    for (const Setting& setting : settings()) {
        addTo(root[setting.category][setting.path], setting);
    }
    return Json::writeString(Json::StreamWriterBuilder(), root);
}

void restoreXml(const std::string& document, const std::string& value) {
    constexpr int specialPaths = 3;
    log(DLOG_INFO, "%s: %s(%d) > SetDeviceInfo start");
    const Document parsed = parsedDocument(document);
    for (int pass = 0; pass < specialPaths + 1; ++pass) {
        logRestoring(value);
    }
    for (const Setting& setting : settings()) {
        apply(setting, value);
    }
}

void restoreJson(const std::string& document, const std::string& value) {
    log(DLOG_INFO, "%s: %s(%d) > SetDeviceInfo start");
    Json::Value root;
    const std::unique_ptr<Json::CharReader> reader(Json::CharReaderBuilder().newCharReader());
    if (!reader->parse(document.data(), document.data() + document.size(), &root, nullptr)) {
        throw std::runtime_error("the library's document cannot be read");
    }
    log(DLOG_INFO, "%s: %s(%d) > start");
    for (const Setting& setting : settings()) {
        apply(setting, value);
    }
}

} // namespace floors
