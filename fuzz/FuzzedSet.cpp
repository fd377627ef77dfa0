#include "FuzzedSet.h"

#include <libxml/parser.h>

#include <cstdio>
#include <cstdlib>
#include <json/json.h>
#include <memory>

namespace {

constexpr auto json = CDeviceInfoManager::DATA_FORMAT_JSON;
constexpr auto xml = CDeviceInfoManager::DATA_FORMAT_XML;

void ignoreXmlError(void*, xmlErrorPtr) {}

} // namespace

FuzzedSet::FuzzedSet(const std::list<std::string>& paths) : m_paths(paths) {
    for (const std::string& path : paths) {
        m_records.add(path, "", std::string("20"));
    }
}

void FuzzedSet::reset() {
    klx::fake::clearHistory();
    m_records.forgetApplied();
    for (const std::string& path : m_paths) {
        m_records.setValueOf(path, "50");
    }
}

void FuzzedSet::requireReadableDumps() {
    if (m_records.applied().empty()) {
        return;
    }
    requireReadableDump(xml);
    requireReadableDump(json);
}

void FuzzedSet::requireReadableDump(CDeviceInfoManager::DataFormatType format) {
    const std::string document = dumpOf(format);
    require(format == xml ? isXml(document) : isJson(document), "the dump cannot be read");
    require(CDeviceInfoManager::SetDeviceInfo(document, format), "the dump cannot be restored");
    require(dumpOf(format) == document, "restoring the dump changed it");
}

void require(bool condition, const char* message) {
    if (!condition) {
        std::fprintf(stderr, "%s\n", message);
        std::abort();
    }
}

std::string dumpOf(CDeviceInfoManager::DataFormatType format) {
    std::string document;
    require(CDeviceInfoManager::GetDeviceInfo({{"Factory", {"*"}},
                                               {"General & Privacy", {"*"}},
                                               {"Input", {"*"}},
                                               {"Menu", {"*"}},
                                               {"Picture", {"*"}}},
                                              document, "", format),
            "dumping failed");
    return document;
}

bool isXml(const std::string& text) {
    xmlSetStructuredErrorFunc(nullptr, &ignoreXmlError);
    const std::unique_ptr<xmlDoc, decltype(&xmlFreeDoc)> document(
        xmlReadMemory(text.data(), static_cast<int>(text.size()), "dump", nullptr, 0), &xmlFreeDoc);
    return document != nullptr;
}

bool isJson(const std::string& text) {
    Json::CharReaderBuilder builder;
    Json::CharReaderBuilder::strictMode(&builder.settings_);
    const std::unique_ptr<Json::CharReader> reader(builder.newCharReader());
    Json::Value root;
    return reader->parse(text.data(), text.data() + text.size(), &root, nullptr);
}

std::list<std::string> typicalPaths() {
    return {"/Factory/ND_ADJ",
            "/Picture/Expert Settings/HDR+ Mode",
            "/Picture/Picture Mode",
            "/Picture/Backlight",
            "/General & Privacy/Accessibility/Caption Settings/Caption",
            "/Input/Source_Connect/HDMI1",
            "/Menu/A",
            "/Menu/A//B/C",
            "/Menu/Power On with  Mobile"};
}
